// What docs/concepts/monitors.md shows.
#include "framework/monitors/ExMonitorManager.h"

#include <QDialog>

/// Shows a widget on one monitor, in a window of its own. The content is the caller's, who keeps
/// it.
void showOn(ExMonitorWidget::Content &content, int monitor)
{
    ExMonitorManager &manager = ExMonitorManager::instance();
    ExMonitorWidget::Configuration record;
    record.monitors = {monitor};
    record.normalGeometry = manager.defaultGeometry(monitor, 80);
    record.ownWindow = true;
    manager.setConfiguration(&content, record);
    manager.applyConfigurations();
    manager.setAllWidgetsVisible(true);
}

/// A dialog that comes up where it was last.
void ask(QDialog &dialog)
{
    ExMonitorManager &manager = ExMonitorManager::instance();
    dialog.setObjectName(QStringLiteral("SampleDialog"));
    manager.widgetGeometryRestore(dialog, QRect(), 320, 200);
    dialog.exec();
    manager.widgetGeometryStore(dialog);
}
