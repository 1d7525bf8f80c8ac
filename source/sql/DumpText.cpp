#include "sql/DumpText.h"

#include "text/CodePoints.h"

#include <cstdint>
#include <cstring>
#include <new>

namespace sql {
namespace {

std::string FileText(const UtCString& text, eUtEncodingType encoding)
{
    const UtCString converted(text, text::IsUtf16(encoding) ? UT_ENCODING_UTF8 : encoding);
    if (converted.IsEmpty() && !text.IsEmpty())
        throw std::bad_alloc();
    return std::string(converted.View());
}

std::string WithDefault(std::string text, const char* byDefault)
{
    return text.empty() ? byDefault : std::move(text);
}

constexpr uint64_t everyByte(uint64_t byte) noexcept
{
    return byte * 0x0101010101010101u;
}

/// Whether an escape could change one of eight bytes: the highest bit of a byte is set by the subtraction where the
/// byte is too small, and by the byte itself where it is no ASCII. A borrow comes out of such bytes only.
bool IsSuspicious(uint64_t bytes) noexcept
{
    const auto equals = [bytes](uint64_t byte) { return (bytes ^ everyByte(byte)) - everyByte(1); };
    const uint64_t isControl = bytes - everyByte(' ');
    return ((bytes | isControl | equals('"') | equals('\'') | equals('\\')) & everyByte(0x80)) != 0;
}

template <class Word> Word Load(const char* from) noexcept
{
    Word word;
    std::memcpy(&word, from, sizeof word);
    return word;
}

template <class Word> void Store(char* to, Word word) noexcept
{
    std::memcpy(to, &word, sizeof word);
}

/// Four to seven bytes, or two to three, as two words that may overlap.
template <class Word> bool CopyTwoWords(std::string_view value, char* to) noexcept
{
    const size_t second = value.size() - sizeof(Word);
    const Word first = Load<Word>(value.data());
    const Word last = Load<Word>(value.data() + second);
    Store(to, first);
    Store(to + second, last);
    constexpr unsigned wordBits = 8 * sizeof(Word);
    const uint64_t rest = wordBits == 32 ? 0 : everyByte('a') << 32;
    return !IsSuspicious(rest | (uint64_t{last} << wordBits) | first);
}

bool CopyShort(std::string_view value, char* to) noexcept
{
    if (value.size() >= sizeof(uint32_t))
        return CopyTwoWords<uint32_t>(value, to);
    if (value.size() >= sizeof(uint16_t))
        return CopyTwoWords<uint16_t>(value, to);
    if (value.empty())
        return true;
    *to = value.front();
    return !IsSuspicious(everyByte(static_cast<unsigned char>(value.front())));
}

} // namespace

DumpFormat ReadDumpFormat(const UtCString& separator, const UtCString& enclosure, const UtCString& lineEnd,
                          eUtEncodingType encoding)
{
    return {WithDefault(FileText(separator, encoding), ","), FileText(enclosure, encoding),
            WithDefault(FileText(lineEnd, encoding), "\r\n")};
}

std::string DumpHeader(const std::vector<std::string_view>& names, const DumpFormat& format)
{
    std::string line;
    for (const std::string_view& name : names) {
        if (&name != &names.front())
            line += format.separator;
        line += format.enclosure;
        line += name;
        line += format.enclosure;
    }
    line += format.lineEnd;
    return line;
}

bool CopyUnescapedValue(std::string_view value, char* to) noexcept
{
    constexpr size_t wordSize = sizeof(uint64_t);
    if (value.size() < wordSize)
        return CopyShort(value, to);
    const size_t last = value.size() - wordSize;
    for (size_t at = 0; at < last; at += wordSize) {
        const auto word = Load<uint64_t>(value.data() + at);
        if (IsSuspicious(word))
            return false;
        Store(to + at, word);
    }
    const auto word = Load<uint64_t>(value.data() + last); // may overlap the one before
    Store(to + last, word);
    return !IsSuspicious(word);
}

} // namespace sql
