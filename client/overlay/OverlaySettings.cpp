#include "client/overlay/OverlaySettings.h"

#include "framework/notification/ExNotifiable.h"

namespace OverlaySettings {

namespace {

bool linesShown = true;
bool textsShown = true;

void set(bool &setting, bool value)
{
    if (setting != value) {
        setting = value;
        ExNotifiable::notify(ExNotification::GLOBAL_TOGGLE_CHANGED);
    }
}

} // namespace

bool referenceLines()
{
    return linesShown;
}

void setReferenceLines(bool shown)
{
    set(linesShown, shown);
}

bool cornerTexts()
{
    return textsShown;
}

void setCornerTexts(bool shown)
{
    set(textsShown, shown);
}

} // namespace OverlaySettings
