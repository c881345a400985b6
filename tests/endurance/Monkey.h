#pragma once

#include "client/session/WorkstationSessions.h"
#include "tests/endtoend/WindowFixture.h"
#include "tests/platform/dicomio/DicomFixture.h"

#include <QEvent>
#include <QPointer>
#include <QStringList>

#include <random>

/// A user without a plan: real input at random places, commands, layouts, monitors, studies and
/// sessions that come and go, dialogs that are accepted or left. The same seed does the same deeds.
/// After each deed the rules are checked that hold whatever a user does.
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
    QString openStudies();
    QString openSeries();
    QString closeSeries();
    QString saveSession();
    QString openSession();
    QString changeMonitors();
    QString changeWindow();
    QString resizeWindow();
    QString destroyTool();
    QString rest();
    QString settle();

    void addStudies();
    void beginStep();
    int below(int bound) { return std::uniform_int_distribution(0, bound - 1)(m_random); }
    template <typename All>
    const auto &oneOf(const All &all)
    {
        return *std::next(std::begin(all), below(static_cast<int>(std::size(all))));
    }
    [[nodiscard]] WorkstationViewer *someViewer();
    [[nodiscard]] QWidget *somePlace();
    [[nodiscard]] QString someSeries();
    QPoint somePoint(const QWidget &widget);
    Qt::KeyboardModifiers someModifiers();
    void sendMouse(QEvent::Type type, Qt::MouseButton button);
    [[nodiscard]] QString brokenRule();
    [[nodiscard]] static QString brokenViewers();
    [[nodiscard]] static QString brokenLinks();
    [[nodiscard]] static QString brokenTools();
    [[nodiscard]] QString brokenRest();

    unsigned m_seed;
    unsigned m_step = 0;
    std::mt19937 m_random;
    DicomFixture m_files;
    QString m_sessionFile = m_files.folderName() % u"/saved.session";
    WindowFixture m_fixture;
    WorkstationSessions m_sessions{m_fixture.workstation()};
    std::vector<McHandle<LoadedSeries>> m_series;
    QPointer<QWidget> m_pressedOn;
    QPoint m_position;
    Qt::MouseButtons m_held;
    bool m_isSettled = false;
    QStringList m_deeds;
};
