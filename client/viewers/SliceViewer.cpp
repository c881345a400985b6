#include "client/viewers/SliceViewer.h"

#include "client/geometry/PlaneGeometry.h"
#include "client/overlay/SliceOverlay.h"
#include "client/viewers/ViewerRenderWidget.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cmath>

namespace {

/// A frame that takes longer than this is drawn at half the size while the user interacts.
constexpr double quickMilliseconds = 8;
constexpr double smallestZoom = 0.05;
constexpr double largestZoom = 100;
constexpr double leastWindowWidth = 1;
/// Part of the widget that a fitting image fills.
constexpr double fitFraction = 0.94;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SliceViewer)
};

} // namespace

SliceViewer::SliceViewer(PlaneKind plane, QWidget *parent)
    : WorkstationViewer(SliceType, parent)
    , m_plane(plane)
    , m_ownPlane(plane)
{
    updateOverlay();
}

SliceViewer::~SliceViewer() = default;

void SliceViewer::setPlane(PlaneKind plane)
{
    if (plane == m_plane || plane == PlaneKind::Oblique) {
        return;
    }
    m_plane = plane;
    m_ownPlane = plane;
    m_isFlippedAcross = false;
    m_isFlippedDown = false;
    if (volume(0) != nullptr) {
        const McVec3d center = m_slice.center();
        showWholeVolume();
        requestRender(); // The slice in the middle may be the wanted one already.
        scrollTo(center);
    }
    notify(ExNotification::VIEWER_SUBTYPE_CHANGED);
}

KxSlice *SliceViewer::slice(bool /*preview*/) const
{
    return volume(0) != nullptr ? const_cast<KxSlice *>(&m_slice) : nullptr;
}

void SliceViewer::rotate(const McVec3d &axis, double angle)
{
    KxVolume *const shown = volume(0);
    if (shown == nullptr || angle == 0) {
        return;
    }
    m_plane = PlaneKind::Oblique;
    const KxSlice turned = PlaneGeometry::rotated(m_slice, axis, angle);
    m_stack = SliceStack(flipped(turned), *shown); // Flipping does not turn scrolling round.
    setSlice(turned);
}

int SliceViewer::sliceIndex() const
{
    return m_stack.nearestIndex(m_slice.center());
}

void SliceViewer::setSliceIndex(int index)
{
    if (volume(0) == nullptr) {
        return;
    }
    const int inRange = std::clamp(index, 0, m_stack.count() - 1);
    const McVec3d center = m_stack.moved(m_slice.center(), inRange);
    constexpr double nothing = 1e-6;
    if ((center - m_slice.center()).length() > nothing) {
        setSlice({center, m_slice.right(), m_slice.down(), m_slice.thickness()});
    }
}

void SliceViewer::scrollTo(const McVec3d &point)
{
    setSliceIndex(m_stack.nearestIndex(point));
}

void SliceViewer::setZoom(double pixelsPerMm)
{
    const double inRange = std::clamp(pixelsPerMm, smallestZoom, largestZoom);
    if (inRange == m_zoom) {
        return;
    }
    m_zoom = inRange;
    m_isFitting = false;
    m_needsCut = true;
    interact();
    requestRender();
    notify(ExNotification::ZOOM_CHANGED);
}

void SliceViewer::fit()
{
    if (volume(0) == nullptr) {
        return;
    }
    const McVec3d center = m_slice.center();
    const KxSlice home = PlaneGeometry::plane(m_plane, *volume(0));
    const McVec3d shift = home.center() - center;
    const McVec3d inPlane = shift - m_slice.normal() * shift.dot(m_slice.normal());
    m_zoom = fittingZoom();
    m_isFitting = true;
    setSlice({center + inPlane, m_slice.right(), m_slice.down(), m_slice.thickness()});
    notify(ExNotification::ZOOM_CHANGED);
}

void SliceViewer::pan(const McVec3d &shift)
{
    const McVec3d inPlane = shift - m_slice.normal() * shift.dot(m_slice.normal());
    if (volume(0) == nullptr || inPlane == McVec3d{}) {
        return;
    }
    m_isFitting = false;
    setSlice({m_slice.center() + inPlane, m_slice.right(), m_slice.down(), m_slice.thickness()});
}

void SliceViewer::setWindow(const KxVolume::Window &window)
{
    const KxVolume::Window inRange{window.center, std::max(window.width, leastWindowWidth)};
    if (inRange.center == m_window.center && inRange.width == m_window.width) {
        return;
    }
    m_window = inRange;
    m_windowOwner = imageSet(0);
    requestRender();
    notify(ExNotification::DATA_WINDOW_CHANGED);
}

void SliceViewer::setInverted(bool inverted)
{
    if (inverted != m_isInverted) {
        m_isInverted = inverted;
        requestRender();
        notify(ExNotification::COLORMAP_CHANGED);
    }
}

bool SliceViewer::isFlipped(Qt::Orientation orientation) const
{
    return orientation == Qt::Horizontal ? m_isFlippedAcross : m_isFlippedDown;
}

void SliceViewer::setFlipped(Qt::Orientation orientation, bool on)
{
    if (on == isFlipped(orientation)) {
        return;
    }
    const KxSlice own = flipped(m_slice);
    (orientation == Qt::Horizontal ? m_isFlippedAcross : m_isFlippedDown) = on;
    if (volume(0) != nullptr) {
        setSlice(flipped(own));
    }
    notify(ExNotification::VIEWER_FLIPPED);
}

KxSlice SliceViewer::flipped(const KxSlice &slice) const
{
    return {slice.center(), m_isFlippedAcross ? -slice.right() : slice.right(),
        m_isFlippedDown ? -slice.down() : slice.down(), slice.thickness()};
}

SliceView SliceViewer::view() const
{
    return {m_plane, m_ownPlane, m_slice, m_zoom, m_isFitting, m_window, m_isInverted,
        m_isFlippedAcross, m_isFlippedDown};
}

void SliceViewer::setView(const SliceView &view)
{
    KxVolume *const shown = volume(0);
    if (shown == nullptr) {
        return;
    }
    m_plane = view.plane;
    m_ownPlane = view.ownPlane;
    m_isFlippedAcross = view.isFlippedAcross;
    m_isFlippedDown = view.isFlippedDown;
    const bool isOblique = m_plane == PlaneKind::Oblique;
    const KxSlice own = isOblique ? flipped(view.slice) : PlaneGeometry::plane(m_plane, *shown);
    m_stack = SliceStack(own, *shown);
    const McVec3d &center = view.slice.center();
    const KxSlice upright = flipped({m_stack.moved(center, m_stack.nearestIndex(center)),
        own.right(), own.down(), view.slice.thickness()});
    m_zoom = std::clamp(view.zoom, smallestZoom, largestZoom);
    m_isFitting = view.isFitting;
    setSlice(isOblique ? view.slice : upright);
    if (m_isFitting && !isOblique) {
        m_zoom = fittingZoom(); // The viewer may have another size than it had.
    }
    notify(ExNotification::VIEWER_SUBTYPE_CHANGED);
    notify(ExNotification::VIEWER_FLIPPED);
    notify(ExNotification::ZOOM_CHANGED);
    setWindow(view.window);
    setInverted(view.isInverted);
}

McVec3d SliceViewer::patientAt(const QPointF &position) const
{
    const QPointF offset = (position - QRectF(widget()->rect()).center()) / m_zoom;
    return m_slice.center() + m_slice.right() * offset.x() + m_slice.down() * offset.y();
}

QPointF SliceViewer::positionOf(const McVec3d &point) const
{
    const McVec3d offset = point - m_slice.center();
    return QRectF(widget()->rect()).center()
        + QPointF(offset.dot(m_slice.right()), offset.dot(m_slice.down())) * m_zoom;
}

void SliceViewer::setSlice(const KxSlice &slice)
{
    m_slice = slice;
    m_needsCut = true;
    interact();
    requestRender();
    notify(ExNotification::SLICE_CHANGED);
}

void SliceViewer::volumeChanged(bool isOtherPhase)
{
    KxVolume *const shown = volume(0);
    m_reslicer.setVolume(shown);
    m_needsCut = true;
    if (imageSet(0) == nullptr) {
        m_windowOwner = nullptr; // Others may come to lie where those images did.
    }
    if (shown == nullptr || isOtherPhase || phase() > 0) {
        return; // All phases lie on one grid: another phase is seen from where the last one was.
    }
    if (m_windowOwner != imageSet(0)) {
        m_window = shown->defaultWindow();
        m_windowOwner = nullptr;
    }
    m_isInverted = false;
    m_isFlippedAcross = false;
    m_isFlippedDown = false;
    showWholeVolume();
}

void SliceViewer::voxelsChanged()
{
    m_reslicer.voxelsChanged();
    m_needsCut = true;
    if (m_windowOwner == nullptr) {
        m_window = volume(0)->defaultWindow(); // May be known only once values have been read.
    }
}

void SliceViewer::showWholeVolume()
{
    const KxVolume &shown = *volume(0);
    const KxSlice home = PlaneGeometry::plane(m_plane, shown);
    m_stack = SliceStack(home, shown);
    // Of an even number of slices the later one in the middle, which is read before all others.
    const auto &size = shown.dimensions();
    const McVec3d middle = shown.voxelToPatient().map(
        {(size[0] - 1) / 2.0, (size[1] - 1) / 2.0, std::floor(size[2] / 2.0)});
    const McVec3d center = m_stack.moved(home.center(), m_stack.nearestIndex(middle));
    m_slice = flipped({center, home.right(), home.down()});
    m_isFitting = true;
    m_zoom = fittingZoom();
    m_needsCut = true;
}

double SliceViewer::fittingZoom() const
{
    const QSizeF half = PlaneGeometry::halfExtent(
        {volume(0)->center(), m_slice.right(), m_slice.down()}, *volume(0));
    const double zoom
        = std::min(widget()->width() / half.width(), widget()->height() / half.height()) / 2
        * fitFraction;
    return std::clamp(zoom, smallestZoom, largestZoom);
}

void SliceViewer::resized()
{
    if (m_isFitting && volume(0) != nullptr) {
        m_zoom = fittingZoom();
    }
    m_needsCut = true;
    requestRender();
    updateOverlay();
}

QSize SliceViewer::frameSize() const
{
    const QSize full = widget()->pixelSize();
    const bool isQuick = isInteracting() && m_cutMilliseconds > quickMilliseconds;
    return isQuick ? full / 2 : full;
}

void SliceViewer::cut()
{
    const QSize size = frameSize();
    const double pixelsPerPoint = static_cast<double>(size.width()) / widget()->width();
    QElapsedTimer clock;
    clock.start();
    m_reslicer.setVolume(volume(0)); // Lets it go when rendering is cleaned up.
    m_reslicer.cut(m_slice, 1 / (m_zoom * pixelsPerPoint), size);
    m_cutIsFinal = size == widget()->pixelSize();
    if (m_cutIsFinal) {
        m_cutMilliseconds = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    }
    m_needsCut = false;
}

bool SliceViewer::isDrawn() const
{
    return !m_needsCut && m_drawnWindow && m_drawnWindow->center == m_window.center
        && m_drawnWindow->width == m_window.width && m_drawnInverted == m_isInverted
        && (m_cutIsFinal || isInteracting());
}

QString SliceViewer::obstacle() const
{
    const bool isPossible = volume(0) == nullptr || SliceCutter::problem().empty();
    return isPossible ? QString()
                      : Texts::tr("The images cannot be shown.") % u'\n'
            % QString::fromStdString(SliceCutter::problem());
}

void SliceViewer::renderFrame()
{
    if (widget() == nullptr || widget()->size().isEmpty()) {
        return;
    }
    if (volume(0) == nullptr) {
        m_drawnWindow.reset();
        showFrame({}, true);
        return;
    }
    if (isDrawn()) {
        return;
    }
    if (m_needsCut || !m_cutIsFinal) {
        cut();
    }
    m_drawnWindow = m_window;
    m_drawnInverted = m_isInverted;
    showFrame(m_reslicer.image(m_window, m_isInverted), m_cutIsFinal);
}

void SliceViewer::cleanUpNodes()
{
    m_reslicer.setVolume(nullptr);
    m_needsCut = true;
}

OverlayContent SliceViewer::overlayContent() const
{
    return sliceOverlay(*this);
}
