// Contents, the windows that show them, and where these are.
#include "framework/monitors/ExMonitorManager.h"

#include "framework/monitors/ExMonitorManagerPrivate.h"
#include "framework/monitors/MonitorMath.h"
#include "framework/monitors/MonitorWindowSystem.h"

#include <QAction>
#include <QApplication>
#include <QScreen>
#include <QStyle>

#include <algorithm>
#include <map>
#include <string>

namespace {

using Content = ExMonitorWidget::Content;
using Configuration = ExMonitorWidget::Configuration;

struct RegisteredContent
{
    Content *(*factory)() = nullptr;
    Content *content = nullptr;
};

std::map<std::string, RegisteredContent> &contentRegistry()
{
    static std::map<std::string, RegisteredContent> registry;
    return registry;
}

/// What the screen of a monitor leaves free of panels; the whole monitor when it is on no screen,
/// or larger than its screen, since then it is one that was named by hand.
QRect freeArea(const QRect &monitor)
{
    const QScreen *const screen = QGuiApplication::screenAt(monitor.center());
    if (screen == nullptr || !screen->geometry().contains(monitor)) {
        return monitor;
    }
    const QRect area = screen->availableGeometry() & monitor;
    return area.isValid() ? area : monitor;
}

/// How far the title bar reaches above the window's geometry.
int titleHeight(const QWidget &widget)
{
    const int known = widget.geometry().top() - widget.frameGeometry().top();
    return known > 0 ? known : widget.style()->pixelMetric(QStyle::PM_TitleBarHeight);
}

QRect desktopRect()
{
    const QScreen *const screen = QGuiApplication::primaryScreen();
    return screen == nullptr ? QRect(0, 0, 1024, 768) : screen->geometry();
}

} // namespace

void ExMonitorManager::registerContent(const char *name, Content *(*factory)())
{
    if (name != nullptr && *name != '\0') {
        contentRegistry()[name] = {factory, nullptr};
    }
}

Content *ExMonitorManager::getContent(const char *name)
{
    const auto found = name == nullptr ? contentRegistry().end() : contentRegistry().find(name);
    if (found == contentRegistry().end()) {
        return nullptr;
    }
    RegisteredContent &entry = found->second;
    if (entry.content == nullptr && entry.factory != nullptr) {
        entry.content = entry.factory();
    }
    return entry.content;
}

void ExMonitorManager::addContent(Content *content)
{
    if (content != nullptr && !d->contents.contains(content)) {
        d->contents.append(content);
        d->entries.try_emplace(content);
    }
}

const QList<Content *> &ExMonitorManager::contents() const
{
    return d->contents;
}

void ExMonitorManager::removeContent(Content *content)
{
    ExMonitorWidget *const widget = monitorWidget(content);
    d->contents.removeOne(content);
    d->entries.erase(content);
    for (auto &[name, registered] : contentRegistry()) {
        if (registered.content == content) {
            registered.content = nullptr;
        }
    }
    for (auto &[shown, list] : d->widgets) {
        list.removeOne(content);
    }
    if (widget != nullptr) {
        widget->doLayout();
        d->hideEmptyWidgets();
    }
}

void ExMonitorManager::setConfiguration(Content *content, const Configuration &configuration)
{
    if (content == nullptr) {
        return;
    }
    addContent(content);
    ExMonitorManagerPrivate::Entry &entry = d->entries.at(content);
    entry.configuration = configuration;
    entry.homeConfiguration = configuration;
    entry.isAway = false;
    entry.home.clear();
    for (const int monitor : configuration.monitors) {
        if (monitor >= 0 && monitor < d->set.identities.size()) {
            entry.home.append(d->set.identities.at(monitor));
        }
    }
    content->configurationChanged(configuration);
}

Configuration ExMonitorManager::configuration(Content *content) const
{
    const auto *const entry = d->find(content);
    return entry == nullptr ? Configuration() : entry->configuration;
}

void ExMonitorManager::applyConfigurations()
{
    d->watch.start();
    const QList<ExMonitorWidget *> before = monitorWidgets();
    const bool onScreen = std::any_of(before.begin(), before.end(),
        [](const ExMonitorWidget *widget) { return widget->isVisible(); });

    const std::vector<ExMonitorManagerPrivate::Group> groups = d->groups();
    QList<ExMonitorWidget *> taken = d->existingWidgets(groups);
    for (ExMonitorWidget *&widget : taken) {
        if (widget == nullptr) {
            widget = createMonitorWidget();
        }
    }
    d->assign(groups, taken);
    for (ExMonitorWidget *const widget : monitorWidgets()) {
        widget->doLayout();
    }
    d->hideEmptyWidgets();
    if (onScreen) {
        for (ExMonitorWidget *const widget : std::as_const(taken)) {
            d->updateState(*widget);
        }
    }
    updateFonts();
}

ExMonitorWidget *ExMonitorManager::createMonitorWidget()
{
    auto *const widget = new ExMonitorWidget;
    d->widgets.emplace_back(widget, QList<Content *>());
    connect(widget, &ExMonitorWidget::widgetResized, this, &ExMonitorManager::slotWidgetResized);
    connect(widget, &ExMonitorWidget::widgetMoved, this, &ExMonitorManager::slotWidgetMoved);
    connect(
        widget, &ExMonitorWidget::widgetMaximized, this, &ExMonitorManager::slotWidgetMaximized);
    connect(widget, &ExMonitorWidget::widgetClosed, this, &ExMonitorManager::slotWidgetClosed);
    return widget;
}

QList<int> ExMonitorManager::occupiedMonitors(Content *content) const
{
    return d->usableMonitors(configuration(content));
}

void ExMonitorManager::activate(Content *content)
{
    if (ExMonitorWidget *const widget = monitorWidget(content)) {
        widget->activateContent(content);
    }
}

QList<QAction *> ExMonitorManager::createContentActions(ExMonitorWidget *widget)
{
    QList<QAction *> actions;
    for (Content *const content : contents(widget)) {
        auto *const action = new QAction(content->longName(), widget);
        action->setCheckable(true);
        action->setChecked(widget->activeContent(true) == content);
        action->setData(QVariant::fromValue(static_cast<void *>(content)));
        connect(action, &QAction::triggered, this, &ExMonitorManager::slotContentTriggered);
        actions.append(action);
    }
    return actions;
}

void ExMonitorManager::slotContentTriggered(bool /*on*/)
{
    if (const auto *const action = qobject_cast<QAction *>(sender())) {
        auto *const content = static_cast<Content *>(action->data().value<void *>());
        // The content may have gone since the action was made.
        if (d->contents.contains(content)) {
            activate(content);
        }
    }
}

void ExMonitorManager::setToolBars(
    Content *content, const QList<ExMonitorWidget::ToolBar> &toolBars)
{
    if (content == nullptr) {
        return;
    }
    addContent(content);
    d->entries.at(content).toolBars = toolBars;
    if (ExMonitorWidget *const widget = monitorWidget(content)) {
        widget->doLayout();
    }
}

QList<ExMonitorWidget::ToolBar> ExMonitorManager::toolBars(Content *content) const
{
    const auto *const entry = d->find(content);
    return entry == nullptr ? QList<ExMonitorWidget::ToolBar>() : entry->toolBars;
}

QList<ExMonitorWidget *> ExMonitorManager::monitorWidgets() const
{
    QList<ExMonitorWidget *> widgets;
    for (const auto &entry : d->widgets) {
        widgets.append(entry.first);
    }
    return widgets;
}

ExMonitorWidget *ExMonitorManager::activeMonitorWidget() const
{
    ExMonitorWidget *const active = ExMonitorWidget::parentWidget(QApplication::activeWindow());
    if (active != nullptr) {
        d->lastActive = active;
    }
    if (d->lastActive != nullptr) {
        return d->lastActive;
    }
    return d->widgets.empty() ? nullptr : d->widgets.front().first;
}

ExMonitorWidget *ExMonitorManager::monitorWidget(Content *content) const
{
    const auto *const entry = d->find(content);
    return entry == nullptr ? nullptr : entry->widget;
}

QList<Content *> ExMonitorManager::contents(ExMonitorWidget *widget) const
{
    const auto found = std::find_if(d->widgets.begin(), d->widgets.end(),
        [widget](const auto &entry) { return entry.first == widget; });
    return found == d->widgets.end() ? QList<Content *>() : found->second;
}

QList<int> ExMonitorManager::monitors(ExMonitorWidget *widget) const
{
    QList<int> occupied;
    for (Content *const content : contents(widget)) {
        for (const int monitor : occupiedMonitors(content)) {
            if (!occupied.contains(monitor)) {
                occupied.append(monitor);
            }
        }
    }
    std::sort(occupied.begin(), occupied.end());
    return occupied;
}

QRect ExMonitorManager::fullScreenRect(ExMonitorWidget *widget) const
{
    QRect rect;
    for (const int monitor : monitors(widget)) {
        rect |= d->set.rect(monitor);
    }
    if (!rect.isValid()) {
        rect = d->set.rect(d->set.primary);
    }
    return rect.isValid() ? rect : desktopRect();
}

QRect ExMonitorManager::normalWindowRect(ExMonitorWidget *widget) const
{
    QRect wanted;
    for (Content *const content : contents(widget)) {
        wanted = configuration(content).normalGeometry;
        if (wanted.isValid()) {
            break;
        }
    }
    const QList<int> occupied = monitors(widget);
    QRect monitor = d->set.rect(wanted.isValid() ? d->set.monitorAt(wanted.center()) : -1);
    if (!monitor.isValid()) {
        monitor = occupied.isEmpty() ? desktopRect() : d->set.rect(occupied.first());
    }
    if (!wanted.isValid()) {
        wanted = MonitorMath::middle(monitor, 80);
    }
    QRect area = freeArea(monitor);
    if (widget != nullptr && area.height() > 2 * titleHeight(*widget)) {
        area.setTop(area.top() + titleHeight(*widget));
    }
    return MonitorMath::movedInside(wanted, area);
}

void ExMonitorManager::setAllWidgetsVisible(bool visible)
{
    QList<ExMonitorWidget *> widgets = monitorWidgets();
    ExMonitorWidget *const active = activeMonitorWidget();
    // The active one comes last, so that it ends on top.
    if (widgets.removeOne(active)) {
        widgets.append(active);
    }
    for (ExMonitorWidget *const widget : std::as_const(widgets)) {
        const QList<Content *> shown = contents(widget);
        if (shown.isEmpty()) {
            continue;
        }
        if (!visible) {
            widget->setVisible(false);
            continue;
        }
        if (configuration(shown.first()).fullScreen) {
            widget->showFullScreen(true);
        } else {
            widget->showNormal(true);
        }
        MonitorWindowSystem::instance().raiseAndRelease(*widget);
    }
}

void ExMonitorManager::trackDefaultGeometry(ExMonitorWidget *widget, TrackingReason reason)
{
    for (Content *const content : contents(widget)) {
        ExMonitorManagerPrivate::Entry &entry = d->entries.at(content);
        Configuration &record = entry.configuration;
        record.fullScreen = widget->isFullScreen();
        if (!widget->isFullScreen() && !widget->isMaximizedBySystem()) {
            if (reason == TrackMoved) {
                record.previousGeometry = record.normalGeometry;
            }
            record.normalGeometry = widget->geometry();
        }
        // A maximise is reported after the move that it makes: the geometry from before that move
        // is the normal one.
        if (reason == TrackMaximized) {
            record.normalGeometry = record.previousGeometry;
        }
        if (!entry.isAway) {
            const QList<int> monitors = entry.homeConfiguration.monitors;
            entry.homeConfiguration = record;
            entry.homeConfiguration.monitors = monitors;
        }
    }
}

void ExMonitorManager::slotWidgetResized(ExMonitorWidget *widget)
{
    // While displays change, the window system moves windows about; that is nobody's wish.
    if (!d->watch.isChanging()) {
        trackDefaultGeometry(widget, TrackResized);
    }
}

void ExMonitorManager::slotWidgetMoved(ExMonitorWidget *widget)
{
    if (!d->watch.isChanging()) {
        trackDefaultGeometry(widget, TrackMoved);
    }
}

void ExMonitorManager::slotWidgetMaximized(ExMonitorWidget *widget)
{
    if (!d->watch.isChanging()) {
        trackDefaultGeometry(widget, TrackMaximized);
    }
}

void ExMonitorManager::slotWidgetClosed(ExMonitorWidget *widget)
{
    const auto found = std::find_if(d->widgets.begin(), d->widgets.end(),
        [widget](const auto &entry) { return entry.first == widget; });
    if (found != d->widgets.end()) {
        d->widgets.erase(found);
    }
    for (auto &[content, entry] : d->entries) {
        if (entry.widget == widget) {
            entry.widget = nullptr;
        }
    }
    d->hiddenToolBars.erase(widget);
}
