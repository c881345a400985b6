#include "client/application/WorkstationApplication.h"

#include "client/app/NotificationWatch.h"
#include "client/app/WorkSession.h"
#include "client/application/HelpWindow.h"
#include "client/application/PropertyBrowser.h"
#include "client/application/PropertyTexts.h"
#include "client/application/Translations.h"
#include "client/session/UnsavedQuestion.h"
#include "framework/dialogs/ExMessageBox.h"
#include "framework/editors/ExEditor.h"
#include "framework/monitors/ExMenuBarAddOn.h"
#include "framework/monitors/ExMonitorManager.h"
#include "framework/tools/ExActionUI.h"
#include "framework/tools/ExHotKeys.h"
#include "framework/tools/ExTool.h"

#include <QCoreApplication>
#include <QFile>

#include <pwd.h>
#include <unistd.h>

namespace {

/// After these a tool may be usable or not, or active or not, where it was not before.
const std::vector<ExNotification::Type> stateChanges{ExNotification::ACTIVE_VIEWER_CHANGED,
    ExNotification::VIEWER_VOLUME_CHANGED, ExNotification::VIEWER_SUBTYPE_CHANGED,
    ExNotification::VIEWER_LAYOUT_CHANGED, ExNotification::FULLSCREEN_CHANGED,
    ExNotification::TIMESERIES_CHANGED, ExNotification::COLORMAP_CHANGED,
    ExNotification::VIEWER_FLIPPED, ExNotification::CINE_START, ExNotification::CINE_STOP,
    ExNotification::VIEWER_ATTACHED_TO_GROUP, ExNotification::VIEWER_DETACHED_FROM_GROUP,
    ExNotification::VIEWER_GROUP_ENABLED, ExNotification::VIEWER_GROUP_DISABLED,
    ExNotification::GLOBAL_TOGGLE_CHANGED, ExNotification::SCREEN_RECONFIGURE_PRE,
    ExNotification::MONITOR_CONFIGURATION_CHANGED};

void updateTools()
{
    std::vector<std::string> keys;
    ExTool::getDecorationKeyList(keys, false);
    for (const std::string &key : keys) {
        if (const ExTool *const tool = ExTool::getToolByDecorationKey(key.c_str(), false)) {
            tool->updateUI(nullptr);
        }
    }
}

/// Without the marks of the letters that choose an entry of a menu; "&&" stands for itself.
QString withoutMarks(QString text)
{
    static const QRegularExpression mark(QStringLiteral("&(&?)"));
    return text.replace(mark, QStringLiteral("\\1\\1"));
}

/// Once in the process: what they have made stays as long as that.
void runStartUpCallbacks()
{
    static const bool haveRun = [] {
        ExTool::doInitCallbacks();
        ExEditor::doInitCallbacks();
        return true;
    }();
    Q_UNUSED(haveRun)
}

} // namespace

WorkstationApplication::WorkstationApplication(const QString &language)
    : m_watch(new NotificationWatch(
        stateChanges, [this](const ExNotification & /*notification*/) { refreshTools(); }))
{
    registerPropertyTexts();
    Translations::install(language);
    m_refresh.setSingleShot(true);
    QObject::connect(&m_refresh, &QTimer::timeout, &updateTools);
    runStartUpCallbacks();
}

WorkstationApplication::~WorkstationApplication() = default;

WorkstationApplication &WorkstationApplication::instance()
{
    return static_cast<WorkstationApplication &>(ExApplication::instance());
}

Workstation *WorkstationApplication::workstation() const
{
    return m_session == nullptr ? nullptr : &m_session->workstation();
}

WorkSession *WorkstationApplication::workSession() const
{
    return m_session;
}

void WorkstationApplication::setWorkSession(WorkSession *session)
{
    m_session = session;
    refreshTools();
}

void WorkstationApplication::refreshTools()
{
    m_refresh.start(0);
}

void WorkstationApplication::quitApplication()
{
    if (mayStopWorkers() && mayLoseUnsaved()) {
        m_isQuitting = true;
        QCoreApplication::exit(0);
    }
}

bool WorkstationApplication::mayStopWorkers() const
{
    std::list<ExWorker *> workers;
    runningProcesses(workers);
    const QString question = QCoreApplication::translate("WorkstationApplication",
        "Something is still being worked on, and will be lost. Quit all the same?");
    return workers.empty()
        || ExMessageBox::question(question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
        == QMessageBox::Yes;
}

bool WorkstationApplication::mayLoseUnsaved()
{
    return UnsavedQuestion::mayGo(QCoreApplication::translate("WorkstationApplication",
                                      "Not saved in a session: %1. Save before quitting?"),
        QCoreApplication::translate("WorkstationApplication",
            "Not saved in a session: %1. Quit all the same, and lose it?"));
}

QString WorkstationApplication::userName() const
{
    const passwd *const entry = getpwuid(geteuid());
    return entry == nullptr ? QString() : QString::fromLocal8Bit(entry->pw_name);
}

QWidget *WorkstationApplication::dialogParent()
{
    return m_session == nullptr ? nullptr : ExMonitorManager::instance().activeMonitorWidget();
}

int WorkstationApplication::propertyBrowser(const std::list<KxVariant *> &properties,
    const QList<QRegularExpression> &shown, const QList<QRegularExpression> &hidden, bool modal)
{
    if (!modal) {
        showBrowser(properties, shown, hidden);
        return 0;
    }
    const McHandle<ExTempCursorHandle> cursor = tempNotBusy();
    PropertyBrowser browser(properties, shown, hidden, dialogParent());
    browser.exec();
    return browser.numChanged();
}

void WorkstationApplication::showBrowser(const std::list<KxVariant *> &properties,
    const QList<QRegularExpression> &shown, const QList<QRegularExpression> &hidden)
{
    delete m_browser;
    m_browser = new PropertyBrowser(properties, shown, hidden, dialogParent());
    m_browser->setAttribute(Qt::WA_DeleteOnClose);
    ExHotKeys::addTo(*m_browser);
    m_browser->show();
}

void WorkstationApplication::showHelp(const QString &topic)
{
    if (!m_help) {
        m_help = new HelpWindow(dialogParent());
        m_help->setAttribute(Qt::WA_DeleteOnClose);
        ExHotKeys::addTo(*m_help);
    }
    m_help->show();
    m_help->raise();
    m_help->activateWindow();
    m_help->showTopic(topic);
}

QString WorkstationApplication::helpHook(const QString &topic)
{
    return HelpWindow::reference(topic);
}

QString WorkstationApplication::helpLocation() const
{
    return HelpWindow::location();
}

bool WorkstationApplication::helpDisabled()
{
    return !QFile::exists(HelpWindow::location() % QLatin1String("workstation.md"));
}

void WorkstationApplication::menuBarAddOnCreated(ExMenuBarAddOn *addOn)
{
    addOn->setWarning(QCoreApplication::translate("WorkstationApplication", "Not for diagnosis"));
}

void WorkstationApplication::registerActionUI(ExActionUI *action)
{
    // Actions get what they show only later.
    QObject::connect(action, &QAction::changed, action, [action] {
        if (action->statusTip() != action->toolTip()) {
            action->setStatusTip(action->toolTip());
        }
        // An icon would stand in the place of the mark that tells whether it is on.
        if (action->isIconVisibleInMenu() == action->isCheckable()) {
            action->setIconVisibleInMenu(!action->isCheckable());
        }
        // Buttons would take the marked letters as keys of theirs, away from the menu bar.
        if (const QString plain = withoutMarks(action->iconText()); plain != action->iconText()) {
            action->setIconText(plain);
        }
    });
}

const WorkstationDecoration *WorkstationApplication::decoration(const char * /*key*/) const
{
    return &m_decoration;
}
