#include "sql/EditStatement.h"

#include <algorithm>

namespace sql {
namespace {

void AppendKeyword(text::TextBuilder& statement, std::string_view keyword)
{
    statement.Append(keyword, UT_ENCODING_DEFAULT);
}

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
    AppendKeyword(statement, "(");
    statement.AppendText(condition);
    AppendKeyword(statement, ")");
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
    AppendKeyword(statement, "INSERT INTO ");
    statement.AppendText(table);
    AppendKeyword(statement, " SET ");
}

void AppendUpdate(text::TextBuilder& statement, const UtCString& table)
{
    AppendKeyword(statement, "UPDATE ");
    statement.AppendText(table);
    AppendKeyword(statement, " SET ");
}

void AppendAssignment(text::TextBuilder& statement, std::string_view beginning, const UtCString& table,
                      const UtCString& column, const UtCString& sqlValue)
{
    AppendKeyword(statement, beginning);
    AppendQuotedName(statement, table);
    AppendKeyword(statement, "`.`");
    AppendQuotedName(statement, column);
    AppendKeyword(statement, "` = ");
    statement.AppendText(sqlValue);
}

void AppendUpdateCondition(text::TextBuilder& statement, const UtCString& condition)
{
    AppendKeyword(statement, " WHERE ");
    AppendInParentheses(statement, condition);
}

void AppendDelete(text::TextBuilder& statement, const UtCString& table, const UtCString& condition)
{
    AppendKeyword(statement, "DELETE FROM ");
    statement.AppendText(table);
    AppendKeyword(statement, " WHERE");
    AppendInParentheses(statement, condition);
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
