#include "sql/TextPattern.h"

namespace sql {

TextPattern::TextPattern(const UtCString& pattern)
    : m_isOpenAtBegin(pattern.StartsWith("%", false) || pattern.StartsWith("*", false)),
      m_isOpenAtEnd(pattern.EndsWith("%", false) || pattern.EndsWith("*", false)), m_pattern(pattern.trim("*%"))
{
}

bool TextPattern::Matches(const UtCString& text) const
{
    if (m_isOpenAtBegin && m_isOpenAtEnd)
        return text.Contains(m_pattern);
    if (m_isOpenAtEnd)
        return text.StartsWith(m_pattern, false);
    if (!m_isOpenAtBegin)
        return text == m_pattern;
    const int found = text.Search(0, m_pattern);
    return found >= 0 && found + m_pattern.GetLength() == text.GetLength();
}

} // namespace sql
