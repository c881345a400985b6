#include "client/desktop/StudiesContent.h"

#include "framework/monitors/ExMonitorManager.h"

#include <QCoreApplication>

StudiesContent::StudiesContent(QWidget &place, ExMonitorWidget::Content &viewers)
    : m_place(place)
    , m_viewers(viewers)
{
    setLongName(QCoreApplication::translate("Contents", "Studies"));
    setShortName(longName());
}

QWidget *StudiesContent::widgetForMonitor(
    const ExMonitorWidget::Configuration &configuration, int monitor)
{
    const bool isHere = configuration.monitors.value(0, monitor) == monitor;
    return isHere && !isWithViewers() ? &m_place : nullptr;
}

bool StudiesContent::isWithViewers()
{
    const ExMonitorManager &manager = ExMonitorManager::instance();
    const ExMonitorWidget *const window = manager.monitorWidget(this);
    return window != nullptr && window == manager.monitorWidget(&m_viewers);
}
