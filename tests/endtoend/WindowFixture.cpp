#include "tests/endtoend/WindowFixture.h"

#include "client/links/LinkType.h"
#include "framework/monitors/ExMonitorManager.h"
#include "framework/viewers/ExViewerDB.h"
#include "platform/properties/KxPropertyPool.h"

#include <QApplication>
#include <QMenu>
#include <QRegularExpression>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>

namespace {

constexpr int wheelStep = 120;

void sendMouse(QWidget &widget, QEvent::Type type, const QPointF &position, Qt::MouseButton button,
    Qt::MouseButtons held, Qt::KeyboardModifiers modifiers)
{
    QMouseEvent event(type, position, widget.mapToGlobal(position), button, held, modifiers);
    QApplication::sendEvent(&widget, &event);
}

/// Sub-menus of tools live as long as the tools.
bool hasWindows()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(),
        [](const QWidget *window) { return qobject_cast<const QMenu *>(window) == nullptr; });
}

} // namespace

McHandle<NotificationWatch> watch(QStringList &log, std::vector<ExNotification::Type> types)
{
    const auto note = [&log](const ExNotification &n) {
        const auto &viewer = static_cast<const WorkstationViewer &>(*n.viewer());
        log += QLatin1String(ExNotification::Type2String(n.type())) % u' '
            % QString::fromStdString(viewer.displaySetID());
    };
    return McHandle<NotificationWatch>(new NotificationWatch(std::move(types), note));
}

void setMonitors(const char *monitors)
{
    qputenv("MOVARA_MONITORS", monitors);
    ExMonitorManager::instance().readMonitorConfiguration();
}

WindowFixture::WindowFixture()
    : m_session(std::make_unique<WorkSession>())
{
    m_session->desktop().show();
    window().resize(1200, 900);
    if (!QTest::qWaitForWindowExposed(&window())) {
        qFatal("the window with the viewers is not shown");
    }
}

WindowFixture::WindowFixture(const McHandle<LoadedSeries> &series)
    : WindowFixture()
{
    show(series);
}

WindowFixture::~WindowFixture()
{
    m_session.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (hasWindows() || ExViewerManager::instancePointer()) {
        qFatal("the session has left widgets or its viewer manager behind");
    }
    for (const LinkType &type : LinkType::all()) {
        if (ExViewerDB::numGroups(type.group) != 0) {
            qFatal("viewers are still linked after the session has gone");
        }
        ExViewerDB::setGroupEnabled(type.group, true);
    }
}

PrivateSettings &WindowFixture::settings()
{
    static PrivateSettings settings;
    return settings;
}

void WindowFixture::forgetSettings(const QString &pattern)
{
    settings();
    for (KxVariant *setting : KxPropertyPool::instance().properties()) {
        if (setting->key().contains(QRegularExpression(pattern))) {
            setting->resetToDefault();
            setting->serialize();
        }
    }
}

SliceViewer &WindowFixture::slice(int i)
{
    return *workstation().sliceViewers()[static_cast<std::size_t>(i)];
}

void WindowFixture::show(const McHandle<LoadedSeries> &series)
{
    for (WorkstationViewer *viewer : workstation().viewers()) {
        viewer->setSeries(series);
    }
    settle();
}

void WindowFixture::settle()
{
    if (!QTest::qWaitFor([this] { return workstation().isSettled(); })) {
        qFatal("the viewers do not settle");
    }
}

void WindowFixture::wheel(WorkstationViewer &viewer, int steps, Qt::KeyboardModifiers modifiers)
{
    const QPointF middle = QRectF(viewer.widget()->rect()).center();
    for (int i = 0; i < std::abs(steps); ++i) {
        QWheelEvent event(middle, viewer.widget()->mapToGlobal(middle), QPoint(),
            QPoint(0, steps > 0 ? wheelStep : -wheelStep), Qt::NoButton, modifiers,
            Qt::NoScrollPhase, false);
        QApplication::sendEvent(viewer.widget(), &event);
    }
}

void WindowFixture::drag(WorkstationViewer &viewer, Qt::MouseButton button, const QPoint &by,
    Qt::KeyboardModifiers modifiers)
{
    ViewerRenderWidget &widget = *viewer.widget();
    const QPointF start = widget.rect().center();
    sendMouse(widget, QEvent::MouseButtonPress, start, button, button, modifiers);
    constexpr int parts = 3;
    for (int i = 1; i <= parts; ++i) {
        const QPointF position = start + QPointF(by) * i / parts;
        sendMouse(widget, QEvent::MouseMove, position, Qt::NoButton, button, modifiers);
    }
    sendMouse(widget, QEvent::MouseButtonRelease, start + by, button, Qt::NoButton, modifiers);
}

void WindowFixture::clickBadge(WorkstationViewer &viewer)
{
    QTest::mouseClick(viewer.widget(), Qt::LeftButton, Qt::NoModifier,
        OverlayPainter::badgeRect(viewer.widget()->size()).center());
}
