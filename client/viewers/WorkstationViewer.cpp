#include "client/viewers/WorkstationViewer.h"

#include "client/overlay/ViewerOverlay.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "framework/notification/ExNotifiable.h"
#include "platform/render/KxEngine.h"

#include <algorithm>

namespace {

/// When nothing has changed for so long, the final frame is drawn.
constexpr int settleMilliseconds = 150;

} // namespace

WorkstationViewer::WorkstationViewer(Type type, QWidget *parent)
    : m_type(static_cast<Ex::ViewerType>(type))
    , m_widget(new ViewerRenderWidget(*this, parent))
    , m_eventHandler(std::make_unique<ExEventHandler>())
    , m_overlay(new ViewerOverlay(*this))
{
    m_eventHandler->connect(m_widget);
    m_settleTimer.setSingleShot(true);
    m_settleTimer.setInterval(settleMilliseconds);
    QObject::connect(&m_settleTimer, &QTimer::timeout, [this] { requestRender(); });
}

WorkstationViewer::~WorkstationViewer()
{
    m_overlay.reset(); // Hiding the widget makes another viewer the active one, which is told.
    if (m_widget) {
        m_widget->detachViewer();
        m_widget->hide();
        m_widget->deleteLater(); // The viewer may go while its widget handles an event.
    }
}

KxImageSeries *WorkstationViewer::imageSet(int index) const
{
    return index == 0 && m_series ? m_series->images() : nullptr;
}

KxVolume *WorkstationViewer::volume(int index) const
{
    return index == 0 ? m_volume.get() : nullptr;
}

QWidget *WorkstationViewer::renderWidget() const
{
    return m_widget;
}

void WorkstationViewer::activated()
{
    if (m_widget) {
        m_widget->setFocus(Qt::OtherFocusReason);
    }
}

void WorkstationViewer::reattach()
{
    seriesChanged();
}

void WorkstationViewer::setSeries(const McHandle<LoadedSeries> &series)
{
    if (series.get() == m_series.get()) {
        return;
    }
    m_series = series;
    m_phase = 0;
    setVolume(false);
    notify(ExNotification::VIEWER_VOLUME_CHANGED);
}

void WorkstationViewer::setSeriesOffered(bool offered)
{
    m_isSeriesOffered = offered;
    updateOverlay();
}

void WorkstationViewer::seriesChanged()
{
    KxImageSeries *const images = imageSet(0);
    if (images != nullptr && images->volume(m_phase) != m_volume.get()) {
        setVolume(false);
        notify(ExNotification::VIEWER_VOLUME_CHANGED);
        return;
    }
    if (m_volume) {
        voxelsChanged();
        requestRender();
    }
    updateOverlay();
}

int WorkstationViewer::numPhases() const
{
    const KxImageSeries *const images = imageSet(0);
    return images != nullptr ? images->numVolumes() : 0;
}

void WorkstationViewer::setPhase(int phase)
{
    const int inRange = std::clamp(phase, 0, std::max(numPhases() - 1, 0));
    if (inRange == m_phase) {
        return;
    }
    m_phase = inRange;
    setVolume(true);
    notify(ExNotification::TIMESERIES_CHANGED);
}

void WorkstationViewer::setVolume(bool isOtherPhase)
{
    const KxImageSeries *const images = imageSet(0);
    m_volume = images != nullptr ? images->volume(m_phase) : nullptr;
    volumeChanged(isOtherPhase);
    requestRender();
}

void WorkstationViewer::updateOverlay()
{
    if (m_widget) {
        m_widget->setOverlay(overlayContent());
    }
}

bool WorkstationViewer::isSettled() const
{
    return m_isFinal && !isInteracting() && !KxEngine::instance().renderQueue().isRequested(this);
}

void WorkstationViewer::interact()
{
    m_settleTimer.start();
}

void WorkstationViewer::showFrame(const QImage &frame, bool isFinal)
{
    const bool markChanges = m_isFinal != isFinal;
    m_isFinal = isFinal;
    if (m_widget) {
        m_widget->setFrame(frame);
        m_widget->propertyUpdate();
    }
    if (markChanges) {
        updateOverlay();
    }
}

void WorkstationViewer::notify(ExNotification::Type type)
{
    ExNotifiable::notify(ExNotification(type, this));
}
