#pragma once

#include "text/TextBuilder.h"
#include "text/UtCString.h"

#include <cstdint>
#include <string_view>

/// The statements of the edit bracket, in pieces that go into a text::TextBuilder of the connection's encoding.
namespace sql {

/// "INSERT INTO table SET ". Table names are not quoted outside of assignments.
void AppendInsertInto(text::TextBuilder& statement, const UtCString& table);

/// "UPDATE table SET ".
void AppendUpdate(text::TextBuilder& statement, const UtCString& table);

/// A set list: assignments of the form `table`.`column` = value, separated by a comma and a blank. Backticks in the
/// names are doubled, so that a name cannot end before its end.
class SetList
{
public:
    /// Appends to a statement, which must outlive the list.
    SetList(text::TextBuilder& statement, const UtCString& table);

    void Add(const UtCString& column, const UtCString& sqlValue);

private:
    text::TextBuilder& m_statement;
    UtCString m_beginning; ///< of the next assignment, up to the column's name
    bool m_isEmpty = true;
};

/// " WHERE " and the condition, in parentheses unless it begins with one.
void AppendUpdateCondition(text::TextBuilder& statement, const UtCString& condition);

/// "DELETE FROM table WHERE" and the condition, in parentheses unless it begins with one; no blank in between.
void AppendDelete(text::TextBuilder& statement, const UtCString& table, const UtCString& condition);

/// The number of rows in what the server says about an update, "Rows matched: 1  Changed: 0  Warnings: 0": its first
/// number, the second when the first is beyond 64 bits. At most 2147483647; `otherwise` when there is none.
int32_t RowFigure(std::string_view info, int32_t otherwise) noexcept;

/// Whether an unquoted table name can open a literal, a quoted name or a comment, which would swallow what follows in
/// the statement. With any other name that is none, an INSERT or UPDATE with a set list is refused by the server.
bool CanSwallowStatement(const UtCString& table);

/// Whether a table name is nothing but one name, or several joined by points: letters, digits, "_", "$", "-" and
/// characters beyond ASCII. Anything else could make another statement of a DELETE, in which it stands alone.
bool IsSingleName(const UtCString& table);

} // namespace sql
