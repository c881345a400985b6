#include "client/session/SessionRestore.h"

#include "client/loading/StudySession.h"
#include "client/session/SessionState.h"
#include "framework/session/ExSerializable.h"

#include <QFileInfo>

SessionRestore::SessionRestore(StudySession &studies)
    : m_studies(studies)
{
    connect(&studies, &StudySession::scanned, this, [this] {
        if (m_isRunning) {
            finish(true);
        }
    });
    connect(&studies, &StudySession::nothingFound, this, [this](const auto &result) {
        if (m_isRunning) {
            m_missing = result.wasCancelled ? QStringList() : m_missing + m_paths;
            finish(false);
        }
    });
    connect(&studies, &StudySession::scanGivenUp, this, [this] {
        if (m_isRunning) {
            m_missing.clear(); // The user wants to see something else now.
            finish(false);
        }
    });
}

void SessionRestore::start(const ExSessionData &session)
{
    const auto studies = SessionState::Studies::fromBytes(
        session.block(QString::fromLatin1(SessionState::Studies::name)));
    giveUp();
    m_session = session;
    m_paths.clear();
    m_missing.clear();
    for (const QString &path : studies ? studies->paths : QStringList()) {
        (QFileInfo::exists(path) ? m_paths : m_missing) += path;
    }
    if (!m_paths.isEmpty()) {
        m_studies.open(m_paths);
        m_isRunning = true;
    } else if (!m_missing.isEmpty()) {
        finish(false);
    } else {
        m_studies.close();
        finish(true);
    }
}

void SessionRestore::giveUp()
{
    if (m_isRunning) {
        m_studies.giveUpScan();
    }
}

bool SessionRestore::wasCancelled() const
{
    return m_studies.found().wasCancelled;
}

void SessionRestore::finish(bool restored)
{
    if (restored) {
        McDArray<ExSerializable *> participants;
        ExSerializable::instances(participants);
        for (ExSerializable *participant : participants) {
            participant->deserialize(m_session);
        }
    }
    m_isRunning = false;
    Q_EMIT finished(restored, m_missing);
}
