#include "platform/render/KxRenderer.h"

#include "platform/render/KxEngine.h"

KxRenderer::~KxRenderer()
{
    KxEngine::instance().renderQueue().removeRequests(this);
}

void KxRenderer::requestRender()
{
    KxEngine::instance().renderQueue().request(this);
}
