#include "RecordSetFixture.h"

#include "harness/AllocationFailure.h"

#include <utility>
#include <vector>

namespace {

using harness::AllocationFailure;
using server_test::OpenRecordSet;

/// Takes no part in what fails, for the set-up and the checks of a run.
class WithMemory
{
public:
    WithMemory() : m_allocationsLeft(std::exchange(AllocationFailure::allocationsLeft, -1)) {}
    WithMemory(const WithMemory&) = delete;
    WithMemory& operator=(const WithMemory&) = delete;
    ~WithMemory() { AllocationFailure::allocationsLeft = m_allocationsLeft; }

private:
    long m_allocationsLeft;
};

constexpr const char* longTable = "a_table_with_a_name_that_does_not_fit_into_the_text_itself";
constexpr const char* longColumn = "a_column_with_a_name_that_does_not_fit_into_the_text_itself";
constexpr const char* longText = "a text that does not fit into the text itself";

/// Memory that runs out, at each allocation in turn: once, or from there for good.
class RecordSetMemory : public server_test::RecordSetFixture, public testing::WithParamInterface<bool>
{
protected:
    RecordSetMemory()
    {
        Run(std::string("CREATE TABLE ") + longTable + " (ID INT PRIMARY KEY, B INT, C INT, " + longColumn +
            " VARCHAR(60) CHARACTER SET utf8mb4)");
        for (int id = 1; id <= 12; ++id)
            Run(std::string("INSERT INTO ") + longTable + " VALUES (" + std::to_string(id) + ", 2, 3, '" + longText +
                "')");
    }

    /// The n-th run begins with an open record set and fails at the n-th allocation of `work`.
    template <class Prepare, class Work> long ForEachAllocation(Prepare prepare, Work work)
    {
        return harness::ForEachAllocation(GetParam(), [&] {
            std::unique_ptr<OpenRecordSet> records;
            {
                const WithMemory memory;
                records = std::make_unique<OpenRecordSet>(m_database, longTable);
                prepare(*records);
            }
            work(*records);
            AllocationFailure::allocationsLeft = -1;
        });
    }

    std::string AllRows() const { return std::string("SELECT * FROM ") + longTable + " ORDER BY ID"; }

    const UtCString m_column{longColumn};
};

INSTANTIATE_TEST_SUITE_P(OnceAndForGood, RecordSetMemory, testing::Bool());

TEST_P(RecordSetMemory, ASelectSendsItsStatementWholeOrNotAtAll)
{
    const UtCString condition("ID = 7 AND B = 2 AND C = 3 AND NOT (ID IS NULL)");
    const std::string whole =
        std::string("SELECT ") + longTable + ".* FROM " + longTable + " WHERE " + condition.string();
    const harness::GeneralLog log;
    bool isAllOrNothing = true;
    const long failures = ForEachAllocation([](OpenRecordSet&) {},
                                            [&](OpenRecordSet& records) {
                                                const long rows = records.Select(condition);
                                                const WithMemory memory;
                                                const bool isFailed = rows == -1 && !records.IsOpen() &&
                                                                      records.IsEOF() && records.GetFieldCount() == 0;
                                                const bool isDone = rows == 1 && records.GetFieldLong(0UL) == 7;
                                                isAllOrNothing = isAllOrNothing && (isFailed || isDone);
                                            });
    EXPECT_GT(failures, 3);
    EXPECT_TRUE(isAllOrNothing);
    for (const std::string& statement : log.Statements(m_database.GetThreadID()))
        EXPECT_EQ(statement, whole);
}

TEST_P(RecordSetMemory, TheWholeTableIsSelectedByItsNameOrNotAtAll)
{
    const harness::GeneralLog log;
    bool isAllOrNothing = true;
    ForEachAllocation([](OpenRecordSet&) {},
                      [&](OpenRecordSet& records) {
                          const long rows = records.Select(UtCString());
                          isAllOrNothing = isAllOrNothing && (rows == -1 || rows == 12);
                      });
    EXPECT_TRUE(isAllOrNothing);
    for (const std::string& statement : log.Statements(m_database.GetThreadID()))
        EXPECT_EQ(statement, std::string("SELECT * FROM ") + longTable);
}

TEST_P(RecordSetMemory, AStreamStandsOnItsFirstRowOrFails)
{
    const UtCString statement(AllRows().c_str());
    bool isConsistent = true;
    const long failures = ForEachAllocation([](OpenRecordSet&) {},
                                            [&](OpenRecordSet& records) {
                                                const bool isSelected = records.SelectLargeResult(statement);
                                                const WithMemory memory;
                                                isConsistent = isConsistent && isSelected == records.IsOpen() &&
                                                               isSelected == (records.GetFieldLong(0UL) == 1) &&
                                                               records.Select("ID < 4") == 3;
                                            });
    EXPECT_GT(failures, 3);
    EXPECT_TRUE(isConsistent);
}

TEST_P(RecordSetMemory, AMoveReachesItsRowOrTheEnd)
{
    bool isConsistent = true;
    const long failures = ForEachAllocation([&](OpenRecordSet& records) { records.Select(AllRows().c_str()); },
                                            [&](OpenRecordSet& records) {
                                                const bool isMoved = records.MoveTo(5);
                                                const WithMemory memory;
                                                isConsistent = isConsistent && isMoved == !records.IsEOF() &&
                                                               isMoved == (records.GetFieldLong(0UL) == 6) &&
                                                               records.MoveTo(2) && records.GetFieldLong(0UL) == 3 &&
                                                               records.GetFieldDataLen(3UL) == 45;
                                            });
    EXPECT_GT(failures, 1);
    EXPECT_TRUE(isConsistent);
}

TEST_P(RecordSetMemory, AColumnIsFoundOrNotAndFoundLater)
{
    const UtCString inUtf8(m_column, UT_ENCODING_UTF8);
    for (const char* limit : {" LIMIT 3", " LIMIT 12"}) {
        bool isConsistent = true;
        const long failures = ForEachAllocation(
            [&](OpenRecordSet& records) { records.Select((AllRows() + limit).c_str()); },
            [&](OpenRecordSet& records) {
                unsigned long no = 99;
                const bool isFound = records.GetFieldNo(inUtf8, no);
                const WithMemory memory;
                isConsistent = isConsistent && no == (isFound ? 3U : 0U) && records.GetFieldNo(inUtf8, no) && no == 3;
            });
        EXPECT_GT(failures, 0) << limit;
        EXPECT_TRUE(isConsistent) << limit;
    }
}

TEST_P(RecordSetMemory, ReadingTheValuesOfARowNeedsNone)
{
    for (const char* limit : {" LIMIT 3", " LIMIT 12"}) {
        UtCString text(UT_ENCODING_UTF8);
        long sum = 0;
        const auto read = [&](OpenRecordSet& records) {
            sum += records.GetFieldText(m_column, text) && records.GetFieldText(3UL, text);
            sum += records.GetFieldLong("ID") + records.GetFieldLong(0UL) + (records.GetFieldInt64("B") == 2);
            sum += records.GetFieldDouble(m_column) == 0.0 && records.GetFieldDate(m_column).IsNull();
            sum += records.GetFieldValue(m_column) != nullptr && !records.IsFieldEmpty(m_column);
            sum += static_cast<long>(records.GetFieldDataLen(m_column));
        };
        const long failures = ForEachAllocation(
            [&](OpenRecordSet& records) {
                records.Select((AllRows() + limit).c_str());
                read(records); // learns names and encodings
                sum = 0;
            },
            [&](OpenRecordSet& records) {
                records.MoveNext();
                read(records);
            });
        EXPECT_EQ(failures, 0) << limit;
        EXPECT_EQ(sum, 1 + 2 + 2 + 1 + 1 + 1 + 45) << limit;
    }
}

TEST_P(RecordSetMemory, ABlobIsCopiedWholeOrNotAtAll)
{
    bool isAllOrNothing = true;
    const long failures = ForEachAllocation([&](OpenRecordSet& records) { records.Select(AllRows().c_str()); },
                                            [&](OpenRecordSet& records) {
                                                CByteArray bytes;
                                                const bool isCopied = records.GetFieldBlob(3UL, bytes);
                                                isAllOrNothing =
                                                    isAllOrNothing && bytes.GetSize() == (isCopied ? 45 : 0);
                                            });
    EXPECT_EQ(failures, 1);
    EXPECT_TRUE(isAllOrNothing);
}

TEST_P(RecordSetMemory, EveryReaderAnswersOrGivesUp)
{
    const long failures = ForEachAllocation(
        [&](OpenRecordSet& records) {
            CFieldCache::Instance().RemoveAll();
            records.Select(AllRows().c_str());
        },
        [&](OpenRecordSet& records) {
            UtCString text(UT_ENCODING_UTF16_LE);
            unsigned int nr = 0;
            records.GetFieldText(m_column, text);
            records.GetFieldValue(m_column);
            records.GetFieldLong(m_column);
            records.GetFieldDouble(m_column);
            records.GetFieldDate(m_column);
            records.GetFieldGUID(m_column);
            records.IsFieldEmpty(m_column);
            records.GetFieldDataPtr(m_column);
            records.GetFieldName(3);
            records.GetFieldCharsetNr(m_column, nr);
            records.GetFieldCharsetNr(3UL, nr);
            records.GetFieldSize(m_column);
            records.GetFieldTypeString(m_column);
            records.GetField(m_column);
            records.GetTableFieldPtr(m_column);
            records.GetErrorMessage();
            records.IsValidTable();
            records.SetTableName(m_column);
            records.SetDatabase(&m_database, m_column);
            records.Close();
        });
    EXPECT_GT(failures, 10);
}

TEST_P(RecordSetMemory, ExistTableAsksForTheWholeNameOrNotAtAll)
{
    const UtCString name(longTable);
    const harness::GeneralLog log;
    long successes = 0;
    const long failures =
        ForEachAllocation([](OpenRecordSet&) {}, [&](OpenRecordSet&) { successes += m_database.ExistTable(name); });
    EXPECT_GT(failures, 1);
    EXPECT_GE(successes, 1);
    const std::string whole = "SHOW TABLES FROM " + m_temporary.Name() + " LIKE '" + name.toUpper().string() + "'";
    for (const std::string& statement : log.Statements(m_database.GetThreadID()))
        EXPECT_EQ(statement, whole);
}

} // namespace
