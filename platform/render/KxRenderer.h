#pragma once

#include "platform/MovaraPlatformExport.h"

/// What the engine's render queue runs: something that can draw one frame when asked.
/// GUI thread only. A renderer that is destroyed takes its requests out of the queue itself.
class MOVARA_PLATFORM_EXPORT KxRenderer
{
public:
    KxRenderer() = default;
    KxRenderer(const KxRenderer &) = delete;
    KxRenderer &operator=(const KxRenderer &) = delete;
    virtual ~KxRenderer();

    /// Draws one frame from the present state. Called by the render queue only; everybody else
    /// calls requestRender(). May request a further frame, e.g. the final one after a quick
    /// preview.
    virtual void renderFrame() = 0;
    /// Whether the last frame is the final one; false while a quick interactive preview is shown.
    [[nodiscard]] virtual bool isFinal() const = 0;
    /// Whether the renderer draws without a window on the screen.
    [[nodiscard]] virtual bool isOffScreen() const = 0;

    /// Asks the engine's render queue for a frame; requests that wait together are one.
    void requestRender();
};
