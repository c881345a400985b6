#include "platform/util/HxParamBundle.h"

HxParamBundle::~HxParamBundle() = default;

void HxParamBundle::set(const std::string &name, const std::string &value)
{
    m_values.insert_or_assign(name, value);
}

std::optional<std::string> HxParamBundle::find(const std::string &name) const
{
    const auto found = m_values.find(name);
    return found == m_values.end() ? std::nullopt : std::optional(found->second);
}
