#include "client/app/ViewerMenu.h"

#include "client/app/MainMenus.h"
#include "client/links/LinkType.h"
#include "client/links/LinkedActions.h"
#include "client/links/ViewerLinks.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "client/viewers/WorkstationViewer.h"
#include "framework/tools/ExActionUI.h"
#include "framework/viewers/ExViewerDB.h"

#include <QCoreApplication>
#include <QMenu>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ViewerMenu)
};

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

void addPhases(QMenu &menu, WorkstationViewer &viewer)
{
    if (viewer.numPhases() < 2) {
        return;
    }
    QMenu &phases = *menu.addMenu(Texts::tr("Phase"));
    for (int phase = 0; phase < viewer.numPhases(); ++phase) {
        const QString label = QString::fromStdString(viewer.imageSet(0)->phaseLabel(phase));
        addCheck(phases, Texts::tr("%1  %2").arg(phase + 1).arg(label),
            Texts::tr("Shows this phase"), viewer, viewer.phase() == phase,
            [phase](WorkstationViewer &shown, bool) {
                LinkedActions::stepPhase(shown, phase - shown.phase());
            });
    }
}

void addLinks(QMenu &menu, WorkstationViewer &viewer)
{
    QMenu &links = *menu.addMenu(Texts::tr("Linked in"));
    for (const LinkType &type : LinkType::all()) {
        if (ExViewerDB::group(type.group, &viewer) != nullptr) {
            addCheck(links, type.name(),
                Texts::tr("Whether this viewer follows the others in this"), viewer,
                ViewerLinks::isAttached(type.group, viewer),
                [group = type.group](WorkstationViewer &shown, bool on) {
                    ViewerLinks::setAttached(group, shown, on);
                });
        }
    }
}

} // namespace

QMenu *makeViewerMenu(WorkstationViewer &viewer)
{
    auto *const menu = new QMenu(viewer.widget());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setToolTipsVisible(true);
    menu->setSeparatorsCollapsible(true);
    menu->addActions(ExActionUI::createActions(MainMenus::viewerMenuKeys(), menu));
    menu->addSeparator();
    addPhases(*menu, viewer);
    addLinks(*menu, viewer);
    return menu;
}
