#include "text/CodePoints.h"

#include "text/CaseMapping.h"
#include "text/TextHash.h"

namespace text {

namespace {

constexpr bool IsContinuation(Byte byte) noexcept
{
    return (byte & 0xC0) == 0x80;
}

/// The size of the well-formed sequence that `lead` can start; 0 for a byte that starts none.
constexpr size_t SequenceSize(Byte lead) noexcept
{
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if ((lead & 0xF0) == 0xE0)
        return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

/// The second byte alone rules out overlong forms, surrogates and numbers beyond U+10FFFF.
constexpr bool CanFollow(Byte lead, Byte second) noexcept
{
    switch (lead) {
    case 0xE0:
        return second >= 0xA0 && second <= 0xBF;
    case 0xED:
        return second >= 0x80 && second <= 0x9F;
    case 0xF0:
        return second >= 0x90 && second <= 0xBF;
    case 0xF4:
        return second >= 0x80 && second <= 0x8F;
    default:
        return IsContinuation(second);
    }
}

template <typename Codec> bool AllCharacters(std::string_view bytes, bool (*holds)(uint32_t)) noexcept
{
    const Byte* const end = End(bytes);
    for (const Byte* at = Begin(bytes); at != end;)
        if (!holds(Codec::Next(at, end)))
            return false;
    return true;
}

template <typename Left, typename Right>
int CompareCharacters(std::string_view left, std::string_view right, uint32_t (*fold)(uint32_t)) noexcept
{
    const Byte* leftAt = Begin(left);
    const Byte* rightAt = Begin(right);
    const Byte* const leftEnd = End(left);
    const Byte* const rightEnd = End(right);
    while (leftAt != leftEnd && rightAt != rightEnd) {
        const uint32_t a = fold(Left::Next(leftAt, leftEnd));
        const uint32_t b = fold(Right::Next(rightAt, rightEnd));
        if (a != b)
            return a < b ? -1 : 1;
    }
    return static_cast<int>(leftAt != leftEnd) - static_cast<int>(rightAt != rightEnd);
}

int CompareFolded(std::string_view left, eUtEncodingType leftEncoding, std::string_view right,
                  eUtEncodingType rightEncoding, uint32_t (*fold)(uint32_t)) noexcept
{
    return WithCodec(leftEncoding, [&](auto leftCodec) {
        return WithCodec(rightEncoding, [&](auto rightCodec) {
            return CompareCharacters<decltype(leftCodec), decltype(rightCodec)>(left, right, fold);
        });
    });
}

/// Collects bytes into the words of the hash.
class WordCollector
{
public:
    explicit WordCollector(size_t size) noexcept : m_hash(HashStart(size)) {}
    void Add(char byte) noexcept
    {
        m_bytes[m_count++] = byte;
        if (m_count == sizeof(m_bytes))
            Flush();
    }
    uint64_t Finish() noexcept
    {
        if (m_count != 0)
            Flush();
        return m_hash;
    }

private:
    void Flush() noexcept
    {
        std::memset(m_bytes + m_count, 0, sizeof(m_bytes) - m_count);
        m_hash = HashStep(m_hash, LoadWord(m_bytes));
        m_count = 0;
    }

    uint64_t m_hash;
    char m_bytes[8] = {};
    size_t m_count = 0;
};

// A malformed byte is hashed as the byte that it is, so that the hash of UTF-8 is simply the hash of its bytes.
size_t HashedSize(uint32_t character) noexcept
{
    return character >= malformedBase && character < malformedBase + 0x100 ? 1 : Utf8::Size(character);
}

void HashCharacter(WordCollector& collector, uint32_t character) noexcept
{
    if (HashedSize(character) == 1)
        return collector.Add(static_cast<char>(character & 0xFF));
    char bytes[4];
    const char* const end = Utf8::Put(bytes, character);
    for (const char* at = bytes; at != end; ++at)
        collector.Add(*at);
}

template <typename Codec> uint64_t HashWith(std::string_view bytes) noexcept
{
    const Byte* const end = End(bytes);
    size_t size = 0;
    for (const Byte* at = Begin(bytes); at != end;)
        size += HashedSize(Codec::Next(at, end));
    WordCollector collector(size);
    for (const Byte* at = Begin(bytes); at != end;)
        HashCharacter(collector, Codec::Next(at, end));
    return collector.Finish();
}

} // namespace

uint32_t Utf8::NextMultiByte(Byte lead, const Byte*& at, const Byte* end) noexcept
{
    const size_t size = SequenceSize(lead);
    if (size == 0 || static_cast<size_t>(end - at) < size - 1 || !CanFollow(lead, at[0]))
        return malformedBase + lead;
    uint32_t codePoint = lead & (0x7Fu >> size);
    for (size_t index = 0; index + 1 < size; ++index) {
        if (!IsContinuation(at[index]))
            return malformedBase + lead;
        codePoint = codePoint << 6 | (at[index] & 0x3Fu);
    }
    at += size - 1;
    return codePoint;
}

char* Utf8::Put(char* out, uint32_t character) noexcept
{
    const uint32_t c = WellFormed(character);
    const size_t size = Size(c);
    if (size == 1) {
        *out = static_cast<char>(c);
        return out + 1;
    }
    static constexpr unsigned leads[] = {0, 0, 0xC0, 0xE0, 0xF0};
    for (size_t index = size - 1; index > 0; --index)
        out[index] = static_cast<char>(0x80 | (c >> (6 * (size - 1 - index)) & 0x3F));
    out[0] = static_cast<char>(leads[size] | c >> (6 * (size - 1)));
    return out + size;
}

bool IsAscii(std::string_view bytes) noexcept
{
    const char* const data = bytes.data();
    const size_t size = bytes.size();
    uint64_t seen = 0;
    if (size < 8) {
        for (size_t at = 0; at < size; ++at)
            seen |= static_cast<Byte>(data[at]);
    } else {
        for (size_t at = 0; at + 8 < size; at += 8)
            seen |= LoadWord(data + at);
        seen |= LoadWord(data + size - 8); // overlaps the word before, so that no byte is looked at alone
    }
    return (seen & asciiMask) == 0;
}

bool KeepsBytes(std::string_view bytes, eUtEncodingType from, eUtEncodingType to) noexcept
{
    if (from == to)
        return true;
    if (IsUtf16(from) || IsUtf16(to))
        return !IsConvertible(from) || !IsConvertible(to);
    return IsAscii(bytes) || !IsConvertible(from) || !IsConvertible(to);
}

size_t CountCharacters(std::string_view bytes, eUtEncodingType encoding) noexcept
{
    if (IsSingleByte(encoding) || (encoding == UT_ENCODING_UTF8 && IsAscii(bytes)))
        return bytes.size();
    return WithCodec(encoding, [&](auto codec) {
        size_t count = 0;
        for (const Byte *at = Begin(bytes), *end = End(bytes); at != end; ++count)
            codec.Next(at, end);
        return count;
    });
}

size_t SkipCharacters(std::string_view bytes, eUtEncodingType encoding, size_t from, size_t count) noexcept
{
    const size_t rest = bytes.size() - from;
    if (IsSingleByte(encoding) || (count <= rest && encoding == UT_ENCODING_UTF8 && IsAscii(bytes.substr(from, count))))
        return from + (count < rest ? count : rest);
    return WithCodec(encoding, [&](auto codec) {
        const Byte* at = Begin(bytes) + from;
        const Byte* const end = End(bytes);
        for (size_t skipped = 0; skipped < count && at != end; ++skipped)
            codec.Next(at, end);
        return static_cast<size_t>(at - Begin(bytes));
    });
}

bool IsWellFormed(std::string_view bytes, eUtEncodingType encoding) noexcept
{
    if (!IsUtf16(encoding) && IsAscii(bytes))
        return true;
    return WithCodec(encoding, [&](auto codec) { return AllCharacters<decltype(codec)>(bytes, &Utf8::CanHold); });
}

size_t ConvertedSize(std::string_view bytes, eUtEncodingType from, eUtEncodingType to) noexcept
{
    return WithCodec(from, [&](auto source) {
        return WithCodec(to, [&](auto target) {
            size_t size = 0;
            for (const Byte *at = Begin(bytes), *end = End(bytes); at != end;)
                size += target.Size(source.Next(at, end));
            return size;
        });
    });
}

void ConvertTo(std::string_view bytes, eUtEncodingType from, eUtEncodingType to, char* out) noexcept
{
    WithCodec(from, [&](auto source) {
        WithCodec(to, [&](auto target) {
            for (const Byte *at = Begin(bytes), *end = End(bytes); at != end;)
                out = target.Put(out, source.Next(at, end));
        });
    });
}

int Compare(std::string_view left, eUtEncodingType leftEncoding, std::string_view right,
            eUtEncodingType rightEncoding) noexcept
{
    return CompareFolded(left, leftEncoding, right, rightEncoding, [](uint32_t character) { return character; });
}

int CompareNoCase(std::string_view left, eUtEncodingType leftEncoding, std::string_view right,
                  eUtEncodingType rightEncoding) noexcept
{
    return CompareFolded(left, leftEncoding, right, rightEncoding, &ToUpper);
}

uint64_t HashCharacters(std::string_view bytes, eUtEncodingType encoding) noexcept
{
    return WithCodec(encoding, [&](auto codec) { return HashWith<decltype(codec)>(bytes); });
}

} // namespace text
