#include "client/viewers/DisplayProbe.h"

#include <xcb/xcb.h>

bool hasXDisplay()
{
    static const bool answers = [] {
        xcb_connection_t *const connection = xcb_connect(nullptr, nullptr);
        const bool isConnected = xcb_connection_has_error(connection) == 0;
        xcb_disconnect(connection);
        return isConnected;
    }();
    return answers;
}
