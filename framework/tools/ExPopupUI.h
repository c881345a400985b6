#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/tools/ExActionUI.h"

/// Action of the button that shows a group of tools: it stands for the current member, and its menu
/// holds all. The button can always be pressed; where the current tool cannot be used, it opens the
/// menu. Owned like every ExActionUI. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExPopupUI : public ExActionUI
{
    Q_OBJECT

public:
    /// A new action that stands for @p tool.
    static ExPopupUI *create(ExTool &tool);

    /// Shows the current tool's icon, greyed where the tool is not enabled for the viewer, and
    /// otherwise its state. Null for the active viewer. The action stays enabled.
    void update(ExBaseViewer *viewer) override;

protected:
    ExPopupUI();

    void actionToggled(bool on) override;
    void actionTriggered(bool on) override;
    /// Whether there is no current tool, or none that supports the active viewer.
    [[nodiscard]] virtual bool isToolUnusable() const;

private:
    void openMenuInstead();
};
