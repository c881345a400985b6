#pragma once

#include "client/viewers/SliceViewer.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "platform/render/KxEngine.h"
#include "tests/client/support/PhantomSeries.h"

/// A slice viewer that the engine draws, without a window around it.
struct ShownViewer
{
    static constexpr QSize size{500, 400};

    ShownViewer(PlaneKind plane, const McHandle<LoadedSeries> &series)
        : viewer(new SliceViewer(plane, &parent))
    {
        viewer->widget()->resize(size);
        viewer->setSeries(series);
    }
    void draw() const { KxEngine::instance().renderQueue().flush(); }

    QWidget parent;
    McHandle<SliceViewer> viewer;
};
