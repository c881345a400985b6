#include "platform/properties/KxProperty.h"
#include "platform/properties/KxPropertyPool.h"
#include "platform/properties/KxSessionSerializer.h"
#include "platform/properties/KxSiteSettings.h"
#include "platform/properties/KxTranslationProperty.h"
#include "tests/platform/properties/ProgramLog.h"

#include <QTest>
#include <QTranslator>

#include <limits>

using namespace Qt::StringLiterals;

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

class Again final : public TypedEnumValue<Policy>
{
public:
    Again()
        : TypedEnumValue(28, "Again", "Again")
    { }
};

/// A client type with members of its own for the text form.
struct Placement
{
    QList<int> monitors;
    bool fullScreen = false;

    [[nodiscard]] QString toString() const
    {
        return KxProperty<QList<int>>::toString(monitors) + u';'
            + KxProperty<bool>::toString(fullScreen);
    }
    bool fromString(const QString &text)
    {
        const QStringList parts = text.split(u';');
        return parts.size() == 2 && KxProperty<QList<int>>::fromString(parts[0], monitors)
            && KxProperty<bool>::fromString(parts[1], fullScreen);
    }
    friend bool operator==(const Placement &, const Placement &) = default;
};

/// Store that writes down what it is to keep.
class RecordingStore final : public KxPropertySerializer
{
public:
    explicit RecordingStore(QStringList &events)
        : m_events(events)
    { }
    std::optional<QString> read(const QString & /*key*/) const override { return std::nullopt; }
    bool write(const QString &key, const QString &text) override
    {
        m_events.append(u"write "_s + key + u'=' + text);
        return true;
    }
    bool remove(const QString & /*key*/) override { return false; }

private:
    QStringList &m_events;
};

/// What comes back when @p value is stored and read into a setting with another default.
template <typename T>
QString roundTrip(const T &value, const T &otherDefault, const QString &expectedText)
{
    KxSessionSerializer store{KxSiteSettings(QString())};
    KxProperty<T> written("Test.Key", otherDefault, store);
    written = value;
    written.serialize();
    if (store.read(u"Test.Key"_s) != expectedText) {
        return u"stored as "_s + store.read(u"Test.Key"_s).value_or(u"nothing"_s);
    }
    const KxProperty<T> read("Test.Key", otherDefault, store);
    return read.value() == value && !(read.value() == read.defaultValue()) ? QString()
                                                                           : u"read differently"_s;
}

} // namespace

class tst_KxProperty : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void noteChange() { m_events.append(u"slot"_s); }

private Q_SLOTS:
    void init() { m_log.take(); }

    void valuesSurviveTheirTextForm()
    {
        const QString notes = QString::fromUtf8("  a|b,\n\"ü\" ");
        const QStringList texts{u"a,b"_s, QString(), u"\"c\\"_s};
        QStringList problems{roundTrip<bool>(true, false, u"true"_s),
            roundTrip<int>(std::numeric_limits<int>::min(), 7, u"-2147483648"_s),
            roundTrip<float>(2.3F, 0, u"2.3"_s),
            roundTrip<float>(std::numeric_limits<float>::max(), 0, u"3.4028235e+38"_s),
            roundTrip<double>(0.1 + 0.2, 0, u"0.30000000000000004"_s),
            roundTrip<QString>(notes, u"x"_s, notes),
            roundTrip<QStringList>(texts, {}, u"[\"a,b\",\"\",\"\\\"c\\\\\"]"_s),
            roundTrip<QStringList>({}, {u"x"_s}, u"[]"_s),
            roundTrip<QStringList>({QString()}, {}, u"[\"\"]"_s),
            roundTrip<QList<int>>({3, -1, 0}, {}, u"3,-1,0"_s),
            roundTrip<QList<int>>({}, {1}, QString()),
            roundTrip<QRect>(QRect(-5, 7, 1920, 1080), QRect(), u"-5|7|1920|1080"_s),
            roundTrip<QRect>(QRect(), QRect(1, 2, 3, 4), u"0|0|0|0"_s),
            roundTrip<Policy>(Never(), Ask(), u"Never"_s),
            roundTrip<Placement>({{1, 2}, true}, {}, u"1,2;true"_s)};
        problems.removeAll(QString());
        QCOMPARE(problems, QStringList());
        QCOMPARE(m_log.take(), QStringList());
    }

    void textOfAnotherType()
    {
        // The types that read the text: bool, int, float, list, Numbers, Rectangle, enum, client's.
        const std::pair<QString, QString> rows[]
            = {{QString(), u"lN"_s}, {u"Ask"_s, u"le"_s}, {u"ask"_s, u"l"_s}, {u"28"_s, u"iflN"_s},
                {u"2147483648"_s, u"fl"_s}, {u"2.5"_s, u"fl"_s}, {u"2,5"_s, u"lN"_s},
                {u"inf"_s, u"l"_s}, {u"1e39"_s, u"l"_s}, {u"TRUE"_s, u"l"_s},
                {u" 1 "_s, u"biflN"_s}, {u"[\"a\""_s, QString()}, {u"[1]"_s, QString()},
                {u"1,,2"_s, u"l"_s}, {u"1, 2"_s, u"lN"_s}, {u"1|2|3|4"_s, u"lR"_s},
                {u"1|2|3"_s, u"l"_s}, {u"2147483647|0|2|1"_s, u"l"_s}, {u"1;true"_s, u"lc"_s}};
        for (const auto &[text, expected] : rows) {
            KxSessionSerializer store{KxSiteSettings(QString())};
            store.write(u"k"_s, text);
            QString readBy;
            const auto tryType = [&]<typename T>(char letter, const T &defaultValue) {
                KxProperty<T> property("k", defaultValue, store);
                const bool read = KxProperty<T>::stored("k", store).has_value();
                // An unreadable text leaves the default, also later and when it is set by hand.
                const bool keepsDefault = property.value() == defaultValue && !property.reload()
                    && !property.changeFromString(text) && property.value() == defaultValue;
                readBy += read || !keepsDefault ? QString(QLatin1Char(letter)) : QString();
            };
            tryType('b', false);
            tryType('i', 7);
            tryType('f', 7.5F);
            tryType('l', QStringList{u"default"_s});
            tryType('N', QList<int>{7, 7});
            tryType('R', QRect(7, 7, 7, 7));
            tryType('e', Policy(Never()));
            tryType('c', Placement{{7}, false});
            QCOMPARE(QString(text % u": " % readBy), QString(text % u": " % expected));
        }
    }

    void storedValueBeatsDefault()
    {
        KxSessionSerializer store{KxSiteSettings(QString())};
        store.write(u"UI.Size"_s, u"12"_s);
        store.write(u"UI.Broken"_s, u"twelve"_s);
        KxProperty<int> size("UI.Size", 8, store);
        const KxProperty<int> broken("UI.Broken", 8, store);
        QCOMPARE(size.value(), 12);
        QCOMPARE(broken.value(), 8);
        QCOMPARE(m_log.take(),
            QStringList{u"W WARNING - setting UI.Broken: stored value \"twelve\" is not "
                        "of its type, the default is used"_s});

        QVERIFY(!size.isDefault());
        QVERIFY(size.changeToDefault());
        QVERIFY(!size.changeToDefault());
        QCOMPARE(store.read(u"UI.Size"_s), u"8"_s);
        store.remove(u"UI.Size"_s);
        QVERIFY(!size.reload());
        QCOMPARE(KxProperty<int>::stored("UI.Size", store), std::nullopt);
    }

    void changesAreWrittenThenTold()
    {
        m_events.clear();
        RecordingStore store(m_events);
        KxProperty<int> size("UI.Size", 8, store);
        QVERIFY(size.connectPropertyChangedSignal(this, SLOT(noteChange())));
        QTest::ignoreMessage(
            QtWarningMsg, QRegularExpression(u"No such slot tst_KxProperty::noSuchSlot\\(\\)"_s));
        QVERIFY(!size.connectPropertyChangedSignal(this, SLOT(noSuchSlot())));
        connect(&size, &KxVariant::propertyChanged, this, [this](KxVariant *p) {
            m_events.append(u"signal "_s + p->key() + u'=' + p->toString());
        });
        const auto previous = KxPropertyPool::setPropagationHook(
            [this](KxVariant &p) { m_events.append(u"hook "_s + p.key()); });

        size = 9; // neither written nor told
        QVERIFY(!size.change(9));
        QVERIFY(size.change(10));
        QVERIFY(size.changeFromString(u"11"_s));
        QVERIFY(!size.changeFromString(u" 11"_s));
        KxPropertyPool::setPropagationHook(previous);
        size.propagate();

        QCOMPARE(m_events,
            QString::fromLatin1("write UI.Size=10,slot,signal UI.Size=10,hook UI.Size,"
                                "write UI.Size=11,slot,signal UI.Size=11,hook UI.Size,"
                                "slot,signal UI.Size=11")
                .split(u','));
    }

    void enumerations()
    {
        QVERIFY(Policy::values() == (std::vector<Policy>{Ask(), Never()}));
        QCOMPARE(Policy::fromName(u"Ask"_s)->value(), 28);
        QVERIFY(!Policy::fromName(u"Ask first"_s));
        const Policy unknown(5);
        QCOMPARE(unknown.name() + unknown.label(), QString());

        const RegEnumValue<Again> regAgain;
        QCOMPARE(Policy::values().size(), std::size_t(2));
        QCOMPARE(m_log.take(),
            QStringList{
                u"W WARNING - Enumeration.Policy: value 28 \"Again\" repeats a registered one"_s});
    }

    void choicesAndLabels()
    {
        class German final : public QTranslator
        {
        public:
            QString translate(
                const char *context, const char *source, const char *, int) const override
            {
                return QLatin1String(context) + u':' + QLatin1String(source).toString().toUpper();
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
        const QStringList seen{scheme.key(), scheme.label(), scheme.choices().join(u','),
            scheme.choiceLabels().join(u','), policy.label(), policy.choices().join(u','),
            policy.choiceLabels().join(u',')};
        QCoreApplication::removeTranslator(&german);
        QCOMPARE(seen.join(u'|'),
            u"UI.ColorScheme|Property:COLOR SCHEME|Native Style,Movara Dark|Native Style,Movara "
            "Dark||Ask,Never|Enumeration.Policy:ASK FIRST,Enumeration.Policy:NEVER"_s);
        QVERIFY(policy.kind() == KxVariant::Kind::Enumeration
            && scheme.kind() == KxVariant::Kind::Text);
    }

private:
    ProgramLog m_log;
    QStringList m_events;
};

QTEST_GUILESS_MAIN(tst_KxProperty)
#include "tst_KxProperty.moc"
