#pragma once

#include "framework/session/ExSessionData.h"

#include <QByteArray>
#include <QString>

/// The file of a saved session: a header with mark, format version, length and check sum, then the
/// blocks of the participants. docs/session-file.md describes it byte by byte. Any thread.
namespace SessionFile {

/// Without the dot.
inline constexpr char suffix[] = "movara-session";

/// What a file is to hold.
[[nodiscard]] QByteArray toBytes(const ExSessionData &session);
/// @param session filled on success only. @return why the bytes are no session, for the user: what
/// is wrong and what can be done; empty on success.
[[nodiscard]] QString fromBytes(const QByteArray &bytes, ExSessionData &session);

/// Writes @p file, for its owner only, at once or not at all: when it fails, an earlier file is as
/// it was. @return why it failed and what can be done; empty on success.
[[nodiscard]] QString write(const QString &file, const QByteArray &bytes);
/// @param session filled on success only. @return as of fromBytes().
[[nodiscard]] QString read(const QString &file, ExSessionData &session);

} // namespace SessionFile
