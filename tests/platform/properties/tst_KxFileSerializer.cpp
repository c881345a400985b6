#include "platform/properties/KxFileSerializer.h"
#include "platform/properties/KxProperty.h"
#include "platform/properties/KxSiteSettings.h"
#include "tests/platform/properties/ProgramLog.h"
#include "tests/support/Files.h"
#include "tests/support/SmallDisk.h"

#include <QDir>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

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

} // namespace

class tst_KxFileSerializer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_file = m_folder->filePath(u"settings.ini"_s);
        m_log.take();
    }

    void survivesRestart()
    {
        const std::pair<QString, QString> rows[] = {{u"UI.ColorScheme"_s, u"Movara Dark"_s},
            {u"General.LoadIncompleteStudies"_s, u"LoadNever"_s}, // The group of keys without one
            {u"UI.SplitMonitorConfig"_s, QString()}, {u"a"_s, u"@Invalid()"_s},
            {u"b"_s, u" a, b;c = \"d\" \\ %1|@x\n\t[s] "_s},
            {QString::fromUtf8("UI.\u00e9\u4e2d"), QString::fromUtf8("\u5c71\u7530^\U0001F600")},
            {u"UI.//a\\b/%2F c=d"_s, u"1"_s}};
        {
            KxFileSerializer store(m_file);
            for (const auto &[key, text] : rows) {
                QVERIFY(store.write(key, text));
            }
            QVERIFY(!store.write(QString(), u"1"_s));
        }
        for (const auto &[key, text] : rows) {
            KxFileSerializer restarted(m_file);
            QCOMPARE(restarted.read(key), text);
            QVERIFY(restarted.remove(key));
            QCOMPARE(KxFileSerializer(m_file).read(key), std::nullopt);
        }
        QCOMPARE(files(), QStringList{u"settings.ini"_s});
        QCOMPARE(m_log.take(), QStringList());
    }

    void filesWrittenByHand()
    {
        writeFile(
            m_file, "; comment\nUI.Split=1, 2\nUI.Name=Movara Dark\n[Group]\nUI.Quoted=\"a, b\"\n");
        const KxFileSerializer store(m_file);
        QCOMPARE(KxProperty<QList<int>>::stored("UI.Split", store), (QList<int>{1, 2}));
        QCOMPARE(store.read(u"UI.Name"_s), u"Movara Dark"_s);
        QCOMPARE(store.read(u"Group/UI.Quoted"_s), u"a, b"_s);
    }

    void siteDefaultsGiveWayToTheUser()
    {
        const QString siteFile = m_folder->filePath(u"site.ini"_s);
        writeFile(siteFile, "UI.A=site\nUI.B=site\n");
        const KxSiteSettings site(siteFile);
        KxFileSerializer store(m_file, &site);
        QVERIFY(store.write(u"UI.B"_s, u"user"_s));
        QCOMPARE(store.read(u"UI.A"_s), u"site"_s);
        QCOMPARE(store.read(u"UI.B"_s), u"user"_s);
        QCOMPARE(readFile(siteFile), QByteArray("UI.A=site\nUI.B=site\n"));

        writeFile(siteFile, QByteArray(100, '\0'));
        const KxSiteSettings damaged(siteFile);
        QVERIFY(damaged.failed() && damaged.values().isEmpty());
        QVERIFY(!KxSiteSettings(m_folder->filePath(u"absent.ini"_s)).failed());
        QCOMPARE(m_log.take(),
            QStringList{u"W WARNING - the site settings %1 cannot be read: not an INI file"_s.arg(
                siteFile)});
    }

    void otherProcessesLoseNothing()
    {
        const QStringList names{u"first"_s, u"other"_s, u"third"_s};
        std::array<QProcess, 3> processes;
        for (std::size_t i = 0; i < processes.size(); ++i) {
            processes[i].setProcessChannelMode(QProcess::ForwardedChannels);
            processes[i].start(QCoreApplication::applicationFilePath(),
                {u"--write"_s, m_file, names[static_cast<qsizetype>(i)]});
        }
        for (QProcess &process : processes) {
            QVERIFY(process.waitForFinished(100000));
            QCOMPARE(process.exitCode(), 0);
        }
        const KxFileSerializer store(m_file);
        for (const QString &name : names) {
            for (int i = 0; i < writesPerProcess; ++i) {
                QCOMPARE(store.read(name + QString::number(i)), name);
            }
            QCOMPARE(store.read(name), QString::number(1000 + writesPerProcess - 1));
        }
        QCOMPARE(files(), QStringList{u"settings.ini"_s});
    }

    void changesThatLookLikeNone()
    {
        // Another process changes a value within the same tick of the file system's clock, the size
        // staying the same.
        KxFileSerializer store(m_file);
        QVERIFY(store.write(u"a"_s, u"1111"_s));
        QVERIFY(store.write(u"b"_s, u"1111"_s));
        const QDateTime time = QFileInfo(m_file).lastModified();
        writeFile(m_file, readFile(m_file).replace("a=1111", "a=2222"));
        QFile file(m_file);
        QVERIFY(file.open(QIODevice::ReadWrite)
            && file.setFileTime(time, QFileDevice::FileModificationTime));
        file.close();
        QCOMPARE(QFileInfo(m_file).lastModified(), time);

        QVERIFY(store.write(u"b"_s, u"3333"_s));
        QCOMPARE(store.read(u"a"_s), u"2222"_s);
        QVERIFY(readFile(m_file).contains("a=2222\nb=3333"));
    }

    void damagedFileIsSetAside()
    {
        const QByteArray noise("\x7f\x45\x4c\x46\x02\x01\x01\0\0\n\x12\xff\xfe", 13);
        for (const QByteArray &content :
            {QByteArray(4096, '\0'), noise, QByteArray("UI.A=1\nUI.Colo"),
                QByteArray("[General\nUI.A=1\n"), QByteArray("[General]\nUI.A;MoT.Log=1\n")}) {
            for (const bool writesFirst : {false, true}) {
                init();
                writeFile(m_file, content);
                KxFileSerializer store(m_file);
                if (!writesFirst) {
                    KxProperty<int> property("UI.A", 8, store);
                    QVERIFY(property.value() == 8 && !property.reload());
                }
                QVERIFY(store.write(u"UI.B"_s, u"2"_s));
                const QStringList now = files();
                QCOMPARE(now.size(), 2);
                QVERIFY2(now[1].startsWith("settings.ini.damaged-"_L1), qUtf8Printable(now[1]));
                QCOMPARE(readFile(m_folder->filePath(now[1])), content);
                QCOMPARE(KxFileSerializer(m_file).read(u"UI.B"_s), u"2"_s);
                QCOMPARE(m_log.take(),
                    QStringList{u"W WARNING - the settings file %1 is damaged and was set aside "
                                "as %2; default settings are used"_s.arg(
                                    m_file, m_folder->filePath(now[1]))});
            }
        }
    }

    void fileThatCannotBeUsed()
    {
        QVERIFY(QDir().mkpath(m_file));
        KxFileSerializer store(m_file);
        KxProperty<int> property("UI.A", 8, store);
        QCOMPARE(property.value(), 8);
        QVERIFY(property.change(9));
        QVERIFY(!property.serialize());
        QCOMPARE(property.value(), 9);
        QCOMPARE(m_log.take(),
            QStringList{u"W WARNING - the settings file %1 cannot be read"_s.arg(m_file)});

        KxFileSerializer nowhere(u"/proc/no-such-folder/settings.ini"_s);
        QVERIFY(!nowhere.write(u"UI.A"_s, u"1"_s));
        QVERIFY(!nowhere.write(u"UI.A"_s, u"1"_s));
        QCOMPARE(m_log.take(),
            QStringList{u"W WARNING - the settings file /proc/no-such-folder/settings.ini is in "
                        "a folder that cannot be made"_s});
    }

    void whatCannotBeWrittenIsWrittenLater()
    {
        for (const bool isReadOnly : {false, true}) { // A full disk, a read-only folder
            const SmallDisk disk;
            if (!disk.isMounted()) {
                QSKIP("only root can mount a small disk");
            }
            const QString name = disk.path() % u"/settings.ini";
            QStringList told;
            KxFileSerializer store(name);
            store.setProblemHandler([&told](const QString &place) { told += place; });
            KxProperty<int> kept("UI.A", 8, store);
            QVERIFY(kept.change(1) && store.write(u"UI.Gone"_s, u"1"_s));
            const QByteArray before = readFile(name);

            disk.fill();
            QVERIFY(disk.setReadOnly(isReadOnly));
            QVERIFY(
                kept.change(2) && !store.write(u"UI.B"_s, u"x"_s) && !store.remove(u"UI.Gone"_s));
            QVERIFY(!store.flush());
            QCOMPARE(told, QStringList{name});
            QCOMPARE(m_log.take().size(), 1);
            QCOMPARE(readFile(name), before);
            QCOMPARE(values(store), u"2 x -"_s); // For those who ask while it lasts.
            QCOMPARE(values(KxFileSerializer(name)), u"1 - 1"_s); // A restart finds what was saved.
            // Not even where no room is left for other files.
            qputenv("TMPDIR", disk.path().toUtf8());
            QCOMPARE(values(KxFileSerializer(name)), u"1 - 1"_s);
            qunsetenv("TMPDIR");

            QVERIFY(disk.setReadOnly(false));
            disk.makeRoom();
            QVERIFY(store.flush());
            QCOMPARE(values(KxFileSerializer(name)), u"2 x -"_s);
            QCOMPARE(QDir(disk.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
            disk.fill();
            QVERIFY(kept.change(3));
            QCOMPARE(told.size(), 2); // Once for each time it fails.
            m_log.take();
        }
    }

    void linkIsKept()
    {
        const QString target = m_folder->filePath(u"shared.ini"_s);
        writeFile(target, "UI.A=1\n");
        QVERIFY(QFile::link(target, m_file));
        KxFileSerializer store(m_file);
        QVERIFY(store.write(u"UI.B"_s, u"2"_s));
        QCOMPARE(QFile::symLinkTarget(m_file), target);
        QVERIFY(readFile(target).contains("UI.B=2"));
    }

private:
    /// The texts of three keys, "-" where there is none.
    static QString values(const KxFileSerializer &store)
    {
        const auto text = [&store](const QString &key) { return store.read(key).value_or(u"-"_s); };
        return text(u"UI.A"_s) % u' ' % text(u"UI.B"_s) % u' ' % text(u"UI.Gone"_s);
    }

    [[nodiscard]] QStringList files() const
    {
        return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    ProgramLog m_log;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 4 && arguments[1] == "--write"_L1) {
        return writeAsSecondProcess(arguments[2], arguments[3]);
    }
    tst_KxFileSerializer test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_KxFileSerializer.moc"
