#pragma once

#include "client/app/NotificationWatch.h"
#include "client/app/WorkSession.h"
#include "client/application/WorkstationApplication.h"
#include "client/desktop/Desktop.h"
#include "client/viewers/SliceViewer.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "framework/tools/ExTool.h"
#include "tests/client/support/PhantomSeries.h"
#include "tests/support/PrivateSettings.h"

/// The tool with this key, made when it is not there yet.
inline ExTool &tool(const char *key)
{
    return *ExTool::getToolByDecorationKey(key, true);
}

/// Writes "TYPE display-set" to a log for each notification of these types about a viewer.
McHandle<NotificationWatch> watch(QStringList &log, std::vector<ExNotification::Type> types);

/// Makes the program see other monitors, as text of MOVARA_MONITORS.
void setMonitors(const char *monitors);

/// The real workstation on the screen, with input as a user gives it. Checks at its end that
/// nothing of its windows is left behind.
class WindowFixture
{
public:
    WindowFixture();
    /// Shows a series in all viewers.
    explicit WindowFixture(const McHandle<LoadedSeries> &series);
    ~WindowFixture();

    /// Settings and rights of the process; not those of whoever runs the tests.
    static PrivateSettings &settings();
    /// Forgets the settings whose keys match a regular expression somewhere.
    static void forgetSettings(const QString &pattern);
    [[nodiscard]] WorkSession &session() { return *m_session; }
    /// The one with the viewers.
    [[nodiscard]] ExMonitorWidget &window() { return *m_session->desktop().viewersWindow(); }
    [[nodiscard]] Workstation &workstation() { return m_session->workstation(); }
    /// The i-th slice viewer.
    [[nodiscard]] SliceViewer &slice(int i);
    /// Shows a series in all viewers and waits for the final images.
    void show(const McHandle<LoadedSeries> &series);
    void settle();

    static void wheel(
        WorkstationViewer &viewer, int steps, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Presses in the middle of a viewer, moves in three steps, releases.
    static void drag(WorkstationViewer &viewer, Qt::MouseButton button, const QPoint &by,
        Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    static void clickBadge(WorkstationViewer &viewer);

private:
    PrivateSettings &m_settings = settings();
    WorkstationApplication m_application{QStringLiteral("en")};
    std::unique_ptr<WorkSession> m_session;
};
