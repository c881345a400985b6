#include "platform/dicom/ExDicomUtilities.h"

#include "platform/util/HxParamBundle.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

namespace {

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// Hexadecimal digits of attribute names are kept in capitals.
std::string normalized(std::string_view name)
{
    std::string result(name);
    std::transform(result.begin(), result.end(), result.begin(),
        [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return result;
}

/// One spelling of a name: family^given^middle^prefix^suffix.
std::string displaySpelling(std::string_view spelling)
{
    const std::vector<std::string_view> parts = split(spelling, '^');
    std::string given;
    for (std::size_t i = 1; i < std::min<std::size_t>(parts.size(), 3); ++i) {
        const std::string_view part = trimmed(parts[i]);
        if (!part.empty()) {
            given.append(given.empty() ? "" : " ").append(part);
        }
    }
    const std::string family(trimmed(parts.front()));
    if (family.empty() || given.empty()) {
        return family + given;
    }
    return family + ", " + given;
}

} // namespace

std::string ExDicomUtilities::findTag(const HxParamBundle &bundle, std::string_view name)
{
    return bundle.find(normalized(name)).value_or(std::string());
}

std::string ExDicomUtilities::tagName(unsigned group, unsigned element)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "G%04X-%04X", group & 0xffffU, element & 0xffffU);
    return text.data();
}

std::string ExDicomUtilities::displayName(std::string_view personName)
{
    for (const std::string_view spelling : split(personName, '=')) {
        std::string text = displaySpelling(spelling);
        if (!text.empty()) {
            return text;
        }
    }
    return {};
}

std::string ExDicomUtilities::displayDate(std::string_view date)
{
    const bool isDate = date.size() == 8
        && std::all_of(date.begin(), date.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!isDate) {
        return std::string(date);
    }
    return std::string(date.substr(0, 4))
        .append("-")
        .append(date.substr(4, 2))
        .append("-")
        .append(date.substr(6));
}
