// Drives the workstation at random. A seed that fails does so again.
//
//   movara-monkey [SEED [STEPS]]

#include "platform/toolkit/QxApplication.h"
#include "tests/endurance/Monkey.h"

#include <cstdio>

int main(int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    bool isSeed = true;
    bool isSteps = true;
    const unsigned seed = argc > 1 ? QByteArray(argv[1]).toUInt(&isSeed) : 1;
    const int steps = argc > 2 ? QByteArray(argv[2]).toInt(&isSteps) : 1000;
    if (!isSeed || !isSteps || argc > 3) {
        std::fprintf(stderr, "usage: movara-monkey [SEED [STEPS]], both numbers\n");
        return 2;
    }
    QxApplication application(argc, argv);
    std::printf("seed %u, %d steps\n", seed, steps);
    std::fflush(stdout); // Said even if the next thing is a crash.
    Monkey monkey(seed);
    for (int i = 0; i < steps; ++i) {
        const QString broken = monkey.step();
        if (!broken.isEmpty()) {
            std::printf("step %d: %s\nlast deeds:\n%s\n", i, qPrintable(broken),
                qPrintable(monkey.deeds().join(u'\n')));
            return 1;
        }
    }
    return 0;
}
