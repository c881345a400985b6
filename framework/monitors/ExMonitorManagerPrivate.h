#pragma once

#include "framework/monitors/ExMonitorManager.h"
#include "framework/monitors/MonitorSet.h"
#include "framework/monitors/ScreenWatch.h"
#include "framework/notification/ExNotifiable.h"

#include <QMap>
#include <QPointer>

#include <map>
#include <vector>

/// The monitor manager's data; follows the settings of font sizes and the displays.
class ExMonitorManagerPrivate : public ExNotifiable
{
public:
    using Content = ExMonitorWidget::Content;
    using Configuration = ExMonitorWidget::Configuration;

    /// What is known of one content.
    struct Entry
    {
        /// Null until it is arranged.
        ExMonitorWidget *widget = nullptr;
        Configuration configuration;
        /// The monitors that were asked for, and the record for them: what the content goes back
        /// to when a lost monitor returns.
        QList<MonitorIdentity> home;
        Configuration homeConfiguration;
        /// None of them is there.
        bool isAway = false;
        QList<ExMonitorWidget::ToolBar> toolBars;
    };

    /// Contents that are shown in one window.
    struct Group
    {
        QList<int> monitors;
        QList<Content *> contents;
        bool isAlone = false;
    };

    explicit ExMonitorManagerPrivate(ExMonitorManager &manager);
    ~ExMonitorManagerPrivate() override;

    void addNotifications() override;
    void notified(const ExNotification &notification) override;

    /// The entry of a content; null when it has none.
    [[nodiscard]] Entry *find(const Content *content);
    /// The numbers of a record that are monitors, ascending; the primary one when none is.
    [[nodiscard]] QList<int> usableMonitors(const Configuration &configuration) const;
    /// Which contents go together, and on which monitors.
    [[nodiscard]] std::vector<Group> groups() const;
    /// The window for each group: that of its first content that has one, else any that is left;
    /// null for those that need a new one.
    [[nodiscard]] QList<ExMonitorWidget *> existingWidgets(const std::vector<Group> &groups) const;
    /// Notes that each group is shown in the window at its place, and nothing in any other.
    void assign(const std::vector<Group> &groups, const QList<ExMonitorWidget *> &taken);
    /// Windows that nothing is shown in any longer.
    void hideEmptyWidgets() const;
    /// Takes the state of the record, when the window is on screen.
    void updateState(ExMonitorWidget &widget) const;
    /// The same for all that are on screen.
    void updateStates() const;

    /// The displays have changed and come to rest.
    void displaysChanged();
    /// Renumbers the monitors of a content after the set has changed.
    void follow(Content *content, Entry &entry);

    ExMonitorManager &manager;
    MonitorSet set;
    /// The set that MONITOR_CONFIGURATION_CHANGED told of last, or the first one.
    MonitorSet announced;
    ScreenWatch watch;
    QList<Content *> contents;
    std::map<const Content *, Entry> entries;
    /// In the order in which they were made, with what they show.
    std::vector<std::pair<ExMonitorWidget *, QList<Content *>>> widgets;
    QPointer<ExMonitorWidget> lastActive;
    /// Windows with hidden tool bars, and these.
    std::map<const ExMonitorWidget *, QList<QPointer<QToolBar>>> hiddenToolBars;
};
