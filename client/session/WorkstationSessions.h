#pragma once

#include "client/session/Autosave.h"
#include "client/session/LinksPart.h"
#include "client/session/MeasurementsPart.h"
#include "client/session/SessionRestore.h"
#include "client/session/StudiesPart.h"
#include "client/session/ViewersPart.h"

#include <QObject>

#include <functional>
#include <memory>

class Workstation;

/// Saves and opens sessions of the workstation, and keeps an autosave of what is open. One in the
/// process, made after the main window and gone before it. GUI thread only.
class WorkstationSessions final : public QObject
{
    Q_OBJECT

public:
    explicit WorkstationSessions(Workstation &workstation);
    /// An orderly end: nothing is left to be restored.
    ~WorkstationSessions() override;

    /// Null when there is none.
    static WorkstationSessions *instancePointer();
    /// Where sessions are saved if the user does not say otherwise.
    static QString defaultFolder();

    /// @return why it failed and what can be done; empty on success.
    [[nodiscard]] QString save(const QString &file);
    /// Opens a session instead of what is open; finished() follows when it is there.
    /// @return why it cannot be opened, with nothing changed; empty when it is being opened.
    [[nodiscard]] QString open(const QString &file);
    /// Whether the studies of a session are being looked for: nothing else need be shown.
    [[nodiscard]] bool isRestoring() const { return m_restore.isRunning(); }
    /// The same of instancePointer(); false without one.
    [[nodiscard]] static bool isRestoringNow();
    /// What participants hold that is in no file, for the user; empty when there is nothing.
    [[nodiscard]] static QStringList unsaved();

    /// From now on saves automatically, in @p folder. Where a workstation has left something there
    /// that was not closed properly, asks the user whether to restore it.
    /// @param otherwise called when it is not restored, at once when there is nothing to ask; not
    /// when the user has cancelled that or opened something else meanwhile.
    void startAutosave(const QString &folder, const std::function<void()> &otherwise);

Q_SIGNALS:
    /// A session is open, or could not be opened. @param message what is missing, for the user;
    /// empty when nothing is.
    void finished(bool restored, const QString &message);
    /// @param problem for the user.
    void autosaveFailed(const QString &problem);

private:
    [[nodiscard]] ExSessionData take() const;
    [[nodiscard]] QString check(const QString &file, ExSessionData &session) const;
    void restored(bool isRestored, const QStringList &missingPaths);
    /// What is told of a session of which something is missing.
    [[nodiscard]] static QString message(
        const QStringList &missing, bool isRestored, bool isCutShort);
    void ask(const std::function<void()> &otherwise);
    void restoreLeft(const std::function<void()> &otherwise);
    /// @param left where the session comes from, when it was left by a crash, else null.
    void restore(const ExSessionData &session, std::unique_ptr<AutosaveSlot> left);

    StudiesPart m_studies;
    ViewersPart m_viewers;
    LinksPart m_links;
    MeasurementsPart m_measurements;
    SessionRestore m_restore;
    std::unique_ptr<AutosaveSlot> m_left; ///< until the user has decided
    std::unique_ptr<AutosaveSlot> m_restored; ///< until its session is open
    std::unique_ptr<Autosave> m_autosave;
};
