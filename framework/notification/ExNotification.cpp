#include "framework/notification/ExNotification.h"

#include <array>

namespace {

#define MOVARA_NAME(name, number) #name,
constexpr std::array typeNames{MOVARA_NOTIFICATION_TYPES(MOVARA_NAME)};
#undef MOVARA_NAME

#define MOVARA_NUMBER(name, number) number,
constexpr std::array typeNumbers{MOVARA_NOTIFICATION_TYPES(MOVARA_NUMBER)};
#undef MOVARA_NUMBER

constexpr bool numbersAreConsecutive()
{
    for (int i = 0; i < static_cast<int>(typeNumbers.size()); ++i) {
        if (typeNumbers[static_cast<std::size_t>(i)] != ExNotification::firstType + i) {
            return false;
        }
    }
    return true;
}

static_assert(numbersAreConsecutive(), "types double as sensor indices: they have no gaps");
static_assert(typeNumbers.back() == ExNotification::lastType);

constexpr bool isInRange(ExNotification::Type type)
{
    return type >= ExNotification::firstType && type <= ExNotification::lastType;
}

constexpr bool concernsOneViewer(ExNotification::Type type)
{
    return (type >= ExNotification::VOLUME_LOADED
               && type <= ExNotification::VIEWER_DETACHED_FROM_GROUP)
        || type == ExNotification::ACTIVE_VIEWER_CHANGED;
}

} // namespace

bool ExNotification::isValid() const
{
    return isInRange(m_type) && (m_viewer != nullptr || !concernsOneViewer(m_type));
}

const char *ExNotification::Type2String(Type type)
{
    return typeNames[static_cast<std::size_t>((isInRange(type) ? type : NONE) - firstType)];
}
