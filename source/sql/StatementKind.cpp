#include "sql/StatementKind.h"

#include <initializer_list>
#include <string_view>

namespace sql {

namespace {

bool HasEnoughCharacters(const UtCString& sql) noexcept
{
    constexpr size_t fewestCharacters = 10;
    constexpr size_t longestCharacter = 4; // in bytes; counting a long text would cost more than all the rest
    const size_t bytes = sql.GetByteLength();
    return bytes >= fewestCharacters * longestCharacter ||
           (bytes >= fewestCharacters && static_cast<size_t>(sql.GetLength()) >= fewestCharacters);
}

/// What stands at a place of a text, as far as keywords need it: an ASCII character in upper case, a blank for a line
/// break, and a zero for everything else; and the bytes that it takes.
struct Letter
{
    char value;
    size_t size;
};

// The two letters outside ASCII that have an ASCII letter as their upper case.
constexpr unsigned dotlessI = 0x131;
constexpr unsigned longS = 0x17F;
constexpr std::string_view dotlessIInUtf8 = "\xC4\xB1";
constexpr std::string_view longSInUtf8 = "\xC5\xBF";

constexpr char KeywordLetter(unsigned character) noexcept
{
    if (character >= 'a' && character <= 'z')
        return static_cast<char>(character - 'a' + 'A');
    if (character == '\r' || character == '\n')
        return ' ';
    if (character < 0x80)
        return static_cast<char>(character);
    return character == dotlessI ? 'I' : character == longS ? 'S' : '\0';
}

constexpr unsigned Byte(char character) noexcept
{
    return static_cast<unsigned char>(character);
}

struct SingleByte
{
    static constexpr size_t unitSize = 1;
    static Letter At(const char* at, const char*) noexcept { return {KeywordLetter(Byte(*at)), unitSize}; }
};

struct Utf8
{
    static constexpr size_t unitSize = 1;
    static Letter At(const char* at, const char* end) noexcept
    {
        const std::string_view rest(at, static_cast<size_t>(end - at));
        if (rest.starts_with(dotlessIInUtf8))
            return {'I', dotlessIInUtf8.size()};
        if (rest.starts_with(longSInUtf8))
            return {'S', longSInUtf8.size()};
        return {KeywordLetter(Byte(*at)), unitSize};
    }
};

template <size_t lowByte> struct Utf16
{
    static constexpr size_t unitSize = 2;
    static Letter At(const char* at, const char*) noexcept
    {
        return {KeywordLetter(Byte(at[1 - lowByte]) << 8 | Byte(at[lowByte])), unitSize};
    }
};

/// Looks for keywords in a text without converting it: they are ASCII, and in no encoding is an ASCII unit a part of
/// another character.
template <class Encoding> class KeywordReader
{
public:
    explicit KeywordReader(std::string_view bytes) noexcept
        : m_begin(bytes.data()), m_end(m_begin + bytes.size() / Encoding::unitSize * Encoding::unitSize)
    {
    }

    bool StartsWith(std::string_view keyword) const noexcept { return HasAt(m_begin, keyword); }

    bool StartsWithOneOf(std::initializer_list<std::string_view> keywords) const noexcept
    {
        for (const std::string_view keyword : keywords) {
            if (StartsWith(keyword))
                return true;
        }
        return false;
    }

    bool Contains(std::string_view keyword) const noexcept
    {
        for (const char* at = m_begin; at != m_end; at += Encoding::unitSize) {
            if (HasAt(at, keyword))
                return true;
        }
        return false;
    }

private:
    bool HasAt(const char* at, std::string_view keyword) const noexcept
    {
        for (const char expected : keyword) {
            if (at == m_end)
                return false;
            const Letter letter = Encoding::At(at, m_end);
            if (letter.value != expected)
                return false;
            at += letter.size;
        }
        return true;
    }

    const char* m_begin;
    const char* m_end;
};

template <class Encoding> bool GivesRows(std::string_view bytes) noexcept
{
    const KeywordReader<Encoding> text(bytes);
    // KEPT K-13: nothing is cut off in front, so a blank there hides the first word.
    if (text.StartsWith("SELECT "))
        return !text.Contains(" INTO OUTFILE ") && !text.Contains(" INTO DUMPFILE ");
    if (text.StartsWithOneOf({"SHOW ", "CHECK ", "REPAIR ", "OPTIMIZE ", "EXPLAIN "}))
        return true;
    // KEPT K-01: BACKUP, RESTORE, DESCRIBE and ANALYZE do not count as giving rows, although they do.
    if (text.StartsWith("HANDLER ") && text.Contains(" READ "))
        return true;
    return text.Contains(" UNION ");
}

} // namespace

bool IsSelectQuery(const UtCString& sql) noexcept
{
    // KEPT K-02: a statement of fewer than ten characters never counts as giving rows, "SHOW KEYS" neither.
    if (!HasEnoughCharacters(sql))
        return false;
    switch (sql.GetEncodingType()) {
    case UT_ENCODING_DEFAULT:
        return GivesRows<SingleByte>(sql.View());
    case UT_ENCODING_UTF8:
        return GivesRows<Utf8>(sql.View());
    case UT_ENCODING_UTF16_BE:
        return GivesRows<Utf16<1>>(sql.View());
    default:
        return GivesRows<Utf16<0>>(sql.View());
    }
}

} // namespace sql
