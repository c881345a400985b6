#pragma once

#include "client/session/SessionState.h"
#include "framework/notification/ExNotifiable.h"
#include "framework/session/ExSerializable.h"
#include "platform/util/McHandle.h"

#include <QCoreApplication>

class Workstation;

/// How viewers are linked, for a session. GUI thread only.
class LinksPart final : public ExSerializable
{
    Q_DECLARE_TR_FUNCTIONS(LinksPart)

public:
    explicit LinksPart(Workstation &workstation);
    ~LinksPart() override;

    [[nodiscard]] QString displayName() const override;
    [[nodiscard]] const char *persistentName() const override;
    void serialize(ExSessionData &session) override;
    /// The viewers must be those of the session already.
    void deserialize(ExSessionData &session) override;

    /// Links the viewers as the session did that was read last: a viewer that gets images joins
    /// the groups of its kind, and may have been in others. Does nothing any more once somebody
    /// else has changed links or the layout.
    void linkAgain();

private:
    Workstation &m_workstation;
    SessionState::Links m_links;
    bool m_isLinking = false;
    McHandle<ExNotifiable> m_watch;
};
