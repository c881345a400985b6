#include "client/app/StartStudy.h"

#include "client/app/MainWindow.h"

void startStudy(MainWindow &window, const QStringList &paths)
{
    if (!paths.isEmpty()) {
        window.open(paths);
    }
}
