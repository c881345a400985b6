#include "framework/loading/LoadIncompleteStudies.h"

#include <QtGlobal>

namespace Zel {

LoadPartner::LoadPartner()
    : TypedEnumValue(27, "LoadPartner",
        QT_TRANSLATE_NOOP("Enumeration.HxMovaraImportTab.LoadIncompleteStudies",
            "Load If Confirmed, Partnering on OEM Calls"))
{ }

LoadIfConfirmed::LoadIfConfirmed()
    : TypedEnumValue(28, "LoadIfConfirmed",
        QT_TRANSLATE_NOOP(
            "Enumeration.HxMovaraImportTab.LoadIncompleteStudies", "Load If Confirmed"))
{ }

LoadNever::LoadNever()
    : TypedEnumValue(29, "LoadNever",
        QT_TRANSLATE_NOOP("Enumeration.HxMovaraImportTab.LoadIncompleteStudies", "Never"))
{ }

namespace {

const RegEnumValue<LoadPartner> RegLoadPartner;
const RegEnumValue<LoadIfConfirmed> RegLoadIfConfirmed;
const RegEnumValue<LoadNever> RegLoadNever;

} // namespace

} // namespace Zel
