// The least that a program with a main window does: what the workstation's start is measured
// beside. With --labelled the window has what any main window has, and thus needs fonts: menus, a
// tool bar and a status line.
#include "client/app/StartBenchmark.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

namespace {

void addLabels(QMainWindow &window)
{
    constexpr int menus = 8;
    constexpr int buttons = 24;
    for (int i = 0; i < menus; ++i) {
        window.menuBar()->addMenu(QStringLiteral("Menu %1").arg(i));
    }
    QToolBar *const bar = window.addToolBar(QStringLiteral("Tools"));
    for (int i = 0; i < buttons; ++i) {
        bar->addAction(QStringLiteral("T%1").arg(i));
    }
    window.statusBar()->showMessage(QStringLiteral("Ready"));
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1280, 840);
    if (QApplication::arguments().contains(QStringLiteral("--labelled"))) {
        addLabels(window);
    }
    const StartBenchmark benchmark(window);
    window.show();
    return QCoreApplication::exec();
}
