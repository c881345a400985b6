#include "client/overlay/SliceOverlay.h"

#include "client/geometry/PlaneGeometry.h"
#include "client/links/ViewerLinks.h"
#include "client/measurements/MeasurementView.h"
#include "client/overlay/OverlayColors.h"
#include "client/overlay/OverlaySettings.h"
#include "client/overlay/SeriesTexts.h"
#include "client/viewers/SliceViewer.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "framework/viewers/ExBaseViewerGroup.h"
#include "framework/viewers/ExViewerManager.h"

#include <QCoreApplication>

#include <cmath>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SliceOverlay)
};

QString millimetres(double value)
{
    return QString::number(value, 'f', 1) % QLatin1String(" mm");
}

/// The plane's distance from the origin of the patient's coordinates, and the side it is on.
QString positionText(const SliceViewer &viewer)
{
    const McVec3d normal = viewer.shownSlice().normal();
    const double distance = viewer.shownSlice().center().dot(normal);
    const QString side = PlaneGeometry::orientationLetters(distance < 0 ? -normal : normal);
    return side % QLatin1Char(' ') % millimetres(std::abs(distance));
}

/// Thickness of the acquired slices, where the header tells it, and the distance between planes.
QString thicknessText(const SliceViewer &viewer)
{
    const auto &attributes = viewer.volume(0)->attributes();
    const auto thickness = attributes ? attributes->find("G0018-0050") : std::nullopt;
    QString step = Texts::tr("step %1").arg(millimetres(viewer.stack().step()));
    if (!thickness || viewer.plane() == PlaneKind::Oblique) {
        return step;
    }
    return Texts::tr("thick %1  %2")
        .arg(millimetres(QString::fromStdString(*thickness).toDouble()), step);
}

QString zoomText(const SliceViewer &viewer)
{
    const double pixelsPerVoxel = viewer.zoom() * viewer.volume(0)->spacing()[0];
    return Texts::tr("zoom %1 %").arg(std::lround(pixelsPerVoxel * 100));
}

QString windowText(const SliceViewer &viewer)
{
    const KxVolume &volume = *viewer.volume(0);
    if (volume.components() == 3) {
        return Texts::tr("colour");
    }
    return Texts::tr("W %1  L %2 %3")
               .arg(std::lround(viewer.window().width))
               .arg(std::lround(viewer.window().center))
               .arg(QString::fromStdString(volume.unit()))
               .trimmed()
        % (viewer.isInverted() ? Texts::tr("  inverted") : QString());
}

/// Directions have names only where the images are known to lie in the patient.
QString viewName(const SliceViewer &viewer)
{
    if (viewer.series()->placement() == KxVolume::Placement::Patient) {
        return PlaneGeometry::name(viewer.plane());
    }
    const bool isImagePlane
        = viewer.plane() == PlaneKind::Axial || viewer.plane() == PlaneKind::Original;
    return isImagePlane ? Texts::tr("image") : Texts::tr("across the images");
}

QStringList placeTexts(const SliceViewer &viewer)
{
    const KxVolume::Placement placement = viewer.series()->placement();
    QStringList lines{
        Texts::tr("Im %1/%2").arg(viewer.sliceIndex() + 1).arg(viewer.stack().count())};
    if (placement == KxVolume::Placement::Patient) {
        lines += positionText(viewer);
    }
    if (placement != KxVolume::Placement::Pixels) {
        lines += thicknessText(viewer);
    }
    return lines << zoomText(viewer);
}

void addTexts(OverlayContent &content, const SliceViewer &viewer)
{
    content.corners[OverlayContent::TopLeft] = SeriesTexts::patient(viewer);
    content.corners[OverlayContent::TopRight] = SeriesTexts::study(viewer, viewName(viewer));
    content.corners[OverlayContent::BottomLeft] = placeTexts(viewer);
    QStringList &values = content.corners[OverlayContent::BottomRight];
    values = {windowText(viewer)};
    if (const QString phase = SeriesTexts::phase(viewer); !phase.isEmpty()) {
        values += phase;
    }
    if (const QString tool = SeriesTexts::tool(viewer); !tool.isEmpty()) {
        values += tool;
    }
}

void addLetters(OverlayContent &content, const KxSlice &slice)
{
    using PlaneGeometry::orientationLetters;
    content.letters[OverlayContent::Left] = orientationLetters(-slice.right());
    content.letters[OverlayContent::Right] = orientationLetters(slice.right());
    content.letters[OverlayContent::Top] = orientationLetters(-slice.down());
    content.letters[OverlayContent::Bottom] = orientationLetters(slice.down());
}

bool givesLine(const SliceViewer &viewer, const SliceViewer &other)
{
    return &other != &viewer && other.widget()->isVisible() && other.volume(0) != nullptr
        && other.series()->sharesFrame(*viewer.series());
}

void addReferenceLines(OverlayContent &content, const SliceViewer &viewer)
{
    if (ExViewerManager::instancePointer() == nullptr || !OverlaySettings::referenceLines()) {
        return;
    }
    const QSize size = viewer.widget()->size();
    const double reach = (size.width() + size.height()) / viewer.zoom();
    const QPointF middle = QRectF(QPointF(), size).center();
    for (ExBaseViewer *each : ExBaseViewerGroup(nullptr, ExBaseViewerGroup::ALL_VIEWERS,
             static_cast<Ex::ViewerType>(WorkstationViewer::SliceType))) {
        const auto &other = static_cast<SliceViewer &>(*each);
        if (!givesLine(viewer, other)) {
            continue;
        }
        const auto line
            = PlaneGeometry::intersection(viewer.shownSlice(), other.shownSlice(), reach);
        if (line) {
            content.referenceLines.append(
                {QLineF(middle + line->p1() * viewer.zoom(), middle + line->p2() * viewer.zoom()),
                    OverlayColors::plane(other.plane())});
        }
    }
}

} // namespace

OverlayContent sliceOverlay(const SliceViewer &viewer)
{
    OverlayContent content;
    content.planeColor = OverlayColors::plane(viewer.plane());
    content.isActive = ExViewerManager::isActiveViewer(viewer);
    content.link = ViewerLinks::badge(viewer);
    content.message = SeriesTexts::emptyState(viewer);
    if (content.message.isEmpty()) {
        content.message = viewer.obstacle();
    }
    if (viewer.volume(0) == nullptr) {
        content.progress = viewer.series() != nullptr ? viewer.series()->progress() : 1;
        return content;
    }
    content.progress = viewer.series()->isComplete() ? 1 : viewer.series()->progress();
    content.warnings = SeriesTexts::warnings(viewer);
    if (viewer.isMirrored()) {
        content.warnings += Texts::tr("mirrored");
    }
    const KxVolume::Placement placement = viewer.series()->placement();
    content.mmPerPixel = placement == KxVolume::Placement::Pixels ? 0 : 1 / viewer.zoom();
    if (placement == KxVolume::Placement::Patient) {
        addLetters(content, viewer.shownSlice());
    }
    if (OverlaySettings::cornerTexts()) {
        addTexts(content, viewer);
    }
    addReferenceLines(content, viewer);
    content.shapes = MeasurementView::shapes(viewer);
    return content;
}
