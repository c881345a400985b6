#include "framework/monitors/ExMonitorWidget.h"

#include "framework/application/ExApplication.h"
#include "framework/monitors/ExMenuBarAddOn.h"
#include "framework/monitors/ExMonitorLayout.h"
#include "framework/monitors/ExMonitorManager.h"
#include "framework/monitors/ExMonitorWidgetPrivate.h"
#include "framework/monitors/QxMenuBar.h"
#include "framework/notification/ExNotifiable.h"
#include "platform/backend/KxBackendPeer.h"
#include "platform/util/McGuard.h"
#include "platform/util/McLogFile.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMainWindow>
#include <QMenu>
#include <QScopedValueRollback>

using Content = ExMonitorWidget::Content;

namespace {

constexpr Qt::WindowFlags normalFlags = Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint
    | Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint;

} // namespace

ExMonitorWidget::ExMonitorWidget()
    : QWidget(nullptr, normalFlags)
    , d(std::make_unique<ExMonitorWidgetPrivate>(*this))
{
    // Only one of several windows is the active one, but tool tips are wanted in all.
    setAttribute(Qt::WA_AlwaysShowToolTips);
    d->build();
    MonitorWindowSystem::instance().attach(*this);
    setWindowTitle(QCoreApplication::applicationName());
    Q_EMIT widgetCreated(this);
}

ExMonitorWidget::~ExMonitorWidget()
{
    MonitorWindowSystem::instance().detach(*this);
    clear();
    Q_EMIT widgetClosed(this);
}

ExMonitorWidget *ExMonitorWidget::parentWidget(QWidget *widget)
{
    for (QWidget *at = widget; at != nullptr; at = at->QWidget::parentWidget()) {
        if (auto *const found = qobject_cast<ExMonitorWidget *>(at)) {
            return found;
        }
    }
    return nullptr;
}

QMainWindow *ExMonitorWidget::mainWindow() const
{
    return d->mainWindows.first();
}

const QList<QMainWindow *> &ExMonitorWidget::mainWindows() const
{
    return d->mainWindows;
}

QMainWindow *ExMonitorWidget::activeMainWindow() const
{
    QWidget *const focus = QApplication::focusWidget();
    for (QMainWindow *const window : d->mainWindows) {
        if (focus != nullptr && (window == focus || window->isAncestorOf(focus))) {
            d->lastActive = window;
        }
    }
    return d->mainWindows.contains(d->lastActive) ? d->lastActive.data() : mainWindow();
}

QMainWindow *ExMonitorWidget::mainWindowForMonitor(int monitor) const
{
    const ExMonitorWidgetPrivate::Pane *const pane = d->pane(monitor);
    return pane == nullptr ? nullptr : pane->window;
}

QList<int> ExMonitorWidget::monitors() const
{
    QList<int> numbers;
    for (const ExMonitorWidgetPrivate::Pane &pane : d->panes) {
        if (pane.monitor >= 0) {
            numbers.append(pane.monitor);
        }
    }
    return numbers;
}

QMenuBar *ExMonitorWidget::menuBar() const
{
    return d->menuBar;
}

ExMenuBarAddOn *ExMonitorWidget::menuBarAddOn() const
{
    return d->addOn;
}

Content *ExMonitorWidget::activeContent(bool orFirst) const
{
    const ExMonitorWidgetPrivate::Pane *const pane = d->pane(activeMainWindow());
    Content *const active = pane == nullptr ? nullptr : pane->active();
    if (active != nullptr || !orFirst) {
        return active;
    }
    return ExMonitorManager::instance().contents(const_cast<ExMonitorWidget *>(this)).value(0);
}

bool ExMonitorWidget::isContentActive(const Content *content, int monitor) const
{
    const ExMonitorWidgetPrivate::Pane *const pane = d->pane(monitor);
    return content != nullptr && pane != nullptr && pane->active() == content;
}

bool ExMonitorWidget::isContentActive(const Content *content, const QMainWindow *window) const
{
    const ExMonitorWidgetPrivate::Pane *const pane = d->pane(window);
    return content != nullptr && pane != nullptr && pane->active() == content;
}

bool ExMonitorWidget::isContentActivatable(const Content *content, int monitor) const
{
    const ExMonitorWidgetPrivate::Pane *const pane = d->pane(monitor);
    return pane != nullptr && pane->page(content) != nullptr;
}

bool ExMonitorWidget::isContentActivatable(const Content *content, const QMainWindow *window) const
{
    const ExMonitorWidgetPrivate::Pane *const pane = d->pane(window);
    return pane != nullptr && pane->page(content) != nullptr;
}

bool ExMonitorWidget::activateContent(Content *content, int monitor)
{
    ExMonitorWidgetPrivate::Pane *const pane = d->pane(monitor);
    return pane != nullptr && d->activate(*pane, content);
}

bool ExMonitorWidget::activateContent(Content *content, QMainWindow *window)
{
    ExMonitorWidgetPrivate::Pane *const pane = d->pane(window);
    return pane != nullptr && d->activate(*pane, content);
}

bool ExMonitorWidget::activateContent(Content *content)
{
    bool any = false;
    for (ExMonitorWidgetPrivate::Pane &pane : d->panes) {
        any = d->activate(pane, content) || any;
    }
    return any;
}

void ExMonitorWidget::clear()
{
    for (ExMonitorWidgetPrivate::Pane &pane : d->panes) {
        pane.releasePages();
        pane.releaseToolBars();
    }
}

void ExMonitorWidget::doLayout()
{
    const ExMonitorManager &manager = ExMonitorManager::instance();
    const QList<Content *> contents = manager.contents(this);
    d->makePanes(manager.monitors(this));
    QList<QWidget *> placed;
    for (ExMonitorWidgetPrivate::Pane &pane : d->panes) {
        d->fillPane(pane, contents, placed);
        d->placeToolBars(pane, contents);
    }
    d->layout->activate();
}

void ExMonitorWidget::setCornerWidgetVisible(bool visible)
{
    d->addOn->setVisible(visible);
    d->menuBar->updateGeometry();
    // The menu bar places its corner widget when it is laid out.
    d->menuBar->adjustSize();
    d->mainWindows.first()->layout()->invalidate();
}

void ExMonitorWidget::setMacMenu(const QList<QAction *> &actions)
{
    if (d->macMenu == nullptr) {
        auto *const menu = new QMenu(QGuiApplication::applicationDisplayName(), d->menuBar);
        d->macMenu = menu->menuAction();
        d->menuBar->insertAction(d->menuBar->actions().value(0), d->macMenu);
    }
    QMenu *const menu = d->macMenu->menu();
    menu->clear();
    menu->addActions(actions);
    d->macMenu->setVisible(!actions.isEmpty());
}

void ExMonitorWidget::changeFont(const QFont &font)
{
    setFont(font);
}

bool ExMonitorWidget::isFullScreen() const
{
    return d->state == Qt::WindowFullScreen;
}

bool ExMonitorWidget::isMaximizedBySystem() const
{
    return d->isMaximized;
}

void ExMonitorWidget::setFlagsKeepingIcon(Qt::WindowFlags flags)
{
    // A change of flags makes a new native window, which loses the icon.
    const QIcon icon = windowIcon();
    setWindowFlags(flags);
    setWindowIcon(icon);
}

void ExMonitorWidget::showFullScreen(bool notify)
{
    if (notify) {
        ExNotifiable::notify(ExNotification::SCREEN_RECONFIGURE_PRE);
    }
    {
        const QScopedValueRollback switching(d->isSwitching, true);
        setFlagsKeepingIcon(Qt::Window | Qt::FramelessWindowHint);
        d->state = Qt::WindowFullScreen;
        setGeometry(ExMonitorManager::instance().fullScreenRect(this));
        doLayout();
        d->bringForward(activeContent(false));
        setCornerWidgetVisible(true);
        QWidget::showNormal();
        MonitorWindowSystem::instance().attach(*this);
    }
    if (notify) {
        ExNotifiable::notify(ExNotification::SCREEN_RECONFIGURED);
    }
}

void ExMonitorWidget::showNormal(bool relayout)
{
    const QScopedValueRollback switching(d->isSwitching, true);
    d->state = Qt::WindowNoState;
    setFlagsKeepingIcon(normalFlags);
    setWindowState(Qt::WindowNoState);
    setGeometry(ExMonitorManager::instance().normalWindowRect(this));
    setCornerWidgetVisible(false);
    if (relayout) {
        doLayout();
    }
    d->bringForward(activeContent(true));
    show();
    MonitorWindowSystem::instance().attach(*this);
}

void ExMonitorWidget::showMinimized()
{
    const QScopedValueRollback switching(d->isSwitching, true);
    d->storedState = d->state;
    setCornerWidgetVisible(false);
    QWidget::showMinimized();
    MonitorWindowSystem &system = MonitorWindowSystem::instance();
    if (d->state == Qt::WindowFullScreen) {
        d->savedStyle = system.makeRestorable(*this);
    }
    system.attach(*this);
    d->state = Qt::WindowMinimized;
}

void ExMonitorWidget::showStored()
{
    if (d->storedState != 0 && d->savedStyle != 0) {
        MonitorWindowSystem::instance().setStyle(*this, d->savedStyle);
        d->savedStyle = 0;
    }
    // A window that was minimised from its normal state has stored 0, as if there were nothing
    // stored: both lead back to the normal one.
    if (d->storedState == 0 ? d->state != Qt::WindowFullScreen
                            : (d->storedState & Qt::WindowFullScreen) == 0) {
        showNormal(false);
    } else {
        showFullScreen(false);
    }
    activateWindow();
    d->storedState = 0;
}

void ExMonitorWidget::minimizeWidget()
{
    if (d->state != Qt::WindowMinimized) {
        showMinimized();
    }
}

void ExMonitorWidget::restoreWidget()
{
    if (isFullScreen()) {
        ExNotifiable::notify(ExNotification::SCREEN_RECONFIGURE_PRE);
        showNormal(true);
        ExNotifiable::notify(ExNotification::SCREEN_RECONFIGURED);
    }
}

void ExMonitorWidget::closeWidget()
{
    close();
}

void ExMonitorWidget::toggleToolBars()
{
    ExMonitorManager::instance().toggleToolBars(this);
}

void ExMonitorWidget::synchronizeToolBars()
{
    if (const auto *const action = qobject_cast<const QAction *>(sender())) {
        ExMonitorManager::instance().synchronizeToolBars(this, action->data().value<QList<int>>());
    }
}

void ExMonitorWidget::closeEvent(QCloseEvent *event)
{
    static bool isQuitting = false;
    event->ignore();
    if (isQuitting) {
        return;
    }
    const QScopedValueRollback quitting(isQuitting, true);
    // A back end that fails must not keep the window open.
    const std::string problem
        = McGuard::run([] { KxBackendPeer::instance()->setReasonToQuit("userlogout"); });
    if (!problem.empty()) {
        McLogFile::warnf("WARNING - the back end cannot be told why: %s", problem.c_str());
    }
    if (ExApplication::hasInstance()) {
        ExApplication::instance().quitApplication();
    }
}

void ExMonitorWidget::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    Q_EMIT widgetResized(this);
}

void ExMonitorWidget::moveEvent(QMoveEvent *event)
{
    QWidget::moveEvent(event);
    Q_EMIT widgetMoved(this);
}

void ExMonitorWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange) {
        return;
    }
    const bool isMaximized = windowState().testFlag(Qt::WindowMaximized);
    if (isMaximized && !d->isMaximized) {
        if (!MonitorWindowSystem::instance().movesBeforeMaximizing()) {
            Q_EMIT widgetMoved(this);
        }
        d->isMaximized = true;
        Q_EMIT widgetMaximized(this);
    }
    d->isMaximized = isMaximized;
}
