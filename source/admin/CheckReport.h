#pragma once

#include "CMyRecordSet.h"
#include "sql/TableCheck.h"

#include <algorithm>

namespace admin {

/// The answer to a CHECK TABLE, read row by row. A statement that fails has no rows; it is shown in a message box. All
/// rows are in memory: one that breaks off is a statement that has failed.
class CheckReport
{
public:
    /// Sends the statement, which must not be empty.
    CheckReport(CMyDatabase& database, const UtCString& statement);

    /// Goes through the rows and calls `visit` with each.
    template <class Visit> void ForEachRow(Visit&& visit)
    {
        for (bool isRow = m_hasRows; isRow; isRow = m_rows.MoveNext())
            visit(Row());
    }

    /// The worst that a row says. Calls `describe` with each row that says something bad.
    template <class Describe> sql::Damage WorstDamage(Describe&& describe)
    {
        sql::Damage worst = sql::Damage::None;
        ForEachRow([&](const sql::CheckRow& row) {
            const sql::Damage damage = sql::DamageOf(row);
            if (damage != sql::Damage::None)
                describe(row);
            worst = std::max(worst, damage);
        });
        return worst;
    }

private:
    sql::CheckRow Row() const; ///< by position: the columns are Table, Op, Msg_type and Msg_text

    CMyRecordSet m_rows;
    bool m_hasRows;
};

} // namespace admin
