#pragma once

#include "client/overlay/OverlayContent.h"
#include "client/overlay/OverlayPainter.h"
#include "framework/viewers/ExBaseViewerRenderWidget.h"

#include <QImage>

class WorkstationViewer;

/// Shows a viewer's last frame and what lies over it; painting does nothing else. Input goes
/// through the viewer's event handler. Owned by its toolkit parent until the viewer goes.
class ViewerRenderWidget final : public ExBaseViewerRenderWidget
{
    Q_OBJECT

public:
    ViewerRenderWidget(WorkstationViewer &viewer, QWidget *parent);
    /// Tells its viewer, which may be held by somebody and live on.
    ~ViewerRenderWidget() override;

    [[nodiscard]] ExBaseViewer *viewer() override;
    /// The viewer is going; the widget stays blank until it is deleted.
    void detachViewer() { m_viewer = nullptr; }

    /// The picture to show, as large as the widget in device pixels, or a smaller one to be
    /// stretched; null for none.
    void setFrame(const QImage &frame);
    [[nodiscard]] const QImage &frame() const { return m_frame; }
    /// Repaints only when something has changed.
    void setOverlay(const OverlayContent &content);
    [[nodiscard]] const OverlayContent &overlay() const { return m_overlay; }
    /// The widget's size in device pixels.
    [[nodiscard]] QSize pixelSize() const;

Q_SIGNALS:
    /// The widget has been painted.
    void painted();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    /// A viewer that the keyboard has moved to becomes the active one.
    void focusInEvent(QFocusEvent *event) override;
    bool event(QEvent *event) override;

private:
    /// What floats in the bottom right corner.
    [[nodiscard]] QRect coveredCorner() const;
    [[nodiscard]] QString toolTipAt(const QPoint &position) const;

    WorkstationViewer *m_viewer;
    QImage m_frame;
    OverlayContent m_overlay;
    OverlayPainter m_painter;
};
