#include "platform/properties/KxFileSerializer.h"
#include "platform/properties/KxPropertyPool.h"
#include "tests/platform/properties/ProgramLog.h"
#include "tests/support/Files.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QStringList registered;

void registerFirst(KxPropertyPool &pool)
{
    registered.append(u"first"_s);
    // Registering may itself come through the one instance, and may register more.
    KxPropertyPool::addRegisterProperties(
        [](KxPropertyPool &) { registered.append(u"from first"_s); });
    if (!pool.variant("UI.Size")) {
        KxPropertyPool::instance().addVariant(
            std::make_unique<KxProperty<int>>("UI.Size", 8, pool.defaultSerializer()));
    }
}

[[maybe_unused]] const bool firstAdded = KxPropertyPool::addRegisterProperties(&registerFirst);
[[maybe_unused]] const bool secondAdded = KxPropertyPool::addRegisterProperties(
    [](KxPropertyPool &) { registered.append(u"second"_s); });

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
    void registrationRunsOnFirstUse()
    {
        const QString siteFile = m_folder.filePath(u"site.ini"_s);
        writeFile(siteFile, "UI.Size=9\nUI.Scheme=Movara Light\n");
        qputenv("MOVARA_SITE_SETTINGS", siteFile.toUtf8());
        qputenv("MOVARA_SETTINGS_FILE", m_folder.filePath(u"user/settings.ini"_s).toUtf8());

        QCOMPARE(registered, QStringList());
        KxPropertyPool &pool = KxPropertyPool::instance();
        QCOMPARE(registered.join(u','), u"first,from first,second"_s);
        QVERIFY(&pool == &KxPropertyPool::instance());
        KxPropertyPool::addRegisterProperties(
            [](KxPropertyPool &) { registered.append(u"late"_s); });
        QCOMPARE(registered.takeLast(), u"late"_s);
        QCOMPARE(pool.find<int>("UI.Size")->value(), 9);
    }

    void takenKeys()
    {
        KxPropertyPool &pool = KxPropertyPool::instance();
        KxPropertySerializer &store = pool.defaultSerializer();
        KxVariant *first = pool.addVariant(std::make_unique<KxProperty<bool>>("UI.B", true, store));
        QVERIFY(first);
        QVERIFY(!pool.addVariant(std::make_unique<KxProperty<bool>>("UI.B", false, store)));
        QVERIFY(!pool.addVariant(std::make_unique<KxProperty<bool>>("", false, store)));
        KxProperty<int> &made = pool.property<int>(std::string("UI.A"), 1, store);
        QVERIFY(&made == &pool.property<int>(u"UI."_s + u'A', 2, store));
        QVERIFY(pool.variant("UI.B") == first && !pool.variant("UI.b"));
        QVERIFY(!pool.find<int>("UI.B"));

        // Another type under a taken key: usable, yet not in the pool, and made once.
        KxProperty<int> &stranger = pool.property<int>("UI.B", 5, store);
        QCOMPARE(stranger.value(), 5);
        QVERIFY(&stranger == &pool.property<int>("UI.B", 6, store));
        QCOMPARE(keys().join(u','), u"UI.A,UI.B,UI.Size"_s);
        QCOMPARE(m_log.take().join(u'\n'),
            u"W WARNING - setting \"UI.B\" cannot be added: the key is taken\n"
            "W WARNING - setting \"\" cannot be added: it has no key\n"
            "W WARNING - setting \"UI.B\" is asked for with a type that it does not have"_s);
    }

    void storesOfTheProcess()
    {
        KxPropertyPool &pool = KxPropertyPool::instance();
        const KxProperty<QString> &unset
            = pool.property<QString>("UI.Scheme", u"Movara Medium"_s, pool.registrySerializer());
        QCOMPARE(unset.value(), u"Movara Light"_s);
        pool.property<QString>("UI.Scheme", QString(), pool.registrySerializer())
            .change(u"Movara Dark"_s);
        pool.property<int>("UI.Size", 0, pool.defaultSerializer()).change(10);

        // Only what went to the registry store is there for the next start.
        const KxFileSerializer restarted(KxFileSerializer::defaultFileName());
        QCOMPARE(restarted.fileName(), m_folder.filePath(u"user/settings.ini"_s));
        QCOMPARE(restarted.read(u"UI.Scheme"_s), u"Movara Dark"_s);
        QCOMPARE(restarted.read(u"UI.Size"_s), std::nullopt);
        QCOMPARE(pool.defaultSerializer().read(u"UI.Size"_s), u"10"_s);
    }

private:
    ProgramLog m_log;
    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(tst_KxPropertyPool)
#include "tst_KxPropertyPool.moc"
