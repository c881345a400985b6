#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/render/KxRenderQueue.h"
#include "platform/render/PerfMon.h"

/// The rendering library's process-wide engine: its render queue and its performance monitor.
/// Made on first use, in the GUI thread; usable until the process has ended.
class MOVARA_PLATFORM_EXPORT KxEngine
{
public:
    static KxEngine &instance();

    KxRenderQueue &renderQueue() { return m_renderQueue; }
    PerfMon &perfMon() { return m_perfMon; }

private:
    KxEngine() = default;

    KxRenderQueue m_renderQueue;
    PerfMon m_perfMon;
};

/// Whether the caller runs on the thread of the application object; true while there is none.
MOVARA_PLATFORM_EXPORT bool kxIsMainThread();
