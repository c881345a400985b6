#include "client/app/MainMenus.h"

#include "client/app/MainWindow.h"
#include "client/layout/LayoutTable.h"
#include "client/links/LinkType.h"
#include "client/links/LinkedActions.h"
#include "client/overlay/OverlaySettings.h"
#include "client/viewers/SliceViewer.h"
#include "client/viewers/VolumeViewer.h"
#include "framework/viewers/ExViewerDB.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>

namespace {

QAction *addAction(
    QMenu &menu, const QString &text, const QString &toolTip, const QKeySequence &shortcut = {})
{
    QAction *const action = menu.addAction(text);
    action->setShortcut(shortcut);
    action->setToolTip(shortcut.isEmpty() ? toolTip
                                          : toolTip % QLatin1String(" (")
                % shortcut.toString(QKeySequence::NativeText) % QLatin1Char(')'));
    action->setStatusTip(toolTip);
    return action;
}

QMenu *addMenu(MainWindow &window, const QString &title)
{
    QMenu *const menu = window.menuBar()->addMenu(title);
    menu->setToolTipsVisible(true);
    return menu;
}

QAction *addToggle(
    QMenu &menu, const QString &text, const QString &toolTip, bool isOn, void (*set)(bool))
{
    QAction *const action = addAction(menu, text, toolTip);
    action->setCheckable(true);
    action->setChecked(isOn);
    QObject::connect(action, &QAction::toggled, action, [set](bool on) { set(on); });
    return action;
}

QString tr(const char *text)
{
    return QCoreApplication::translate("MainMenus", text);
}

} // namespace

void MainMenus::build()
{
    buildFileMenu();
    buildViewMenu();
    buildLinkMenu();
    buildHelpMenu();
}

void MainMenus::buildFileMenu()
{
    QMenu &menu = *addMenu(m_window, tr("&File"));
    QObject::connect(
        addAction(menu, tr("&Open folder…"),
            tr("Looks for DICOM files in a folder and its subfolders"), QKeySequence::Open),
        &QAction::triggered, &m_window, [this_ = &m_window] { this_->askForFolder(); });
    QObject::connect(addAction(menu, tr("&Close"), tr("Closes all studies"), QKeySequence::Close),
        &QAction::triggered, &m_window,
        [this_ = &m_window] { this_->workstation().session().close(); });
    menu.addSeparator();
    QObject::connect(addAction(menu, tr("&Quit"), tr("Ends the workstation"), QKeySequence::Quit),
        &QAction::triggered, &m_window, [this_ = &m_window] { this_->close(); });
}

void MainMenus::buildViewMenu()
{
    QMenu &menu = *addMenu(m_window, tr("&View"));
    auto *const group = new QActionGroup(&m_window);
    int number = 1;
    for (const ViewerLayout &layout : LayoutTable::all()) {
        QAction *const action = addAction(menu, tr("Layout %1").arg(layout.name),
            layout.description, QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_0 + number)));
        ++number;
        action->setCheckable(true);
        action->setData(layout.name);
        group->addAction(action);
        QObject::connect(action, &QAction::triggered, &m_window,
            [this_ = &m_window, name = layout.name] { this_->setLayoutByName(name); });
    }
    QObject::connect(&menu, &QMenu::aboutToShow, group, [group, this_ = &m_window] {
        for (QAction *action : group->actions()) {
            action->setChecked(
                action->data().toString() == this_->workstation().layouts().current());
        }
    });
    menu.addSeparator();
    QObject::connect(
        addAction(menu, tr("&Full screen viewer"),
            tr("Shows the active viewer alone, or all again; also by a double click"), Qt::Key_F),
        &QAction::triggered, &m_window, [this_ = &m_window] {
            if (WorkstationViewer *const viewer = this_->workstation().activeViewer()) {
                this_->workstation().layouts().toggleFullscreen(*viewer);
            }
        });
    QObject::connect(addAction(menu, tr("&Reset view"),
                         tr("Shows the whole image in its first window"), Qt::Key_R),
        &QAction::triggered, &m_window, [this_ = &m_window] {
            WorkstationViewer *const viewer = this_->workstation().activeViewer();
            if (auto *const slice = dynamic_cast<SliceViewer *>(viewer)) {
                LinkedActions::reset(*slice);
            } else if (auto *const volume = dynamic_cast<VolumeViewer *>(viewer)) {
                volume->reset();
            }
        });
    menu.addSeparator();
    addToggle(menu, tr("Reference &lines"), tr("Shows where the other viewers' planes are"),
        OverlaySettings::referenceLines(), &OverlaySettings::setReferenceLines);
    addToggle(menu, tr("Corner &texts"), tr("Shows patient, series, position and window"),
        OverlaySettings::cornerTexts(), &OverlaySettings::setCornerTexts);
}

void MainMenus::buildLinkMenu()
{
    QMenu &menu = *addMenu(m_window, tr("&Link"));
    for (const LinkType &type : LinkType::all()) {
        QAction *const action = addAction(menu, type.name(),
            tr("Attached viewers follow each other in this: %1").arg(type.name()));
        action->setCheckable(true);
        action->setChecked(ExViewerDB::groupEnabled(type.group));
        QObject::connect(action, &QAction::toggled, &m_window,
            [group = type.group](bool on) { ViewerLinks::setEnabled(group, on); });
    }
    menu.addSeparator();
    QAction *const attached = addAction(menu, tr("&Active viewer is attached"),
        tr("Whether the active viewer follows its linked viewers; also by its badge"));
    attached->setCheckable(true);
    QObject::connect(&menu, &QMenu::aboutToShow, attached, [attached, this_ = &m_window] {
        const WorkstationViewer *const viewer = this_->workstation().activeViewer();
        attached->setEnabled(viewer != nullptr);
        attached->setChecked(viewer != nullptr && ViewerLinks::isAttached(*viewer));
    });
    QObject::connect(attached, &QAction::triggered, &m_window, [this_ = &m_window](bool on) {
        if (WorkstationViewer *const viewer = this_->workstation().activeViewer()) {
            ViewerLinks::setAttached(*viewer, on);
        }
    });
}

void MainMenus::buildHelpMenu()
{
    QMenu &menu = *addMenu(m_window, tr("&Help"));
    QObject::connect(addAction(menu, tr("&About Movara"), tr("The version of this program")),
        &QAction::triggered, &m_window, [this_ = &m_window] { this_->showAbout(); });
}
