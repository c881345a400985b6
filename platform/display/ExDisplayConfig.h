#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/display/ExDisplayInfo.h"

#include <vector>

/// The displays of the desktop. GUI thread only.
class MOVARA_PLATFORM_EXPORT ExDisplayConfig
{
public:
    /// Puts the displays that are connected now into @p displays, replacing its content; empty
    /// without an application object. They are ordered by position, rows from top to bottom and
    /// each row from left to right, whichever is the primary one: settings kept per display then
    /// stay with it. Displays are in one row when at least half of the lower one stands beside the
    /// other.
    static void getDisplayInfo(std::vector<ExDisplayInfo> &displays);
};
