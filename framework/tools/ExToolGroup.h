#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "platform/util/McHandle.h"

#include <memory>
#include <vector>

class ExTool;
class ExToolUI;
class ExToolGroupPrivate;

/// Tools that belong together on the user interface. A group can make its tools exclusive of each
/// other, and can be shown as one button that stands for the tool activated last. Holds its tools;
/// they know their groups by plain pointer. A copy is the same group under another address: all
/// share members and flags, any may be destroyed first, and the last lets the members go. GUI
/// thread only.
class MOVARA_FRAMEWORK_EXPORT ExToolGroup
{
public:
    ExToolGroup();
    /// Another address of the same group.
    ExToolGroup(const ExToolGroup &other);
    /// Leaves the present group, as if destroyed, and becomes another address of @p other.
    ExToolGroup &operator=(const ExToolGroup &other);
    /// Lets the tools go, from the last to the first, unless a copy goes on holding them.
    virtual ~ExToolGroup();

    /// Adds a tool at the end. Nothing for null or a tool that is in the group, whose mark then
    /// stays.
    /// @param toolBarFixed whether the tool keeps a button of its own.
    void appendTool(ExTool *tool, bool toolBarFixed);
    /// Takes a tool out; its mark stays. Nothing for null or a tool that is not in the group.
    void removeTool(ExTool *tool);
    /// The members, in the order in which they came.
    [[nodiscard]] const std::vector<McHandle<ExTool>> &getTools() const;
    /// The first active member; an empty handle when none is.
    [[nodiscard]] McHandle<ExTool> getActiveTool() const;

    /// Whether a tool keeps a button of its own beside the group's; false for one without a mark.
    [[nodiscard]] bool getToolBarFixed(const ExTool &tool) const;
    /// Sets the mark of any tool, member or not.
    void setToolBarFixed(const ExTool &tool, bool fixed);

    /// Whether activating a member switches the others off. Off at first, like the two flags below.
    void setExclusive(bool exclusive);
    [[nodiscard]] bool getExclusive() const;
    /// Whether the group's button comes to stand for a member that is activated.
    void setBringUp(bool bringUp);
    [[nodiscard]] bool getBringUp() const;
    /// Whether the group's button opens its menu at once, rather than by an arrow beside it.
    void setUseInstantPopup(bool instant);
    [[nodiscard]] bool getUseInstantPopup() const;
    /// The binding that shows the group as one button; null at first, and when it is gone. Not
    /// owned.
    void setGroupUI(ExToolUI *ui);
    [[nodiscard]] ExToolUI *getGroupUI() const;

private:
    friend class ExToolGroupPrivate;

    static void know(ExTool &tool, ExToolGroup *group);
    static void forget(ExTool &tool, ExToolGroup *group);

    std::shared_ptr<ExToolGroupPrivate> d;
};
