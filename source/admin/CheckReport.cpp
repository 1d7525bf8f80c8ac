#include "admin/CheckReport.h"

#include "admin/RowText.h"

namespace admin {

// KEPT K-145: a check that cannot run has no rows, and finds nothing.
CheckReport::CheckReport(CMyDatabase& database, const UtCString& statement)
    : m_rows(database, UtCString()), m_hasRows(m_rows.Select(statement, true, true) > 0)
{
}

sql::CheckRow CheckReport::Row() const
{
    return {RowText(m_rows, 0UL), RowText(m_rows, 2UL), RowText(m_rows, 3UL)};
}

} // namespace admin
