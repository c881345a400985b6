#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/notification/ExNotifiable.h"
#include "framework/tools/ExDelayedInitializer.h"
#include "framework/viewers/Ex.h"

#include <QList>
#include <QRegularExpression>

#include <string>
#include <vector>

class ExBaseViewer;
class ExToolGroup;
class ExToolUI;
struct ExHotKeyEvent;

/// Base of every tool: a named object that is active or not, decides for each viewer whether it
/// applies, is shown through any number of user-interface bindings and may belong to any number of
/// groups. Its name, the decoration key, finds it in the registries, its texts and icon, its
/// shortcut and the user's right to it. Held by McHandle. GUI thread only, but for the reference
/// count. No operation throws or logs.
class MOVARA_FRAMEWORK_EXPORT ExTool : public ExNotifiable, public ExDelayedInitializer<ExTool>
{
public:
    using Factory = ExTool *(*)(int argument);

    /// Enters the tool in the registry of live tools, unless its name is taken there, and a name
    /// without a factory in that of the factories. @param name null counts as empty.
    explicit ExTool(const char *name);
    /// Leaves the registry of live tools. Whoever holds a plain pointer to the tool must have let
    /// it go before.
    ~ExTool() override;
    ExTool(const ExTool &) = delete;
    ExTool &operator=(const ExTool &) = delete;

    /// The name; never null, and of no meaning but the tool's.
    [[nodiscard]] const char *decorationKey() const { return m_decorationKey.c_str(); }

    /// The base does nothing.
    void notified(const ExNotification &notification) override;

protected:
    /// Whether the tool works with viewers of this type. The base says yes.
    [[nodiscard]] virtual bool supports(Ex::ViewerType type) const;

public:
    /// Whether the tool applies to a viewer: by default, when the viewer has a primary image set
    /// with a volume that it accepts, and the tool supports the viewer's type. False for null.
    [[nodiscard]] virtual bool supportsViewer(const ExBaseViewer *viewer) const;
    /// Whether the tool is one that something always takes the place of, like scrolling: the user
    /// leaves it only by choosing another. The base says no.
    [[nodiscard]] virtual bool isStandard() const;
    /// Whether the tool may be used with a viewer (may be null) now. By default, whether it
    /// supports the viewer.
    [[nodiscard]] virtual bool isEnabled(const ExBaseViewer *viewer) const;
    /// Whether the tool has a state to be switched, rather than a command to be run. The base says
    /// yes.
    [[nodiscard]] virtual bool isActivatable() const;
    [[nodiscard]] virtual bool isActive() const;
    /// Switches the tool, and refreshes its user interface also when there was nothing to switch.
    /// Becoming active brings the tool up on the buttons of its groups and switches the others of
    /// its exclusive groups off.
    /// @return false when the tool is not activatable.
    virtual bool setActive(bool on);
    /// The tool's shortcut was pressed: switches an activatable tool over, runs any other, and logs
    /// the use.
    /// @return false when the tool does not support the viewer.
    virtual bool onHotKey(const ExHotKeyEvent &event);
    /// Whether the tool's shortcut is its alone. The base says yes.
    [[nodiscard]] virtual bool isHotKeyGlobal() const;
    /// Whether a click that activates a viewer is not to reach the tool as well. The base says no.
    [[nodiscard]] virtual bool needsExclusiveClickForActivation() const;
    /// The button and modifier bits (Kx::ButtonState) that drive the tool; 0 for none, as in the
    /// base.
    [[nodiscard]] virtual int stateForUse() const;

    /// The first binding, or null.
    [[nodiscard]] ExToolUI *getUI() const;
    /// All bindings, in the order in which they came; not owned.
    [[nodiscard]] const std::vector<ExToolUI *> &getUIs() const { return m_uis; }
    /// Has every binding update itself for a viewer; null for the active one.
    void updateUI(ExBaseViewer *viewer) const;
    /// Has the button of every group show this tool, where the group brings up its tools and the
    /// tool has no button of its own.
    void bringUpUI() const;

    /// Patterns of the keys of the settings that belong to this tool.
    [[nodiscard]] const QList<QRegularExpression> &getPropertyKeys() const
    {
        return m_propertyKeys;
    }
    void setPropertyKeys(const QList<QRegularExpression> &keys) { m_propertyKeys = keys; }
    void addPropertyKey(const QRegularExpression &key);
    /// Adds a wildcard pattern (QxWildcard), which regards case.
    void addPropertyKey(const std::string &wildcard);

    /// Sets what makes the tool with this key on demand; null and empty keys are ignored.
    /// @param argument handed to the factory. @param isMenuTool whether the tool is offered in
    /// menus.
    static void registerTool(const char *key, Factory factory, int argument, bool isMenuTool);
    /// The live tool with this key, or a new one when it is to be created and a factory is there;
    /// else null. Outdated keys are renamed first. A tool that the user has no right to is never
    /// found.
    static ExTool *getToolByDecorationKey(const char *key, bool create);
    /// Whether the tool was registered as a menu tool.
    static bool isMenuTool(const char *key);
    /// Changes that for a key that has an entry.
    static void setMenuTool(const char *key, bool isMenuTool);
    /// Fills @p keys with the keys of the factories, ascending. @param all also those that the user
    /// has no right to.
    static void getDecorationKeyList(std::vector<std::string> &keys, bool all);
    /// Writes the keys of all live tools to "MovaraTools.txt" in the current directory.
    static void dumpTools();
    /// The start-up callbacks of tools.
    static QList<void (*)()> &initCallbackList();

protected:
    /// Switches off the other tools of this tool's exclusive groups.
    void checkExclusiveGroups();

    void appendUI(ExToolUI *ui);
    void removeUI(ExToolUI *ui);
    void appendGroup(ExToolGroup *group);
    void removeGroup(ExToolGroup *group);

private:
    friend class ExToolGroup;
    friend class ExToolUI;

    std::vector<ExToolUI *> m_uis;
    std::vector<ExToolGroup *> m_groups;
    bool m_active = false;
    std::string m_decorationKey;
    QList<QRegularExpression> m_propertyKeys;
};
