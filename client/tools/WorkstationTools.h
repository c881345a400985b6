#pragma once

#include "framework/tools/ExTrigger.h"

class WorkSession;
class WorkstationViewer;

/// Bases of the workstation's commands and switches. A tool derives from one of them, says what it
/// does, and makes itself known with a ToolModule.

/// A command that concerns the application as a whole; it can always be used.
class ApplicationCommand : public ExTrigger
{
public:
    explicit ApplicationCommand(const char *key);

    [[nodiscard]] bool supportsViewer(const ExBaseViewer *viewer) const override;
    bool process(ExBaseViewer *viewer, bool on) override;

protected:
    virtual void run(WorkSession &session) = 0;
};

/// Something of the application as a whole that is on or off, whoever switches it.
class ApplicationSwitch : public ExTrigger
{
public:
    explicit ApplicationSwitch(const char *key);

    [[nodiscard]] bool supportsViewer(const ExBaseViewer *viewer) const override;
    [[nodiscard]] bool isActive() const override;
    bool process(ExBaseViewer *viewer, bool on) override;

protected:
    [[nodiscard]] virtual bool isOn() const = 0;
    virtual void set(bool on) = 0;
};

/// A command on the active viewer; it can be used while that shows an image.
class ViewerCommand : public ExTrigger
{
public:
    explicit ViewerCommand(const char *key);

    bool process(ExBaseViewer *viewer, bool on) override;

protected:
    virtual void run(WorkstationViewer &viewer) = 0;
};

/// Something of each viewer that is on or off, whoever switches it: shown and switched for the
/// active one, while that shows an image.
class ViewerSwitch : public ExTrigger
{
public:
    explicit ViewerSwitch(const char *key);

    [[nodiscard]] bool isActive() const override;
    bool process(ExBaseViewer *viewer, bool on) override;

protected:
    [[nodiscard]] virtual bool isOn(const WorkstationViewer &viewer) const = 0;
    virtual void set(WorkstationViewer &viewer, bool on) = 0;
};
