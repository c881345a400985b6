#include "client/overlay/VolumeOverlay.h"

#include "client/geometry/PlaneGeometry.h"
#include "client/links/ViewerLinks.h"
#include "client/overlay/OverlaySettings.h"
#include "client/overlay/SeriesTexts.h"
#include "client/viewers/VolumeViewer.h"
#include "framework/viewers/ExViewerManager.h"

#include <QCoreApplication>

#include <cmath>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(VolumeOverlay)
};

void addLetters(OverlayContent &content, const VolumeViewer &viewer)
{
    using PlaneGeometry::orientationLetters;
    const McVec3d right = viewer.viewDirection().cross(viewer.up());
    content.letters[OverlayContent::Left] = orientationLetters(-right);
    content.letters[OverlayContent::Right] = orientationLetters(right);
    content.letters[OverlayContent::Top] = orientationLetters(viewer.up());
    content.letters[OverlayContent::Bottom] = orientationLetters(-viewer.up());
}

void addTexts(OverlayContent &content, const VolumeViewer &viewer)
{
    content.corners[OverlayContent::TopLeft] = SeriesTexts::patient(viewer);
    content.corners[OverlayContent::TopRight] = SeriesTexts::study(viewer, Texts::tr("3D"));
    const double above = viewer.window().center - viewer.window().width / 2;
    QStringList &values = content.corners[OverlayContent::BottomRight];
    values = {Texts::tr("values above %1 %2")
                  .arg(std::lround(above))
                  .arg(QString::fromStdString(viewer.volume(0)->unit()))
                  .trimmed()};
    if (const QString phase = SeriesTexts::phase(viewer); !phase.isEmpty()) {
        values += phase;
    }
    if (const QString tool = SeriesTexts::tool(viewer); !tool.isEmpty()) {
        values += tool;
    }
}

} // namespace

OverlayContent volumeOverlay(const VolumeViewer &viewer)
{
    OverlayContent content;
    content.isActive = ExViewerManager::isActiveViewer(viewer);
    content.link = ViewerLinks::badge(viewer);
    content.message = SeriesTexts::emptyState(viewer);
    if (viewer.series() != nullptr) {
        content.progress = viewer.series()->isComplete() ? 1 : viewer.series()->progress();
    }
    if (content.message.isEmpty()) {
        content.message = viewer.obstacle();
    }
    if (viewer.volume(0) == nullptr) {
        return content;
    }
    if (OverlaySettings::cornerTexts()) {
        addTexts(content, viewer);
    }
    if (content.message.isEmpty()) {
        const KxVolume::Placement placement = viewer.series()->placement();
        content.mmPerPixel = placement == KxVolume::Placement::Pixels ? 0 : 1 / viewer.zoom();
        if (placement == KxVolume::Placement::Patient) {
            addLetters(content, viewer);
        }
        content.warnings = SeriesTexts::warnings(viewer);
    }
    return content;
}
