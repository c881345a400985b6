#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/tools/LogEnableType.h"

class ExTool;

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
