#pragma once

#include "platform/MovaraPlatformExport.h"

#include <string>
#include <string_view>

/// Splits a text at separator characters, one token a call. Empty tokens are skipped.
class MOVARA_PLATFORM_EXPORT McStringTokenizer
{
public:
    /// @param separators every character of it separates; by default blanks, tabs and line ends.
    explicit McStringTokenizer(std::string_view text, std::string_view separators = " \t\r\n");

    [[nodiscard]] bool hasMoreTokens() const;
    /// The next token, or an empty string when there is none.
    std::string nextToken();

private:
    void skipSeparators();

    std::string m_text;
    std::string m_separators;
    std::size_t m_position = 0;
};
