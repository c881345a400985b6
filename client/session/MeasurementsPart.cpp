#include "client/session/MeasurementsPart.h"

#include "client/measurements/MeasurementList.h"
#include "client/session/SessionState.h"

#include <algorithm>
#include <iterator>

MeasurementsPart::MeasurementsPart(MeasurementList &list)
    : m_list(list)
    , m_saved(current())
{ }

QString MeasurementsPart::displayName() const
{
    return tr("Measurements");
}

const char *MeasurementsPart::persistentName() const
{
    return SessionState::Measurements::name;
}

QByteArray MeasurementsPart::current() const
{
    SessionState::Measurements measurements;
    std::copy_if(m_list.all().begin(), m_list.all().end(), std::back_inserter(measurements.all),
        [](const Measurement &each) { return each.isComplete; });
    return measurements.toBytes();
}

void MeasurementsPart::serialize(ExSessionData &session)
{
    session.setBlock(QString::fromLatin1(persistentName()), current());
}

void MeasurementsPart::deserialize(ExSessionData &session)
{
    const auto read = SessionState::Measurements::fromBytes(
        session.block(QString::fromLatin1(persistentName())));
    if (read) {
        m_list.replaceAll(read->all);
    }
}

bool MeasurementsPart::unsavedData() const
{
    return !m_list.all().empty() && current() != m_saved;
}
