#pragma once

#include "framework/session/ExSerializable.h"

#include <QCoreApplication>

class PanelPlaces;

/// Where the panels are, for a session. A session that does not say so leaves them where
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
