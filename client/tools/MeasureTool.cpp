#include "client/tools/MeasureTool.h"

#include "client/measurements/MeasurementList.h"
#include "client/measurements/MeasurementView.h"
#include "client/tools/LeftButtonTools.h"
#include "client/viewers/SliceViewer.h"

#include <QLineF>

#include <algorithm>
#include <limits>

namespace {

/// Less than this, in pixels, from one point to the next is no shape but a slip of the hand.
constexpr double leastExtent = 4;
/// Pixels between the corners of a region that is drawn around.
constexpr double freehandStep = 6;

/// After so many points a shape is complete; a polygon's user says when.
std::size_t numPoints(Measurement::Kind kind)
{
    switch (kind) {
    case Measurement::Kind::Angle:
        return 3;
    case Measurement::Kind::Polygon:
        return std::numeric_limits<std::size_t>::max();
    case Measurement::Kind::Distance:
    case Measurement::Kind::Ellipse:
    case Measurement::Kind::Rectangle:
        break;
    }
    return 2;
}

double pixelsBetween(const SliceViewer &viewer, const McVec3d &a, const McVec3d &b)
{
    return QLineF(viewer.positionOf(a), viewer.positionOf(b)).length();
}

/// Whether all of its points are apart from the one before.
bool hasExtent(const Measurement &measurement, const SliceViewer &viewer)
{
    const auto &points = measurement.points;
    return std::adjacent_find(points.begin(), points.end(),
               [&](const McVec3d &a, const McVec3d &b) {
                   return pixelsBetween(viewer, a, b) < leastExtent;
               })
        == points.end();
}

bool isBigEnough(const Measurement &measurement, const SliceViewer &viewer)
{
    const QPolygonF handles = [&] {
        QPolygonF found;
        for (const McVec3d &handle : MeasurementGeometry::handles(measurement)) {
            found.append(viewer.positionOf(handle));
        }
        return found;
    }();
    const QSizeF size = handles.boundingRect().size();
    switch (measurement.kind) {
    case Measurement::Kind::Ellipse:
    case Measurement::Kind::Rectangle:
        return std::min(size.width(), size.height()) >= leastExtent;
    case Measurement::Kind::Polygon:
        return measurement.points.size() >= 3;
    case Measurement::Kind::Distance:
    case Measurement::Kind::Angle:
        break;
    }
    return hasExtent(measurement, viewer);
}

} // namespace

MeasureTool::MeasureTool(const char *key)
    : ExShapeTool(key, Kx::LeftButton, true)
{
    LeftButtonTools::add(*this);
}

MeasureTool::~MeasureTool() = default;

bool MeasureTool::setActive(bool on)
{
    if (!on && isActive()) {
        giveUp();
        if (MeasurementList *const list = MeasurementList::instancePointer()) {
            list->setPicked(0);
        }
        if (LeftButtonTools::replace(*this)) {
            return true;
        }
    }
    return ExShapeTool::setActive(on);
}

bool MeasureTool::isEnabled(const ExBaseViewer *viewer) const
{
    const KxImageSeries *const images = viewer == nullptr ? nullptr : viewer->imageSet(0);
    return images != nullptr && images->numVolumes() > 0;
}

bool MeasureTool::needsExclusiveClickForActivation() const
{
    return true;
}

bool MeasureTool::supports(Ex::ViewerType type) const
{
    return WorkstationViewer::isSliceType(type);
}

void MeasureTool::addSubTool(const char *key)
{
    appendTool(ExTool::getToolByDecorationKey(key, true), false);
}

void MeasureTool::addCommands()
{
    for (const char *key : {"Measure.Copy", "Measure.Delete", "Measure.DeleteAll"}) {
        addSubTool(key);
    }
}

QString MeasureTool::displayHint(const ExBaseViewer * /*viewer*/) const
{
    return hint();
}

bool MeasureTool::pick(ExBaseViewer *viewer, int x, int y, float &distance)
{
    const auto *const slice = dynamic_cast<const SliceViewer *>(viewer);
    const auto found
        = slice == nullptr ? std::nullopt : MeasurementView::pick(*slice, QPointF(x, y));
    if (found) {
        distance = static_cast<float>(found->distance);
    }
    return found.has_value();
}

const Measurement *MeasureTool::draft() const
{
    const MeasurementList *const list = MeasurementList::instancePointer();
    return list == nullptr || m_id == 0 ? nullptr : list->find(m_id);
}

bool MeasureTool::processMouseEvent(ExBaseViewer *viewer, Kx::MouseEvent event, int x, int y,
    Kx::ButtonState state, Kx::KxCursorShape &cursorShape)
{
    auto &slice = static_cast<SliceViewer &>(*viewer);
    const QPoint position(x, y);
    if (draft() != nullptr && !isFit(slice)) {
        giveUp(); // The user has gone elsewhere.
    }
    const bool isDoubleClick = event == Kx::LeftPressed && (state & Kx::DoubleClick) != 0;
    const bool isUnderWay = draft() != nullptr;
    if (buttonPressed(event, state)) {
        press(slice, position);
    } else if (isDoubleClick && isUnderWay) {
        pressAgain(slice, position);
    } else if (event == Kx::MouseMove && isUnderWay) {
        move(slice, position, (state & Kx::LeftButton) != 0);
    } else if (event == Kx::LeftReleased && m_isPressed) {
        release(slice, position);
    } else {
        const auto pick = MeasurementView::pick(slice, position);
        if (testCursorState(state)) {
            cursorShape = !pick    ? Kx::CrossCursor
                : pick->handle < 0 ? Kx::OpenHandCursor
                                   : Kx::PointingHandCursor;
        }
        return false;
    }
    cursorShape = m_isEditing ? Kx::ClosedHandCursor : Kx::CrossCursor;
    return true;
}

bool MeasureTool::isFit(const SliceViewer &viewer) const
{
    const Measurement *const drawn = draft();
    return m_viewer == &viewer && MeasurementView::isShown(*drawn, viewer);
}

bool MeasureTool::isAway(const QPoint &position) const
{
    return QLineF(m_press, position).length() > leastExtent;
}

void MeasureTool::press(SliceViewer &viewer, const QPoint &position)
{
    const bool isNew = draft() == nullptr;
    m_press = position;
    m_isPressed = true;
    m_isDrag = false;
    m_viewer = &viewer;
    if (isNew && !startEditing(viewer, position)) {
        startDrawing(viewer, position);
    }
}

void MeasureTool::pressAgain(SliceViewer &viewer, const QPoint &position)
{
    const Measurement *const drawn = draft();
    if (drawn->kind == Measurement::Kind::Polygon) {
        movePoint(viewer, position);
        if (pixelsBetween(viewer, drawn->points.end()[-2], drawn->points.back()) >= leastExtent) {
            placePoint(viewer, position);
        }
        complete(viewer);
    } else if (drawn->points.size() == 2 && !hasExtent(*drawn, viewer)) {
        giveUp(); // A double click without a shape.
    } else {
        press(viewer, position);
    }
}

bool MeasureTool::startEditing(SliceViewer &viewer, const QPoint &position)
{
    MeasurementList &list = *MeasurementList::instancePointer();
    const auto pick = MeasurementView::pick(viewer, position);
    list.setPicked(pick ? pick->id : 0);
    if (!pick) {
        return false;
    }
    m_original = *list.find(pick->id);
    m_id = pick->id;
    m_handle = pick->handle;
    m_isEditing = true;
    return true;
}

void MeasureTool::startDrawing(SliceViewer &viewer, const QPoint &position)
{
    const McVec3d point = viewer.patientAt(position);
    Measurement drawn;
    drawn.kind = kind();
    drawn.seriesUid = viewer.series()->uid();
    drawn.frameOfReference = viewer.series()->info().frameOfReference;
    drawn.plane = viewer.shownSlice();
    drawn.points = {point, point};
    m_isEditing = false;
    m_id = MeasurementList::instancePointer()->add(drawn);
}

void MeasureTool::move(SliceViewer &viewer, const QPoint &position, bool isHeld)
{
    if (m_isPressed && !isHeld) {
        m_isPressed = false; // The release went elsewhere.
        if (m_isEditing) {
            complete(viewer);
            return;
        }
    }
    m_isDrag = m_isDrag || (isHeld && isAway(position));
    if (m_isEditing) {
        dragPicked(viewer, position);
        return;
    }
    movePoint(viewer, position);
    const Measurement &drawn = *draft();
    const bool isFreehand = m_isDrag && drawn.kind == Measurement::Kind::Polygon;
    if (isFreehand
        && pixelsBetween(viewer, drawn.points.end()[-2], drawn.points.back()) >= freehandStep) {
        placePoint(viewer, position);
    }
}

void MeasureTool::dragPicked(SliceViewer &viewer, const QPoint &position)
{
    if (!m_isDrag) {
        return; // The little movement of a click changes nothing.
    }
    const McVec3d shift = viewer.patientAt(position) - viewer.patientAt(m_press);
    Measurement changed = m_handle < 0 ? MeasurementGeometry::moved(m_original, shift)
                                       : MeasurementGeometry::withHandleMoved(
                                           m_original, static_cast<std::size_t>(m_handle), shift);
    changed.isComplete = false;
    MeasurementList::instancePointer()->update(changed);
}

void MeasureTool::release(SliceViewer &viewer, const QPoint &position)
{
    m_isPressed = false;
    const Measurement *const drawn = draft();
    if (drawn == nullptr) {
        return;
    }
    if (m_isEditing) {
        complete(viewer);
        return;
    }
    const bool isFreehand = m_isDrag && drawn->kind == Measurement::Kind::Polygon;
    const bool isFirstClick = !m_isDrag && drawn->points.size() == 2
        && pixelsBetween(viewer, drawn->points.front(), viewer.patientAt(position)) < leastExtent;
    const bool closesPolygon = drawn->kind == Measurement::Kind::Polygon && drawn->points.size() > 3
        && pixelsBetween(viewer, drawn->points.front(), viewer.patientAt(position))
            < 2 * leastExtent;
    if (isFreehand || closesPolygon) {
        complete(viewer);
    } else if (!isFirstClick) {
        movePoint(viewer, position);
        placePoint(viewer, position);
    }
}

void MeasureTool::movePoint(SliceViewer &viewer, const QPoint &position)
{
    Measurement changed = *draft();
    changed.points.back() = viewer.patientAt(position);
    MeasurementList::instancePointer()->update(changed);
}

void MeasureTool::placePoint(SliceViewer &viewer, const QPoint &position)
{
    Measurement changed = *draft();
    if (changed.points.size() >= numPoints(changed.kind)) {
        complete(viewer);
        return;
    }
    changed.points.push_back(viewer.patientAt(position));
    MeasurementList::instancePointer()->update(changed);
}

void MeasureTool::takePointBack()
{
    Measurement changed = *draft();
    if (changed.points.size() <= 2) {
        giveUp();
        return;
    }
    changed.points.erase(changed.points.end() - 2); // The last one follows the pointer.
    MeasurementList::instancePointer()->update(changed);
}

void MeasureTool::complete(SliceViewer &viewer)
{
    MeasurementList &list = *MeasurementList::instancePointer();
    Measurement done = *draft();
    // A polygon's last point only follows the pointer.
    const bool hasLoosePoint = !m_isEditing && done.kind == Measurement::Kind::Polygon;
    if (hasLoosePoint) {
        done.points.pop_back();
    }
    if (hasLoosePoint && !isBigEnough(done, viewer)) {
        m_isDrag = false;
        return; // Corners that were clicked are not lost: it goes on.
    }
    if (!m_isEditing && !isBigEnough(done, viewer)) {
        giveUp();
        return;
    }
    done.isComplete = true;
    m_isEditing ? list.updateByUser(done, m_original) : list.update(done);
    list.setPicked(done.id);
    m_id = 0;
    m_isEditing = false;
}

void MeasureTool::giveUp()
{
    const int id = m_id;
    m_id = 0;
    m_isPressed = false;
    MeasurementList *const list = MeasurementList::instancePointer();
    if (list == nullptr || list->find(id) == nullptr) {
        m_isEditing = false;
        return;
    }
    if (m_isEditing) {
        m_isEditing = false;
        list->update(m_original);
    } else {
        list->remove(id);
    }
}

bool MeasureTool::processKeyEvent(
    ExBaseViewer *viewer, Kx::KeyEvent event, Kx::Key key, Kx::ButtonState /*state*/)
{
    MeasurementList *const list = MeasurementList::instancePointer();
    if (event != Kx::KeyPressed || list == nullptr) {
        return false;
    }
    const bool isUnderWay = draft() != nullptr;
    if (key == Kx::EscapeKey && (isUnderWay || list->picked() != 0)) {
        isUnderWay ? giveUp() : list->setPicked(0);
        return true;
    }
    if ((key == Kx::ReturnKey || key == Kx::EnterKey) && isUnderWay && !m_isEditing
        && draft()->kind == Measurement::Kind::Polygon) {
        complete(static_cast<SliceViewer &>(*viewer));
        return true;
    }
    if (key == Kx::BackspaceKey && isUnderWay && !m_isEditing) {
        takePointBack();
        return true;
    }
    const bool isDelete = key == Kx::DeleteKey || key == Kx::BackspaceKey;
    return isDelete && removePicked(static_cast<SliceViewer &>(*viewer));
}

bool MeasureTool::removePicked(const SliceViewer &viewer)
{
    MeasurementList &list = *MeasurementList::instancePointer();
    const int id = list.picked();
    const Measurement *const picked = list.find(id);
    // What cannot be seen is not to be lost by a key.
    if (picked == nullptr || !MeasurementView::isShown(*picked, viewer)) {
        return false;
    }
    giveUp();
    list.removeByUser({id});
    return true;
}
