#include "KeyFixture.h"
#include "harness/FailingAllocations.h" // the only source of this program that does

#include <functional>
#include <set>

namespace {

using namespace recordset_test;
using namespace std::literals;
using harness::AllocationFailure;

constexpr const char* longColumn = "a_column_with_a_name_that_does_not_fit_into_the_text_itself";
constexpr const char* longText = "a text with an ' that does not fit into the text itself";

/// How many allocations the work makes.
long Allocations(const std::function<void()>& work)
{
    return harness::ForEachAllocation(false, work);
}

/// Keys whose memory runs out, at each allocation in turn: once, or from there for good.
class KeyMemory : public KeyFixture, public testing::WithParamInterface<bool>
{
protected:
    KeyMemory()
    {
        m_client.OnListFields("ORDERS_WITH_A_LONG_NAME_OF_A_TABLE", {TextField(longColumn), NumberField("id")});
        m_records.SetTableName("orders_with_a_long_name_of_a_table");
        EXPECT_EQ(Bytes(CMyKey("id", 1, "=").CreateClause(&m_records)),
                  "(`orders_with_a_long_name_of_a_table`.`ID` = 1)"); // has the table in the cache
    }

    /// Runs the work with each allocation failing and gives the number of them. What it returns is one of `expected`.
    long Expect(const std::set<std::string>& expected, const std::function<UtCString()>& work)
    {
        return harness::ForEachAllocation(GetParam(), [&] {
            const UtCString text = work();
            AllocationFailure::allocationsLeft = -1;
            EXPECT_EQ(expected.count(Bytes(text)), 1u) << Bytes(text);
        });
    }

    OpenRecordSet m_records{m_database, "customer"};
    const std::string m_table = "(`orders_with_a_long_name_of_a_table`.";
    const std::string m_first = m_table + "`A_COLUMN_WITH_A_NAME_THAT_DOES_NOT_FIT_INTO_THE_TEXT_ITSELF` = "
                                          "'a text with an \\' that does not fit into the text itself')";
    const std::string m_failure = "CMyKey_CreateClause_Fail";
    const std::string m_unknown = "CMyKey_CreateClause_Field_Not_Exist_orders_with_a_long_name_of_a_table_";
    const UtCString m_column{longColumn};
    const UtCString m_value{longText};
};

TEST_P(KeyMemory, MakesTheWholeClauseOrAFailure)
{
    CMyKey key(m_column, m_value, "=");
    key.Add("id", 7, "<");
    const std::string whole = m_first + " AND " + m_table + "`ID` < 7)";
    const std::string unknown = m_unknown + "A_COLUMN_WITH_A_NAME_THAT_DOES_NOT_FIT_INTO_THE_TEXT_ITSELF";
    EXPECT_GT(Expect({whole, m_failure, unknown}, [&] { return key.CreateClause(&m_records); }), 0);
    EXPECT_EQ(Bytes(key.CreateClause(&m_records)), whole);
}

TEST_P(KeyMemory, MakesNoClauseOfAKeyThatLostACondition)
{
    const std::string whole = m_table + "`ID` = 7) AND " + m_first;
    EXPECT_GT(Expect({whole, m_failure},
                     [&] {
                         CMyKey key("id", 7, "=");
                         key.Add(m_column, m_value, "=");
                         AllocationFailure::allocationsLeft = -1;
                         EXPECT_FALSE(key.IsEmpty());
                         EXPECT_EQ(key.GetFieldCount() % 3, 0);
                         return key.CreateClause(&m_records);
                     }),
              0);
}

TEST_P(KeyMemory, LosesNoConditionUnseenWhateverTheValue)
{
    const std::vector<std::function<void(CMyKey&)>> additions = {
        [&](CMyKey& key) { key.Add("id", longText, "="); },
        [&](CMyKey& key) { key.Add("id", m_value, "LIKE"); },
        [&](CMyKey& key) { key.Add("id", -1.7976931348623157e308, "="); },
        [&](CMyKey& key) {
            key.Add("id", _GUID{1, 2, 3, {}}, "=");
        },
        [&](CMyKey& key) { key.Add("id", CDateTime(2023, 5, 7, 8, 9, 10), "="); },
        [&](CMyKey& key) { key.Add("id", 1, m_value); },
        [&](CMyKey& key) { key.Add("id", "", "="); },
        [&](CMyKey& key) { key.Add("id", true, "="); },
        [&](CMyKey& key) { static_cast<OpenKey&>(key).Append("id", m_value, "="); }};
    for (size_t index = 0; index < additions.size(); ++index) {
        long failures = harness::ForEachAllocation(GetParam(), [&] {
            const bool willFail = AllocationFailure::allocationsLeft >= 0;
            OpenKey key;
            additions[index](key);
            const bool failed = AllocationFailure::hasHappened;
            AllocationFailure::allocationsLeft = -1;
            EXPECT_TRUE(willFail);
            EXPECT_FALSE(key.IsEmpty()) << index;
            EXPECT_EQ(key.GetFieldCount(), failed ? 0 : 3) << index;
            EXPECT_EQ(Bytes(key.CreateClause(&m_records)) == m_failure, failed) << index;
        });
        EXPECT_GT(failures, 0) << index;
    }
}

TEST_P(KeyMemory, KnowsOfACopyThatItIsNotWhole)
{
    CMyKey key(m_column, m_value, "=");
    key.Add("id", 7, "<");
    const std::string whole = m_first + " AND " + m_table + "`ID` < 7)";
    const auto clauseOf = [&](const CMyKey& copy) {
        AllocationFailure::allocationsLeft = -1;
        EXPECT_FALSE(copy.IsEmpty());
        return copy.CreateClause(&m_records);
    };
    EXPECT_GT(Expect({whole, m_failure}, [&] { return clauseOf(CMyKey(key)); }), 0);
    EXPECT_GT(Expect({whole, m_failure},
                     [&] {
                         CMyKey copy;
                         copy = key;
                         return clauseOf(copy);
                     }),
              0);
}

TEST_P(KeyMemory, IsWholeAgainAfterClear)
{
    CMyKey key;
    AllocationFailure::hasHappened = false;
    AllocationFailure::allocationsLeft = 0;
    key.Add("id", 1, "=");
    AllocationFailure::allocationsLeft = -1;
    const CMyKey copy(key);
    EXPECT_EQ(Bytes(copy.CreateClause(&m_records)), m_failure);
    EXPECT_EQ(Bytes(copy.CreateOrderClause(&m_records)), "");
    CMyKey assigned("id", 2, "=");
    assigned = key;
    EXPECT_EQ(Bytes(assigned.CreateClause(&m_records)), m_failure);
    EXPECT_EQ(Bytes(key.CreateClause(nullptr)), "");
    key.Clear();
    EXPECT_TRUE(key.IsEmpty());
    key.Add("id", 1, "=");
    EXPECT_EQ(Bytes(key.CreateClause(&m_records)), m_table + "`ID` = 1)");
    assigned = key;
    EXPECT_EQ(Bytes(assigned.CreateClause(&m_records)), m_table + "`ID` = 1)");
}

TEST_P(KeyMemory, MakesTheWholeOrderOrNone)
{
    CMyKey key(m_column, 1, "<");
    key.Add("id", 7, "");
    EXPECT_GT(Expect({"orders_with_a_long_name_of_a_table.A_COLUMN_WITH_A_NAME_THAT_DOES_NOT_FIT_INTO_THE_TEXT_ITSELF "
                      "DESC, orders_with_a_long_name_of_a_table.ID",
                      ""},
                     [&] { return key.CreateOrderClause(&m_records); }),
              0);
}

INSTANTIATE_TEST_SUITE_P(Failing, KeyMemory, testing::Bool(),
                         [](const auto& test) { return test.param ? "ForGood" : "Once"; });

TEST_P(KeyMemory, TakesOneAllocationForAClauseOfLongNames)
{
    const CMyKey key(m_column, m_value, "=");
    EXPECT_EQ(Allocations([&] { key.CreateClause(&m_records); }), 1);
}

// --- How much memory is taken

using KeyAllocations = KeyFixture;

TEST_F(KeyAllocations, AreOneForAKeyOfThreeShortConditions)
{
    const CDateTime date(2023, 5, 7, 8, 9, 10);
    EXPECT_EQ(Allocations([&] {
                  CMyKey key("name", "O'Neil", "=");
                  key.Add("age", 30, ">").Add("deleted_at", date, "<");
              }),
              1);
}

TEST_F(KeyAllocations, AreOneForEachLongTextMore)
{
    const UtCString value(longText);
    const _GUID guid = {1, 2, 3, {}};
    EXPECT_EQ(Allocations([&] {
                  CMyKey key("name", value, "=");
                  key.Add("memo", longText, "LIKE").Add("picture", guid, "=");
              }),
              1 + 3);
}

TEST_F(KeyAllocations, AreOneForAClause)
{
    CMyKey key("name", longText, "=");
    key.Add("memo", longText, "LIKE").Add("age", 30, "<");
    EXPECT_NE(Clause(key), ""); // has the table in the cache
    EXPECT_EQ(Allocations([&] { key.CreateClause(&m_customers); }), 1);
}

TEST_F(KeyAllocations, AreOneForAClauseThatConverts)
{
    CMyDatabase database{Server("utf8mb4"), "shop"};
    const OpenRecordSet records(database, "customer");
    const CMyKey key("name", "M\xFCller \x80\x80\x80\x80\x80\x80\x80\x80\x80\x80\x80\x80\x80\x80\x80\x80", "=");
    EXPECT_NE(Bytes(key.CreateClause(&records)), "");
    EXPECT_EQ(Allocations([&] { key.CreateClause(&records); }), 1);
}

TEST_F(KeyAllocations, AreOneForTheItemsOfACopy)
{
    CMyKey key("name", "O'Neil", "=");
    for (int n = 0; n < 30; ++n)
        key.Add("age", n, "<>");
    EXPECT_EQ(Allocations([&] { const CMyKey copy(key); }), 1);
}

} // namespace
