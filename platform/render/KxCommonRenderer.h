#pragma once

#include "platform/render/KxInterface.h"
#include "platform/render/KxObject.h"
#include "platform/render/KxRenderer.h"

#include <array>

/// Base of the renderers that viewers are: a background, and the hooks to stop and to clean up. GUI
/// thread only.
class MOVARA_PLATFORM_EXPORT KxCommonRenderer : public KxRenderer,
                                                public KxObject,
                                                public KxInterface
{
public:
    ~KxCommonRenderer() override;

    /// True unless a derived renderer knows better.
    [[nodiscard]] bool isFinal() const override;
    /// False unless a derived renderer knows better.
    [[nodiscard]] bool isOffScreen() const override;

    /// Red, green, blue and opacity, each 0 to 1. Opaque black at first. Requests a frame when it
    /// changes.
    void setBackgroundColor(float red, float green, float blue, float alpha);
    [[nodiscard]] std::array<float, 4> backgroundColor() const { return m_background; }

    /// Ends rendering that is under way or requested; a new request starts again. The base takes
    /// its requests back.
    virtual void terminateRendering();
    /// Frees what was built for drawing (pipelines, off-screen buffers); the next frame builds it
    /// anew. The base has none.
    virtual void cleanUpNodes();

private:
    std::array<float, 4> m_background{0, 0, 0, 1};
};
