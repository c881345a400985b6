#include "framework/tools/ExToolLogger.h"
#include "platform/backend/KxBackendPeer.h"
#include "platform/backend/KxServerPeer.h"
#include "tests/framework/tools/FakeTool.h"
#include "tests/platform/properties/ProgramLog.h"

namespace {

class Peers : public KxBackendPeer, public KxServerPeer
{
public:
    Peers()
    {
        KxBackendPeer::install(this);
        KxServerPeer::install(this);
    }
    void logEvent(int code, const std::string &key, int first, int second, int third,
        const QString &text) override
    {
        fail();
        log += QString::asprintf(
            " (%d %s %d %d %d '%s')", code, key.c_str(), first, second, third, qPrintable(text));
    }
    void printSessionLog(const std::string &prefix, const std::string &text) override
    {
        fail();
        log += QString::fromStdString(prefix + text);
    }
    void fail() const
    {
        if (isDown) {
            throw std::runtime_error("no connection");
        }
    }
    QString log;
    bool isDown = false;
};

} // namespace

class tst_ExToolLogger : public TestWithSettings
{
    Q_OBJECT

private Q_SLOTS:
    void peersThatFail()
    {
        Peers peers;
        peers.isDown = true;
        const FakeTool a("a");
        m_log.take();
        ExToolLogger::clearReportedTools();
        ExToolLogger::logTrigger(&a); // The tool goes on, and the use is noted in the log.
        QCOMPARE(m_log.take().join(u'|'),
            u"W WARNING - the server cannot be told of a tool: An unexpected error: no "
            "connection.|I [ToolLog] a triggered|"
            "W WARNING - the back end cannot be told of a tool: An unexpected error: no "
            "connection.|I [Audit] 1063 a"_s);
    }

    void amountOfLogging()
    {
        Peers peers;
        const FakeTool a("a");
        const FakeTool nameless(nullptr);
        const auto useTools = [&] {
            ExToolLogger::clearReportedTools();
            ExToolLogger::logTrigger(&nameless);
            ExToolLogger::logToggle(nullptr, true);
            ExToolLogger::logToggle(&a, true);
            ExToolLogger::logToggle(&a, false);
            ExToolLogger::clearReportedTools();
            ExToolLogger::logTrigger(&a);
            return std::exchange(peers.log, {});
        };
        const QString event = u" (1063 a 0 -1 1 '')"_s;
        const QString twice = u"[ToolLog] a toggled" % event % u"[ToolLog] a triggered" % event;
        QCOMPARE(useTools(), twice);
        auto *const setting = KxPropertyPool::instance().find<LogEnableType>("Hidden.ToolLog");
        QCOMPARE(setting->toString(), u"LET_ONCE_PER_STUDY"_s);
        setting->fromString(u"LET_ALWAYS"_s);
        QCOMPARE(useTools(),
            QString(twice).insert(
                twice.indexOf(u')') + 1, QString(u"[ToolLog] a untoggled" % event)));
        *setting = LogEnableType::LET_NO;
        QCOMPARE(useTools(), QString());
    }

private:
    ProgramLog m_log;
};

QTEST_MAIN(tst_ExToolLogger)
#include "tst_ExToolLogger.moc"
