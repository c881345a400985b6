#pragma once

#include "framework/session/ExSerializable.h"

#include <QCoreApplication>

class PanelPlaces;

/// The part of a session that says where the panels are. A session without it leaves them where
/// they are. GUI thread only.
class PanelsPart final : public ExSerializable
{
    Q_DECLARE_TR_FUNCTIONS(PanelsPart)

public:
    explicit PanelsPart(PanelPlaces &places);

    [[nodiscard]] QString displayName() const override;
    [[nodiscard]] const char *persistentName() const override;
    void serialize(ExSessionData &session) override;
    void deserialize(ExSessionData &session) override;

private:
    PanelPlaces &m_places;
};
