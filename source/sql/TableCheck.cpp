#include "sql/TableCheck.h"

#include <algorithm>

namespace sql {
namespace {

bool ContainsNoCase(const UtCString& text, const char* part) noexcept
{
    const text::Tagged whole{text.View(), text.GetEncodingType()};
    return text::Find(whole, 0, {part, UT_ENCODING_DEFAULT}, text::LetterCase::Ignored).IsFound();
}

bool IsError(const UtCString& type) noexcept
{
    return type.EqualNoCase("error");
}

void AppendLine(const UtCString& line, UtCString& description) noexcept
{
    StatementBuilder addition(description.GetEncodingType());
    if (!description.IsEmpty())
        addition << "\n";
    description += (addition << line).Take();
}

constexpr const char* damaged = "Die Datenbank ";
constexpr const char* beforeDescription = "\n\n\nFehlerbeschreibung:\n";

} // namespace

UtCString CheckTable(const UtCString& database, const UtCString& table, eUtEncodingType encoding) noexcept
{
    // KEPT K-144: with these options nobody looks into the data file.
    return (StatementBuilder(encoding) << "CHECK TABLE `" << database << "`.`" << table << "` FAST QUICK").Take();
}

UtCString CheckTables(const UtCString& tables, eUtEncodingType encoding) noexcept
{
    return (StatementBuilder(encoding) << "CHECK TABLE " << tables << " FAST QUICK").Take();
}

DatabaseCheck::DatabaseCheck(const UtCString& database, eUtEncodingType encoding) noexcept
    : m_database(database), m_encoding(encoding), m_statement(encoding)
{
    m_statement << "CHECK TABLE ";
}

void DatabaseCheck::Add(const UtCString& table) noexcept
{
    m_statement << " `" << m_database << "`.`" << table << "`, ";
    m_shortestName = std::min(m_shortestName, table.GetLength());
    m_longestName = std::max(m_longestName, table.GetLength());
}

UtCString DatabaseCheck::Take() noexcept
{
    return (m_statement << " FAST QUICK").Take(); // KEPT K-140: behind the comma of the last table.
}

UtCString DatabaseCheck::Filler() const noexcept
{
    // KEPT K-148: a number, where a column of blanks was meant.
    return UtCString(32.0, m_longestName - m_shortestName, m_encoding);
}

UtCString RepairTables(const UtCString& tables, RepairOption option, eUtEncodingType encoding) noexcept
{
    const char* const word = option == RepairOption::UseFrm ? " USE_FRM" : " EXTENDED";
    return (StatementBuilder(encoding) << "REPAIR TABLE " << tables << word).Take();
}

Damage DamageOf(const CheckRow& row) noexcept
{
    if (!IsError(row.type))
        return Damage::None;
    const bool lacksDefinition = ContainsNoCase(row.message, ".FRM");
    const bool lacksData = ContainsNoCase(row.message, ".MYD") && ContainsNoCase(row.message, " not found ");
    return lacksDefinition || lacksData ? Damage::Fatal : Damage::Repairable;
}

bool IsFailedRepair(const UtCString& type, const UtCString& message) noexcept
{
    // KEPT K-143: a warning about rows that were dropped is no failure.
    // KEPT K-147: the types in exactly this letter case, which is not the one of every server's rows.
    return type == "error" || (type == "status" && !message.EqualNoCase("ok"));
}

void AddCheckedTable(const CheckRow& row, UtCString& list)
{
    // KEPT K-141: the list is empty at first, so no table ever equals it.
    if (IsError(row.type) || !list.EqualNoCase(row.table))
        return;
    list += row.table;
    list += ", ";
}

void AppendTableError(const CheckRow& row, UtCString& description) noexcept
{
    AppendLine((StatementBuilder(description.GetEncodingType()) << row.table << ": " << row.message).Take(),
               description);
}

void AppendDatabaseError(const CheckRow& row, const UtCString& filler, UtCString& description) noexcept
{
    StatementBuilder line(description.GetEncodingType());
    line << "      " << row.table << ":" << filler << " \t" << row.message;
    AppendLine(line.Take(), description);
}

UtCString RepairableMessage(const UtCString& database, const UtCString& description) noexcept
{
    StatementBuilder text(UT_ENCODING_DEFAULT);
    text << damaged << database
         << " ist defekt, kann aber wahrscheinlich repariert werden.\n"
            "Erstellen Sie zuerst eine Datensicherung dieser Datenbank bevor Sie die\n"
            "Reparatur durchf\xFChren."
         << beforeDescription << description
         << "\n\n\nM\xF6"
            "chten Sie die Datenbank jetzt reparieren?\n\n";
    return text.Take();
}

UtCString NotRepairableMessage(const UtCString& database, const UtCString& description) noexcept
{
    StatementBuilder text(UT_ENCODING_DEFAULT);
    text << damaged << database
         << " ist defekt und kann NICHT repariert werden!\n"
            "Sie m\xFCssen diese Datenbank von Ihrer Datensicherung zur\xFC"
            "ckholen."
         << beforeDescription << description << "\n\n\n";
    return text.Take();
}

} // namespace sql
