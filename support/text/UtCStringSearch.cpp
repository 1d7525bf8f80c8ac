#include "text/CodePoints.h"
#include "text/TextSearch.h"
#include "text/UtCString.h"

#include <algorithm>
#include <climits>

using text::LetterCase;
using text::Match;
using text::Tagged;

namespace {

Tagged TaggedView(const UtCString& text) noexcept
{
    return {text.View(), text.GetEncodingType()};
}

LetterCase CaseOf(bool exact) noexcept
{
    return exact ? LetterCase::Exact : LetterCase::Ignored;
}

bool IsAsciiDigit(uint32_t character) noexcept
{
    return character >= '0' && character <= '9';
}

/// The byte offset of a character position that is at most the length; notFound for one behind it.
size_t OffsetOf(const UtCString& text, int position) noexcept
{
    const size_t count = position < 0 ? 0 : static_cast<size_t>(position);
    const size_t offset = text::SkipCharacters(text.View(), text.GetEncodingType(), 0, count);
    if (offset < text.GetByteLength())
        return offset;
    return text::CountCharacters(text.View(), text.GetEncodingType()) == count ? offset : text::notFound;
}

int PositionOf(const UtCString& text, size_t offset) noexcept
{
    if (offset == text::notFound)
        return -1;
    const size_t count = text::CountCharacters(text.View().substr(0, offset), text.GetEncodingType());
    return count <= INT_MAX ? static_cast<int>(count) : -1;
}

} // namespace

int UtCString::Search(int start, char character, eUtEncodingType encoding) const noexcept
{
    return Search(start,
                  UtCString(std::string_view(&character, 1), text::IsUtf16(encoding) ? UT_ENCODING_DEFAULT : encoding));
}

int UtCString::Search(int start, const UtCString& text) const noexcept
{
    const size_t from = OffsetOf(*this, start);
    if (from == text::notFound)
        return -1;
    return PositionOf(*this, text::Find(TaggedView(*this), from, TaggedView(text), LetterCase::Exact).begin);
}

int UtCString::FindOneOf(const UtCString& set, int start) const noexcept
{
    const size_t from = OffsetOf(*this, start);
    if (from == text::notFound)
        return -1;
    return PositionOf(*this, text::FindOneOf(TaggedView(*this), from, TaggedView(set)));
}

bool UtCString::Contains(const UtCString& text) const noexcept
{
    return text::Find(TaggedView(*this), 0, TaggedView(text), LetterCase::Exact).IsFound();
}

bool UtCString::StartsWith(const UtCString& text, bool exact) const noexcept
{
    return text::PrefixSize(TaggedView(*this), TaggedView(text), CaseOf(exact)) != text::notFound;
}

bool UtCString::EndsWith(const UtCString& text, bool exact) const noexcept
{
    const size_t length = text::CountCharacters(View(), m_encoding);
    const size_t endLength = text::CountCharacters(text.View(), text.m_encoding);
    if (endLength > length)
        return false;
    const size_t from = text::SkipCharacters(View(), m_encoding, 0, length - endLength);
    return text::PrefixSize({View().substr(from), m_encoding}, TaggedView(text), CaseOf(exact)) != text::notFound;
}

bool UtCString::IsNumber() const noexcept
{
    return text::WithCodec(m_encoding, [&](auto codec) {
        const text::Byte* at = text::Begin(View());
        const text::Byte* const end = text::End(View());
        uint32_t character = at == end ? 0 : codec.Next(at, end);
        if (character == '+' || character == '-')
            character = at == end ? 0 : codec.Next(at, end);
        while (IsAsciiDigit(character) && at != end)
            character = codec.Next(at, end);
        return IsAsciiDigit(character);
    });
}

bool UtCString::IsDigit(int position) const noexcept
{
    if (position < 0)
        return false;
    const size_t offset = text::SkipCharacters(View(), m_encoding, 0, static_cast<size_t>(position));
    if (offset >= m_size)
        return false;
    return text::WithCodec(m_encoding, [&](auto codec) {
        const text::Byte* at = text::Begin(View()) + offset;
        return IsAsciiDigit(codec.Next(at, text::End(View())));
    });
}
