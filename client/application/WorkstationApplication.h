#pragma once

#include "client/application/UiRegistry.h"
#include "client/application/WorkstationDecoration.h"
#include "framework/application/ExApplication.h"
#include "framework/notification/ExNotifiable.h"
#include "platform/util/McHandle.h"

#include <QPointer>
#include <QTimer>

class HelpWindow;
class PropertyBrowser;
class WorkSession;
class Workstation;

/// The workstation's application object: made once, after the toolkit's and before any window.
/// Through it tools reach the workstation. GUI thread only.
class WorkstationApplication final : public ExApplication
{
public:
    /// Puts the language in force and runs the start-up callbacks of tools and editors, those only
    /// once in the process. @param language as for Translations::install().
    explicit WorkstationApplication(const QString &language = {});
    ~WorkstationApplication() override;

    /// Undefined when there is none.
    static WorkstationApplication &instance();

    /// Viewers, layouts, links and studies; null while there is no work session.
    [[nodiscard]] Workstation *workstation() const;
    /// Null when there is none.
    [[nodiscard]] WorkSession *workSession() const;
    /// What the user works with; null when it goes. Not owned.
    void setWorkSession(WorkSession *session);
    /// Has the actions of all tools show their present states, soon and once however often it is
    /// asked. Happens by itself after changes of viewers, links and layouts.
    void refreshTools();

    // Of the base.

    /// Asks first when workers are running, and when something is in no session file; may then not
    /// quit.
    void quitApplication() override;
    [[nodiscard]] bool isQuitting() const override { return m_isQuitting; }
    UiRegistry *uiRegistry() override { return &m_uiRegistry; }
    /// The name that the user has logged in with.
    [[nodiscard]] QString userName() const override;
    /// The window that is or was last the active one; null while there is no work session.
    QWidget *dialogParent() override;
    /// @return how many settings were changed, if modal, else 0.
    int propertyBrowser(const std::list<KxVariant *> &properties,
        const QList<QRegularExpression> &shown, const QList<QRegularExpression> &hidden,
        bool modal) override;
    using ExApplication::propertyBrowser;
    /// Topics are those of HelpWindow.
    void showHelp(const QString &topic) override;
    [[nodiscard]] QString helpHook(const QString &topic) override;
    [[nodiscard]] QString helpLocation() const override;
    bool helpDisabled() override;
    /// Has it warn that this is no medical device.
    void menuBarAddOnCreated(ExMenuBarAddOn *addOn) override;
    void registerActionUI(ExActionUI *action) override;
    [[nodiscard]] const WorkstationDecoration *decoration(const char *key) const override;

private:
    [[nodiscard]] bool mayStopWorkers() const;
    [[nodiscard]] static bool mayLoseUnsaved();
    void showBrowser(const std::list<KxVariant *> &properties,
        const QList<QRegularExpression> &shown, const QList<QRegularExpression> &hidden);

    WorkstationDecoration m_decoration;
    UiRegistry m_uiRegistry;
    QPointer<WorkSession> m_session;
    QPointer<HelpWindow> m_help;
    QPointer<PropertyBrowser> m_browser;
    QTimer m_refresh;
    McHandle<ExNotifiable> m_watch;
    bool m_isQuitting = false;
};
