#pragma once

#include "framework/session/ExSerializable.h"

#include <QByteArray>
#include <QCoreApplication>

class MeasurementList;

/// The measurements, for a session. GUI thread only.
class MeasurementsPart final : public ExSerializable
{
    Q_DECLARE_TR_FUNCTIONS(MeasurementsPart)

public:
    explicit MeasurementsPart(MeasurementList &list);

    [[nodiscard]] QString displayName() const override;
    [[nodiscard]] const char *persistentName() const override;
    void serialize(ExSessionData &session) override;
    void deserialize(ExSessionData &session) override;
    /// Whether there are measurements that are not as they were when setSaved() was called last.
    [[nodiscard]] bool unsavedData() const override;
    /// The present measurements are in a file of the user's.
    void setSaved() { m_saved = current(); }

private:
    [[nodiscard]] QByteArray current() const;

    MeasurementList &m_list;
    QByteArray m_saved;
};
