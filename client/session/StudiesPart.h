#pragma once

#include "framework/session/ExSerializable.h"

#include <QCoreApplication>

class StudySession;

/// The folders and files that were opened, for a session. They are opened again
/// before anybody else reads the session (see SessionRestore). GUI thread only.
class StudiesPart final : public ExSerializable
{
    Q_DECLARE_TR_FUNCTIONS(StudiesPart)

public:
    explicit StudiesPart(StudySession &studies);

    [[nodiscard]] QString displayName() const override;
    [[nodiscard]] const char *persistentName() const override;
    void serialize(ExSessionData &session) override;

private:
    StudySession &m_studies;
};
