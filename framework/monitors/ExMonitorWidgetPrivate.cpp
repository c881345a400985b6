#include "framework/monitors/ExMonitorWidgetPrivate.h"

#include "framework/monitors/ExMainWindow.h"
#include "framework/monitors/ExMenuBarAddOn.h"
#include "framework/monitors/ExMonitorLayout.h"
#include "framework/monitors/ExMonitorManager.h"
#include "framework/monitors/QxMenuBar.h"

#include <QPushButton>
#include <QStackedWidget>

#include <algorithm>

namespace {

using Content = ExMonitorWidget::Content;
using ToolBar = ExMonitorWidget::ToolBar;

bool isSame(const std::pair<Content *, ToolBar> &a, const std::pair<Content *, ToolBar> &b)
{
    return a.first == b.first && a.second.toolBar() == b.second.toolBar()
        && a.second.area() == b.second.area() && a.second.isToolBar() == b.second.isToolBar();
}

} // namespace

QWidget *ExMonitorWidgetPrivate::Pane::page(const Content *content) const
{
    const auto found = std::find_if(pages.begin(), pages.end(),
        [content](const Page &page) { return page.content == content; });
    return found == pages.end() ? nullptr : found->widget.data();
}

Content *ExMonitorWidgetPrivate::Pane::active() const
{
    const QWidget *const front = stack->currentWidget();
    const auto found = std::find_if(pages.begin(), pages.end(),
        [front](const Page &page) { return front != nullptr && page.widget == front; });
    return found == pages.end() ? nullptr : found->content;
}

bool ExMonitorWidgetPrivate::Pane::shows(const QList<Page> &wanted) const
{
    return pages == wanted && std::all_of(pages.begin(), pages.end(), [this](const Page &page) {
        return page.widget->parentWidget() == stack;
    });
}

void ExMonitorWidgetPrivate::Pane::releasePages()
{
    for (const Page &page : std::as_const(pages)) {
        // Another window may have taken the widget already.
        if (page.widget != nullptr && page.widget->parentWidget() == stack) {
            stack->removeWidget(page.widget);
            page.widget->setParent(nullptr);
        }
    }
    pages.clear();
}

void ExMonitorWidgetPrivate::Pane::releaseToolBars()
{
    for (const auto &[content, entry] : std::as_const(toolBars)) {
        QToolBar *const bar = entry.toolBar();
        if (bar != nullptr && bar->parentWidget() == window) {
            window->removeToolBar(bar);
            bar->setParent(nullptr);
        }
    }
    toolBars.clear();
}

ExMonitorWidgetPrivate::ExMonitorWidgetPrivate(ExMonitorWidget &owner)
    : widget(owner)
{ }

void ExMonitorWidgetPrivate::build()
{
    layout = new ExMonitorLayout(&widget);
    addPane();
    menuBar = new QxMenuBar;
    addOn = new ExMenuBarAddOn(menuBar);
    menuBar->setCornerWidget(addOn, Qt::TopRightCorner);
    addOn->hide();
    mainWindows.first()->setMenuBar(menuBar);
    QObject::connect(
        addOn->mMinimize, &QPushButton::clicked, &widget, &ExMonitorWidget::minimizeWidget);
    QObject::connect(
        addOn->mNormal, &QPushButton::clicked, &widget, &ExMonitorWidget::restoreWidget);
    QObject::connect(addOn->mClose, &QPushButton::clicked, &widget, &ExMonitorWidget::closeWidget);
}

void ExMonitorWidgetPrivate::command(MonitorWindowSystem::Command command)
{
    switch (command) {
    case MonitorWindowSystem::Command::Maximize:
        widget.showFullScreen(true);
        break;
    case MonitorWindowSystem::Command::Minimize:
        widget.showMinimized();
        break;
    case MonitorWindowSystem::Command::Restore:
        widget.showStored();
        break;
    }
}

ExMonitorWidgetPrivate::Pane *ExMonitorWidgetPrivate::pane(int monitor)
{
    const auto found = std::find_if(panes.begin(), panes.end(),
        [monitor](const Pane &pane) { return pane.monitor == monitor; });
    return monitor < 0 || found == panes.end() ? nullptr : &*found;
}

ExMonitorWidgetPrivate::Pane *ExMonitorWidgetPrivate::pane(const QMainWindow *window)
{
    const auto found = std::find_if(
        panes.begin(), panes.end(), [window](const Pane &pane) { return pane.window == window; });
    return found == panes.end() ? nullptr : &*found;
}

bool ExMonitorWidgetPrivate::activate(Pane &pane, const Content *content)
{
    QWidget *const page = pane.page(content);
    if (page == nullptr) {
        return false;
    }
    pane.stack->setCurrentWidget(page);
    showToolBarsOfActive(pane);
    return true;
}

void ExMonitorWidgetPrivate::bringForward(Content *content)
{
    if (!widget.isContentActive(content, widget.activeMainWindow())) {
        ExMonitorManager::instance().activate(content);
    }
}

void ExMonitorWidgetPrivate::makePanes(const QList<int> &monitors)
{
    const auto count = std::max<qsizetype>(monitors.size(), 1);
    while (panes.size() < count) {
        addPane();
    }
    while (panes.size() > count) {
        removeLastPane();
    }
    const ExMonitorManager &manager = ExMonitorManager::instance();
    for (qsizetype i = 0; i < count; ++i) {
        Pane &pane = panes[i];
        pane.monitor = monitors.value(i, -1);
        pane.window->setObjectName(QStringLiteral("MainWindow%1").arg(pane.monitor));
        layout->setMonitorRect(
            pane.window, manager.monitorRect(static_cast<unsigned int>(pane.monitor)));
    }
}

void ExMonitorWidgetPrivate::addPane()
{
    Pane pane;
    pane.window = new ExMainWindow(&widget);
    pane.stack = new QStackedWidget(pane.window);
    pane.window->setCentralWidget(pane.stack);
    layout->addWidget(pane.window, QRect());
    pane.window->show();
    panes.append(pane);
    mainWindows.append(pane.window);
}

void ExMonitorWidgetPrivate::removeLastPane()
{
    Pane pane = panes.takeLast();
    mainWindows.removeLast();
    pane.releasePages();
    pane.releaseToolBars();
    layout->removeWidget(pane.window);
    pane.window->hide();
    pane.window->deleteLater();
}

void ExMonitorWidgetPrivate::fillPane(
    Pane &pane, const QList<Content *> &contents, QList<QWidget *> &placed)
{
    QList<Pane::Page> wanted;
    ExMonitorManager &manager = ExMonitorManager::instance();
    for (Content *const content : contents) {
        // Monitors that are not there are left out of what the content is told.
        ExMonitorWidget::Configuration record = manager.configuration(content);
        record.monitors = manager.occupiedMonitors(content);
        QWidget *const page = content->widgetForMonitor(record, pane.monitor);
        if (page != nullptr && !placed.contains(page)) {
            wanted.append({content, page});
            placed.append(page);
        }
    }
    // Taking viewers out and putting them back would lay them out, and show it, twice more.
    if (pane.shows(wanted)) {
        return;
    }
    const Content *const active = pane.active();
    pane.releasePages();
    for (const Pane::Page &page : std::as_const(wanted)) {
        pane.stack->addWidget(page.widget);
    }
    pane.pages = wanted;
    if (QWidget *const page = pane.page(active)) {
        pane.stack->setCurrentWidget(page);
    }
}

void ExMonitorWidgetPrivate::placeToolBars(Pane &pane, const QList<Content *> &contents)
{
    ExMonitorManager &manager = ExMonitorManager::instance();
    QList<std::pair<Content *, ToolBar>> wanted;
    for (Content *const content : contents) {
        const QList<int> monitors = manager.occupiedMonitors(content);
        const bool isHere = monitors.value(0, pane.monitor) == pane.monitor;
        for (const ToolBar &bar : isHere ? manager.toolBars(content) : QList<ToolBar>()) {
            wanted.append({content, bar});
        }
    }
    // What stands there already keeps the place that the user may have given it.
    const bool same = std::equal(
        wanted.begin(), wanted.end(), pane.toolBars.begin(), pane.toolBars.end(), isSame);
    if (!same) {
        pane.releaseToolBars();
        for (const auto &[content, bar] : std::as_const(wanted)) {
            if (bar.toolBar() != nullptr) {
                pane.window->addToolBar(bar.area(), bar.toolBar());
                manager.setToolBarVisible(&widget, bar.toolBar(), bar.isVisible());
            } else if (!bar.isToolBar()) {
                pane.window->addToolBarBreak(bar.area());
            }
        }
        pane.toolBars = wanted;
    }
    showToolBarsOfActive(pane);
}

void ExMonitorWidgetPrivate::showToolBarsOfActive(const Pane &pane) const
{
    const Content *const active = pane.active();
    const bool isAlone = pane.pages.size() < 2;
    if (isAlone) {
        return;
    }
    for (const auto &[content, bar] : pane.toolBars) {
        if (bar.toolBar() != nullptr) {
            ExMonitorManager::instance().setToolBarVisible(
                &widget, bar.toolBar(), bar.isVisible() && content == active);
        }
    }
}
