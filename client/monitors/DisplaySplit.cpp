#include "client/monitors/DisplaySplit.h"

#include "framework/monitors/ExMonitorManager.h"
#include "framework/notification/ExNotifiable.h"
#include "platform/properties/KxPropertyPool.h"

#include <algorithm>

namespace {

using Displays = QList<QList<int>>;

/// The numbers of monitors after the displays have been split in another way.
QList<int> renumbered(const QList<int> &monitors, const Displays &before, const Displays &after)
{
    QList<int> found;
    for (qsizetype i = 0; i < before.size(); ++i) {
        const QList<int> &now = after.at(i);
        for (qsizetype half = 0; half < before.at(i).size(); ++half) {
            if (!monitors.contains(before.at(i).at(half))) {
                continue;
            }
            const bool same = now.size() == before.at(i).size();
            found += same ? QList<int>{now.at(half)} : now;
        }
    }
    // Both halves have led to the same whole.
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

} // namespace

QList<int> DisplaySplit::current()
{
    QList<int> split;
    for (const QList<int> &monitors : ExMonitorManager::instance().physicalMonitors()) {
        split.append(monitors.size() > 1 ? 1 : 0);
    }
    return split;
}

bool DisplaySplit::apply(const QList<int> &split)
{
    KxPropertyPool &pool = KxPropertyPool::instance();
    auto &setting
        = pool.property<QList<int>>("UI.SplitMonitorConfig", {}, pool.registrySerializer());
    setting.setValue(split);
    const bool isKept = setting.serialize();
    setting.propagate();
    ExMonitorManager &manager = ExMonitorManager::instance();
    const Displays before = manager.physicalMonitors();
    manager.readMonitorConfiguration();
    const Displays after = manager.physicalMonitors();
    // Else displays have come or gone meanwhile, which the manager follows by itself.
    if (before.size() == after.size()) {
        const QList<ExMonitorWidget::Content *> contents = manager.contents();
        for (ExMonitorWidget::Content *const content : contents) {
            ExMonitorWidget::Configuration record = manager.configuration(content);
            record.monitors = renumbered(record.monitors, before, after);
            manager.setConfiguration(content, record);
        }
    }
    manager.applyConfigurations();
    ExNotifiable::notify(ExNotification::MONITOR_CONFIGURATION_CHANGED);
    return isKept;
}
