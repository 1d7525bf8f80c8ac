#pragma once

#include "text/TextBuilder.h"
#include "text/UtCString.h"

#include <string_view>

/// The statements of the edit bracket, in pieces that go into a text::TextBuilder of the connection's encoding.
namespace sql {

/// "INSERT INTO table SET ". Table names are not quoted outside of assignments.
void AppendInsertInto(text::TextBuilder& statement, const UtCString& table);

/// "UPDATE table SET ".
void AppendUpdate(text::TextBuilder& statement, const UtCString& table);

/// How the first assignment of a set list begins, and how each other one does.
inline constexpr std::string_view firstAssignment = "`";
inline constexpr std::string_view nextAssignment = ", `";

/// One assignment of a set list, `table`.`column` = value. Backticks in the names are doubled, so that a name cannot
/// end before its end.
void AppendAssignment(text::TextBuilder& statement, std::string_view beginning, const UtCString& table,
                      const UtCString& column, const UtCString& sqlValue);

/// " WHERE " and the condition, in parentheses unless it begins with one.
void AppendUpdateCondition(text::TextBuilder& statement, const UtCString& condition);

/// "DELETE FROM table WHERE" and the condition, in parentheses unless it begins with one; no blank in between.
void AppendDelete(text::TextBuilder& statement, const UtCString& table, const UtCString& condition);

/// Whether an unquoted table name can open a literal, a quoted name or a comment, which would swallow what follows in
/// the statement. With any other name that is none, an INSERT or UPDATE with a set list is refused by the server.
bool CanSwallowStatement(const UtCString& table);

/// Whether a table name is nothing but one name, or several joined by points: letters, digits, "_", "$", "-" and
/// characters beyond ASCII. Anything else could make another statement of a DELETE, in which it stands alone.
bool IsSingleName(const UtCString& table);

} // namespace sql
