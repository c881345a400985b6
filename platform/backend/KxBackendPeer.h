#pragma once

#include "platform/MovaraPlatformExport.h"

#include <QString>

#include <string>

/// What the client tells its back end: why it quits, and events worth an audit. This class keeps
/// the reason and appends the events to KxAuditFile::defaultFileName(); a client with a back end of
/// its own derives from it. GUI thread only.
class MOVARA_PLATFORM_EXPORT KxBackendPeer
{
public:
    KxBackendPeer();
    KxBackendPeer(const KxBackendPeer &) = delete;
    KxBackendPeer &operator=(const KxBackendPeer &) = delete;
    /// An installed peer that is destroyed is uninstalled by that.
    virtual ~KxBackendPeer();

    /// The peer in use: the installed one, else the built-in one. Never null.
    static KxBackendPeer *instance();
    /// Puts @p peer, which stays the caller's, in place of the built-in one; null puts the built-in
    /// one back.
    static void install(KxBackendPeer *peer);

    /// Records why the client is about to quit, e.g. "userlogout"; the last reason counts.
    virtual void setReasonToQuit(const std::string &reason);
    /// The reason recorded; empty when there is none.
    [[nodiscard]] const std::string &reasonToQuit() const { return m_reasonToQuit; }

    /// Reports an event. A line of the audit file has the members "time" (UTC), "process" (its id),
    /// "event" (@p code), "key", "arguments" (the three numbers) and, when it is not empty, "text".
    /// @param key what the event is about, e.g. a tool's decoration key; UTF-8.
    virtual void logEvent(
        int code, const std::string &key, int first, int second, int third, const QString &text);

private:
    std::string m_reasonToQuit;
};
