// The least that a program with a main window does: what the workstation's start is measured
// beside.
#include "client/app/StartBenchmark.h"

#include <QApplication>
#include <QMainWindow>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1280, 840);
    const StartBenchmark benchmark(window);
    window.show();
    return QCoreApplication::exec();
}
