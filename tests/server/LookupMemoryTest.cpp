#include "RecordSetFixture.h"

#include "CMyKey.h"
#include "CMyTable.h"
#include "harness/AllocationFailure.h"
#include "harness/MessageRecorder.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

using harness::AllocationFailure;
using server_test::OpenRecordSet;

const std::string table = "a_table_with_a_name_that_does_not_fit_into_the_text_itself";
const std::string column = "a_column_with_a_name_that_does_not_fit_into_the_text_itself";
const std::string value = "a value that doesn't fit into the text itself";
const std::string escapedValue = "a value that doesn\\'t fit into the text itself";

UtCString Text(const std::string& text)
{
    return UtCString(text.c_str());
}

/// Memory that runs out, at each allocation in turn: once, or from there for good.
class LookupMemory : public server_test::RecordSetFixture, public testing::WithParamInterface<bool>
{
protected:
    LookupMemory() : m_records(m_database, table.c_str())
    {
        Run("CREATE TABLE " + table + " (" + column + " VARCHAR(60), ID INT AUTO_INCREMENT PRIMARY KEY, N INT)");
        for (int row = 1; row <= 5; ++row)
            Run("INSERT INTO " + table + " VALUES ('" + escapedValue + "', " + std::to_string(row) + ", 1)");
        m_key.Add(Text(column), Text(value), "=").Add("ID", 4, "=");
        m_records.GetTableFieldPtr("ID"); // into the cache
        m_records.EnableAutoUserAndTimeStamp(false);
    }

    /// Runs the work for each allocation that can fail; it says whether its result is a documented one. Checks as well
    /// that nothing but the statement was sent, and that it was. Statements of the cache do not count.
    template <class Work> void ExpectWholeOrNothing(const std::string& statement, Work work)
    {
        const harness::GeneralLog log;
        bool isDocumented = true;
        const long failures = harness::ForEachAllocation(GetParam(), [&] {
            const bool result = work();
            AllocationFailure::allocationsLeft = -1;
            isDocumented = isDocumented && result;
        });
        EXPECT_GT(failures, 1);
        EXPECT_TRUE(isDocumented);
        const std::vector<std::string> sent = log.Statements(m_database.GetThreadID());
        EXPECT_NE(std::find(sent.begin(), sent.end(), statement), sent.end());
        for (const std::string& each : sent) {
            const bool isOfTheCache = each.starts_with("SHOW TABLE STATUS") && each != statement;
            if (!isOfTheCache && !IsRefused(each)) {
                EXPECT_EQ(each, statement);
            }
        }
    }

    /// Whether a statement has, for lack of memory, a text in place of its condition that the server refuses.
    static bool IsRefused(const std::string& statement)
    {
        return statement.find("CMyKey_CreateClause_") != std::string::npos;
    }

    std::string Condition() const
    {
        return "(`" + table + "`.`" + Bytes(Text(column).toUpper()) + "` = '" + escapedValue + "') AND (`" + table +
               "`.`ID` = 4)";
    }

    OpenRecordSet m_records;
    CMyKey m_key;
    harness::MessageRecorder m_messages;
    const UtCString m_column{column.c_str()};
};

INSTANTIATE_TEST_SUITE_P(OnceAndForGood, LookupMemory, testing::Bool());

TEST_P(LookupMemory, ASelectionByKeySendsItsStatementWholeOrNotAtAll)
{
    const UtCString order = Text(column + ", ID");
    ExpectWholeOrNothing(
        "SELECT " + column + " FROM `" + table + "` WHERE (" + Condition() + ") ORDER BY " + column + ", ID", [&] {
            const long rows = m_records.Select(m_key, m_column, order);
            return rows == 1 || (rows == -1 && !m_records.IsOpen());
        });
}

TEST_P(LookupMemory, ACountSendsItsStatementWholeOrNotAtAll)
{
    ExpectWholeOrNothing("SELECT COUNT(*) FROM `" + table + "` WHERE " + Condition(), [&] {
        const long count = m_records.CountSQL(m_key);
        return count == 1 || count == -1;
    });
}

TEST_P(LookupMemory, AnExistenceTestSendsItsStatementWholeOrNotAtAll)
{
    ExpectWholeOrNothing("SELECT '1' FROM `" + table + "` WHERE (" + Condition() + ") LIMIT 1", [&] {
        m_records.ExistRecord(m_key);
        return true;
    });
}

TEST_P(LookupMemory, AMaximumSendsItsStatementWholeOrNotAtAll)
{
    const UtCString tableName = Text(table);
    ExpectWholeOrNothing("SELECT MAX(" + table + "." + column + ") FROM " + table, [&] {
        const long maximum = m_records.GetMaxFieldValue(m_column, tableName);
        return maximum == 0 || maximum == -1;
    });
    const UtCString clause = "ID = 4 AND ID = 4 AND ID = 4 AND ID = 4";
    ExpectWholeOrNothing("SELECT " + table + ".* FROM " + table + " WHERE " + clause.string(), [&] {
        const long maximum = m_records.GetMaxValue(clause);
        return maximum == 0 || maximum == -1;
    });
}

TEST_P(LookupMemory, TheRowInsertedLastIsSelectedOrNot)
{
    const harness::GeneralLog log;
    bool isDocumented = true;
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        const long left = std::exchange(AllocationFailure::allocationsLeft, -1);
        m_database.ExecuteQuery(Text("INSERT INTO " + table + " (N) VALUES (2)"), false, nullptr, false);
        const long id = m_records.GetLastInsertedRecID();
        AllocationFailure::allocationsLeft = left;
        const bool isSelected = m_records.SelectLastInsertedRecord();
        AllocationFailure::allocationsLeft = -1;
        isDocumented = isDocumented && (!isSelected || m_records.GetFieldLong("ID") == id);
    });
    EXPECT_GT(failures, 1);
    EXPECT_TRUE(isDocumented);
    for (const std::string& statement : log.Statements(m_database.GetThreadID())) {
        if (statement.starts_with("SELECT") && !IsRefused(statement)) {
            EXPECT_NE(statement.find(" WHERE ((`" + table + "`.`ID` = "), std::string::npos) << statement;
        }
    }
}

TEST_P(LookupMemory, ASearchFindsNoTextThatItCouldNotRead)
{
    ASSERT_EQ(m_records.Select("ORDER BY ID"), 5);
    bool isDocumented = true;
    const long failures = harness::ForEachAllocation(
        GetParam(), [&] { isDocumented = isDocumented && m_records.FindRow(m_column, "x", 0, true, nullptr) == -1; });
    EXPECT_GT(failures, 1);
    EXPECT_TRUE(isDocumented);
}

TEST_P(LookupMemory, ASearchTakesNoMemoryForEachRow)
{
    ASSERT_EQ(m_records.Select("ORDER BY ID"), 5);
    m_records.MoveTo(0); // which makes the index of the rows
    const long allocations =
        harness::ForEachAllocation(GetParam(), [&] { m_records.FindRow(m_column, "x", 0, true, nullptr); });
    EXPECT_EQ(allocations, 1);
}

TEST_P(LookupMemory, ARowIsCopiedWholeOrNotWritten)
{
    CMyRecordSet source(m_database, table.c_str());
    ASSERT_EQ(source.Select("ID = 4"), 1);
    const harness::GeneralLog log;
    long copies = 0;
    bool isDocumented = true;
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        const long left = std::exchange(AllocationFailure::allocationsLeft, -1);
        m_records.AppendStart();
        AllocationFailure::allocationsLeft = left;
        const bool isCopied = m_records.CopyRecord(source);
        AllocationFailure::allocationsLeft = -1;
        copies += isCopied;
        isDocumented = isDocumented && m_records.AppendEnd() == isCopied;
    });
    EXPECT_GT(failures, 3);
    EXPECT_GE(copies, 1);
    EXPECT_TRUE(isDocumented);
    const std::string whole = "INSERT INTO " + table + " SET `" + table + "`.`" + Bytes(m_column.toUpper()) + "` = '" +
                              escapedValue + "', `" + table + "`.`N` = 1";
    for (const std::string& statement : log.Statements(m_database.GetThreadID())) {
        if (!statement.starts_with("SHOW TABLE STATUS")) {
            EXPECT_EQ(statement, whole);
        }
    }
}

TEST_P(LookupMemory, ATableIsCountedAndMeasuredByItsWholeNameOrNotAtAll)
{
    const CMyTable handle(&m_database, table.c_str());
    ExpectWholeOrNothing("SELECT COUNT(*) FROM `" + table + "`", [&] {
        const long count = handle.GetRecordCount();
        return count == 5 || count == -1;
    });
    ExpectWholeOrNothing("SHOW TABLE STATUS FROM `" + m_temporary.Name() + "` LIKE '" + table + "'", [&] {
        const __int64 size = handle.GetTableDataSize();
        return size == 16384 || size == 0;
    });
}

TEST_P(LookupMemory, AColumnListIsWholeOrEmpty)
{
    const CMyTable handle(&m_database, table.c_str());
    const UtCString all = handle.GetFields("");
    const UtCString exclude = Text("ID, " + column);
    const UtCString withoutN = Text("`" + Bytes(m_column.toUpper()) + "`, `ID`");
    bool isAllOrNothing = true;
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        const UtCString list = handle.GetFields("");
        const UtCString rest = handle.GetFields(exclude);
        const UtCString removed = handle.RemoveFieldsFromFieldList(all, "N");
        AllocationFailure::allocationsLeft = -1;
        isAllOrNothing = isAllOrNothing && (list.IsEmpty() || list == all) && (rest.IsEmpty() || rest == "`N`") &&
                         (removed.IsEmpty() || removed == withoutN);
    });
    EXPECT_GT(failures, 3);
    EXPECT_TRUE(isAllOrNothing);
}

} // namespace
