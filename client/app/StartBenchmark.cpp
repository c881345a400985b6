#include "client/app/StartBenchmark.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <optional>

#ifdef __linux__
#include <ctime>
#include <unistd.h>
#endif

namespace {

constexpr int idleMilliseconds = 1000;

/// Since this process was started, to the system's clock tick (10 ms).
std::optional<double> millisecondsSinceStart()
{
#ifdef __linux__
    // Fields are counted behind the program's name, which may contain spaces.
    constexpr int startTime = 20;
    QFile file(QStringLiteral("/proc/self/stat"));
    timespec now = {};
    if (!file.open(QIODevice::ReadOnly) || clock_gettime(CLOCK_BOOTTIME, &now) != 0) {
        return std::nullopt;
    }
    const QByteArray stat = file.readAll();
    const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 1).split(' ');
    bool isNumber = false;
    const double ticks = fields.value(startTime).toDouble(&isNumber);
    const double started = ticks * 1e3 / static_cast<double>(sysconf(_SC_CLK_TCK));
    const double passed
        = static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
    return isNumber ? std::optional(passed - started) : std::nullopt;
#else
    return std::nullopt;
#endif
}

std::optional<double> residentMebibytes()
{
#ifdef __linux__
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    bool isNumber = false;
    const double pages = file.readAll().split(' ').value(1).toDouble(&isNumber);
    const double bytes = pages * static_cast<double>(sysconf(_SC_PAGESIZE));
    return isNumber ? std::optional(bytes / (1 << 20)) : std::nullopt;
#else
    return std::nullopt;
#endif
}

/// @return whether there is a figure to print.
bool print(const char *name, std::optional<double> figure, const char *unit)
{
    if (!figure) {
        std::fprintf(stderr, "This system does not tell a process about its %s.\n", name);
        QCoreApplication::exit(1);
        return false;
    }
    std::printf("%s %.0f %s\n", name, *figure, unit);
    std::fflush(stdout);
    return true;
}

} // namespace

StartBenchmark::StartBenchmark(QWidget &window)
{
    window.installEventFilter(this);
}

bool StartBenchmark::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Paint) {
        watched->removeEventFilter(this);
        // The picture goes to the display once all that the window shows is painted.
        QMetaObject::invokeMethod(
            this, [this] { painted(); }, Qt::QueuedConnection);
    }
    return false;
}

void StartBenchmark::painted()
{
    if (print("start", millisecondsSinceStart(), "ms")) {
        QTimer::singleShot(idleMilliseconds, this, &StartBenchmark::idle);
    }
}

void StartBenchmark::idle()
{
    if (print("memory", residentMebibytes(), "MiB")) {
        QCoreApplication::exit(0);
    }
}
