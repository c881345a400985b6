#include "platform/backend/KxAuditFile.h"
#include "platform/backend/KxBackendPeer.h"
#include "platform/backend/KxServerPeer.h"
#include "platform/backend/KxWebServiceServer.h"
#include "tests/platform/properties/ProgramLog.h"

#include <QDateTime>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

class tst_KxBackendPeer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_log.take(); }
    void eventsBecomeLines();
    void clientsOwnPeers();
    void fileRotates();
    void fileThatCannotBeWritten();
    void webServices_data();
    void webServices();

private:
    ProgramLog m_log;
    QTemporaryDir m_folder;
};

void tst_KxBackendPeer::eventsBecomeLines()
{
    const QString name = m_folder.filePath(QStringLiteral("new/audit.jsonl"));
    qputenv("MOVARA_AUDIT_FILE", name.toUtf8());
    const QDateTime before = QDateTime::currentDateTimeUtc();
    KxBackendPeer::instance()->logEvent(1063, "View.Zoom", 0, -1, 1, QString());
    KxBackendPeer::instance()->logEvent(7,
        "Gr\xC3\xB6\xC3\x9F"
        "e {}",
        1, 2, 3, QStringLiteral("two\nlines \"%1\" {0}"));

    QFile file(name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QStringList lines;
    while (!file.atEnd()) {
        QJsonObject event = QJsonDocument::fromJson(file.readLine()).object();
        const QDateTime time = QDateTime::fromString(
            event.take(QStringLiteral("time")).toString(), Qt::ISODateWithMs);
        QVERIFY(time.timeSpec() == Qt::UTC && before.msecsTo(time) >= 0);
        QCOMPARE(
            event.take(QStringLiteral("process")).toInteger(), QCoreApplication::applicationPid());
        lines.append(QString::fromUtf8(QJsonDocument(event).toJson(QJsonDocument::Compact)));
    }
    QCOMPARE(lines.join(QLatin1Char('\n')),
        QString::fromUtf8("{\"arguments\":[0,-1,1],\"event\":1063,\"key\":\"View.Zoom\"}\n"
                          "{\"arguments\":[1,2,3],\"event\":7,\"key\":\"Gr\xC3\xB6\xC3\x9F"
                          "e {}\",\"text\":\"two\\nlines \\\"%1\\\" {0}\"}"));
}

void tst_KxBackendPeer::clientsOwnPeers()
{
    class OwnPeer final : public KxBackendPeer
    {
    public:
        void logEvent(int code, const std::string &key, int, int, int, const QString &) override
        {
            events.append(QString::number(code) + QLatin1Char(' ') + QString::fromStdString(key));
        }
        QStringList events;
    };
    class OwnServer final : public KxServerPeer
    {
    public:
        void printSessionLog(const std::string &prefix, const std::string &text) override
        {
            lines = prefix + text;
        }
        std::string lines;
    };

    KxBackendPeer *const builtIn = KxBackendPeer::instance();
    QVERIFY(builtIn && builtIn->reasonToQuit().empty());
    QVERIFY(!KxServerPeer::instance());
    {
        OwnPeer peer;
        OwnServer server;
        KxBackendPeer::install(&peer);
        KxServerPeer::install(&server);
        KxBackendPeer::instance()->logEvent(1, "key", 0, 0, 0, QString());
        KxBackendPeer::instance()->setReasonToQuit("userlogout");
        KxServerPeer::instance()->printSessionLog("[ToolLog] ", "Zoom triggered");
        QCOMPARE(peer.events, QStringList{QStringLiteral("1 key")});
        QCOMPARE(peer.reasonToQuit(), std::string("userlogout"));
        QCOMPARE(server.lines, std::string("[ToolLog] Zoom triggered"));
    }
    QVERIFY(KxBackendPeer::instance() == builtIn && !KxServerPeer::instance());
    QVERIFY(builtIn->reasonToQuit().empty());
}

void tst_KxBackendPeer::fileRotates()
{
    const QDir folder(m_folder.filePath(QStringLiteral("rotation")));
    KxAuditFile audit(folder.filePath(QStringLiteral("a.jsonl")), 200, 2);
    for (int i = 0; i < 100; ++i) {
        audit.append({{QStringLiteral("number"), i}});
    }
    QStringList last;
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    for (const QString &name : names) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.size() > 0 && file.size() <= 200);
        last.append(name + QLatin1Char(' ')
            + QString::fromUtf8(file.readAll().trimmed().split('\n').last()));
    }
    // 12 lines of 16 bytes fit into a file once all numbers have two digits.
    QCOMPARE(names.join(QLatin1Char(' ')), QStringLiteral("a.1.jsonl a.2.jsonl a.jsonl"));
    QCOMPARE(last.last(), QStringLiteral("a.jsonl {\"number\":99}"));
}

void tst_KxBackendPeer::fileThatCannotBeWritten()
{
    KxAuditFile audit(QStringLiteral("/proc/no-such-folder/audit.jsonl"));
    audit.append({{QStringLiteral("number"), 1}});
    audit.append({{QStringLiteral("number"), 2}});
    const QStringList lines = m_log.take();
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines[0].startsWith(QLatin1String(
        "W WARNING - the audit file /proc/no-such-folder/audit.jsonl cannot be written")));
    QCOMPARE(lines[1], QStringLiteral("I [Audit] {\"number\":1}"));
    QCOMPARE(lines[2], QStringLiteral("I [Audit] {\"number\":2}"));

    KxAuditFile full(QStringLiteral("/dev/full"));
    full.append({{QStringLiteral("number"), 3}});
    full.append({{QStringLiteral("number"), 4}});
    const QStringList fullLines = m_log.take();
    QCOMPARE(fullLines.size(), 3);
    QVERIFY(fullLines[0].startsWith(
        QLatin1String("W WARNING - the audit file /dev/full cannot be written")));
    QCOMPARE(fullLines[2], QStringLiteral("I [Audit] {\"number\":4}"));
}

void tst_KxBackendPeer::webServices_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("service");
    QTest::newRow("host only") << QStringLiteral("https://pacs.example:8443")
                               << QStringLiteral("pacs.example")
                               << QStringLiteral("https://pacs.example:8443/series/1");
    QTest::newRow("folder") << QStringLiteral("http://h/web/?user=a") << QStringLiteral("h")
                            << QStringLiteral("http://h/web/series/1?user=a");
    QTest::newRow("none") << QString() << QString() << QString();
}

void tst_KxBackendPeer::webServices()
{
    QFETCH(const QString, address);
    QFETCH(const QString, name);
    QFETCH(const QString, service);
    const Zel::KxWebServiceServer server{QUrl(address)};
    QCOMPARE(server.name(), name);
    QCOMPARE(server.serviceUrl(QStringLiteral("series/1")).toString(), service);
    QCOMPARE(server.serviceUrl(QStringLiteral("/series/1")).toString(), service);
    QVERIFY(server.series("1.2.3").isEmpty());
    QVERIFY(!Zel::SeriesInfo().isValid());
}

QTEST_GUILESS_MAIN(tst_KxBackendPeer)
#include "tst_KxBackendPeer.moc"
