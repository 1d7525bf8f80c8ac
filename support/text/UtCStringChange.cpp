#include "text/CaseMapping.h"
#include "text/CodePoints.h"
#include "text/TextBuilder.h"
#include "text/TextSearch.h"
#include "text/UtCString.h"

#include <cstring>

using text::LetterCase;
using text::Match;
using text::Tagged;
using text::TextBuilder;

namespace {

Tagged TaggedView(const UtCString& text) noexcept
{
    return {text.View(), text.GetEncodingType()};
}

/// A zero-terminated text as the constructor reads it.
Tagged CharText(const char* text, eUtEncodingType encoding) noexcept
{
    const std::string_view bytes = text == nullptr ? std::string_view() : std::string_view(text);
    return {bytes, text::IsUtf16(encoding) ? UT_ENCODING_DEFAULT : encoding};
}

constexpr Tagged separators{"\\/", UT_ENCODING_DEFAULT};
constexpr Tagged blank{" ", UT_ENCODING_DEFAULT};

UtCString ReplaceAll(const UtCString& text, Tagged oldText, Tagged newText, LetterCase letterCase) noexcept
{
    const Tagged source = TaggedView(text);
    Match match;
    if (!oldText.bytes.empty())
        match = text::Find(source, 0, oldText, letterCase);
    if (!match.IsFound())
        return text;
    TextBuilder builder(source.encoding);
    size_t copied = 0;
    for (; match.IsFound(); match = text::Find(source, copied, oldText, letterCase)) {
        builder.Append(source.bytes.substr(copied, match.begin - copied));
        builder.Append(newText.bytes, newText.encoding);
        copied = match.end;
    }
    builder.Append(source.bytes.substr(copied));
    return builder.Take();
}

uint32_t MapWithin(text::Windows1252, uint32_t character, uint32_t (*map)(uint32_t) noexcept) noexcept
{
    const uint32_t mapped = map(character);
    return text::Windows1252::CanHold(mapped) ? mapped : character;
}

template <typename Codec> uint32_t MapWithin(Codec, uint32_t character, uint32_t (*map)(uint32_t) noexcept) noexcept
{
    return map(character);
}

} // namespace

UtCString UtCString::Piece(size_t begin, size_t end) const noexcept
{
    return UtCString(View().substr(begin, end - begin), m_encoding);
}

UtCString UtCString::substr(int start, int count) const noexcept
{
    const size_t begin = text::SkipCharacters(View(), m_encoding, 0, start < 0 ? 0 : static_cast<size_t>(start));
    if (count < 0)
        return Piece(begin, m_size);
    return Piece(begin, text::SkipCharacters(View(), m_encoding, begin, static_cast<size_t>(count)));
}

// --- Ends

UtCString UtCString::trim() const noexcept
{
    const size_t end = text::TrailingBegin(TaggedView(*this), blank);
    return Piece(text::LeadingEnd({View().substr(0, end), m_encoding}, blank), end);
}

UtCString UtCString::trim(const UtCString& set) const noexcept
{
    const size_t end = text::TrailingBegin(TaggedView(*this), TaggedView(set));
    return Piece(text::LeadingEnd({View().substr(0, end), m_encoding}, TaggedView(set)), end);
}

UtCString UtCString::trimLeft(const UtCString& set) const noexcept
{
    return Piece(text::LeadingEnd(TaggedView(*this), TaggedView(set)), m_size);
}

UtCString UtCString::trimRight() const noexcept
{
    return Piece(0, text::TrailingBegin(TaggedView(*this), blank));
}

UtCString UtCString::trimRight(const UtCString& set) const noexcept
{
    return Piece(0, text::TrailingBegin(TaggedView(*this), TaggedView(set)));
}

// --- Letter case

UtCString UtCString::toUpper() const noexcept
{
    UtCString result(*this);
    result.SetToUpper();
    return result;
}

UtCString UtCString::toLower() const noexcept
{
    UtCString result(*this);
    result.SetToLower();
    return result;
}

void UtCString::SetToUpper() noexcept
{
    if (!MapAscii(&text::ToUpperAscii))
        MapCharacters(&text::ToUpper);
}

void UtCString::SetToLower() noexcept
{
    if (!MapAscii(&text::ToLowerAscii))
        MapCharacters(&text::ToLower);
}

// Maps the text in place and by words when it is all ASCII; the padding of the last word holds no letter.
bool UtCString::MapAscii(uint64_t (*map)(uint64_t) noexcept) noexcept
{
    if (text::IsUtf16(m_encoding) || !text::IsAscii(View()))
        return false;
    for (size_t at = 0; at < m_size; at += sizeof(uint64_t)) {
        const uint64_t word = map(text::LoadWord(m_data + at));
        std::memcpy(m_data + at, &word, sizeof(word));
    }
    return true;
}

void UtCString::MapCharacters(uint32_t (*map)(uint32_t) noexcept) noexcept
{
    TextBuilder builder(m_encoding);
    text::WithCodec(m_encoding, [&](auto codec) {
        const text::Byte* copied = text::Begin(View());
        const text::Byte* const end = text::End(View());
        for (const text::Byte* at = copied; at != end;) {
            const text::Byte* const start = at;
            const uint32_t character = codec.Next(at, end);
            const uint32_t mapped = MapWithin(codec, character, map);
            if (mapped == character)
                continue;
            char other[4];
            builder.Append(text::Between(copied, start));
            builder.Append({other, static_cast<size_t>(codec.Put(other, mapped) - other)});
            copied = at;
        }
        builder.Append(text::Between(copied, end));
    });
    *this = builder.Take();
}

// --- Replacing

UtCString UtCString::replace(const UtCString& oldText, const UtCString& newText, bool exact) const noexcept
{
    return ReplaceAll(*this, TaggedView(oldText), TaggedView(newText), exact ? LetterCase::Exact : LetterCase::Ignored);
}

UtCString UtCString::replace(const char* oldText, const char* newText, eUtEncodingType encoding) const noexcept
{
    return ReplaceAll(*this, CharText(oldText, encoding), CharText(newText, encoding), LetterCase::Exact);
}

UtCString UtCString::replace(char oldCharacter, char newCharacter) const noexcept
{
    return ReplaceAll(*this, {{&oldCharacter, 1}, UT_ENCODING_DEFAULT}, {{&newCharacter, 1}, UT_ENCODING_DEFAULT},
                      LetterCase::Exact);
}

UtCString UtCString::replace(wchar_t oldCharacter, wchar_t newCharacter) const noexcept
{
    const wchar_t oldText[] = {oldCharacter, 0};
    const wchar_t newText[] = {newCharacter, 0};
    const wchar_t* at = oldText;
    if (text::WellFormed(text::NextWide(at)) != static_cast<uint32_t>(oldCharacter))
        return *this;
    return replace(UtCString(oldText, UT_ENCODING_UTF8), UtCString(newText, UT_ENCODING_UTF8));
}

// --- In place

void UtCString::Delete(int position, int count) noexcept
{
    if (position < 0 || count <= 0)
        return;
    const size_t begin = text::SkipCharacters(View(), m_encoding, 0, static_cast<size_t>(position));
    Erase(begin, text::SkipCharacters(View(), m_encoding, begin, static_cast<size_t>(count)));
}

void UtCString::Remove(const UtCString& text) noexcept
{
    *this = replace(text, UtCString(m_encoding));
}

void UtCString::Prepend(const UtCString& text) noexcept
{
    Enclose(text, UtCString(m_encoding));
}

void UtCString::Enclose(const UtCString& text) noexcept
{
    Enclose(text, text);
}

void UtCString::Enclose(const UtCString& left, const UtCString& right) noexcept
{
    TextBuilder builder(m_encoding);
    builder.AppendText(left);
    builder.AppendText(*this);
    builder.AppendText(right);
    *this = builder.Take();
}

UtCString& UtCString::operator+=(const UtCString& text) noexcept
{
    AppendText(text.View(), text.m_encoding);
    return *this;
}

UtCString& UtCString::operator+=(const char* text) noexcept
{
    if (text != nullptr)
        AppendText(text, UT_ENCODING_DEFAULT);
    return *this;
}

UtCString& UtCString::operator+=(char character) noexcept
{
    AppendText({&character, 1}, UT_ENCODING_DEFAULT);
    return *this;
}

UtCString& UtCString::AppendBytes(std::string_view bytes) noexcept
{
    AppendText(bytes, m_encoding);
    return *this;
}

UtCString UtCString::operator+(const UtCString& text) const noexcept
{
    TextBuilder builder(m_encoding);
    builder.AppendText(*this);
    builder.AppendText(text);
    return builder.Take();
}

UtCString UtCString::operator+(const char* text) const noexcept
{
    TextBuilder builder(m_encoding);
    builder.AppendText(*this);
    if (text != nullptr)
        builder.Append(text, UT_ENCODING_DEFAULT);
    return builder.Take();
}

UtCString UtCString::JoinFilePath(const UtCString& directory, const UtCString& name) noexcept
{
    if (directory.IsEmpty())
        return UtCString(name, directory.m_encoding);
    if (name.IsEmpty())
        return directory;
    const size_t directoryEnd = text::TrailingBegin(TaggedView(directory), separators);
    const size_t nameBegin = text::LeadingEnd(TaggedView(name), separators);
    TextBuilder builder(directory.m_encoding);
    builder.Append(directory.View().substr(0, directoryEnd));
    builder.Append("\\", UT_ENCODING_DEFAULT);
    builder.Append(name.View().substr(nameBegin), name.m_encoding);
    return builder.Take();
}
