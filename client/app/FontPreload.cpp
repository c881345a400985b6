#include "client/app/FontPreload.h"

#include <fontconfig/fontconfig.h>

FontPreload::FontPreload()
    : m_reader([] { FcInit(); }) // The toolkit finds it done, or waits for the rest.
{ }
