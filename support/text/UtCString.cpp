#include "text/UtCString.h"

#include "text/CodePoints.h"
#include "text/UtMemory.h"

#include <algorithm>
#include <climits>

namespace {

constexpr size_t largestSize = SIZE_MAX / 4;

/// The part of the bytes before the first zero (UTF-16: zero unit).
std::string_view BeforeZero(std::string_view bytes, eUtEncodingType encoding) noexcept
{
    if (!text::IsUtf16(encoding))
        return bytes.substr(0, bytes.find('\0'));
    size_t at = 0;
    while (at + 1 < bytes.size() && (bytes[at] != 0 || bytes[at + 1] != 0))
        at += 2;
    return at + 1 < bytes.size() ? bytes.substr(0, at) : bytes;
}

std::string_view CharText(const char* bytes, eUtEncodingType encoding) noexcept
{
    if (bytes == nullptr)
        return {};
    if (!text::IsUtf16(encoding))
        return bytes;
    size_t size = 0;
    while (bytes[size] != 0 || bytes[size + 1] != 0)
        size += 2;
    return {bytes, size};
}

} // namespace

// --- Storage

void UtCString::ReleaseBlock() noexcept
{
    UtFreeMemory(m_data);
}

// Makes room for `capacity` bytes and keeps the text; the text becomes empty when memory ran out.
bool UtCString::Reserve(size_t capacity) noexcept
{
    if (capacity <= m_capacity)
        return true;
    char* block = nullptr;
    const size_t generous = std::max(capacity, 2 * m_capacity);
    if (capacity <= largestSize)
        block = static_cast<char*>(UtAllocMemoryBlock(generous + slack));
    if (block == nullptr) {
        SetEmpty();
        return false;
    }
    std::memcpy(block, m_data, m_size + slack);
    if (m_data != m_inline)
        ReleaseBlock();
    m_data = block;
    m_capacity = generous;
    return true;
}

// The old block lives until the bytes are copied, as they may stand in it.
void UtCString::AssignToNewBlock(const char* bytes, size_t size) noexcept
{
    if (bytes == nullptr)
        return SetEmpty();
    char* const block = size <= largestSize ? static_cast<char*>(UtAllocMemoryBlock(size + slack)) : nullptr;
    if (block == nullptr)
        return SetEmpty();
    std::memcpy(block, bytes, size);
    if (m_data != m_inline)
        ReleaseBlock();
    m_data = block;
    m_capacity = size;
    SetSize(size);
}

void UtCString::AssignCharText(std::string_view text) noexcept
{
    AssignConverted(text, text::IsUtf16(m_encoding) ? UT_ENCODING_DEFAULT : m_encoding, m_encoding);
}

// The bytes must not stand in this text when they need a conversion.
void UtCString::AssignConverted(std::string_view bytes, eUtEncodingType from, eUtEncodingType to) noexcept
{
    if (text::KeepsBytes(bytes, from, to))
        return SetMemCopy(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(), to);
    m_encoding = to;
    SetEmpty();
    if (char* const out = Extend(text::ConvertedSize(bytes, from, to)))
        text::ConvertTo(bytes, from, to, out);
}

// Room for `count` more bytes, which belong to the text at once; null, with the text empty, when memory ran out.
char* UtCString::Extend(size_t count) noexcept
{
    const size_t size = m_size;
    const bool hasRoom = count <= m_capacity - size;
    if (!hasRoom && !Reserve(count <= largestSize ? size + count : count))
        return nullptr;
    SetSize(size + count);
    return m_data + size;
}

bool UtCString::PointsInto(std::string_view bytes) const noexcept
{
    const auto at = reinterpret_cast<uintptr_t>(bytes.data());
    const auto begin = reinterpret_cast<uintptr_t>(m_data);
    return at >= begin && at <= begin + m_capacity;
}

void UtCString::AppendText(std::string_view bytes, eUtEncodingType encoding) noexcept
{
    if (PointsInto(bytes)) {
        const UtCString copy(bytes, encoding);
        if (copy.m_size != bytes.size())
            return SetEmpty();
        return AppendText(copy.View(), encoding);
    }
    if (text::KeepsBytes(bytes, encoding, m_encoding)) {
        if (char* const out = Extend(bytes.size()))
            std::memcpy(out, bytes.data(), bytes.size());
    } else if (char* const converted = Extend(text::ConvertedSize(bytes, encoding, m_encoding))) {
        text::ConvertTo(bytes, encoding, m_encoding, converted);
    }
}

void UtCString::Erase(size_t begin, size_t end) noexcept
{
    std::memmove(m_data + begin, m_data + end, m_size - end);
    SetSize(m_size - (end - begin));
}

// --- Construction and assignment from texts

UtCString::UtCString(const char* text, eUtEncodingType encoding, eUtEncodingType sourceEncoding) noexcept
    : UtCString(encoding)
{
    AssignConverted(CharText(text, sourceEncoding), sourceEncoding, encoding);
}

UtCString::UtCString(const wchar_t* text, eUtEncodingType encoding) noexcept : UtCString(encoding)
{
    if (text == nullptr)
        return;
    size_t size = 0;
    text::WithCodec(encoding, [&](auto codec) {
        for (const wchar_t* at = text; *at != 0;)
            size += codec.Size(text::NextWide(at));
    });
    char* out = Extend(size);
    if (out == nullptr)
        return;
    text::WithCodec(encoding, [&](auto codec) {
        for (const wchar_t* at = text; *at != 0;)
            out = codec.Put(out, text::NextWide(at));
    });
}

UtCString::UtCString(const UtCString& other, eUtEncodingType encoding) noexcept : UtCString(encoding)
{
    AssignConverted(other.View(), other.m_encoding, encoding);
}

UtCString& UtCString::operator=(UtCString&& other) noexcept
{
    if (this == &other)
        return *this;
    if (other.m_data == other.m_inline) {
        *this = static_cast<const UtCString&>(other);
        other.SetEmpty();
        return *this;
    }
    if (m_data != m_inline)
        ReleaseBlock();
    m_encoding = other.m_encoding;
    TakeFrom(other);
    return *this;
}

UtCString& UtCString::operator=(const char* text) noexcept
{
    const std::string_view bytes = CharText(text, UT_ENCODING_DEFAULT);
    if (PointsInto(bytes))
        return *this = UtCString(UtCString(bytes, UT_ENCODING_DEFAULT), m_encoding);
    AssignConverted(bytes, UT_ENCODING_DEFAULT, m_encoding);
    return *this;
}

// --- Access

int UtCString::GetLength() const noexcept
{
    return static_cast<int>(std::min<size_t>(text::CountCharacters(View(), m_encoding), INT_MAX));
}

char* UtCString::GetBuffer(int size) noexcept
{
    const size_t wanted = size < 0 ? 0 : static_cast<size_t>(size);
    if (!Reserve(wanted))
        return nullptr;
    const size_t kept = std::min(m_size, wanted);
    std::memset(m_data + kept, 0, wanted - kept);
    SetSize(wanted);
    return m_data;
}

void UtCString::ReleaseBuffer(eUtEncodingType encoding) noexcept
{
    m_encoding = encoding;
    SetSize(BeforeZero(View(), encoding).size());
}

bool UtCString::GetAnsiString(char** text, eUtEncodingType encoding) const noexcept
{
    if (text == nullptr)
        return false;
    *text = nullptr;
    if (text::IsUtf16(encoding))
        return false;
    const UtCString converted(*this, encoding);
    if (converted.IsEmpty() != IsEmpty())
        return false;
    unsigned char* bytes = nullptr;
    size_t size = 0;
    if (!converted.GetMemCopy(&bytes, size, 1))
        return false;
    *text = reinterpret_cast<char*>(bytes);
    return true;
}

bool UtCString::GetMemCopy(unsigned char** bytes, size_t& size, int terminatorBytes) const noexcept
{
    size = 0;
    if (bytes == nullptr)
        return false;
    const size_t zeros = terminatorBytes < 0 ? 0 : static_cast<size_t>(terminatorBytes);
    *bytes = static_cast<unsigned char*>(UtAllocMemoryBlock(m_size + zeros));
    if (*bytes == nullptr)
        return false;
    std::memcpy(*bytes, m_data, m_size);
    std::memset(*bytes + m_size, 0, zeros);
    size = m_size;
    return true;
}

bool UtCString::ChangeEncodingType(eUtEncodingType encoding) noexcept
{
    const bool isConverted =
        encoding == m_encoding || IsEmpty() || (text::IsConvertible(encoding) && text::IsConvertible(m_encoding));
    if (text::KeepsBytes(View(), m_encoding, encoding)) {
        m_encoding = encoding; // KEPT K-60: an encoding that is never converted gets the tag changed, the bytes kept.
        return isConverted;
    }
    const bool wasEmpty = IsEmpty();
    *this = UtCString(*this, encoding);
    return IsEmpty() == wasEmpty;
}
