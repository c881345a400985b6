#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/tools/ExModal.h"

/// Base of modal tools that draw shapes, which can be picked with the pointer. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExShapeTool : public ExModal
{
public:
    /// The same as for ExModal.
    ExShapeTool(const char *name, int state, bool exclusive);
    ~ExShapeTool() override;

    /// Looks for a shape at a position in a viewer. The base has no shapes, and so never finds one.
    /// @param x,y in the render widget, in device-independent pixels.
    /// @param distance set to how far the nearest shape within reach is from there, in
    /// device-independent pixels, 0 inside it; left as it is when there is none.
    /// @return whether there is one.
    virtual bool pick(ExBaseViewer *viewer, int x, int y, float &distance);
    /// The same for a tool that regards the buttons and modifiers held. The base asks the other one
    /// whatever the state. A tool that overrides one of the two says `using ExShapeTool::pick`.
    virtual bool pick(ExBaseViewer *viewer, int x, int y, float &distance, Kx::ButtonState state);
    /// Adds what can be done with the shapes to a viewer's context menu. The base adds nothing.
    virtual void registerContextMenu(const ExBaseViewer *viewer);
};
