#include "platform/toolkit/QxDom.h"

int QxDom::qStringToBool(const QString &text)
{
    if (text == QLatin1String("true")) {
        return 1;
    }
    return text == QLatin1String("false") ? 0 : -1;
}
