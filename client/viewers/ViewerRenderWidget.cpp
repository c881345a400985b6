#include "client/viewers/ViewerRenderWidget.h"

#include "client/viewers/WorkstationViewer.h"
#include "framework/viewers/ExViewerManager.h"

#include <QEvent>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

ViewerRenderWidget::ViewerRenderWidget(WorkstationViewer &viewer, QWidget *parent)
    : ExBaseViewerRenderWidget(parent)
    , m_viewer(&viewer)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
}

ViewerRenderWidget::~ViewerRenderWidget()
{
    if (m_viewer != nullptr) {
        m_viewer->widgetGone();
    }
}

ExBaseViewer *ViewerRenderWidget::viewer()
{
    return m_viewer;
}

void ViewerRenderWidget::setFrame(const QImage &frame)
{
    m_frame = frame;
    update();
}

void ViewerRenderWidget::setOverlay(const OverlayContent &content)
{
    if (content == m_overlay) {
        return;
    }
    m_overlay = content;
    update();
}

QSize ViewerRenderWidget::pixelSize() const
{
    return (QSizeF(size()) * devicePixelRatioF()).toSize();
}

void ViewerRenderWidget::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    if (m_frame.isNull()) {
        painter.fillRect(rect(), Qt::black);
    } else if (m_frame.size() == pixelSize()) {
        m_frame.setDevicePixelRatio(devicePixelRatioF());
        painter.drawImage(QPoint(), m_frame);
    } else {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(rect(), m_frame);
    }
    m_painter.paint(painter, size(), m_overlay, coveredCorner());
    painter.end();
    Q_EMIT painted();
}

void ViewerRenderWidget::resizeEvent(QResizeEvent *event)
{
    ExBaseViewerRenderWidget::resizeEvent(event);
    if (m_viewer != nullptr) {
        m_viewer->resized();
    }
}

void ViewerRenderWidget::focusInEvent(QFocusEvent *event)
{
    ExBaseViewerRenderWidget::focusInEvent(event);
    const Qt::FocusReason reason = event->reason();
    const bool isByKey = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::ShortcutFocusReason;
    ExViewerManager *const manager = ExViewerManager::instancePointer();
    // Of a viewer that goes the focus may come to another one that goes too.
    if (isByKey && manager != nullptr && manager->viewerIndex(m_viewer) >= 0) {
        manager->setActiveViewer(m_viewer);
    }
}

QRect ViewerRenderWidget::coveredCorner() const
{
    QRect covered;
    for (const QObject *each : children()) {
        const auto *const child = qobject_cast<const QWidget *>(each);
        const bool floats = child != nullptr && child->isVisible() && !child->isWindow();
        if (floats) {
            covered |= child->geometry();
        }
    }
    return covered;
}

QString ViewerRenderWidget::toolTipAt(const QPoint &position) const
{
    const bool isOverBadge = m_overlay.link != OverlayContent::Link::None
        && OverlayPainter::badgeRect(size()).contains(position);
    if (isOverBadge) {
        return tr("Attach this viewer to its linked viewers, or detach it (L)");
    }
    // The warnings are in this corner, cut off where they are long.
    const bool isInCorner = position.x() > width() / 2 && position.y() > height() * 2 / 3;
    return isInCorner ? m_overlay.warnings.join(QLatin1Char('\n')) : QString();
}

bool ViewerRenderWidget::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto &help = static_cast<const QHelpEvent &>(*event);
        QToolTip::showText(help.globalPos(), toolTipAt(help.pos()), this);
        return true;
    }
    if (event->type() == QEvent::LayoutRequest) {
        update(); // The context tool bar has come, gone or got another size.
    }
    return ExBaseViewerRenderWidget::event(event);
}
