#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "platform/properties/KxEnum.h"

/// What of the use of tools is logged: the values 20 to 22, registered by these names.
class MOVARA_FRAMEWORK_EXPORT LogEnableType final : public KxTypedEnum<LogEnableType>
{
public:
    using KxTypedEnum::KxTypedEnum;
    static constexpr const char *context() { return "Enumeration.LogEnableType"; }
    /// The value also stands for its number.
    constexpr operator int() const { return value(); }

    /// Nothing.
    static const LogEnableType LET_NO;
    /// A tool's first use, until ExToolLogger::clearReportedTools().
    static const LogEnableType LET_ONCE_PER_STUDY;
    /// Every use.
    static const LogEnableType LET_ALWAYS;
};

inline constexpr LogEnableType LogEnableType::LET_NO(20);
inline constexpr LogEnableType LogEnableType::LET_ONCE_PER_STUDY(21);
inline constexpr LogEnableType LogEnableType::LET_ALWAYS(22);
