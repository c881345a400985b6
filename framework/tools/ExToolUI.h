#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/notification/ExNotifiable.h"
#include "platform/util/McHandle.h"

#include <memory>

class ExBaseViewer;
class ExTool;
class QAction;

/// Binding of a tool to the user interface. Holds its tool, and updates itself when something of
/// the active viewer changes that decides whether the tool applies. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExToolUI : public ExNotifiable
{
public:
    ExToolUI();
    /// Lets the tool go.
    ~ExToolUI() override;

    void notified(const ExNotification &notification) override;
    void addNotifications() override;

    /// Whether the binding shows the tool as active.
    [[nodiscard]] virtual bool isActive() const = 0;
    /// Shows the tool's present state for a viewer; null for the active one.
    virtual void update(ExBaseViewer *viewer) = 0;
    /// The toolkit's action of the binding; null when it has none.
    [[nodiscard]] virtual QAction *action() const = 0;
    /// Binds another tool, null for none.
    virtual void setTool(ExTool *tool);

    /// The bound tool, or null.
    [[nodiscard]] ExTool *getTool() const { return m_tool; }

private:
    friend class ExToolGroup;

    McHandle<ExTool> m_tool;
    /// Owns nothing: tells the groups that point to this binding when it is gone. Made by the
    /// first.
    std::shared_ptr<ExToolUI> m_self;
};
