#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/util/McHandableThreaded.h"

#include <map>
#include <optional>
#include <string>

/// Named text values of one file: its header attributes, keyed like "G0010-0020" (group and
/// element, hexadecimal). Values are UTF-8. Filled once, then only read, in any thread.
class MOVARA_PLATFORM_EXPORT HxParamBundle : public McHandableThreaded
{
public:
    /// Sets the value of @p name, replacing an earlier one.
    void set(const std::string &name, const std::string &value);
    /// The value of @p name, or nothing when the bundle has none.
    [[nodiscard]] std::optional<std::string> find(const std::string &name) const;
    [[nodiscard]] int size() const { return static_cast<int>(m_values.size()); }
    /// All values in name order.
    [[nodiscard]] const std::map<std::string, std::string> &values() const { return m_values; }

protected:
    ~HxParamBundle() override;

private:
    std::map<std::string, std::string> m_values;
};
