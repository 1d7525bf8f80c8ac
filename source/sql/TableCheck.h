#pragma once

#include "sql/StatementBuilder.h"

#include <climits>

namespace sql {

// The statements that check and repair tables, in `encoding`. Names stand in backticks and are not escaped. Empty,
// never a part, when there is no memory.

/// For one table.
UtCString CheckTable(const UtCString& database, const UtCString& table, eUtEncodingType encoding) noexcept;

/// For the tables of a table list text.
UtCString CheckTables(const UtCString& tables, eUtEncodingType encoding) noexcept;

/// For all tables of a database, and for one that nobody has: the list ends with a comma, behind which the server takes
/// the word FAST for the name of a table and QUICK for the only option.
class DatabaseCheck
{
public:
    DatabaseCheck(const UtCString& database, eUtEncodingType encoding) noexcept;

    void Add(const UtCString& table) noexcept;
    UtCString Take() noexcept; ///< The statement; to be called once.

    /// The text between table and message in a description of damage: the number 32 with as many decimals as the
    /// longest table name has more characters than the shortest.
    UtCString Filler() const noexcept;

private:
    UtCString m_database;
    eUtEncodingType m_encoding;
    StatementBuilder m_statement;
    int m_shortestName = INT_MAX;
    int m_longestName = 0;
};

enum class RepairOption
{
    Extended, ///< row by row, by the index file
    UseFrm    ///< from the table's definition, without the index file
};

/// For the tables of a table list text.
UtCString RepairTables(const UtCString& tables, RepairOption option, eUtEncodingType encoding) noexcept;

/// A row of the answer to CHECK TABLE or REPAIR TABLE.
struct CheckRow
{
    UtCString table;   ///< with its database, "shop.orders"
    UtCString type;    ///< Msg_type
    UtCString message; ///< Msg_text
};

/// What one row says about a table. The greater is the worse.
enum class Damage
{
    None,       ///< no row of the type "error", in any letter case
    Repairable, ///< an error
    Fatal       ///< an error that speaks of a definition file, or of a data file that is not found
};

Damage DamageOf(const CheckRow& row) noexcept;

/// Whether a row of a repair says that a table is not sound: the type "error", or the type "status" with any text but
/// "ok". The text in any letter case, the types exactly so.
bool IsFailedRepair(const UtCString& type, const UtCString& message) noexcept;

/// The list that a repair goes by which checks first, after the row of a check: a row that is no error adds its table
/// if the list is that table.
void AddCheckedTable(const CheckRow& row, UtCString& list);

// A description of damage has a line for each row that is an error, "\n" between them. The line is in the encoding of
// the description; when memory runs out the description loses what it has.

/// Appends "table: message".
void AppendTableError(const CheckRow& row, UtCString& description) noexcept;

/// Appends the line for one of several tables, which begins with six blanks.
void AppendDatabaseError(const CheckRow& row, const UtCString& filler, UtCString& description) noexcept;

// What a person is told about a damaged database, in encoding 256. Empty, never a part, when there is no memory.

/// Ends with the question whether to repair it.
UtCString RepairableMessage(const UtCString& database, const UtCString& description) noexcept;
UtCString NotRepairableMessage(const UtCString& database, const UtCString& description) noexcept;

} // namespace sql
