#include "text/CodePoints.h"
#include "text/TextSearch.h"
#include "text/UtCString.h"
#include "text/UtCStringList.h"

#include <utility>

int UtCString::Tokenize(const UtCString& separator, UtCStringList& list) const noexcept
{
    UtCStringList pieces;
    size_t begin = 0;
    while (!separator.IsEmpty()) {
        const text::Match match = text::Find({View(), m_encoding}, begin, {separator.View(), separator.m_encoding},
                                             text::LetterCase::Exact);
        if (!match.IsFound())
            break;
        pieces.Add(Piece(begin, match.begin));
        begin = match.end;
    }
    pieces.Add(Piece(begin, m_size));
    list = std::move(pieces);
    return list.GetCount();
}

int UtCString::TokenizeNumeric(UtCStringList& list, long maximum) const noexcept
{
    static constexpr text::Tagged digits{"0123456789", UT_ENCODING_DEFAULT};
    UtCStringList runs;
    size_t at = 0;
    while (maximum < 0 || runs.GetCount() < maximum) {
        const size_t begin = text::FindOneOf({View(), m_encoding}, at, digits);
        if (begin == text::notFound)
            break;
        at = begin + text::LeadingEnd({View().substr(begin), m_encoding}, digits);
        runs.Add(Piece(begin, at));
    }
    list = std::move(runs);
    return list.GetCount();
}
