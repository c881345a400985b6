#include "framework/input/ExEventHandler.h"
#include "framework/notification/ExNotifiable.h"
#include "framework/viewers/ExBaseViewer.h"
#include "framework/viewers/ExBaseViewerRenderWidget.h"
#include "platform/util/McHandle.h"

#include <QtWidgets>

struct Canvas : ExBaseViewerRenderWidget
{
    using ExBaseViewerRenderWidget::ExBaseViewerRenderWidget;
    ExBaseViewer *viewer() override { return owner; }
    void paintEvent(QPaintEvent *) override { QPainter(this).drawImage(rect(), image); }

    ExBaseViewer *owner = nullptr;
    QImage image{256, 1, QImage::Format_Grayscale8};
};

struct GradientViewer : ExBaseViewer
{
    GradientViewer()
    {
        m_canvas.owner = this;
        m_input.connect(&m_canvas);
        m_input.addAction({ExSignal(ExSignal::MOVE, 0, 0, 0), this, &GradientViewer::drag});
        requestRender();
    }
    Ex::ViewerType viewerType() const override { return Ex::ViewerType(1); }
    std::string displaySetID() const override { return m_displaySet; }
    void setDisplaySetID(const std::string &id) override { m_displaySet = id; }
    KxImageSeries *imageSet(int) const override { return nullptr; }
    KxVolume *volume(int) const override { return nullptr; }
    QWidget *renderWidget() const override { return &m_canvas; }
    ExEventHandler *eventHandler() const override { return &m_input; }
    void renderFrame() override
    {
        for (int x = 0; x < 256; ++x) {
            m_canvas.image.bits()[x] = uchar(qBound(0, x + m_level, 255));
        }
        m_canvas.update();
    }

private:
    bool drag(const ExEvent &event)
    {
        if (!(event.state & Qt::LeftButton)) {
            return false; // not ours: the next action may have it
        }
        m_level += event.pressY - event.y; // the way since the event before
        requestRender();
        ExNotifiable::notify({ExNotification::COLORMAP_CHANGED, this});
        return true;
    }
    std::string m_displaySet;
    int m_level = 0;
    mutable Canvas m_canvas{nullptr};
    mutable ExEventHandler m_input;
};

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const McHandle<GradientViewer> viewer(new GradientViewer);
    viewer->renderWidget()->show();
    return QApplication::exec();
}
