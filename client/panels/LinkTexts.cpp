#include "client/panels/LinkTexts.h"

#include "client/geometry/PlaneGeometry.h"
#include "client/links/LinkType.h"
#include "client/links/ViewerLinks.h"
#include "client/panels/LinksPanel.h"
#include "client/viewers/SliceViewer.h"
#include "framework/viewers/ExViewerDB.h"
#include "framework/viewers/ExViewerDBGroup.h"

#include <array>
#include <cmath>

namespace LinkTexts {

namespace {

/// 0 to 2 for what lies at the beginning, in the middle or at the end of a length.
std::size_t third(double middle, double extent, double length)
{
    constexpr double most = 0.6;
    constexpr double off = 0.1;
    const double fraction = middle / length;
    if (extent / length > most || std::abs(fraction - 0.5) < off) {
        return 1;
    }
    return fraction < 0.5 ? 0 : 2;
}

} // namespace

QString planeName(const WorkstationViewer &viewer)
{
    return WorkstationViewer::isSliceType(viewer.viewerType())
        ? PlaneGeometry::name(static_cast<const SliceViewer &>(viewer).plane())
        : LinksPanel::tr("3D");
}

QString placeName(const WorkstationViewer &viewer)
{
    static constexpr std::array names{QT_TRANSLATE_NOOP("LinksPanel", "top left"),
        QT_TRANSLATE_NOOP("LinksPanel", "top"), QT_TRANSLATE_NOOP("LinksPanel", "top right"),
        QT_TRANSLATE_NOOP("LinksPanel", "left"), QT_TRANSLATE_NOOP("LinksPanel", "middle"),
        QT_TRANSLATE_NOOP("LinksPanel", "right"), QT_TRANSLATE_NOOP("LinksPanel", "bottom left"),
        QT_TRANSLATE_NOOP("LinksPanel", "bottom"), QT_TRANSLATE_NOOP("LinksPanel", "bottom right")};
    const QWidget *const widget = viewer.renderWidget();
    const QWidget *const area = widget != nullptr ? widget->parentWidget() : nullptr;
    if (area == nullptr || area->size().isEmpty()) {
        return {};
    }
    const QRectF place = widget->geometry();
    const std::size_t row = third(place.center().y(), place.height(), area->height());
    const std::size_t column = third(place.center().x(), place.width(), area->width());
    return LinksPanel::tr(names.at(3 * row + column));
}

QString nameOf(const WorkstationViewer &viewer)
{
    const QString place = placeName(viewer);
    return place.isEmpty() ? planeName(viewer)
                           : QStringLiteral("%1 (%2)").arg(planeName(viewer), place);
}

QString namesOf(const ExViewerDBGroup &group)
{
    QStringList names;
    for (const ExBaseViewer *each : group.viewers()) {
        names += nameOf(*static_cast<const WorkstationViewer *>(each));
    }
    return names.join(QStringLiteral(", "));
}

QString groupName(const std::string &type, const WorkstationViewer &viewer)
{
    return ViewerLinks::followsActive(type, viewer)
        ? LinksPanel::tr("Active viewer")
        : LinksPanel::tr("Group %1")
              .arg(QString::fromStdString(ExViewerDB::groupId(type, &viewer)));
}

QString toolTip(const LinkType &type, const WorkstationViewer &viewer)
{
    const ExViewerDBGroup *const group = ExViewerDB::group(type.group, &viewer);
    if (group == nullptr) {
        return LinksPanel::tr("%1 of %2 is not linked.").arg(type.name(), nameOf(viewer));
    }
    QStringList lines{QStringLiteral("%1: %2").arg(groupName(type.group, viewer), namesOf(*group)),
        ViewerLinks::isAttached(type.group, viewer)
            ? LinksPanel::tr("Attached: follows the linked viewers.")
            : LinksPanel::tr("Detached: stays as it is.")};
    const auto allowed = ViewerLinks::restriction(type.group, viewer);
    if (ViewerLinks::followsActive(type.group, viewer) && !allowed.empty()) {
        lines += LinksPanel::tr("Follows some viewers only.");
    }
    lines += LinksPanel::tr(
        "Double-click or Space attaches and detaches; the context menu has more.");
    return lines.join(u'\n');
}

} // namespace LinkTexts
