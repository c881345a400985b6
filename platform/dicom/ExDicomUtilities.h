#pragma once

#include "platform/MovaraPlatformExport.h"

#include <string>
#include <string_view>

class HxParamBundle;

/// Small questions to DICOM attributes. Any thread; texts are UTF-8.
class MOVARA_PLATFORM_EXPORT ExDicomUtilities
{
public:
    /// The value of an attribute in a file's header bundle; several values are joined by
    /// backslashes. @param name like "G0010-0020"; the hexadecimal digits in either case.
    /// @return empty when the bundle has no such attribute.
    [[nodiscard]] static std::string findTag(const HxParamBundle &bundle, std::string_view name);
    /// The name of an attribute in bundles, e.g. "G0008-103E".
    [[nodiscard]] static std::string tagName(unsigned group, unsigned element);
    /// A person name for people to read, "Family, Given Middle", from the form with carets. Of the
    /// alphabetic, ideographic and phonetic spelling the first that is not empty.
    [[nodiscard]] static std::string displayName(std::string_view personName);
    /// A date for people to read, "2024-03-09" from "20240309"; any other text as it is.
    [[nodiscard]] static std::string displayDate(std::string_view date);
};
