#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/application/ExTempCursorHandle.h"
#include "platform/properties/KxProperty.h"
#include "platform/util/McHandle.h"

#include <QList>
#include <QRegularExpression>
#include <QString>

#include <list>
#include <memory>

class ExActionUI;
class ExDecoration;
class ExLoadHelper;
class ExMenuBarAddOn;
class ExUIRegistry;
class McProgressInterface;
class QAction;
class QWidget;

namespace Zel {
class KxWebServiceServer;
}

/// The process-wide application object: the client derives one class from it and constructs it
/// once, before any window, and destroys it at shutdown. Everything else in the framework reaches
/// the client through instance(). GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExApplication
{
public:
    class Private;
    class Progress;

    /// A worker that must finish before the application may close. Only its identity counts here;
    /// the client derives from it.
    class MOVARA_FRAMEWORK_EXPORT ExWorker
    {
    public:
        ExWorker() = default;
        ExWorker(const ExWorker &) = delete;
        ExWorker &operator=(const ExWorker &) = delete;
        virtual ~ExWorker();
    };

    ExApplication(const ExApplication &) = delete;
    ExApplication &operator=(const ExApplication &) = delete;

    /// The application object. Undefined when there is none.
    static ExApplication &instance() { return *sInstance; }
    static bool hasInstance() { return sInstance != nullptr; }

protected:
    /// Registers the styles to choose from with the setting; does not apply one.
    ExApplication();
    virtual ~ExApplication();

public:
    // What the client supplies.

    /// Ends the application. A reason to quit has been recorded before.
    virtual void quitApplication() = 0;
    /// The application's study-load helper. The base gives its own.
    [[nodiscard]] virtual ExLoadHelper *loadHelper() const;
    /// The web-service server that the client works with; null when there is none.
    [[nodiscard]] virtual Zel::KxWebServiceServer *webServiceServer() const;
    /// Where the framework's buttons and pop-ups are made known by name; may be null.
    virtual ExUIRegistry *uiRegistry() = 0;
    /// Name of the user at work, for the client; not asked here.
    [[nodiscard]] virtual QString userName() const = 0;
    /// The parent of dialogs that the framework opens, as a rule the main window; may be null.
    virtual QWidget *dialogParent() = 0;
    /// Lets the user look at settings and change them.
    /// @param shown only settings whose key matches one of these; an empty list shows all.
    /// @param hidden none of those whose key matches one of these.
    /// @param modal whether to wait until the user is done.
    /// @return what the user did; the meaning is the client's.
    virtual int propertyBrowser(const std::list<KxVariant *> &properties,
        const QList<QRegularExpression> &shown, const QList<QRegularExpression> &hidden, bool modal)
        = 0;
    /// Shows the help for a topic.
    virtual void showHelp(const QString &topic) = 0;
    /// The client's reference for a help topic. The base gives an empty string.
    [[nodiscard]] virtual QString helpHook(const QString &topic);
    /// Where the help is found, for the client; not asked here.
    [[nodiscard]] virtual QString helpLocation() const = 0;
    /// Whether there is no help: then no help actions are made.
    virtual bool helpDisabled() = 0;
    /// A menu bar has got its minimise, restore and close buttons; the client may add to them and
    /// set the warning.
    virtual void menuBarAddOnCreated(ExMenuBarAddOn *addOn) = 0;
    /// Whether the application is about to end, for the client; not asked here.
    [[nodiscard]] virtual bool isQuitting() const = 0;
    /// Told of every new action, which is being constructed: only its address may be kept.
    virtual void registerActionUI(ExActionUI *action) = 0;
    /// The provider of texts and icons for a decoration key; null when there is none. The base has
    /// none: tools then show neither text nor icon.
    [[nodiscard]] virtual const ExDecoration *decoration(const char *key) const;
    /// Lets the user edit the settings of a tool: those among @p properties whose keys match one of
    /// the patterns. The base takes propertyBrowser() for it, and does not wait.
    virtual void editToolProperties(
        const std::list<KxVariant *> &properties, const QList<QRegularExpression> &patterns);
    /// Whether the context menus of tools are to leave "Properties..." out. The base does not.
    [[nodiscard]] virtual bool toolContextMenuHidesProperties() const;
    /// Whether the context menus of tools are to show the tools' keys and shortcuts. The base does
    /// not.
    [[nodiscard]] virtual bool toolContextMenuShowsIdentification() const;

    // Style.

    /// The setting "UI.ColorScheme": the name of the style. Its default is "Native Style" for users
    /// with the right to it, else "Movara Medium".
    KxProperty<QString> &styleProperty() const;
    /// Applies a style and keeps it as the setting; an unknown name is left to the style factory.
    void setCurrentStyle(const QString &name);
    /// Applies the style of the setting. The client calls it once its widgets exist.
    void setDefaultStyle();

    // Help, settings, cursors.

    /// A new action "Help..." for a topic, owned by the application; null while help is disabled.
    QAction *createShowHelpAction(const QString &topic);
    /// The general form with one pattern for what is shown.
    int propertyBrowser(
        const std::list<KxVariant *> &properties, const QRegularExpression &pattern, bool modal);

    /// Shows the wait cursor until notBusy(). Calls are to be paired; nothing counts them.
    static void busy();
    static void notBusy();
    /// Gives the arrow cursor back for as long as the handle is kept; nothing while no cursor is
    /// overridden.
    [[nodiscard]] static McHandle<ExTempCursorHandle> tempNotBusy();

    // Progress.

    /// Sets the progress display, null for none. Not owned.
    void setProgressInterface(McProgressInterface *progress);
    [[nodiscard]] McProgressInterface *progressInterface() const;
    /// The progress display, or one that shows nothing.
    static McProgressInterface &progress();

    // Running processes: workers that must finish before the application may close. Not owned.

    /// Adds a worker at the end, unless it is there.
    void addRunningProcess(ExWorker *worker);
    void removeRunningProcess(ExWorker *worker);
    bool runningProcessIsRegistered(ExWorker *worker);
    /// Replaces @p workers by all of them, in order.
    void runningProcesses(std::list<ExWorker *> &workers) const;

private:
    static ExApplication *sInstance;

    std::unique_ptr<Private> d;
};
