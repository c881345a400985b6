#include "platform/backend/KxServerPeer.h"

namespace {

KxServerPeer *installedPeer = nullptr;

} // namespace

KxServerPeer::~KxServerPeer()
{
    if (installedPeer == this) {
        installedPeer = nullptr;
    }
}

KxServerPeer *KxServerPeer::instance()
{
    return installedPeer;
}

void KxServerPeer::install(KxServerPeer *peer)
{
    installedPeer = peer;
}
