#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "platform/properties/KxEnum.h"

namespace Zel {

/// What the site allows with studies that are not complete: the values 27 to 29, registered by
/// these names. The setting "General.LoadIncompleteStudies" holds one.
class MOVARA_FRAMEWORK_EXPORT LoadIncompleteStudies final
    : public KxTypedEnum<LoadIncompleteStudies>
{
public:
    using KxTypedEnum::KxTypedEnum;
    static const char *context() { return "Enumeration.HxMovaraImportTab.LoadIncompleteStudies"; }
};

/// They are loaded when the user confirms it; calls from a partner's system count as such as well.
class MOVARA_FRAMEWORK_EXPORT LoadPartner final : public TypedEnumValue<LoadIncompleteStudies>
{
public:
    LoadPartner();
};

/// They are loaded when the user confirms it.
class MOVARA_FRAMEWORK_EXPORT LoadIfConfirmed final : public TypedEnumValue<LoadIncompleteStudies>
{
public:
    LoadIfConfirmed();
};

/// They are not loaded.
class MOVARA_FRAMEWORK_EXPORT LoadNever final : public TypedEnumValue<LoadIncompleteStudies>
{
public:
    LoadNever();
};

} // namespace Zel
