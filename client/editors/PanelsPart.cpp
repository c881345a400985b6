#include "client/editors/PanelsPart.h"

#include "client/editors/PanelPlaces.h"
#include "framework/session/ExSessionData.h"

PanelsPart::PanelsPart(PanelPlaces &places)
    : m_places(places)
{ }

QString PanelsPart::displayName() const
{
    return tr("Panels");
}

const char *PanelsPart::persistentName() const
{
    return "Panels";
}

void PanelsPart::serialize(ExSessionData &session)
{
    session.setBlock(QString::fromLatin1(persistentName()), m_places.layout());
}

void PanelsPart::deserialize(ExSessionData &session)
{
    const QString name = QString::fromLatin1(persistentName());
    if (session.contains(name)) {
        m_places.setLayout(session.block(name));
    }
}
