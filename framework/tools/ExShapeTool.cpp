#include "framework/tools/ExShapeTool.h"

ExShapeTool::ExShapeTool(const char *name, int state, bool exclusive)
    : ExModal(name, state, exclusive)
{ }

ExShapeTool::~ExShapeTool() = default;

bool ExShapeTool::pick(
    ExBaseViewer *viewer, int x, int y, float &distance, Kx::ButtonState /*state*/)
{
    return pick(viewer, x, y, distance);
}

void ExShapeTool::registerContextMenu(const ExBaseViewer * /*viewer*/) { }

bool ExShapeTool::pick(ExBaseViewer * /*viewer*/, int /*x*/, int /*y*/, float & /*distance*/)
{
    return false;
}
