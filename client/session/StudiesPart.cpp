#include "client/session/StudiesPart.h"

#include "client/loading/StudySession.h"
#include "client/session/SessionState.h"

StudiesPart::StudiesPart(StudySession &studies)
    : m_studies(studies)
{ }

QString StudiesPart::displayName() const
{
    return tr("Studies");
}

const char *StudiesPart::persistentName() const
{
    return SessionState::Studies::name;
}

void StudiesPart::serialize(ExSessionData &session)
{
    const SessionState::Studies studies{m_studies.paths()};
    session.setBlock(QString::fromLatin1(persistentName()), studies.toBytes());
}
