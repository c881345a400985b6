#include "framework/tools/ExToolLogger.h"

#include "framework/tools/ExTool.h"
#include "platform/backend/KxBackendPeer.h"
#include "platform/backend/KxServerPeer.h"
#include "platform/properties/KxPropertyPool.h"
#include "platform/util/McGuard.h"
#include "platform/util/McLogFile.h"

#include <functional>
#include <map>
#include <string>

namespace {

class LetNo final : public TypedEnumValue<LogEnableType>
{
public:
    LetNo()
        : TypedEnumValue(LogEnableType::LET_NO, "LET_NO", nullptr)
    { }
};

class LetOncePerStudy final : public TypedEnumValue<LogEnableType>
{
public:
    LetOncePerStudy()
        : TypedEnumValue(LogEnableType::LET_ONCE_PER_STUDY, "LET_ONCE_PER_STUDY", nullptr)
    { }
};

class LetAlways final : public TypedEnumValue<LogEnableType>
{
public:
    LetAlways()
        : TypedEnumValue(LogEnableType::LET_ALWAYS, "LET_ALWAYS", nullptr)
    { }
};

const RegEnumValue<LetNo> regLetNo;
const RegEnumValue<LetOncePerStudy> regLetOncePerStudy;
const RegEnumValue<LetAlways> regLetAlways;

constexpr int toolUsedEvent = 1063;

/// Tools that were logged in the current study.
std::map<std::string, bool> &reportedTools()
{
    static auto *const reported = new std::map<std::string, bool>;
    return *reported;
}

LogEnableType logSetting()
{
    KxPropertyPool &pool = KxPropertyPool::instance();
    return pool
        .property("Hidden.ToolLog", LogEnableType::LET_ONCE_PER_STUDY, pool.defaultSerializer())
        .value();
}

/// A client's peer may fail: that is told, and the tool goes on all the same.
bool hasToldPeer(const char *peer, const std::function<void()> &tell)
{
    const std::string problem = McGuard::run(tell);
    if (!problem.empty()) {
        McLogFile::warnf("WARNING - the %s cannot be told of a tool: %s", peer, problem.c_str());
    }
    return problem.empty();
}

void writeLine(const std::string &line)
{
    KxServerPeer *const server = KxServerPeer::instance();
    const bool isWritten = server != nullptr
        && hasToldPeer("server", [&] { server->printSessionLog("[ToolLog] ", line); });
    if (!isWritten) {
        theLogInstance().print("ToolLog", line);
    }
}

void logEvent(const std::string &key)
{
    const bool isTold = hasToldPeer("back end",
        [&key] { KxBackendPeer::instance()->logEvent(toolUsedEvent, key, 0, -1, 1, QString()); });
    if (!isTold) {
        theLogInstance().print("Audit", std::to_string(toolUsedEvent) + ' ' + key);
    }
}

void logUse(const ExTool *tool, const char *use)
{
    const std::string key = tool == nullptr ? std::string() : tool->decorationKey();
    if (key.empty()) {
        return;
    }
    const LogEnableType setting = logSetting();
    if (setting == LogEnableType::LET_NO || reportedTools().contains(key)) {
        return;
    }
    if (setting == LogEnableType::LET_ONCE_PER_STUDY) {
        reportedTools()[key] = true;
    }
    writeLine(key + use);
    logEvent(key);
}

} // namespace

void ExToolLogger::logTrigger(const ExTool *tool)
{
    logUse(tool, " triggered");
}

void ExToolLogger::logToggle(const ExTool *tool, bool on)
{
    logUse(tool, on ? " toggled" : " untoggled");
}

void ExToolLogger::clearReportedTools()
{
    reportedTools().clear();
}
