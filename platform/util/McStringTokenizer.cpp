#include "platform/util/McStringTokenizer.h"

#include <algorithm>

McStringTokenizer::McStringTokenizer(std::string_view text, std::string_view separators)
    : m_text(text)
    , m_separators(separators)
{
    skipSeparators();
}

bool McStringTokenizer::hasMoreTokens() const
{
    return m_position < m_text.size();
}

std::string McStringTokenizer::nextToken()
{
    const std::size_t end = std::min(m_text.find_first_of(m_separators, m_position), m_text.size());
    std::string token = m_text.substr(m_position, end - m_position);
    m_position = end;
    skipSeparators();
    return token;
}

void McStringTokenizer::skipSeparators()
{
    m_position = std::min(m_text.find_first_not_of(m_separators, m_position), m_text.size());
}
