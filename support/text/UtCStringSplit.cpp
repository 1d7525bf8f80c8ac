#include "text/CodePoints.h"
#include "text/TextSearch.h"
#include "text/UtCString.h"
#include "text/UtCStringList.h"

#include <utility>

namespace {

/// Hands the pieces over, all of them or, when memory ran out, none.
int HandOver(UtCStringList& pieces, bool isComplete, UtCStringList& list) noexcept
{
    if (!isComplete)
        pieces.Clear();
    list = std::move(pieces);
    return list.GetCount();
}

bool AddPiece(UtCStringList& pieces, const UtCString& text, size_t begin, size_t end) noexcept
{
    const std::string_view bytes = text.View().substr(begin, end - begin);
    const UtCString piece(bytes, text.GetEncodingType());
    return piece.GetByteLength() == bytes.size() && pieces.Add(piece);
}

} // namespace

int UtCString::Tokenize(const UtCString& separator, UtCStringList& list) const noexcept
{
    UtCStringList pieces;
    bool isComplete = true;
    size_t begin = 0;
    while (isComplete && !separator.IsEmpty()) {
        const text::Match match =
            text::Find({View(), m_encoding}, begin, {separator.View(), separator.m_encoding}, text::LetterCase::Exact);
        if (!match.IsFound())
            break;
        isComplete = AddPiece(pieces, *this, begin, match.begin);
        begin = match.end;
    }
    isComplete = isComplete && AddPiece(pieces, *this, begin, m_size);
    return HandOver(pieces, isComplete, list);
}

int UtCString::TokenizeNumeric(UtCStringList& list, long maximum) const noexcept
{
    static constexpr text::Tagged digits{"0123456789", UT_ENCODING_DEFAULT};
    UtCStringList runs;
    bool isComplete = true;
    size_t at = 0;
    while (isComplete && (maximum < 0 || runs.GetCount() < maximum)) {
        const size_t begin = text::FindOneOf({View(), m_encoding}, at, digits);
        if (begin == text::notFound)
            break;
        at = begin + text::LeadingEnd({View().substr(begin), m_encoding}, digits);
        isComplete = AddPiece(runs, *this, begin, at);
    }
    return HandOver(runs, isComplete, list);
}
