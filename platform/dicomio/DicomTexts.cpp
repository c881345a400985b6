#include "platform/dicomio/DicomTexts.h"

#include <algorithm>

std::string joinedText(const std::vector<std::string> &parts)
{
    constexpr std::size_t most = 8;
    std::string text;
    for (std::size_t i = 0; i < std::min(parts.size(), most); ++i) {
        text.append(i == 0 ? "" : ", ").append(parts[i]);
    }
    const std::size_t others = parts.size() - std::min(parts.size(), most);
    return others > 0 ? text + " and " + std::to_string(others) + " more" : text;
}
