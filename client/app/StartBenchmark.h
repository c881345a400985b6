#pragma once

#include <QObject>

/// Measures a program's start: prints the milliseconds from the start of the process until its
/// window has been painted for the first time, and, a second later, the memory that is resident
/// then. Ends the event loop afterwards, with 1 and a message where the system does not tell it.
/// Depends on nothing of the workstation, so that other programs can be measured alike. GUI thread
/// only.
class StartBenchmark final : public QObject
{
public:
    /// @param window not shown yet; must outlive it.
    explicit StartBenchmark(QWidget &window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void painted();
    static void idle();
};
