#pragma once

#include "framework/session/ExSessionData.h"

#include <QObject>
#include <QStringList>

class StudySession;

/// Opens a session: looks for its studies, then has all participants take back what is theirs.
/// Nothing is changed when none of the studies is there any more. GUI thread only.
class SessionRestore final : public QObject
{
    Q_OBJECT

public:
    explicit SessionRestore(StudySession &studies);

    /// Ends with finished(), at once or when the studies have been found; one that is still under
    /// way is given up. @param session sound (see SessionState::isSound()).
    void start(const ExSessionData &session);
    /// Ends one that is under way, and its search, with finished(); does nothing without one.
    void giveUp();
    /// Whether the user has ended the search for what is open before everything was found.
    [[nodiscard]] bool wasCancelled() const;
    /// Whether the studies of a session are being looked for.
    [[nodiscard]] bool isRunning() const { return m_isRunning; }

Q_SIGNALS:
    /// @param restored false when everything is as it was, or the user has closed or opened other
    /// studies, or another session, meanwhile. @param missing folders and files that are not there
    /// any more.
    void finished(bool restored, const QStringList &missing);

private:
    void finish(bool restored);

    StudySession &m_studies;
    ExSessionData m_session;
    QStringList m_paths;
    QStringList m_missing;
    bool m_isRunning = false;
};
