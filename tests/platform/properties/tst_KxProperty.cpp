#include "platform/properties/KxProperty.h"
#include "platform/properties/KxPropertyPool.h"
#include "platform/properties/KxSessionSerializer.h"
#include "platform/properties/KxSiteSettings.h"
#include "platform/properties/KxTranslationProperty.h"
#include "tests/platform/properties/ProgramLog.h"

#include <QTest>
#include <QTranslator>

#include <limits>

namespace {

class Policy final : public KxTypedEnum<Policy>
{
public:
    using KxTypedEnum::KxTypedEnum;
    static const char *context() { return "Enumeration.Policy"; }
};

class Ask final : public TypedEnumValue<Policy>
{
public:
    Ask()
        : TypedEnumValue(28, "Ask", "Ask first")
    { }
};
const RegEnumValue<Ask> regAsk;

class Never final : public TypedEnumValue<Policy>
{
public:
    Never()
        : TypedEnumValue(29, "Never", nullptr)
    { }
};
const RegEnumValue<Never> regNever;

/// A client type with members of its own for the text form.
struct Placement
{
    QList<int> monitors;
    bool fullScreen = false;

    [[nodiscard]] QString toString() const
    {
        return KxProperty<QList<int>>::toString(monitors) + QLatin1Char(';')
            + KxProperty<bool>::toString(fullScreen);
    }
    bool fromString(const QString &text)
    {
        const QStringList parts = text.split(QLatin1Char(';'));
        return parts.size() == 2 && KxProperty<QList<int>>::fromString(parts[0], monitors)
            && KxProperty<bool>::fromString(parts[1], fullScreen);
    }
    friend bool operator==(const Placement &, const Placement &) = default;
};

/// A client type that reads its text form by a static function.
struct Level
{
    int value = 0;

    [[nodiscard]] QString toString() const { return QLatin1Char('L') + QString::number(value); }
    static std::optional<Level> fromString(const QString &text)
    {
        bool ok = false;
        const Level level{text.mid(1).toInt(&ok)};
        return ok && text.startsWith(QLatin1Char('L')) ? std::optional<Level>(level) : std::nullopt;
    }
    friend bool operator==(const Level &, const Level &) = default;
};

/// Session store that writes down what it is asked.
class RecordingStore final : public KxPropertySerializer
{
public:
    explicit RecordingStore(QStringList &events)
        : m_events(events)
    { }
    std::optional<QString> read(const QString &key) const override { return m_session.read(key); }
    bool write(const QString &key, const QString &text) override
    {
        m_events.append(QStringLiteral("write ") + key + QLatin1Char('=') + text);
        return m_session.write(key, text);
    }
    bool remove(const QString &key) override { return m_session.remove(key); }

private:
    QStringList &m_events;
    KxSessionSerializer m_session{KxSiteSettings(QString())};
};

/// What comes back when @p value is stored and read into a setting with another default.
template <typename T>
QString roundTrip(const T &value, const T &otherDefault, const QString &expectedText)
{
    KxSessionSerializer store{KxSiteSettings(QString())};
    KxProperty<T> written("Test.Key", otherDefault, store);
    written = value;
    written.serialize();
    if (store.read(QStringLiteral("Test.Key")) != expectedText) {
        return QStringLiteral("stored as ")
            + store.read(QStringLiteral("Test.Key")).value_or(QStringLiteral("nothing"));
    }
    const KxProperty<T> read("Test.Key", otherDefault, store);
    return read.value() == value && !(read.value() == read.defaultValue())
        ? QString()
        : QStringLiteral("read differently");
}

} // namespace

class tst_KxProperty : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void noteChange() { m_events.append(QStringLiteral("slot")); }

private Q_SLOTS:
    void init() { m_log.take(); }
    void valuesSurviveTheirTextForm();
    void textOfAnotherType_data();
    void textOfAnotherType();
    void laxTexts();
    void storedValueBeatsDefault();
    void changesAreWrittenThenTold();
    void enumerations();
    void choicesAndLabels();

private:
    ProgramLog m_log;
    QStringList m_events;
};

void tst_KxProperty::valuesSurviveTheirTextForm()
{
    const auto text = [](const char *utf8) { return QString::fromUtf8(utf8); };
    QCOMPARE(roundTrip<bool>(true, false, text("true")), QString());
    QCOMPARE(roundTrip<int>(std::numeric_limits<int>::min(), 7, text("-2147483648")), QString());
    QCOMPARE(roundTrip<float>(2.3F, 0, text("2.3")), QString());
    QCOMPARE(
        roundTrip<float>(std::numeric_limits<float>::max(), 0, text("3.4028235e+38")), QString());
    QCOMPARE(roundTrip<double>(0.1 + 0.2, 0, text("0.30000000000000004")), QString());
    QCOMPARE(
        roundTrip<QString>(text("  a|b,\n\"ü\" "), text("x"), text("  a|b,\n\"ü\" ")), QString());
    QCOMPARE(roundTrip<QStringList>(
                 {text("a,b"), QString(), text("\"c\\")}, {}, text("[\"a,b\",\"\",\"\\\"c\\\\\"]")),
        QString());
    QCOMPARE(roundTrip<QStringList>({}, {text("x")}, text("[]")), QString());
    QCOMPARE(roundTrip<QStringList>({QString()}, {}, text("[\"\"]")), QString());
    QCOMPARE(roundTrip<QList<int>>({3, -1, 0}, {}, text("3,-1,0")), QString());
    QCOMPARE(roundTrip<QList<int>>({}, {1}, text("")), QString());
    QCOMPARE(
        roundTrip<QRect>(QRect(-5, 7, 1920, 1080), QRect(), text("-5|7|1920|1080")), QString());
    QCOMPARE(roundTrip<QRect>(QRect(), QRect(1, 2, 3, 4), text("0|0|0|0")), QString());
    QCOMPARE(roundTrip<Policy>(Never(), Ask(), text("Never")), QString());
    QCOMPARE(roundTrip<Placement>({{1, 2}, true}, {}, text("1,2;true")), QString());
    QCOMPARE(roundTrip<Level>({4}, {1}, text("L4")), QString());
    QCOMPARE(m_log.take(), QStringList());
}

void tst_KxProperty::textOfAnotherType_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("readBy");
    enum Reader {
        Bool = 1,
        Int = 2,
        Float = 4,
        List = 8,
        Integers = 16,
        Rect = 32,
        Enum = 64,
        Client = 128
    };

    QTest::newRow("nothing") << QString() << (List | Integers);
    QTest::newRow("word") << QStringLiteral("Ask") << (List | Enum);
    QTest::newRow("enumeration, other case") << QStringLiteral("ask") << int(List);
    QTest::newRow("enumeration by number")
        << QStringLiteral("28") << (Int | Float | List | Integers);
    QTest::newRow("too large for int") << QStringLiteral("2147483648") << (Float | List);
    QTest::newRow("fraction") << QStringLiteral("2.5") << (Float | List);
    QTest::newRow("comma fraction") << QStringLiteral("2,5") << (List | Integers);
    QTest::newRow("infinite") << QStringLiteral("inf") << int(List);
    QTest::newRow("too large for float") << QStringLiteral("1e39") << int(List);
    QTest::newRow("yes") << QStringLiteral("TRUE") << int(List);
    QTest::newRow("broken list") << QStringLiteral("[\"a\"") << 0;
    QTest::newRow("list of numbers") << QStringLiteral("[1]") << 0;
    QTest::newRow("hole in list") << QStringLiteral("1,,2") << int(List);
    QTest::newRow("rectangle") << QStringLiteral("1|2|3|4") << (List | Rect);
    QTest::newRow("short rectangle") << QStringLiteral("1|2|3") << int(List);
    QTest::newRow("rectangle past the numbers") << QStringLiteral("2147483647|0|2|1") << int(List);
    QTest::newRow("client type") << QStringLiteral("1;true") << (List | Client);
    QTest::newRow("client type, half")
        << QStringLiteral("1") << (Bool | Int | Float | List | Integers);
}

void tst_KxProperty::textOfAnotherType()
{
    QFETCH(const QString, text);
    KxSessionSerializer store{KxSiteSettings(QString())};
    store.write(QStringLiteral("k"), text);
    int readBy = 0;
    int bit = 1;
    const auto tryType = [&]<typename T>(const T &defaultValue) {
        KxProperty<T> property("k", defaultValue, store);
        const bool read = KxProperty<T>::stored("k", store).has_value();
        // An unreadable text leaves the default, also later and when it is set by hand.
        const bool keepsDefault = property.value() == defaultValue
            && !property.changeFromString(text) && !property.reload()
            && property.value() == defaultValue;
        readBy |= read || !keepsDefault ? bit : 0;
        bit *= 2;
    };
    tryType(false);
    tryType(7);
    tryType(7.5F);
    tryType(QStringList{QStringLiteral("default")});
    tryType(QList<int>{7, 7});
    tryType(QRect(7, 7, 7, 7));
    tryType(Policy(Never()));
    tryType(Placement{{7}, false});
    QTEST(readBy, "readBy");
}

void tst_KxProperty::laxTexts()
{
    bool flag = false;
    QVERIFY(KxProperty<bool>::fromString(QStringLiteral(" 1 "), flag) && flag);
    int number = 0;
    QVERIFY(KxProperty<int>::fromString(QStringLiteral(" 12 "), number));
    QCOMPARE(number, 12);
    QStringList list;
    QVERIFY(KxProperty<QStringList>::fromString(QStringLiteral("Movara Dark, b"), list));
    QCOMPARE(list, (QStringList{QStringLiteral("Movara Dark"), QStringLiteral("b")}));
    QList<int> numbers;
    QVERIFY(KxProperty<QList<int>>::fromString(QStringLiteral("1, 2"), numbers));
    QCOMPARE(numbers, (QList<int>{1, 2}));
}

void tst_KxProperty::storedValueBeatsDefault()
{
    KxSessionSerializer store{KxSiteSettings(QString())};
    store.write(QStringLiteral("UI.Size"), QStringLiteral("12"));
    store.write(QStringLiteral("UI.Broken"), QStringLiteral("twelve"));
    KxProperty<int> size("UI.Size", 8, store);
    const KxProperty<int> broken("UI.Broken", 8, store);
    QCOMPARE(size.value(), 12);
    QCOMPARE(broken.value(), 8);
    QCOMPARE(m_log.take(),
        QStringList{QStringLiteral("W WARNING - setting UI.Broken: stored value \"twelve\" is not "
                                   "of its type, the default is used")});

    QVERIFY(!size.isDefault());
    QVERIFY(size.changeToDefault());
    QVERIFY(!size.changeToDefault());
    QCOMPARE(store.read(QStringLiteral("UI.Size")), QStringLiteral("8"));
    store.remove(QStringLiteral("UI.Size"));
    QVERIFY(!size.reload());
    QCOMPARE(KxProperty<int>::stored("UI.Size", store), std::nullopt);
}

void tst_KxProperty::changesAreWrittenThenTold()
{
    m_events.clear();
    RecordingStore store(m_events);
    KxProperty<int> size("UI.Size", 8, store);
    QVERIFY(size.connectPropertyChangedSignal(this, SLOT(noteChange())));
    QTest::ignoreMessage(QtWarningMsg,
        QRegularExpression(QStringLiteral("No such slot tst_KxProperty::noSuchSlot\\(\\)")));
    QVERIFY(!size.connectPropertyChangedSignal(this, SLOT(noSuchSlot())));
    connect(&size, &KxVariant::propertyChanged, this, [this](KxVariant *p) {
        m_events.append(QStringLiteral("signal ") + p->key() + QLatin1Char('=') + p->toString());
    });
    const auto previous = KxPropertyPool::setPropagationHook(
        [this](KxVariant &p) { m_events.append(QStringLiteral("hook ") + p.key()); });

    size = 9; // neither written nor told
    QVERIFY(!size.change(9));
    QVERIFY(size.change(10));
    QVERIFY(size.changeFromString(QStringLiteral("11")));
    QVERIFY(!size.changeFromString(QStringLiteral(" 11")));
    KxPropertyPool::setPropagationHook(previous);
    size.propagate();

    QCOMPARE(m_events,
        QString::fromLatin1("write UI.Size=10,slot,signal UI.Size=10,hook UI.Size,"
                            "write UI.Size=11,slot,signal UI.Size=11,hook UI.Size,"
                            "slot,signal UI.Size=11")
            .split(QLatin1Char(',')));
}

void tst_KxProperty::enumerations()
{
    QVERIFY(Policy::values() == (std::vector<Policy>{Ask(), Never()}));
    QCOMPARE(Policy::fromName(QStringLiteral("Ask"))->value(), 28);
    QVERIFY(!Policy::fromName(QStringLiteral("Ask first")));
    const Policy unknown(5);
    QCOMPARE(unknown.name() + unknown.label(), QString());

    class Again final : public TypedEnumValue<Policy>
    {
    public:
        Again()
            : TypedEnumValue(28, "Again", "Again")
        { }
    };
    const RegEnumValue<Again> regAgain;
    QCOMPARE(Policy::values().size(), std::size_t(2));
    QCOMPARE(m_log.take(),
        QStringList{QStringLiteral(
            "W WARNING - Enumeration.Policy: value 28 \"Again\" repeats a registered one")});
}

void tst_KxProperty::choicesAndLabels()
{
    class German final : public QTranslator
    {
    public:
        QString translate(const char *context, const char *source, const char *, int) const override
        {
            return QLatin1String(context) + QLatin1Char(':')
                + QLatin1String(source).toString().toUpper();
        }
        bool isEmpty() const override { return false; }
    } german;

    KxSessionSerializer store{KxSiteSettings(QString())};
    const char *const key = KxTranslationProperty::translate("UI.ColorScheme", "Color Scheme");
    KxProperty<QString> scheme(key, QString(), store);
    scheme.setAttribute(KxPropertyPool::ATTRIBUTE_FLAG_LIST,
        std::vector<std::string>{"Native Style", "Movara Dark"});
    KxProperty<Policy> policy("General.Policy", Ask(), store);
    QCoreApplication::installTranslator(&german);
    const QStringList seen{scheme.key(), scheme.label(), scheme.choices().join(QLatin1Char('|')),
        scheme.choiceLabels().join(QLatin1Char('|')), policy.label(),
        policy.choices().join(QLatin1Char('|')), policy.choiceLabels().join(QLatin1Char('|'))};
    QCoreApplication::removeTranslator(&german);
    QCOMPARE(seen,
        (QStringList{QStringLiteral("UI.ColorScheme"), QStringLiteral("Property:COLOR SCHEME"),
            QStringLiteral("Native Style|Movara Dark"), QStringLiteral("Native Style|Movara Dark"),
            QString(), QStringLiteral("Ask|Never"),
            QStringLiteral("Enumeration.Policy:ASK FIRST|Enumeration.Policy:NEVER")}));
    QVERIFY(
        policy.kind() == KxVariant::Kind::Enumeration && scheme.kind() == KxVariant::Kind::Text);
}

QTEST_GUILESS_MAIN(tst_KxProperty)
#include "tst_KxProperty.moc"
