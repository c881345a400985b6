#include "client/app/DisplayCheck.h"

#include "client/viewers/DisplayProbe.h"

#include <QByteArray>

#include <algorithm>
#include <cstring>

namespace {

const QString wayOut = QStringLiteral(
    "The workstation needs a display to open its windows on. Without one:\n"
    "  scripts/run --screenshot FILE     writes a picture of the main window to FILE\n"
    "  xvfb-run -a movara-workstation    runs it on a display that nobody sees");

bool choosesPlatform(int argc, const char *const *argv)
{
    return std::any_of(argv + std::min(argc, 1), argv + argc,
        [](const char *argument) { return std::strncmp(argument, "-platform", 9) == 0; });
}

} // namespace

QString displayProblem(int argc, const char *const *argv)
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    const bool isForX = platform.isEmpty() || platform.startsWith("xcb");
    if (!isForX || choosesPlatform(argc, argv)) {
        return {};
    }
    if (platform.isEmpty() && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
        return {};
    }
    if (qEnvironmentVariableIsEmpty("DISPLAY")) {
        return QStringLiteral("No display: DISPLAY is not set.\n%1").arg(wayOut);
    }
    if (!hasXDisplay()) {
        return QStringLiteral("The display %1 cannot be opened.\n%2")
            .arg(qEnvironmentVariable("DISPLAY"), wayOut);
    }
    return {};
}
