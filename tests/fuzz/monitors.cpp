// The monitors named by the environment.
#include "framework/monitors/ExMonitorManager.h"
#include "tests/fuzz/FuzzInput.h"

#include <QApplication>

int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("MOVARA_MONITORS", "");
    new QApplication(*argc, *argv);
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // A variable's text ends at a zero byte.
    qputenv("MOVARA_MONITORS", bytesOf(data, size).replace('\0', ' '));
    ExMonitorManager &manager = ExMonitorManager::instance();
    manager.readMonitorConfiguration();

    require(manager.primaryMonitor() == 0 && manager.physicalMonitors().isEmpty());
    const QList<int> row = manager.contiguousHorizontalMonitors(manager.monitors());
    require(row.size() <= manager.numMonitors());
    for (int i = 0; i < manager.numMonitors(); ++i) {
        const QRect monitor = manager.monitorRect(static_cast<unsigned int>(i));
        require(!monitor.isValid() || manager.totalRect().contains(monitor));
        (void)manager.defaultGeometry(i, 80);
    }
    require(manager.fullScreenRect(nullptr).isValid());
    require(manager.normalWindowRect(nullptr).isValid());
    return 0;
}
