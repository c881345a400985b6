#include "platform/properties/KxFileSerializer.h"
#include "platform/properties/KxPropertyPool.h"
#include "tests/platform/properties/ProgramLog.h"

#include <QTest>

namespace {

QStringList registered;

void registerFirst(KxPropertyPool &pool)
{
    registered.append(QStringLiteral("first"));
    // Registering may itself come through the one instance, and may register more.
    KxPropertyPool::addRegisterProperties(
        [](KxPropertyPool &) { registered.append(QStringLiteral("from first")); });
    if (!pool.variant("UI.Size")) {
        KxPropertyPool::instance().addVariant(
            std::make_unique<KxProperty<int>>("UI.Size", 8, pool.defaultSerializer()));
    }
}

[[maybe_unused]] const bool firstAdded = KxPropertyPool::addRegisterProperties(&registerFirst);
[[maybe_unused]] const bool secondAdded = KxPropertyPool::addRegisterProperties(
    [](KxPropertyPool &) { registered.append(QStringLiteral("second")); });

QStringList keys()
{
    QStringList result;
    for (const KxVariant *property : KxPropertyPool::instance().properties()) {
        result.append(property->key());
    }
    return result;
}

} // namespace

class tst_KxPropertyPool : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void registrationRunsOnFirstUse();
    void takenKeys();
    void storesOfTheProcess();

private:
    ProgramLog m_log;
    QTemporaryDir m_folder;
};

void tst_KxPropertyPool::registrationRunsOnFirstUse()
{
    const QString siteFile = m_folder.filePath(QStringLiteral("site.ini"));
    QFile site(siteFile);
    QVERIFY(site.open(QIODevice::WriteOnly));
    site.write("UI.Size=9\nUI.Scheme=Movara Light\n");
    site.close();
    qputenv("MOVARA_SITE_SETTINGS", siteFile.toUtf8());
    qputenv(
        "MOVARA_SETTINGS_FILE", m_folder.filePath(QStringLiteral("user/settings.ini")).toUtf8());

    QCOMPARE(registered, QStringList());
    KxPropertyPool &pool = KxPropertyPool::instance();
    QCOMPARE(registered.join(QLatin1Char(',')), QStringLiteral("first,from first,second"));
    QVERIFY(&pool == &KxPropertyPool::instance());
    KxPropertyPool::addRegisterProperties(
        [](KxPropertyPool &) { registered.append(QStringLiteral("late")); });
    QCOMPARE(registered.takeLast(), QStringLiteral("late"));
    QCOMPARE(pool.find<int>("UI.Size")->value(), 9);
}

void tst_KxPropertyPool::takenKeys()
{
    KxPropertyPool &pool = KxPropertyPool::instance();
    KxPropertySerializer &store = pool.defaultSerializer();
    KxVariant *first = pool.addVariant(std::make_unique<KxProperty<bool>>("UI.B", true, store));
    QVERIFY(first);
    QVERIFY(!pool.addVariant(std::make_unique<KxProperty<bool>>("UI.B", false, store)));
    QVERIFY(!pool.addVariant(std::make_unique<KxProperty<bool>>("", false, store)));
    KxProperty<int> &made = pool.property<int>(std::string("UI.A"), 1, store);
    QVERIFY(&made == &pool.property<int>(QStringLiteral("UI.") + QLatin1Char('A'), 2, store));
    QVERIFY(pool.variant("UI.B") == first && !pool.variant("UI.b"));
    QVERIFY(!pool.find<int>("UI.B"));

    // Another type under a taken key: usable, yet not in the pool, and made once.
    KxProperty<int> &stranger = pool.property<int>("UI.B", 5, store);
    QCOMPARE(stranger.value(), 5);
    QVERIFY(&stranger == &pool.property<int>("UI.B", 6, store));
    QCOMPARE(keys().join(QLatin1Char(',')), QStringLiteral("UI.A,UI.B,UI.Size"));
    QCOMPARE(m_log.take().join(QLatin1Char('\n')),
        QStringLiteral(
            "W WARNING - setting \"UI.B\" cannot be added: the key is taken\n"
            "W WARNING - setting \"\" cannot be added: it has no key\n"
            "W WARNING - setting \"UI.B\" is asked for with a type that it does not have"));
}

void tst_KxPropertyPool::storesOfTheProcess()
{
    KxPropertyPool &pool = KxPropertyPool::instance();
    const KxProperty<QString> &unset = pool.property<QString>(
        "UI.Scheme", QStringLiteral("Movara Medium"), pool.registrySerializer());
    QCOMPARE(unset.value(), QStringLiteral("Movara Light"));
    pool.property<QString>("UI.Scheme", QString(), pool.registrySerializer())
        .change(QStringLiteral("Movara Dark"));
    pool.property<int>("UI.Size", 0, pool.defaultSerializer()).change(10);

    // Only what went to the registry store is there for the next start.
    const KxFileSerializer restarted(KxFileSerializer::defaultFileName());
    QCOMPARE(restarted.fileName(), m_folder.filePath(QStringLiteral("user/settings.ini")));
    QCOMPARE(restarted.read(QStringLiteral("UI.Scheme")), QStringLiteral("Movara Dark"));
    QCOMPARE(restarted.read(QStringLiteral("UI.Size")), std::nullopt);
    QCOMPARE(pool.defaultSerializer().read(QStringLiteral("UI.Size")), QStringLiteral("10"));
}

QTEST_GUILESS_MAIN(tst_KxPropertyPool)
#include "tst_KxPropertyPool.moc"
