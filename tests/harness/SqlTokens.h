#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

// Reads a statement, or a part of one, as the server's lexer does, for tests that ask how many text literals, names and
// operators a text really has. Written from the server's rules and independent of the library.
namespace harness {

struct SqlToken
{
    enum Kind
    {
        Word,       ///< letters, digits, "_", "$" and bytes from 0x80 on, also numbers
        QuotedName, ///< between backticks; `text` is the name
        Text,       ///< between apostrophes or double quotes; `text` is the value that the server sees
        Operator,   ///< one of the characters of punctuation, or "<=", ">=", "<>", "!=", "<=>", ":=", "||", "&&"
        Comment,    ///< without its marks
        Broken      ///< a literal, name or comment that does not end
    };

    Kind kind;
    std::string text;

    bool operator==(const SqlToken&) const = default;
};

enum class BackslashMode
{
    Escapes, ///< the server's default
    IsPlain  ///< NO_BACKSLASH_ESCAPES
};

/// For texts in UTF-8 and in single-byte character sets, where every byte below 0x80 is a character.
class SqlTokenizer
{
public:
    explicit SqlTokenizer(std::string_view sql, BackslashMode mode = BackslashMode::Escapes)
        : m_sql(sql), m_hasEscapes(mode == BackslashMode::Escapes)
    {
    }

    std::vector<SqlToken> Tokens()
    {
        std::vector<SqlToken> tokens;
        while (SkipBlanks())
            tokens.push_back(Next());
        return tokens;
    }

private:
    static bool IsBlank(char character) { return character == ' ' || (character >= '\t' && character <= '\r'); }
    static bool IsWordCharacter(char character)
    {
        return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
               (character >= 'a' && character <= 'z') || character == '_' || character == '$' ||
               static_cast<unsigned char>(character) >= 0x80;
    }

    bool SkipBlanks()
    {
        while (m_at < m_sql.size() && IsBlank(m_sql[m_at]))
            ++m_at;
        return m_at < m_sql.size();
    }

    bool Follows(std::string_view text) const { return m_sql.substr(m_at, text.size()) == text; }

    SqlToken Next()
    {
        const char first = m_sql[m_at];
        if (first == '\'' || first == '"')
            return Quoted(SqlToken::Text, m_hasEscapes);
        if (first == '`')
            return Quoted(SqlToken::QuotedName, false);
        if (first == '#' || (Follows("--") && (m_at + 2 == m_sql.size() || IsBlank(m_sql[m_at + 2]))))
            return LineComment(first == '#' ? 1 : 2);
        if (Follows("/*"))
            return BlockComment();
        return IsWordCharacter(first) ? Word() : Operator();
    }

    SqlToken Quoted(SqlToken::Kind kind, bool hasEscapes)
    {
        const char quote = m_sql[m_at++];
        std::string text;
        while (m_at < m_sql.size()) {
            const char character = m_sql[m_at++];
            if (character == '\\' && hasEscapes && m_at < m_sql.size()) {
                AppendEscaped(text, m_sql[m_at++]);
            } else if (character != quote) {
                text += character;
            } else if (m_at < m_sql.size() && m_sql[m_at] == quote) {
                text += quote;
                ++m_at;
            } else {
                return {kind, text};
            }
        }
        return {SqlToken::Broken, text};
    }

    /// A backslash stays in front of the wildcards of LIKE and is left out everywhere else.
    static void AppendEscaped(std::string& text, char character)
    {
        constexpr std::string_view names("0nrtbZ", 6);
        constexpr std::string_view meanings("\0\n\r\t\b\x1A", 6);
        if (character == '%' || character == '_')
            text += '\\';
        const size_t named = names.find(character);
        text += named == names.npos ? character : meanings[named];
    }

    SqlToken LineComment(size_t markSize)
    {
        const size_t begin = m_at + markSize;
        m_at = std::min(m_sql.find('\n', m_at), m_sql.size());
        return {SqlToken::Comment, std::string(m_sql.substr(begin, m_at - begin))};
    }

    SqlToken BlockComment()
    {
        const size_t begin = m_at + 2;
        const size_t end = m_sql.find("*/", begin);
        m_at = end == m_sql.npos ? m_sql.size() : end + 2;
        const std::string text(m_sql.substr(begin, end == m_sql.npos ? end : end - begin));
        return {end == m_sql.npos ? SqlToken::Broken : SqlToken::Comment, text};
    }

    SqlToken Word()
    {
        const size_t begin = m_at;
        while (m_at < m_sql.size() && IsWordCharacter(m_sql[m_at]))
            ++m_at;
        return {SqlToken::Word, std::string(m_sql.substr(begin, m_at - begin))};
    }

    SqlToken Operator()
    {
        for (const std::string_view several : {"<=>", "<=", ">=", "<>", "!=", ":=", "||", "&&"})
            if (Follows(several)) {
                m_at += several.size();
                return {SqlToken::Operator, std::string(several)};
            }
        return {SqlToken::Operator, std::string(1, m_sql[m_at++])};
    }

    std::string_view m_sql;
    size_t m_at = 0;
    bool m_hasEscapes;
};

inline std::vector<SqlToken> SqlTokens(std::string_view sql, BackslashMode mode = BackslashMode::Escapes)
{
    return SqlTokenizer(sql, mode).Tokens();
}

} // namespace harness
