#pragma once

#include "framework/viewers/ExBaseViewerRenderWidget.h"

/// Render widget that shows nothing and belongs to the viewer it is given.
class FakeRenderWidget : public ExBaseViewerRenderWidget
{
    Q_OBJECT

public:
    explicit FakeRenderWidget(ExBaseViewer *viewer = nullptr, QWidget *parent = nullptr)
        : ExBaseViewerRenderWidget(parent)
        , m_viewer(viewer)
    { }

    [[nodiscard]] ExBaseViewer *viewer() override { return m_viewer; }

private:
    ExBaseViewer *m_viewer;
};
