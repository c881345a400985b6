#include "framework/viewers/ExBaseViewerRenderWidget.h"

#include "framework/viewers/ExBaseViewer.h"

ExBaseViewerRenderWidget::ExBaseViewerRenderWidget(QWidget *parent)
    : QWidget(parent)
{ }

ExBaseViewerRenderWidget::~ExBaseViewerRenderWidget() = default;

void ExBaseViewerRenderWidget::propertyUpdate()
{
    const ExBaseViewer *const drawing = viewer();
    setProperty("squish_isFinalImage", drawing == nullptr || drawing->isFinal());
}
