#pragma once

#include "platform/MovaraPlatformExport.h"

#include <string>

/// The rendering server on whose behalf the client runs, when there is one. A client that has one
/// derives from this class and installs its object. GUI thread only.
class MOVARA_PLATFORM_EXPORT KxServerPeer
{
public:
    KxServerPeer() = default;
    KxServerPeer(const KxServerPeer &) = delete;
    KxServerPeer &operator=(const KxServerPeer &) = delete;
    /// An installed peer that is destroyed is uninstalled by that.
    virtual ~KxServerPeer();

    /// The installed peer, or null.
    static KxServerPeer *instance();
    /// Installs @p peer, which stays the caller's; null for none.
    static void install(KxServerPeer *peer);

    /// Writes a line to the server's log of this session: @p prefix, e.g. "[ToolLog] ", directly
    /// followed by @p text.
    virtual void printSessionLog(const std::string &prefix, const std::string &text) = 0;
};
