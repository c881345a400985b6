#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "platform/properties/KxEnum.h"

class ExTool;

/// What of the use of tools is logged: the values 20 to 22, registered by these names.
class MOVARA_FRAMEWORK_EXPORT LogEnableType final : public KxTypedEnum<LogEnableType>
{
public:
    using KxTypedEnum::KxTypedEnum;
    static constexpr const char *context() { return "Enumeration.LogEnableType"; }
    /// The value also stands for its number.
    constexpr operator int() const { return value(); }

    /// Nothing.
    static const LogEnableType LET_NO;
    /// A tool's first use, until ExToolLogger::clearReportedTools().
    static const LogEnableType LET_ONCE_PER_STUDY;
    /// Every use.
    static const LogEnableType LET_ALWAYS;
};

inline constexpr LogEnableType LogEnableType::LET_NO(20);
inline constexpr LogEnableType LogEnableType::LET_ONCE_PER_STUDY(21);
inline constexpr LogEnableType LogEnableType::LET_ALWAYS(22);

/// Records which tools the user uses: a line in the log and an event to the back end for each use,
/// as far as the setting "Hidden.ToolLog" has it (once per study by default). Null tools and tools
/// without a name are never logged. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExToolLogger
{
public:
    ExToolLogger() = delete;

    /// The tool's command was run.
    static void logTrigger(const ExTool *tool);
    /// The tool was switched on or off.
    static void logToggle(const ExTool *tool, bool on);
    /// Starts again what is logged once per study; the host calls it when a new study is loaded.
    static void clearReportedTools();
};
