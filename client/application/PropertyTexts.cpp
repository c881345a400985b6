#include "client/application/PropertyTexts.h"

#include "platform/properties/KxTranslationProperty.h"

#include <QtGlobal>

namespace {

struct Row
{
    const char *key;
    const char *label;
};

/// Settings of the workstation and of what it stands on, and the groups that they are listed in.
constexpr Row rows[] = {
    {"UI", QT_TRANSLATE_NOOP("Property", "User interface")},
    {"UI.ColorScheme", QT_TRANSLATE_NOOP("Property", "Color Scheme")},
    {"UI.Language", QT_TRANSLATE_NOOP("Property", "Language (from the next start on)")},
    {"UI.MonitorDependent", QT_TRANSLATE_NOOP("Property", "Sizes on monitors")},
    {"General", QT_TRANSLATE_NOOP("Property", "General")},
    {"General.LoadIncompleteStudies", QT_TRANSLATE_NOOP("Property", "Load Incomplete Studies")},
    {"Session", QT_TRANSLATE_NOOP("Property", "Session")},
    {"Session.AutosaveSeconds",
        QT_TRANSLATE_NOOP("Property", "Seconds between automatic saves (0: none)")},
    {"Cine", QT_TRANSLATE_NOOP("Property", "Cine")},
    {"Cine.FramesPerSecond", QT_TRANSLATE_NOOP("Property", "Phases per second")},
};

} // namespace

void registerPropertyTexts()
{
    for (const Row &row : rows) {
        KxTranslationProperty::translate(row.key, row.label);
    }
}
