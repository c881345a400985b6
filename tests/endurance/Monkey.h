#pragma once

#include "tests/endtoend/WindowFixture.h"

#include <QEvent>
#include <QPointer>
#include <QStringList>

#include <random>

/// A user without a plan: real input at random places, commands, layouts, monitors, series that
/// come and go. The same seed does the same deeds. After each deed the rules are checked that hold
/// whatever a user does.
class Monkey
{
public:
    explicit Monkey(unsigned seed);

    /// Does one deed. @return which rule is broken; empty as a rule.
    QString step();
    /// The last deeds, the newest last.
    [[nodiscard]] const QStringList &deeds() const { return m_deeds; }

private:
    using Deed = QString (Monkey::*)();

    QString moveMouse();
    QString pressMouse();
    QString releaseMouse();
    QString doubleClick();
    QString turnWheel();
    QString pressKey();
    QString command();
    QString chooseLayout();
    QString showSeries();
    QString changeMonitors();
    QString changeWindow();
    QString resizeWindow();
    QString destroyTool();
    QString rest();

    int below(int bound) { return std::uniform_int_distribution(0, bound - 1)(m_random); }
    [[nodiscard]] WorkstationViewer *someViewer();
    QPoint somePoint(const QWidget &widget);
    Qt::KeyboardModifiers someModifiers();
    void sendMouse(QEvent::Type type, Qt::MouseButton button);
    [[nodiscard]] static QString brokenRule();

    std::mt19937 m_random;
    WindowFixture m_fixture;
    std::vector<McHandle<LoadedSeries>> m_series;
    QPointer<QWidget> m_pressedOn;
    QPoint m_position;
    Qt::MouseButtons m_held;
    QStringList m_deeds;
};
