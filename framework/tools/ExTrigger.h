#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/tools/ExTool.h"

/// A tool that runs a command instead of, or besides, holding a state. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExTrigger : public ExTool
{
public:
    /// An activatable trigger: it holds a state, and runs its command on each change of it.
    explicit ExTrigger(const char *name);
    ~ExTrigger() override;

    [[nodiscard]] bool isActivatable() const override;
    /// A trigger that is not activatable has no state: it runs its command whenever it is
    /// activated.
    void setActivatable(bool activatable);

    /// Runs the command on the active viewer when there is something to do: a change of state, or,
    /// without a state, an activation. False when the command failed.
    bool setActive(bool on) override;
    /// The command.
    /// @param viewer the active viewer, may be null. @param on whether the trigger was switched on
    /// or off.
    /// @return whether it was carried out.
    virtual bool process(ExBaseViewer *viewer, bool on) = 0;

private:
    bool m_activatable = true;
};
