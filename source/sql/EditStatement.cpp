#include "sql/EditStatement.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace sql {
namespace {

void AppendQuotedName(text::TextBuilder& statement, const UtCString& name)
{
    if (name.View().find('`') == std::string_view::npos)
        return statement.AppendText(name);
    const UtCString doubled = name.replace("`", "``");
    if (doubled.IsEmpty())
        statement.Fail();
    statement.AppendText(doubled);
}

void AppendInParentheses(text::TextBuilder& statement, const UtCString& condition)
{
    if (condition.StartsWith("(", true))
        return statement.AppendText(condition);
    statement.AppendAscii("(");
    statement.AppendText(condition);
    statement.AppendAscii(")");
}

bool IsNameByte(char byte) noexcept
{
    const bool isLetter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
    const bool isDigit = byte >= '0' && byte <= '9';
    const bool isBeyondAscii = (static_cast<unsigned char>(byte) & 0x80) != 0;
    return isLetter || isDigit || isBeyondAscii || byte == '_' || byte == '$' || byte == '-' || byte == '.';
}

} // namespace

void AppendInsertInto(text::TextBuilder& statement, const UtCString& table)
{
    statement.AppendAscii("INSERT INTO ");
    statement.AppendText(table);
    statement.AppendAscii(" SET ");
}

void AppendUpdate(text::TextBuilder& statement, const UtCString& table)
{
    statement.AppendAscii("UPDATE ");
    statement.AppendText(table);
    statement.AppendAscii(" SET ");
}

SetList::SetList(text::TextBuilder& statement, const UtCString& table)
    : m_statement(statement), m_beginning(statement.GetEncodingType())
{
    text::TextBuilder beginning(statement.GetEncodingType());
    beginning.AppendAscii("`");
    AppendQuotedName(beginning, table);
    beginning.AppendAscii("`.`");
    m_beginning = beginning.Take();
    if (m_beginning.IsEmpty())
        m_statement.Fail();
}

void SetList::Add(const UtCString& column, const UtCString& sqlValue)
{
    if (!m_isEmpty)
        m_statement.AppendAscii(", ");
    m_isEmpty = false;
    m_statement.AppendText(m_beginning);
    AppendQuotedName(m_statement, column);
    m_statement.AppendAscii("` = ");
    m_statement.AppendText(sqlValue);
}

void AppendUpdateCondition(text::TextBuilder& statement, const UtCString& condition)
{
    statement.AppendAscii(" WHERE ");
    AppendInParentheses(statement, condition);
}

void AppendDelete(text::TextBuilder& statement, const UtCString& table, const UtCString& condition)
{
    statement.AppendAscii("DELETE FROM ");
    statement.AppendText(table);
    statement.AppendAscii(" WHERE");
    AppendInParentheses(statement, condition);
}

int32_t RowFigure(std::string_view info, int32_t otherwise) noexcept
{
    constexpr std::string_view digits = "0123456789";
    for (int token = 0; token < 2; ++token) {
        info.remove_prefix(std::min(info.find_first_of(digits), info.size()));
        int64_t number = 0;
        const auto [end, error] = std::from_chars(info.data(), info.data() + info.size(), number);
        if (error == std::errc())
            return static_cast<int32_t>(std::min<int64_t>(number, INT32_MAX));
        info.remove_prefix(static_cast<size_t>(end - info.data()));
    }
    return otherwise;
}

bool CanSwallowStatement(const UtCString& table)
{
    const UtCString inUtf8(table, UT_ENCODING_UTF8);
    const std::string_view name = inUtf8.View();
    return name.find_first_of("'\"`#") != std::string_view::npos || name.find("--") != std::string_view::npos ||
           name.find("/*") != std::string_view::npos || name.empty();
}

bool IsSingleName(const UtCString& table)
{
    if (CanSwallowStatement(table))
        return false;
    const UtCString inUtf8(table, UT_ENCODING_UTF8);
    return std::all_of(inUtf8.View().begin(), inUtf8.View().end(), IsNameByte);
}

} // namespace sql
