#include "EditFixture.h"

#include "CMyKey.h"
#include "harness/AllocationFailure.h"

#include <functional>
#include <utility>

// Memory that runs out, at each allocation in turn: a statement is sent whole or not at all.

namespace {

using harness::AllocationFailure;
using server_test::EditedRecordSet;

constexpr const char* longTable = "a_table_with_a_name_that_does_not_fit_into_the_text_itself";
constexpr const char* longColumn = "A_COLUMN_WITH_A_NAME_THAT_DOES_NOT_FIT_INTO_THE_TEXT_ITSELF";
constexpr const char* longText = "a text that doesn't fit into the text itself, with an apostrophe";
constexpr const char* escapedText = "'a text that doesn\\'t fit into the text itself, with an apostrophe'";

class EditMemory : public server_test::EditFixture, public testing::WithParamInterface<bool>
{
protected:
    EditMemory()
    {
        Run(std::string("CREATE TABLE ") + longTable + " (ID INT, KEYB INT, " + longColumn +
            " VARCHAR(100), D DOUBLE, DT DATETIME, G CHAR(38), B BLOB, F FLOAT, PRIMARY KEY (ID, KEYB))");
        for (int id = 1; id <= 3; ++id)
            Run(std::string("INSERT INTO ") + longTable + " (ID, KEYB) VALUES (" + std::to_string(id) + ", 1)");
        CFieldCache::Instance().GetOrLoad(&m_edited, longTable);
        m_log.Mark();
    }

    /// Runs the bracket with the n-th allocation failing; before each run the record set is new. `edit` is true when
    /// its End was. Whether the answer and what was sent agree is checked for every run.
    void ForEachAllocation(const std::string& whole, const std::function<bool(EditedRecordSet&)>& edit)
    {
        long done = 0;
        long sent = 0;
        const long failures = harness::ForEachAllocation(GetParam(), [&] {
            const long left = std::exchange(AllocationFailure::allocationsLeft, -1);
            m_edited.Ping();
            auto edited = std::make_unique<EditedRecordSet>(m_edited, longTable);
            edited->Select(std::string("SELECT * FROM ").append(longTable).append(" WHERE ID = 2").c_str(), false,
                           true);
            m_log.Mark();
            AllocationFailure::allocationsLeft = left;
            const bool isDone = edit(*edited);
            AllocationFailure::allocationsLeft = -1;
            done += isDone;
            for (const std::string& statement : Sent()) {
                if (statement.starts_with("SELECT") || statement.starts_with("SHOW"))
                    continue;
                ++sent;
                // A key without memory gives a condition that the server refuses.
                if (statement != whole && !statement.ends_with(" WHERE (CMyKey_CreateClause_Fail)"))
                    wrong = statement;
            }
        });
        EXPECT_GT(failures, 3);
        EXPECT_GE(done, 1);
        EXPECT_GE(sent, done);
        EXPECT_EQ(wrong, "");
    }

    std::string Name(const char* column) const { return std::string("`") + longTable + "`.`" + column + "`"; }

    std::string wrong;
    const UtCString m_column{longColumn};
    const UtCString m_text{longText};
};

INSTANTIATE_TEST_SUITE_P(OnceAndForGood, EditMemory, testing::Bool());

TEST_P(EditMemory, AnUpdateNeverLacksAValueOrItsCondition)
{
    const UtCString condition("ID = 2 AND KEYB = 1 AND 'a condition that is long' <> ''");
    const CDateTime date(2024, 3, 5, 14, 7, 9);
    const _GUID guid{0x6B29FC40, 0xCA47, 0x1067, {0xB3, 0x1D, 0x00, 0xDD, 0x01, 0x06, 0x62, 0xDA}};
    CByteArray bytes;
    bytes.SetSize(40);
    std::string zeros;
    for (int n = 0; n < 40; ++n)
        zeros += "\\0";
    const std::string whole =
        std::string("UPDATE ") + longTable + " SET " + Name(longColumn) + " = " + escapedText + ", " + Name("D") +
        " = -1.7976931348623157e+308, " + Name("DT") + " = '2024-03-05 14:07:09', " + Name("G") +
        " = '{6b29fc40-ca47-1067-b31d-00dd010662da}', " + Name("B") + " = '" + zeros + "', " + Name("F") +
        " = 340282346638528859811704183484516925440.00000000 WHERE (" + condition.string() + ")";
    ForEachAllocation(whole, [&](EditedRecordSet& edited) {
        edited.ModifyStart(condition); // results are ignored on purpose: the End must know
        edited.SetFieldText(m_column, "replaced below");
        edited.SetFieldDouble("D", -1.7976931348623157e308);
        edited.SetFieldDate("DT", date);
        edited.SetFieldGUID("G", guid);
        edited.SetFieldBlob("B", bytes);
        edited.SetFieldFloat("F", 3.4028234663852886e38F);
        edited.SetFieldText(m_column, m_text);
        return edited.ModifyEnd();
    });
}

TEST_P(EditMemory, AnInsertNeverLacksAValue)
{
    const std::string whole = std::string("INSERT INTO ") + longTable + " SET " + Name("ID") + " = 5, " + Name("KEYB") +
                              " = 1, " + Name(longColumn) + " = " + escapedText;
    long sent = 0;
    ForEachAllocation(whole, [&](EditedRecordSet& edited) {
        edited.AppendStart();
        edited.SetFieldLong("ID", 5);
        edited.SetFieldLong("KEYB", 1);
        edited.SetFieldText(m_column, m_text);
        const bool isAppended = edited.AppendEnd();
        sent += isAppended;
        return isAppended;
    });
    EXPECT_EQ(sent, 1); // the key allows one
}

TEST_P(EditMemory, ADeleteNeverLacksItsCondition)
{
    const UtCString condition("ID = 99 OR 'a condition that is long' = 'another text'");
    const std::string whole = std::string("DELETE FROM ") + longTable + " WHERE(" + condition.string() + ")";
    long sent = 0;
    harness::ForEachAllocation(GetParam(), [&] {
        EditedRecordSet edited;
        {
            const long left = std::exchange(AllocationFailure::allocationsLeft, -1);
            edited.SetDatabase(&m_edited, longTable);
            AllocationFailure::allocationsLeft = left;
        }
        edited.ModifyStart(condition);
        edited.DeleteRec();
        edited.ModifyEnd();
        AllocationFailure::allocationsLeft = -1;
    });
    for (const std::string& statement : Sent()) {
        EXPECT_EQ(statement, whole);
        ++sent;
    }
    EXPECT_GE(sent, 1);
    EXPECT_EQ(Text(std::string("SELECT COUNT(*) FROM ") + longTable), "3");
}

TEST_P(EditMemory, AKeyNeverLacksACondition)
{
    const std::string whole = std::string("UPDATE ") + longTable + " SET " + Name("D") + " = 5 WHERE (" + Name("ID") +
                              " = TRUE) AND (" + Name("KEYB") + " = TRUE)";
    ForEachAllocation(whole, [&](EditedRecordSet& edited) {
        edited.ModifyStart();
        edited.SetFieldDouble("D", 5);
        return edited.ModifyEnd();
    });
}

TEST_P(EditMemory, TheSetClauseIsWholeOrEmpty)
{
    class Clause : public EditedRecordSet
    {
    public:
        using EditedRecordSet::CreateSetClause;
        using EditedRecordSet::EditedRecordSet;
    } edited(m_edited, longTable);
    edited.SetFieldText(m_column, m_text);
    edited.SetFieldLong("ID", 5);
    const std::string whole = Name(longColumn) + " = " + escapedText + ", " + Name("ID") + " = 5";
    bool isWholeOrEmpty = true;
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        UtCString clause(UT_ENCODING_UTF8);
        edited.CreateSetClause(clause);
        isWholeOrEmpty = isWholeOrEmpty && (clause.IsEmpty() || clause.View() == whole);
    });
    EXPECT_GE(failures, 1);
    EXPECT_TRUE(isWholeOrEmpty);
}

} // namespace
