#pragma once

#include "sql/StatementBuilder.h"
#include "text/UtCStringList.h"

namespace sql {

/// The statement that lists the tables of the current database, in `encoding`: all of them for an empty `pattern`,
/// otherwise those that it matches. The pattern is neither quoted nor escaped: "_" and "%" are its wildcards, an
/// apostrophe ends it. Empty, never a part, when there is no memory.
UtCString ShowTables(const UtCString& pattern, eUtEncodingType encoding) noexcept;

/// A table list text: the names of tables, each in backticks, separated by a comma and a blank, as statements about
/// several tables take it. A name goes in as it is: one with a backtick makes a statement that the server refuses.
class TableListText
{
public:
    explicit TableListText(eUtEncodingType encoding) noexcept : m_text(encoding) {}

    void Add(const UtCString& name) noexcept;
    /// The text, without a separator at its end. Empty without a name, and, never a part, when there was no memory.
    UtCString Take() noexcept { return m_text.Take().trimRight(", "); }

private:
    StatementBuilder m_text;
};

/// Replaces `names` by the names of a table list text, without backticks and blanks at their ends; what is empty then
/// is left out. The text is cut at every comma, also within a name. Throws std::bad_alloc.
void SplitTableList(const UtCString& listText, UtCStringList& names);

} // namespace sql
