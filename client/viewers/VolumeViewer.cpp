#include "client/viewers/VolumeViewer.h"

#include "client/geometry/VolumeCorners.h"
#include "client/overlay/VolumeOverlay.h"
#include "client/viewers/DisplayProbe.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "platform/util/McLogFile.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double radiansPerPixel = 0.01;
constexpr double smallestZoom = 0.05;
constexpr double largestZoom = 50;
constexpr double leastWindowWidth = 2;
constexpr double fitFraction = 0.94;

/// What to see first: in CT vessels with contrast and bones, else the brighter half.
KxVolume::Window firstWindow(const KxVolume &volume)
{
    if (volume.unit() == "HU") {
        return {350, 440};
    }
    const KxVolume::Window &window = volume.defaultWindow();
    return {window.center + window.width * 0.1, window.width};
}

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(VolumeViewer)
};

} // namespace

VolumeViewer::VolumeViewer(QWidget *parent)
    : WorkstationViewer(VolumeType, parent)
{
    updateOverlay();
}

VolumeViewer::~VolumeViewer()
{
    VolumeRenderThread::retire(std::move(m_thread));
}

QString VolumeViewer::obstacle() const
{
    if (!hasXDisplay()) {
        return Texts::tr(
            "The 3D view needs an X display, and there is none. Everything else works.\n"
            "To see it, start the workstation on a desktop or with xvfb-run.");
    }
    const KxVolume *const shown = volume(0);
    if (shown == nullptr) {
        return {};
    }
    const auto &size = shown->dimensions();
    if (*std::min_element(size.begin(), size.end()) < 2) {
        return Texts::tr("The 3D view needs a series of several slices.");
    }
    if (shown->components() != 1) {
        return Texts::tr("There is no 3D view of colour images.");
    }
    if (!series()->isComplete()) {
        return Texts::tr("The 3D view follows when all slices have been read.");
    }
    return m_problem;
}

void VolumeViewer::rotate(double right, double down)
{
    const McVec3d across = m_viewDirection.cross(m_up);
    // The volume follows the pointer, so the observer goes the other way.
    const double yaw = right * radiansPerPixel;
    const double pitch = down * radiansPerPixel;
    McVec3d direction = m_viewDirection * std::cos(yaw) + across * std::sin(yaw);
    direction = direction * std::cos(pitch) - m_up * std::sin(pitch);
    const McVec3d newAcross = (across * std::cos(yaw) - m_viewDirection * std::sin(yaw));
    setView(direction, newAcross.cross(direction));
}

void VolumeViewer::setView(const McVec3d &viewDirection, const McVec3d &up)
{
    const McVec3d direction = viewDirection.normalized();
    const McVec3d newUp = (up - direction * up.dot(direction)).normalized();
    if (direction == m_viewDirection && newUp == m_up) {
        return;
    }
    m_viewDirection = direction;
    m_up = newUp;
    changed(ExNotification::PERSPECTIVE_CHANGED);
}

void VolumeViewer::setZoom(double pixelsPerMm)
{
    const double inRange = std::clamp(pixelsPerMm, smallestZoom, largestZoom);
    if (inRange != m_zoom) {
        m_zoom = inRange;
        m_isFitting = false;
        changed(ExNotification::ZOOM_CHANGED);
    }
}

void VolumeViewer::setWindow(const KxVolume::Window &window)
{
    const KxVolume::Window inRange{window.center, std::max(window.width, leastWindowWidth)};
    if (inRange.center != m_window.center || inRange.width != m_window.width) {
        m_window = inRange;
        changed(ExNotification::DATA_WINDOW_CHANGED);
    }
}

void VolumeViewer::reset()
{
    if (volume(0) == nullptr) {
        return;
    }
    setWindow(firstWindow(*volume(0)));
    setZoom(fittingZoom());
    m_isFitting = true;
    setView({0, 1, 0}, {0, 0, 1});
}

VolumeView VolumeViewer::view() const
{
    return {m_viewDirection, m_up, m_zoom, m_isFitting, m_window};
}

void VolumeViewer::setView(const VolumeView &view)
{
    if (volume(0) == nullptr) {
        return;
    }
    // As it was to the last digit: what has not changed is not to be saved anew.
    m_viewDirection = view.viewDirection;
    m_up = view.up;
    changed(ExNotification::PERSPECTIVE_CHANGED);
    setWindow(view.window);
    setZoom(view.isFitting ? fittingZoom() : view.zoom);
    m_isFitting = view.isFitting;
}

void VolumeViewer::changed(ExNotification::Type type)
{
    needPicture();
    interact();
    requestRender();
    notify(type);
    updateOverlay();
}

double VolumeViewer::fittingZoom() const
{
    const McVec3d center = volume(0)->center();
    double radius = 1;
    for (const McVec3d &corner : volumeCorners(*volume(0), 0.5)) {
        const McVec3d offset = corner - center;
        radius = std::max({radius, std::abs(offset.x), std::abs(offset.y), std::abs(offset.z)});
    }
    const int room = std::min(widget()->width(), widget()->height());
    return std::clamp(room / (2 * radius) * fitFraction, smallestZoom, largestZoom);
}

void VolumeViewer::volumeChanged(bool isOtherPhase)
{
    needPicture();
    if (isOtherPhase && volume(0) != nullptr) {
        // The last phase is seen until there is a picture of this one; in cine only quick ones.
        interact();
        return;
    }
    m_picture = {};
    if (m_thread) {
        m_thread->clear();
    }
    m_isWaiting = false;
    if (volume(0) != nullptr && phase() == 0) {
        m_window = firstWindow(*volume(0));
        m_isFitting = true;
        m_zoom = fittingZoom();
    }
}

void VolumeViewer::voxelsChanged()
{
    if (!series()->isComplete()) {
        return;
    }
    if (volume(0)->unit() != "HU") {
        m_window = firstWindow(*volume(0)); // May be known only once values have been read.
    }
    needPicture();
}

void VolumeViewer::resized()
{
    if (m_isFitting && volume(0) != nullptr) {
        m_zoom = fittingZoom();
    }
    needPicture();
    requestRender();
    updateOverlay();
}

void VolumeViewer::askForPicture()
{
    if (!m_thread) {
        m_thread = std::make_unique<VolumeRenderThread>();
        QObject::connect(m_thread.get(), &VolumeRenderThread::drawn, &m_context,
            [this](const QImage &picture, int number) { takePicture(picture, number); });
        QObject::connect(m_thread.get(), &VolumeRenderThread::failed, &m_context,
            [this](const QString &reason, int number) { takeProblem(reason, number); });
    }
    VolumeScene scene;
    scene.volume = volume(0);
    scene.viewDirection = m_viewDirection;
    scene.up = m_up;
    scene.pixels = widget()->pixelSize();
    scene.mmPerPixel = widget()->height() / (m_zoom * scene.pixels.height());
    scene.window = m_window;
    scene.isQuick = isInteracting();
    scene.number = ++m_askedNumber;
    m_thread->draw(scene);
    m_isWaiting = true;
    m_askedForQuick = scene.isQuick;
    m_needsPicture = false;
}

void VolumeViewer::takePicture(const QImage &picture, int number)
{
    if (!m_isWaiting || number != m_askedNumber) {
        return; // Of a volume that is no longer shown, or of an earlier state.
    }
    m_isWaiting = false;
    m_picture = picture;
    m_pictureIsQuick = m_askedForQuick;
    m_hasNewPicture = true;
    requestRender();
}

void VolumeViewer::takeProblem(const QString &reason, int number)
{
    if (!m_isWaiting || number != m_askedNumber) {
        return;
    }
    m_isWaiting = false;
    m_problem = Texts::tr("The 3D view cannot be drawn: %1").arg(reason);
    theLogInstance().warnf("3D view: %s\n", reason.toUtf8().constData());
    updateOverlay();
    requestRender();
}

void VolumeViewer::needPicture()
{
    m_needsPicture = true;
    m_problem.clear(); // What could not be drawn may be drawn in another way.
}

void VolumeViewer::renderFrame()
{
    if (widget() == nullptr || widget()->size().isEmpty()) {
        return;
    }
    if (volume(0) == nullptr || !obstacle().isEmpty()) {
        showFrame({}, true);
        return;
    }
    // While a quick picture is being made the next one waits: giving up every picture for the next
    // would show none during a drag or cine. A final one is given up.
    const bool isQuickOnItsWay = m_isWaiting && m_askedForQuick;
    const bool wantsFinal = m_pictureIsQuick && !isInteracting() && !m_isWaiting;
    if ((m_needsPicture && !isQuickOnItsWay) || wantsFinal) {
        askForPicture();
    }
    if (m_hasNewPicture || isFinal() == m_isWaiting) {
        m_hasNewPicture = false;
        showFrame(m_picture, !m_isWaiting && !m_pictureIsQuick && !m_needsPicture);
    }
}

void VolumeViewer::terminateRendering()
{
    WorkstationViewer::terminateRendering();
    if (m_thread) {
        m_thread->clear();
    }
    m_isWaiting = false;
    needPicture();
}

void VolumeViewer::cleanUpNodes()
{
    VolumeRenderThread::retire(std::move(m_thread));
    m_isWaiting = false;
    needPicture();
}

bool VolumeViewer::isSettled() const
{
    const bool hasToDraw = volume(0) != nullptr && obstacle().isEmpty();
    return WorkstationViewer::isSettled() && (!hasToDraw || (!m_isWaiting && !m_needsPicture));
}

OverlayContent VolumeViewer::overlayContent() const
{
    return volumeOverlay(*this);
}
