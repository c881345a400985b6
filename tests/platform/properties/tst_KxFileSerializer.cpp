#include "platform/properties/KxFileSerializer.h"
#include "platform/properties/KxProperty.h"
#include "platform/properties/KxSiteSettings.h"
#include "tests/platform/properties/ProgramLog.h"

#include <QDir>
#include <QProcess>
#include <QTest>

namespace {

constexpr int writesPerProcess = 100;

/// Role of a second process: writes numbered keys, and over and over one key of its own with values
/// of equal length.
int writeAsSecondProcess(const QString &fileName, const QString &name)
{
    KxFileSerializer store(fileName);
    for (int i = 0; i < writesPerProcess; ++i) {
        if (!store.write(name + QString::number(i), name)
            || !store.write(name, QString::number(1000 + i))) {
            return 1;
        }
    }
    return 0;
}

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void setContent(const QString &fileName, const QByteArray &content)
{
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

} // namespace

class tst_KxFileSerializer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void survivesRestart_data();
    void survivesRestart();
    void filesWrittenByHand();
    void siteDefaultsGiveWayToTheUser();
    void otherProcessesLoseNothing();
    void twoStoresSeeEachOther();
    void changesThatLookLikeNone();
    void damagedFileIsSetAside_data();
    void damagedFileIsSetAside();
    void fileThatCannotBeUsed();
    void linkIsKept();

private:
    [[nodiscard]] QStringList files() const
    {
        return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    ProgramLog m_log;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

void tst_KxFileSerializer::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_file = m_folder->filePath(QStringLiteral("settings.ini"));
    m_log.take();
}

void tst_KxFileSerializer::survivesRestart_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << QStringLiteral("UI.ColorScheme") << QStringLiteral("Movara Dark");
    QTest::newRow("general") << QStringLiteral("General.LoadIncompleteStudies")
                             << QStringLiteral("LoadNever");
    QTest::newRow("empty") << QStringLiteral("UI.SplitMonitorConfig") << QString();
    QTest::newRow("separators") << QStringLiteral("a")
                                << QStringLiteral(" a, b;c = \"d\" \\ %1|@x\n\t[s] ");
    QTest::newRow("at sign") << QStringLiteral("a") << QStringLiteral("@Invalid()");
    QTest::newRow("other scripts")
        << QString::fromUtf8("UI.\u00e9\u4e2d") << QString::fromUtf8("\u5c71\u7530^\U0001F600");
    QTest::newRow("slashes in the key")
        << QStringLiteral("UI.//a\\b/%2F c=d") << QStringLiteral("1");
}

void tst_KxFileSerializer::survivesRestart()
{
    QFETCH(const QString, key);
    QFETCH(const QString, text);
    {
        KxFileSerializer store(m_file);
        QCOMPARE(store.read(key), std::nullopt);
        QVERIFY(store.write(key, text));
        QVERIFY(store.write(QStringLiteral("Other"), QStringLiteral("x")));
    }
    KxFileSerializer restarted(m_file);
    QCOMPARE(restarted.read(key), text);
    QVERIFY(restarted.remove(key));
    QVERIFY(!restarted.write(QString(), text));
    const KxFileSerializer again(m_file);
    QCOMPARE(again.read(key), std::nullopt);
    QCOMPARE(again.read(QStringLiteral("Other")), QStringLiteral("x"));
    QCOMPARE(files(), QStringList{QStringLiteral("settings.ini")});
    QCOMPARE(m_log.take(), QStringList());
}

void tst_KxFileSerializer::filesWrittenByHand()
{
    setContent(
        m_file, "; comment\nUI.Split=1, 2\nUI.Name=Movara Dark\n[Group]\nUI.Quoted=\"a, b\"\n");
    const KxFileSerializer store(m_file);
    QCOMPARE(KxProperty<QList<int>>::stored("UI.Split", store), (QList<int>{1, 2}));
    QCOMPARE(store.read(QStringLiteral("UI.Name")), QStringLiteral("Movara Dark"));
    QCOMPARE(store.read(QStringLiteral("Group/UI.Quoted")), QStringLiteral("a, b"));
}

void tst_KxFileSerializer::siteDefaultsGiveWayToTheUser()
{
    const QString siteFile = m_folder->filePath(QStringLiteral("site.ini"));
    setContent(siteFile, "UI.A=site\nUI.B=site\n");
    const KxSiteSettings site(siteFile);
    KxFileSerializer store(m_file, &site);
    QVERIFY(store.write(QStringLiteral("UI.B"), QStringLiteral("user")));
    QCOMPARE(store.read(QStringLiteral("UI.A")), QStringLiteral("site"));
    QCOMPARE(store.read(QStringLiteral("UI.B")), QStringLiteral("user"));
    QCOMPARE(contentOf(siteFile), QByteArray("UI.A=site\nUI.B=site\n"));

    setContent(siteFile, QByteArray(100, '\0'));
    const KxSiteSettings damaged(siteFile);
    QVERIFY(damaged.failed() && damaged.values().isEmpty());
    QVERIFY(!KxSiteSettings(m_folder->filePath(QStringLiteral("absent.ini"))).failed());
    QCOMPARE(m_log.take(),
        QStringList{
            QStringLiteral("W WARNING - the site settings %1 cannot be read: not an INI file")
                .arg(siteFile)});
}

void tst_KxFileSerializer::otherProcessesLoseNothing()
{
    const QStringList names{
        QStringLiteral("first"), QStringLiteral("other"), QStringLiteral("third")};
    std::vector<std::unique_ptr<QProcess>> processes;
    for (const QString &name : names) {
        processes.push_back(std::make_unique<QProcess>());
        processes.back()->setProcessChannelMode(QProcess::ForwardedChannels);
        processes.back()->start(
            QCoreApplication::applicationFilePath(), {QStringLiteral("--write"), m_file, name});
    }
    for (const auto &process : processes) {
        QVERIFY(process->waitForFinished(100000));
        QCOMPARE(process->exitCode(), 0);
    }
    const KxFileSerializer store(m_file);
    QStringList lost;
    for (const QString &name : names) {
        for (int i = 0; i < writesPerProcess; ++i) {
            if (store.read(name + QString::number(i)) != name) {
                lost.append(name + QString::number(i));
            }
        }
        QCOMPARE(store.read(name), QString::number(1000 + writesPerProcess - 1));
    }
    QCOMPARE(lost, QStringList());
    QCOMPARE(files(), QStringList{QStringLiteral("settings.ini")});
}

void tst_KxFileSerializer::twoStoresSeeEachOther()
{
    KxFileSerializer a(m_file);
    KxFileSerializer b(m_file);
    QVERIFY(a.write(QStringLiteral("a"), QStringLiteral("1")));
    QVERIFY(b.write(QStringLiteral("long key of b"), QStringLiteral("2")));
    QCOMPARE(a.read(QStringLiteral("long key of b")), QStringLiteral("2"));
    QVERIFY(a.write(QStringLiteral("a"), QStringLiteral("3")));
    const KxFileSerializer c(m_file);
    QCOMPARE(c.read(QStringLiteral("a")), QStringLiteral("3"));
    QCOMPARE(c.read(QStringLiteral("long key of b")), QStringLiteral("2"));
}

void tst_KxFileSerializer::changesThatLookLikeNone()
{
    // Another process changes a value within the same tick of the file system's clock, the size
    // staying the same.
    KxFileSerializer store(m_file);
    QVERIFY(store.write(QStringLiteral("a"), QStringLiteral("1111")));
    QVERIFY(store.write(QStringLiteral("b"), QStringLiteral("1111")));
    const QDateTime time = QFileInfo(m_file).lastModified();
    setContent(m_file, contentOf(m_file).replace("a=1111", "a=2222"));
    QFile file(m_file);
    QVERIFY(file.open(QIODevice::ReadWrite)
        && file.setFileTime(time, QFileDevice::FileModificationTime));
    file.close();
    QCOMPARE(QFileInfo(m_file).lastModified(), time);

    QVERIFY(store.write(QStringLiteral("b"), QStringLiteral("3333")));
    QCOMPARE(store.read(QStringLiteral("a")), QStringLiteral("2222"));
    QVERIFY(contentOf(m_file).contains("a=2222\nb=3333"));
}

void tst_KxFileSerializer::damagedFileIsSetAside_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("writesFirst");
    const QByteArray noise("\x7f\x45\x4c\x46\x02\x01\x01\0\0\n\x12\xff\xfe", 13);
    QTest::newRow("zeros after a crash") << QByteArray(4096, '\0') << false;
    QTest::newRow("a program's bytes") << noise << false;
    QTest::newRow("cut in the middle of a line") << QByteArray("UI.A=1\nUI.Colo") << false;
    QTest::newRow("open section") << QByteArray("[General\nUI.A=1\n") << false;
    QTest::newRow("found by a write") << noise << true;
}

void tst_KxFileSerializer::damagedFileIsSetAside()
{
    QFETCH(const QByteArray, content);
    QFETCH(const bool, writesFirst);
    setContent(m_file, content);
    KxFileSerializer store(m_file);
    if (!writesFirst) {
        KxProperty<int> property("UI.A", 8, store);
        QCOMPARE(property.value(), 8);
        QVERIFY(!property.reload());
    }
    QVERIFY(store.write(QStringLiteral("UI.B"), QStringLiteral("2")));

    const QStringList now = files();
    QCOMPARE(now.size(), 2);
    QVERIFY2(now[1].startsWith(QLatin1String("settings.ini.damaged-")), qUtf8Printable(now[1]));
    QCOMPARE(contentOf(m_folder->filePath(now[1])), content);
    const KxFileSerializer restarted(m_file);
    QCOMPARE(restarted.read(QStringLiteral("UI.B")), QStringLiteral("2"));
    QCOMPARE(m_log.take(),
        QStringList{QStringLiteral("W WARNING - the settings file %1 is damaged and was set aside "
                                   "as %2; default settings are used")
                        .arg(m_file, m_folder->filePath(now[1]))});
}

void tst_KxFileSerializer::fileThatCannotBeUsed()
{
    QVERIFY(QDir().mkpath(m_file));
    KxFileSerializer store(m_file);
    KxProperty<int> property("UI.A", 8, store);
    QCOMPARE(property.value(), 8);
    QVERIFY(property.change(9));
    QVERIFY(!property.serialize());
    QCOMPARE(property.value(), 9);
    QCOMPARE(m_log.take(),
        QStringList{QStringLiteral("W WARNING - the settings file %1 cannot be read").arg(m_file)});

    KxFileSerializer nowhere(QStringLiteral("/proc/no-such-folder/settings.ini"));
    QVERIFY(!nowhere.write(QStringLiteral("UI.A"), QStringLiteral("1")));
    QVERIFY(!nowhere.write(QStringLiteral("UI.A"), QStringLiteral("1")));
    QCOMPARE(m_log.take(),
        QStringList{
            QStringLiteral("W WARNING - the settings file /proc/no-such-folder/settings.ini is in "
                           "a folder that cannot be made")});
}

void tst_KxFileSerializer::linkIsKept()
{
    const QString target = m_folder->filePath(QStringLiteral("shared.ini"));
    setContent(target, "UI.A=1\n");
    QVERIFY(QFile::link(target, m_file));
    KxFileSerializer store(m_file);
    QVERIFY(store.write(QStringLiteral("UI.B"), QStringLiteral("2")));
    QCOMPARE(QFile::symLinkTarget(m_file), target);
    QVERIFY(contentOf(target).contains("UI.B=2"));
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 4 && arguments[1] == QLatin1String("--write")) {
        return writeAsSecondProcess(arguments[2], arguments[3]);
    }
    tst_KxFileSerializer test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_KxFileSerializer.moc"
