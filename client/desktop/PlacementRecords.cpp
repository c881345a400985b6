#include "client/desktop/PlacementRecords.h"

#include "platform/properties/KxPropertyPool.h"

namespace PlacementRecords {

namespace {

using Record = ExMonitorWidget::Configuration;

KxProperty<Record> &property(const QString &content, int numMonitors)
{
    KxPropertyPool &pool = KxPropertyPool::instance();
    return pool.property<Record>(QStringLiteral("UI.Placement.%1.%2").arg(numMonitors).arg(content),
        Record(), pool.registrySerializer());
}

KxProperty<QString> &panelsProperty(int numMonitors)
{
    KxPropertyPool &pool = KxPropertyPool::instance();
    return pool.property<QString>(QStringLiteral("UI.Placement.%1.panels").arg(numMonitors),
        QString(), pool.registrySerializer());
}

} // namespace

Record read(const QString &content, int numMonitors)
{
    return property(content, numMonitors).value();
}

void write(const QString &content, int numMonitors, const Record &record)
{
    property(content, numMonitors).change(record);
}

QString readPanels(int numMonitors)
{
    return panelsProperty(numMonitors).value();
}

void writePanels(int numMonitors, const QString &record)
{
    panelsProperty(numMonitors).change(record);
}

} // namespace PlacementRecords
