#include "framework/monitors/ExMonitorManagerPrivate.h"

#include "framework/notification/ExNotifiables.h"
#include "platform/properties/KxVariant.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

bool decidesFonts(const QString &key)
{
    using M = ExMonitorManager;
    static constexpr std::array keys{M::PROPERTY_FONT_SIZE_SMALL, M::PROPERTY_FONT_SIZE_MEDIUM,
        M::PROPERTY_FONT_SIZE_LARGE, M::PROPERTY_THRESHOLD_SMALL, M::PROPERTY_THRESHOLD_MEDIUM};
    return std::any_of(keys.begin(), keys.end(),
        [&key](const char *known) { return key == QLatin1String(known); });
}

bool includesAll(const QList<int> &monitors, const QList<int> &others)
{
    return std::includes(monitors.begin(), monitors.end(), others.begin(), others.end());
}

} // namespace

ExMonitorManagerPrivate::ExMonitorManagerPrivate(ExMonitorManager &owner)
    : manager(owner)
    , set(MonitorSet::read())
    , announced(set)
{
    QObject::connect(&watch, &ScreenWatch::settled, &watch, [this] { displaysChanged(); });
    QObject::connect(&watch, &ScreenWatch::followed, &watch, [this] { updateStates(); });
    watch.start();
}

ExMonitorManagerPrivate::~ExMonitorManagerPrivate() = default;

void ExMonitorManagerPrivate::addNotifications()
{
    ExNotifiables::getInstance().addNotification(this, ExNotification::PROPERTY_CHANGED);
}

void ExMonitorManagerPrivate::notified(const ExNotification &notification)
{
    const auto *const property = static_cast<const KxVariant *>(notification.data());
    if (property != nullptr && decidesFonts(property->key())) {
        manager.updateFonts();
    }
}

ExMonitorManagerPrivate::Entry *ExMonitorManagerPrivate::find(const Content *content)
{
    const auto found = entries.find(content);
    return found == entries.end() ? nullptr : &found->second;
}

QList<int> ExMonitorManagerPrivate::usableMonitors(const Configuration &configuration) const
{
    QList<int> usable;
    for (const int monitor : configuration.monitors) {
        if (set.isUsable(monitor) && !usable.contains(monitor)) {
            usable.append(monitor);
        }
    }
    if (usable.isEmpty() && set.isUsable(set.primary)) {
        usable.append(set.primary);
    }
    std::sort(usable.begin(), usable.end());
    return usable;
}

std::vector<ExMonitorManagerPrivate::Group> ExMonitorManagerPrivate::groups() const
{
    std::vector<Group> all;
    for (Content *const content : contents) {
        const Configuration &record = entries.at(content).configuration;
        all.push_back({usableMonitors(record), {content}, record.ownWindow});
    }
    // Those with the most monitors first: they take in the others.
    std::stable_sort(all.begin(), all.end(),
        [](const Group &a, const Group &b) { return a.monitors.size() > b.monitors.size(); });
    std::vector<Group> groups;
    for (const Group &group : all) {
        const auto host = std::find_if(groups.begin(), groups.end(), [&group](const Group &other) {
            return !group.isAlone && !other.isAlone && includesAll(other.monitors, group.monitors);
        });
        if (host == groups.end()) {
            groups.push_back(group);
        } else {
            host->contents.append(group.contents);
        }
    }
    for (Group &group : groups) {
        std::sort(group.contents.begin(), group.contents.end(),
            [this](Content *a, Content *b) { return contents.indexOf(a) < contents.indexOf(b); });
    }
    return groups;
}

QList<ExMonitorWidget *> ExMonitorManagerPrivate::existingWidgets(
    const std::vector<Group> &groups) const
{
    QList<ExMonitorWidget *> found;
    for (const Group &group : groups) {
        found.append(nullptr);
        for (const Content *const content : group.contents) {
            ExMonitorWidget *const widget = entries.at(content).widget;
            if (found.last() == nullptr && !found.contains(widget)) {
                found.last() = widget;
            }
        }
    }
    for (ExMonitorWidget *&place : found) {
        const auto free = std::find_if(widgets.begin(), widgets.end(),
            [&found](const auto &entry) { return !found.contains(entry.first); });
        if (place == nullptr && free != widgets.end()) {
            place = free->first;
        }
    }
    return found;
}

void ExMonitorManagerPrivate::assign(
    const std::vector<Group> &groups, const QList<ExMonitorWidget *> &taken)
{
    for (auto &[widget, shown] : widgets) {
        const qsizetype place = taken.indexOf(widget);
        shown = place < 0 ? QList<Content *>() : groups[static_cast<std::size_t>(place)].contents;
        for (const Content *const content : std::as_const(shown)) {
            entries.at(content).widget = widget;
        }
    }
}

void ExMonitorManagerPrivate::hideEmptyWidgets() const
{
    for (const auto &[widget, shown] : widgets) {
        if (shown.isEmpty()) {
            widget->hide();
        }
    }
}

void ExMonitorManagerPrivate::updateState(ExMonitorWidget &widget) const
{
    const QList<Content *> shown = manager.contents(&widget);
    const bool fullScreen = entries.at(shown.first()).configuration.fullScreen;
    if (fullScreen) {
        if (!widget.isFullScreen() || widget.geometry() != manager.fullScreenRect(&widget)) {
            widget.showFullScreen(false);
        }
    } else if (!widget.isVisible() || widget.isFullScreen()) {
        widget.showNormal(false);
    } else if (!widget.isMaximizedBySystem()) {
        widget.setGeometry(manager.normalWindowRect(&widget));
    }
}

void ExMonitorManagerPrivate::updateStates() const
{
    for (const auto &[widget, shown] : widgets) {
        if (!shown.isEmpty() && widget->isVisible() && !widget->isMinimized()) {
            updateState(*widget);
        }
    }
}

void ExMonitorManagerPrivate::displaysChanged()
{
    set = MonitorSet::read();
    // Contents that are told may add and remove some.
    for (Content *const content : QList<Content *>(contents)) {
        if (Entry *const entry = find(content)) {
            follow(content, *entry);
        }
    }
    manager.applyConfigurations();
    if (!(set == announced)) {
        announced = set;
        ExNotifiable::notify(ExNotification::MONITOR_CONFIGURATION_CHANGED);
    }
}

void ExMonitorManagerPrivate::follow(Content *content, Entry &entry)
{
    QList<int> found;
    for (const MonitorIdentity &identity : entry.home) {
        const int monitor = set.find(identity);
        if (monitor >= 0 && !found.contains(monitor)) {
            found.append(monitor);
        }
    }
    Configuration record = entry.homeConfiguration;
    record.monitors = found;
    if (found.isEmpty()) {
        // None of its monitors is there: it moves to the primary one, which has a place of its own
        // for it.
        record.monitors = {set.primary};
        record.normalGeometry = QRect();
        record.previousGeometry = QRect();
    }
    const bool isAway = found.isEmpty() && !entry.home.isEmpty();
    if (isAway && entry.isAway) {
        record = entry.configuration;
        record.monitors = {set.primary};
    }
    entry.isAway = isAway;
    if (!(record == entry.configuration)) {
        entry.configuration = record;
        content->configurationChanged(record);
    }
}
