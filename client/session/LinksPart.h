#pragma once

#include "client/session/SessionState.h"
#include "framework/session/ExSerializable.h"

#include <QCoreApplication>

class Workstation;

/// How viewers are linked, for a session. GUI thread only.
class LinksPart final : public ExSerializable
{
    Q_DECLARE_TR_FUNCTIONS(LinksPart)

public:
    explicit LinksPart(Workstation &workstation);

    [[nodiscard]] QString displayName() const override;
    [[nodiscard]] const char *persistentName() const override;
    void serialize(ExSessionData &session) override;
    /// The viewers must be those of the session already.
    void deserialize(ExSessionData &session) override;

    /// Links the viewers as the session did that was read last: a viewer that gets images joins
    /// the groups of its kind, and may have been in others.
    void linkAgain();
    /// From now on linkAgain() does nothing.
    void forget() { m_links = {}; }

private:
    Workstation &m_workstation;
    SessionState::Links m_links;
};
