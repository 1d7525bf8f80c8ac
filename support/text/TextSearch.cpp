#include "text/TextSearch.h"

#include "text/CaseMapping.h"
#include "text/CodePoints.h"

namespace text {

namespace {

uint32_t Same(uint32_t character) noexcept
{
    return character;
}

using Fold = uint32_t (*)(uint32_t) noexcept;

Fold FoldOf(LetterCase letterCase) noexcept
{
    return letterCase == LetterCase::Exact ? &Same : &ToUpper;
}

template <typename Codec, typename PrefixCodec>
const Byte* SkipPrefix(const Byte* at, const Byte* end, std::string_view prefix, Fold fold) noexcept
{
    const Byte* const prefixEnd = End(prefix);
    for (const Byte* prefixAt = Begin(prefix); prefixAt != prefixEnd;) {
        if (at == end || fold(Codec::Next(at, end)) != fold(PrefixCodec::Next(prefixAt, prefixEnd)))
            return nullptr;
    }
    return at;
}

template <typename Codec, typename NeedleCodec>
Match FindCharacters(std::string_view text, size_t from, std::string_view needle, Fold fold) noexcept
{
    const Byte* const end = End(text);
    for (const Byte* at = Begin(text) + from;; Codec::Next(at, end)) {
        if (const Byte* const found = SkipPrefix<Codec, NeedleCodec>(at, end, needle, fold))
            return {static_cast<size_t>(at - Begin(text)), static_cast<size_t>(found - Begin(text))};
        if (at == end)
            return {};
    }
}

/// Whether equal bytes, wherever they stand, are equal characters.
bool CanSearchBytes(eUtEncodingType encoding, Tagged needle) noexcept
{
    if (IsUtf16(encoding) || IsUtf16(needle.encoding))
        return false;
    if (IsAscii(needle.bytes))
        return true;
    if (encoding != needle.encoding)
        return false;
    return IsSingleByte(encoding) || IsWellFormed(needle.bytes, encoding);
}

bool IsOneOf(uint32_t character, Tagged set) noexcept
{
    return WithCodec(set.encoding, [&](auto codec) {
        for (const Byte *at = Begin(set.bytes), *end = End(set.bytes); at != end;)
            if (codec.Next(at, end) == character)
                return true;
        return false;
    });
}

/// Whether a byte of the set is that character wherever it stands in the text, and no other byte is.
bool IsSetOfBytes(Tagged text, Tagged set) noexcept
{
    return !IsUtf16(text.encoding) && !IsUtf16(set.encoding) && IsAscii(set.bytes);
}

/// The same search among bytes, with the set of ASCII characters as a table of bits.
size_t FirstByteWhere(std::string_view bytes, size_t from, std::string_view set, bool wanted) noexcept
{
    uint64_t members[4] = {};
    for (const char character : set)
        members[static_cast<Byte>(character) >> 6] |= uint64_t{1} << (character & 63);
    size_t at = from;
    for (; at < bytes.size(); ++at) {
        const Byte byte = static_cast<Byte>(bytes[at]);
        if (((members[byte >> 6] >> (byte & 63) & 1) != 0) == wanted)
            break;
    }
    return at;
}

/// The byte offset of the first character at or behind `from` for which being in `set` is `wanted`; else the size.
size_t FirstWhere(Tagged text, size_t from, Tagged set, bool wanted) noexcept
{
    if (IsSetOfBytes(text, set))
        return FirstByteWhere(text.bytes, from, set.bytes, wanted);
    return WithCodec(text.encoding, [&](auto codec) {
        const Byte* const end = End(text.bytes);
        for (const Byte* at = Begin(text.bytes) + from; at != end;) {
            const Byte* const start = at;
            if (IsOneOf(codec.Next(at, end), set) == wanted)
                return static_cast<size_t>(start - Begin(text.bytes));
        }
        return text.bytes.size();
    });
}

size_t TrailingBeginByBytes(Tagged text, Tagged set) noexcept
{
    return WithCodec(text.encoding, [&](auto codec) {
        const Byte* const begin = Begin(text.bytes);
        const Byte* end = End(text.bytes);
        for (; end != begin; --end) {
            const Byte* last = end - 1;
            if (!IsOneOf(codec.Next(last, end), set))
                break;
        }
        return static_cast<size_t>(end - begin);
    });
}

} // namespace

Match Find(Tagged text, size_t from, Tagged needle, LetterCase letterCase) noexcept
{
    if (letterCase == LetterCase::Exact && CanSearchBytes(text.encoding, needle)) {
        const size_t begin = text.bytes.find(needle.bytes, from);
        return begin == notFound ? Match{} : Match{begin, begin + needle.bytes.size()};
    }
    return WithCodec(text.encoding, [&](auto codec) {
        return WithCodec(needle.encoding, [&](auto needleCodec) {
            return FindCharacters<decltype(codec), decltype(needleCodec)>(text.bytes, from, needle.bytes,
                                                                          FoldOf(letterCase));
        });
    });
}

size_t PrefixSize(Tagged text, Tagged prefix, LetterCase letterCase) noexcept
{
    const Byte* const end = WithCodec(text.encoding, [&](auto codec) {
        return WithCodec(prefix.encoding, [&](auto prefixCodec) {
            return SkipPrefix<decltype(codec), decltype(prefixCodec)>(Begin(text.bytes), End(text.bytes), prefix.bytes,
                                                                      FoldOf(letterCase));
        });
    });
    return end == nullptr && !prefix.bytes.empty() ? notFound : static_cast<size_t>(end - Begin(text.bytes));
}

size_t FindOneOf(Tagged text, size_t from, Tagged set) noexcept
{
    const size_t found = FirstWhere(text, from, set, true);
    return found == text.bytes.size() ? notFound : found;
}

size_t LeadingEnd(Tagged text, Tagged set) noexcept
{
    return FirstWhere(text, 0, set, false);
}

size_t TrailingBegin(Tagged text, Tagged set) noexcept
{
    if (IsSingleByte(text.encoding) || IsSetOfBytes(text, set))
        return TrailingBeginByBytes(text, set);
    size_t begin = 0;
    for (size_t at = 0; at < text.bytes.size();) {
        begin = FirstWhere(text, at, set, true);
        at = FirstWhere(text, begin, set, false);
    }
    return begin;
}

} // namespace text
