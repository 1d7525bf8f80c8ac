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

/// Reads a text by its units of `unitSize` bytes as far as keywords need it: an ASCII character in upper case, a blank
/// for a line break, and `other` for every other unit. Keywords are ASCII, and no encoding that gets here uses an ASCII
/// unit as a part of another character, so nothing has to be converted.
template <size_t unitSize, size_t lowByte> class KeywordReader
{
public:
    explicit KeywordReader(std::string_view bytes) noexcept : m_bytes(bytes), m_count(bytes.size() / unitSize) {}

    bool StartsWith(std::string_view keyword) const noexcept { return HasAt(0, keyword); }

    bool Contains(std::string_view keyword) const noexcept
    {
        for (size_t position = 0; position + keyword.size() <= m_count; ++position) {
            if (HasAt(position, keyword))
                return true;
        }
        return false;
    }

    bool StartsWithOneOf(std::initializer_list<std::string_view> keywords) const noexcept
    {
        for (const std::string_view keyword : keywords) {
            if (StartsWith(keyword))
                return true;
        }
        return false;
    }

private:
    static constexpr char other = '\0';

    bool HasAt(size_t position, std::string_view keyword) const noexcept
    {
        if (position + keyword.size() > m_count)
            return false;
        for (size_t index = 0; index < keyword.size(); ++index) {
            if (At(position + index) != keyword[index])
                return false;
        }
        return true;
    }

    char At(size_t position) const noexcept
    {
        const char* unit = m_bytes.data() + position * unitSize;
        if constexpr (unitSize == 2) {
            if (unit[1 - lowByte] != 0)
                return other;
        }
        const char character = unit[lowByte];
        if (character >= 'a' && character <= 'z')
            return static_cast<char>(character - 'a' + 'A');
        return character == '\r' || character == '\n' ? ' ' : character;
    }

    std::string_view m_bytes;
    size_t m_count;
};

template <class Reader> bool GivesRows(const Reader& text) noexcept
{
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
    case UT_ENCODING_UTF16_LE:
        return GivesRows(KeywordReader<2, 0>(sql.View()));
    case UT_ENCODING_UTF16_BE:
        return GivesRows(KeywordReader<2, 1>(sql.View()));
    case UT_ENCODING_UTF32:
        return false;
    default:
        return GivesRows(KeywordReader<1, 0>(sql.View()));
    }
}

} // namespace sql
