#pragma once

#include "text/UtCString.h"

namespace sql {

/// A search text with wildcards, "%" or "*", at its ends, to be compared with texts in lower case.
///
/// Without a wildcard a text matches that equals the pattern; with one at the end, a text that begins with it in any
/// letter case; with one at each end, a text that contains it; with one at the beginning only, a text in which the
/// first occurrence of the pattern stands at the very end: "aba" does not end with "a". All "%" and "*" at both ends
/// belong to the wildcards.
class TextPattern
{
public:
    explicit TextPattern(const UtCString& pattern);

    bool Matches(const UtCString& text) const;

private:
    bool m_isOpenAtBegin;
    bool m_isOpenAtEnd;
    UtCString m_pattern;
};

} // namespace sql
