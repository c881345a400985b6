#include "client/panels/LinkMenu.h"

#include "client/links/ViewerLinks.h"
#include "client/panels/LinkTexts.h"
#include "client/panels/LinksPanel.h"
#include "client/viewers/WorkstationViewer.h"
#include "client/viewers/WorkstationViewerManager.h"
#include "framework/viewers/ExViewerDB.h"
#include "framework/viewers/ExViewerDBGroup.h"

#include <QMenu>

#include <set>

namespace LinkMenu {

namespace {

using Viewers = std::vector<WorkstationViewer *>;

void addGroups(QMenu &menu, const std::string &type, const Viewers &chosen)
{
    for (int i = 0; i < ExViewerDB::numGroups(type); ++i) {
        const ExViewerDBGroup &group = *ExViewerDB::group(type, i);
        auto *const member = static_cast<WorkstationViewer *>(group.viewers()[0]);
        if (ViewerLinks::followsActive(type, *member)) {
            continue;
        }
        QAction *const join
            = menu.addAction(QStringLiteral("%1: %2").arg(
                                 LinkTexts::groupName(type, *member), LinkTexts::namesOf(group)),
                &menu, [&type, chosen, member] {
                    for (WorkstationViewer *viewer : WorkstationViewerManager::living(chosen)) {
                        if (!WorkstationViewerManager::living({member}).empty()) {
                            ViewerLinks::join(type, *viewer, *member);
                        }
                    }
                });
        join->setCheckable(true);
        join->setChecked(ExViewerDB::isSameGroup(type, chosen.front(), member));
    }
    QAction *const follow
        = menu.addAction(LinksPanel::tr("&Follow the active viewer"), &menu, [&type, chosen] {
              for (WorkstationViewer *viewer : WorkstationViewerManager::living(chosen)) {
                  ViewerLinks::followActive(type, *viewer);
              }
          });
    follow->setCheckable(true);
    follow->setChecked(ViewerLinks::followsActive(type, *chosen.front()));
}

void addRestrictions(QMenu &menu, const std::string &type, const Viewers &chosen)
{
    QMenu *const restrictions = menu.addMenu(LinksPanel::tr("&Restrict to"));
    restrictions->setEnabled(ViewerLinks::followsActive(type, *chosen.front()));
    const std::set<std::string> allowed = ViewerLinks::restriction(type, *chosen.front());
    for (const WorkstationViewer *each : WorkstationViewerManager::all()) {
        const std::string place = each->displaySetID();
        if (place.empty() || ViewerLinks::followsActive(type, *each)) {
            continue;
        }
        QAction *const allow = restrictions->addAction(LinkTexts::nameOf(*each));
        allow->setCheckable(true);
        allow->setChecked(allowed.count(place) > 0);
        QObject::connect(allow, &QAction::triggered, restrictions, [&type, chosen, place](bool on) {
            for (WorkstationViewer *viewer : WorkstationViewerManager::living(chosen)) {
                std::set<std::string> places = ViewerLinks::restriction(type, *viewer);
                on ? void(places.insert(place)) : void(places.erase(place));
                ViewerLinks::setRestriction(type, *viewer, places);
            }
        });
    }
}

} // namespace

void fill(QMenu &menu, const std::string &type, const Viewers &chosen)
{
    QAction *const attached = menu.addAction(LinksPanel::tr("&Attached"));
    attached->setCheckable(true);
    attached->setChecked(ViewerLinks::isAttached(type, *chosen.front()));
    QObject::connect(attached, &QAction::triggered, &menu, [&type, chosen](bool on) {
        for (WorkstationViewer *viewer : WorkstationViewerManager::living(chosen)) {
            ViewerLinks::setAttached(type, *viewer, on);
        }
    });
    menu.addSeparator();
    addGroups(menu, type, chosen);
    menu.addAction(
        chosen.size() > 1 ? LinksPanel::tr("&New group of these") : LinksPanel::tr("&New group"),
        &menu,
        [&type, chosen] { ViewerLinks::group(type, WorkstationViewerManager::living(chosen)); });
    menu.addAction(LinksPanel::tr("Not &linked"), &menu, [&type, chosen] {
        for (WorkstationViewer *viewer : WorkstationViewerManager::living(chosen)) {
            ViewerLinks::leave(type, *viewer);
        }
    });
    menu.addSeparator();
    addRestrictions(menu, type, chosen);
}

} // namespace LinkMenu
