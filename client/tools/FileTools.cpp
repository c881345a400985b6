#include "client/app/WorkSession.h"
#include "client/application/WorkstationApplication.h"
#include "client/loading/LoadGate.h"
#include "client/tools/WorkstationTools.h"
#include "framework/tools/ToolModule.h"

namespace {

class OpenFolder final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession &session) override { session.askForFolder(); }
};

class CloseStudies final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession &session) override
    {
        session.giveUpSample();
        session.workstation().session().close();
    }
};

class LockPatient final : public ApplicationSwitch
{
public:
    using ApplicationSwitch::ApplicationSwitch;

    /// A lock outlasts its patient's studies, and can be lifted then, too.
    [[nodiscard]] bool isEnabled(const ExBaseViewer * /*viewer*/) const override
    {
        return isOn() || LoadGate::canLockPatient();
    }

protected:
    [[nodiscard]] bool isOn() const override { return LoadGate::isPatientLocked(); }
    void set(bool on) override
    {
        if (Workstation *const workstation = WorkstationApplication::instance().workstation()) {
            workstation->gate().setPatientLocked(on);
        }
    }
};

class Quit final : public ApplicationCommand
{
public:
    using ApplicationCommand::ApplicationCommand;

protected:
    void run(WorkSession &session) override { session.quit(); }
};

const ToolModule openFolder(
    {
        .key = "File.OpenFolder",
        .category = QT_TRANSLATE_NOOP("Tools", "File"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Open folder…"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Look for DICOM files in a folder"),
        .description = QT_TRANSLATE_NOOP("Tools",
            "Subfolders are looked through too. The largest series found is shown in all viewers."),
        .icon = "open-folder",
        .shortCut = "Ctrl+O",
    },
    [](int) -> ExTool * { return new OpenFolder("File.OpenFolder"); });

const ToolModule closeStudies(
    {
        .key = "File.Close",
        .category = QT_TRANSLATE_NOOP("Tools", "File"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Close"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Close all studies"),
        .icon = "close",
        .shortCut = "Ctrl+W",
    },
    [](int) -> ExTool * { return new CloseStudies("File.Close"); });

const ToolModule lockPatient(
    {
        .key = "File.LockPatient",
        .category = QT_TRANSLATE_NOOP("Tools", "File"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Lock patient"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Open only studies of the patients who are open now"),
        .description = QT_TRANSLATE_NOOP("Tools",
            "The lock holds until it is switched off, also when the studies are closed. Patients "
            "are told apart by their ID: one without, or with a single character, cannot be "
            "locked."),
        .icon = "lock-patient",
    },
    [](int) -> ExTool * { return new LockPatient("File.LockPatient"); });

const ToolModule quit(
    {
        .key = "File.Quit",
        .category = QT_TRANSLATE_NOOP("Tools", "File"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Quit"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "End the workstation"),
        .icon = "quit",
        .shortCut = "Ctrl+Q",
    },
    [](int) -> ExTool * { return new Quit("File.Quit"); });

} // namespace
