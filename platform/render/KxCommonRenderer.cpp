#include "platform/render/KxCommonRenderer.h"

#include "platform/render/KxEngine.h"

KxCommonRenderer::~KxCommonRenderer() = default;

bool KxCommonRenderer::isFinal() const
{
    return true;
}

bool KxCommonRenderer::isOffScreen() const
{
    return false;
}

void KxCommonRenderer::setBackgroundColor(float red, float green, float blue, float alpha)
{
    const std::array<float, 4> color{red, green, blue, alpha};
    if (color != m_background) {
        m_background = color;
        requestRender();
    }
}

void KxCommonRenderer::terminateRendering()
{
    KxEngine::instance().renderQueue().removeRequests(this);
}

void KxCommonRenderer::cleanUpNodes() { }
