#include "platform/backend/KxAuditFile.h"
#include "platform/backend/KxBackendPeer.h"
#include "platform/backend/KxWebServiceServer.h"
#include "tests/platform/properties/ProgramLog.h"
#include "tests/support/Files.h"

#include <QDateTime>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_KxBackendPeer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_log.take(); }

    void eventsBecomeLines()
    {
        const QString name = m_folder.filePath(u"new/audit.jsonl"_s);
        qputenv("MOVARA_AUDIT_FILE", name.toUtf8());
        const QDateTime before = QDateTime::currentDateTimeUtc();
        KxBackendPeer::instance()->logEvent(1063, "View.Zoom", 0, -1, 1, QString());
        KxBackendPeer::instance()->logEvent(7, "Größe {}", 1, 2, 3, u"two\nlines \"%1\" {0}"_s);

        QStringList lines;
        for (const QByteArray &line : readFile(name).trimmed().split('\n')) {
            QJsonObject event = QJsonDocument::fromJson(line).object();
            const QDateTime time
                = QDateTime::fromString(event.take(u"time"_s).toString(), Qt::ISODateWithMs);
            QVERIFY(time.timeSpec() == Qt::UTC && before.msecsTo(time) >= 0);
            QCOMPARE(event.take(u"process"_s).toInteger(), QCoreApplication::applicationPid());
            lines.append(QString::fromUtf8(QJsonDocument(event).toJson(QJsonDocument::Compact)));
        }
        QCOMPARE(lines.join(u'\n'),
            u"{\"arguments\":[0,-1,1],\"event\":1063,\"key\":\"View.Zoom\"}\n"
            "{\"arguments\":[1,2,3],\"event\":7,\"key\":\"Größe {}\","
            "\"text\":\"two\\nlines \\\"%1\\\" {0}\"}"_s);
    }

    void clientsOwnPeers()
    {
        class OwnPeer final : public KxBackendPeer
        {
        public:
            void logEvent(int code, const std::string &, int, int, int, const QString &) override
            {
                event = code;
            }
            int event = 0;
        };
        KxBackendPeer *const builtIn = KxBackendPeer::instance();
        {
            OwnPeer peer;
            KxBackendPeer::install(&peer);
            KxBackendPeer::instance()->logEvent(1, "key", 0, 0, 0, QString());
            KxBackendPeer::instance()->setReasonToQuit("userlogout");
            QCOMPARE(peer.event, 1);
            QCOMPARE(peer.reasonToQuit(), std::string("userlogout"));
        }
        QVERIFY(KxBackendPeer::instance() == builtIn && builtIn->reasonToQuit().empty());
    }

    void fileRotates()
    {
        const QDir folder(m_folder.filePath(u"rotation"_s));
        KxAuditFile audit(folder.filePath(u"a.jsonl"_s), 200, 2);
        for (int i = 0; i < 100; ++i) {
            audit.append({{u"number"_s, i}});
        }
        QStringList last;
        for (const QString &name : folder.entryList(QDir::Files, QDir::Name)) {
            const QByteArray text = readFile(folder.filePath(name));
            QVERIFY(text.size() <= 200);
            last.append(name + u' ' + QString::fromUtf8(text.trimmed().split('\n').last()));
        }
        // 14 lines of 14 bytes fit into a file once all numbers have two digits.
        QCOMPARE(last.join(u' '),
            u"a.1.jsonl {\"number\":98} a.2.jsonl {\"number\":84} a.jsonl {\"number\":99}"_s);
    }

    void fileThatCannotBeWritten()
    {
        for (const QString &name : {u"/proc/no-such-folder/audit.jsonl"_s, u"/dev/full"_s}) {
            KxAuditFile audit(name);
            audit.append({{u"number"_s, 1}});
            audit.append({{u"number"_s, 2}});
            QStringList lines = m_log.take();
            QVERIFY(lines.takeFirst().startsWith(
                u"W WARNING - the audit file %1 cannot be written"_s.arg(name)));
            QCOMPARE(lines.join(u'|'), uR"(I [Audit] {"number":1}|I [Audit] {"number":2})"_s);
        }
    }

    void webServices()
    {
        const std::pair<const char *, QString> rows[]
            = {{"https://h:8443", u"h https://h:8443/series/1"_s},
                {"http://h/web/?user=a", u"h http://h/web/series/1?user=a"_s}, {"", u" "_s}};
        for (const auto &[address, expected] : rows) {
            const Zel::KxWebServiceServer server{QUrl(QLatin1String(address))};
            for (const QString &path : {u"series/1"_s, u"/series/1"_s}) {
                QCOMPARE(
                    QString(server.name() + u' ' + server.serviceUrl(path).toString()), expected);
            }
        }
    }

private:
    ProgramLog m_log;
    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(tst_KxBackendPeer)
#include "tst_KxBackendPeer.moc"
