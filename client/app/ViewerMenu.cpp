#include "client/app/ViewerMenu.h"

#include "client/geometry/PlaneGeometry.h"
#include "client/layout/ViewerLayouts.h"
#include "client/links/LinkType.h"
#include "client/links/LinkedActions.h"
#include "client/links/ViewerLinks.h"
#include "client/viewers/SliceViewer.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "client/viewers/VolumeViewer.h"
#include "framework/viewers/ExViewerDB.h"

#include <QCoreApplication>
#include <QMenu>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("ViewerMenu", text);
}

/// The menu holds the viewer, so that actions find it even if it is removed meanwhile.
template <typename Viewer, typename Do>
QAction *add(QMenu &menu, const QString &text, const QString &toolTip, Viewer &viewer, Do perform)
{
    QAction *const action = menu.addAction(text);
    action->setToolTip(toolTip);
    QObject::connect(action, &QAction::triggered, action,
        [held = McHandle<Viewer>(&viewer), perform](bool on) { perform(*held, on); });
    return action;
}

template <typename Viewer, typename Do>
void addCheck(QMenu &menu, const QString &text, const QString &toolTip, Viewer &viewer,
    bool isChecked, Do perform)
{
    QAction *const action = add(menu, text, toolTip, viewer, perform);
    action->setCheckable(true);
    action->setChecked(isChecked);
}

void addPlanes(QMenu &menu, SliceViewer &viewer)
{
    for (const auto plane :
        {PlaneKind::Axial, PlaneKind::Sagittal, PlaneKind::Coronal, PlaneKind::Original}) {
        addCheck(menu, PlaneGeometry::name(plane), tr("Shows this plane"), viewer,
            viewer.plane() == plane, [plane](SliceViewer &shown, bool) { shown.setPlane(plane); });
    }
    menu.addSeparator();
}

void addPhases(QMenu &menu, WorkstationViewer &viewer)
{
    if (viewer.numPhases() < 2) {
        return;
    }
    QMenu &phases = *menu.addMenu(tr("Phase"));
    for (int phase = 0; phase < viewer.numPhases(); ++phase) {
        const QString label = QString::fromStdString(viewer.imageSet(0)->phaseLabel(phase));
        addCheck(phases, tr("%1  %2").arg(phase + 1).arg(label), tr("Shows this phase"), viewer,
            viewer.phase() == phase, [phase](WorkstationViewer &shown, bool) {
                LinkedActions::stepPhase(shown, phase - shown.phase());
            });
    }
}

void addLinks(QMenu &menu, WorkstationViewer &viewer)
{
    QMenu &links = *menu.addMenu(tr("Linked in"));
    for (const LinkType &type : LinkType::all()) {
        if (ExViewerDB::group(type.group, &viewer) != nullptr) {
            addCheck(links, type.name(), tr("Whether this viewer follows the others in this"),
                viewer, ViewerLinks::isAttached(type.group, viewer),
                [group = type.group](WorkstationViewer &shown, bool on) {
                    ViewerLinks::setAttached(group, shown, on);
                });
        }
    }
    addCheck(menu, tr("Attached to linked viewers"),
        tr("Whether this viewer follows the others (L, or the badge in its corner)"), viewer,
        ViewerLinks::isAttached(viewer),
        [](WorkstationViewer &shown, bool on) { ViewerLinks::setAttached(shown, on); });
}

} // namespace

QMenu *makeViewerMenu(WorkstationViewer &viewer, ViewerLayouts &layouts)
{
    auto *const menu = new QMenu(viewer.widget());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setToolTipsVisible(true);
    auto *const slice = dynamic_cast<SliceViewer *>(&viewer);
    if (slice != nullptr) {
        addPlanes(*menu, *slice);
    }
    addPhases(*menu, viewer);
    addLinks(*menu, viewer);
    menu->addSeparator();
    add(*menu, tr("Full screen"), tr("Shows this viewer alone, or all again (double click)"),
        viewer, [&layouts](WorkstationViewer &shown, bool) { layouts.toggleFullscreen(shown); });
    add(*menu, tr("Reset view"), tr("Shows the whole image in its first window (R)"), viewer,
        [](WorkstationViewer &shown, bool) {
            if (auto *const image = dynamic_cast<SliceViewer *>(&shown)) {
                LinkedActions::reset(*image);
            } else {
                static_cast<VolumeViewer &>(shown).reset();
            }
        });
    return menu;
}
