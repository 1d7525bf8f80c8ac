#include "EditFixture.h"

#include <algorithm>

namespace {

/// A statement with T in place of every date and every date with time.
std::string WithoutTimes(std::string statement)
{
    std::string shape = statement;
    std::replace_if(
        shape.begin(), shape.end(), [](char character) { return character >= '0' && character <= '9'; }, '0');
    for (const std::string pattern : {"'0000-00-00 00:00:00'", "'0000-00-00'"}) {
        for (size_t at = shape.find(pattern); at != std::string::npos; at = shape.find(pattern)) {
            statement.replace(at, pattern.size(), "T");
            shape.replace(at, pattern.size(), "T");
        }
    }
    return statement;
}

using fake::Reply;
using recordset_test::DateField;
using recordset_test::EditedRecordSet;
using recordset_test::KeyField;
using recordset_test::Server;
using recordset_test::TextField;

/// A record set on the table "t" with all four stamp columns.
class Stamps : public recordset_test::EditFixture
{
protected:
    Stamps() { List({"ERFASST", "ERF_TIME", "MUTATOR", "MUT_TIME"}); }

    void List(const std::vector<std::string>& stampColumns)
    {
        std::vector<fake::Field> fields = {KeyField("ID")};
        for (const std::string& column : stampColumns)
            fields.push_back(column.ends_with("TIME") ? DateField(column) : TextField(column));
        m_client.OnListFields("T", fields);
        CFieldCache::Instance().RemoveAll();
    }

    /// The one statement, with the time that it holds written as T.
    std::string Statement() const { return Changes().empty() ? "none" : WithoutTimes(Changes().back()); }
};

TEST_F(Stamps, AreSetByAnInsert)
{
    records.AppendStart();
    records.SetFieldLong("ID", 1);
    EXPECT_TRUE(records.AppendEnd());
    EXPECT_EQ(Statement(), "INSERT INTO t SET `t`.`ID` = 1, `t`.`ERF_TIME` = T, `t`.`ERFASST` = 'tester'");
}

TEST_F(Stamps, AreSetByAnUpdate)
{
    records.ModifyStart("ID = 1");
    records.SetFieldLong("ID", 2);
    EXPECT_TRUE(records.ModifyEnd());
    EXPECT_EQ(Statement(), "UPDATE t SET `t`.`ID` = 2, `t`.`MUT_TIME` = T, `t`.`MUTATOR` = 'tester' WHERE (ID = 1)");
}

TEST_F(Stamps, AreNotSetByADelete)
{
    records.ModifyStart("ID = 1");
    records.DeleteRec();
    EXPECT_TRUE(records.ModifyEnd());
    EXPECT_EQ(Statement(), "DELETE FROM t WHERE(ID = 1)");
}

TEST_F(Stamps, AreEnoughForAStatement)
{
    records.AppendStart();
    EXPECT_TRUE(records.AppendEnd());
    EXPECT_EQ(Statement(), "INSERT INTO t SET `t`.`ERF_TIME` = T, `t`.`ERFASST` = 'tester'");
    records.ModifyStart("ID = 1");
    EXPECT_TRUE(records.ModifyEnd());
    EXPECT_EQ(Statement(), "UPDATE t SET `t`.`MUT_TIME` = T, `t`.`MUTATOR` = 'tester' WHERE (ID = 1)");
}

TEST_F(Stamps, HoldTheLocalTimeOfNow)
{
    CDateTime before;
    before.SetCurrentDateTime();
    records.AppendEnd();
    CDateTime after;
    after.SetCurrentDateTime();
    const std::string statement = Changes().back();
    const size_t at = statement.find('\'') + 1;
    CDateTime stamped;
    ASSERT_TRUE(stamped.ConvertDate(UtCString(statement.substr(at, statement.find('\'', at) - at).c_str())));
    EXPECT_GE(stamped.GetValue(), before.GetValue() - 1e-9);
    EXPECT_LE(stamped.GetValue(), after.GetValue() + 1e-9);
}

TEST_F(Stamps, AskTheServerOnlyForATableThatIsNotCached)
{
    records.AppendEnd();
    EXPECT_EQ(m_client.CountOf("mysql_list_fields"), 1U);
    m_client.ForgetCalls();
    records.AppendEnd();
    EXPECT_EQ(m_client.CountOf("mysql_list_fields"), 0U);
    EXPECT_EQ(m_client.Statements().size(), 1U);
}

TEST_F(Stamps, AreBothSetOrNeither)
{
    for (const std::vector<std::string>& columns :
         {std::vector<std::string>{"ERFASST", "MUTATOR"}, {"ERF_TIME", "MUT_TIME"}, {}}) {
        List(columns);
        records.AppendStart();
        records.SetFieldLong("ID", 1);
        EXPECT_TRUE(records.AppendEnd());
        EXPECT_EQ(Statement(), "INSERT INTO t SET `t`.`ID` = 1");
        records.ModifyStart("ID = 1");
        records.SetFieldLong("ID", 2);
        EXPECT_TRUE(records.ModifyEnd());
        EXPECT_EQ(Statement(), "UPDATE t SET `t`.`ID` = 2 WHERE (ID = 1)");
        EXPECT_FALSE(records.SetUserAndTimeStamp(true));
        EXPECT_FALSE(records.SetUserAndTimeStamp(false));
    }
}

TEST_F(Stamps, OfTheOtherKindAreNotNeeded)
{
    List({"ERFASST", "ERF_TIME"});
    EXPECT_TRUE(records.SetUserAndTimeStamp(true));
    EXPECT_FALSE(records.SetUserAndTimeStamp(false));
    List({"mutator", "mut_time"});
    EXPECT_FALSE(records.SetUserAndTimeStamp(true));
    EXPECT_TRUE(records.SetUserAndTimeStamp(false));
}

TEST_F(Stamps, CanBeSwitchedOff)
{
    EXPECT_TRUE(records.IsAutoUserAndTimeStampEnabled());
    records.EnableAutoUserAndTimeStamp(false);
    EXPECT_FALSE(records.IsAutoUserAndTimeStampEnabled());
    EXPECT_FALSE(records.SetUserAndTimeStamp(true));
    records.AppendStart();
    records.SetFieldLong("ID", 1);
    EXPECT_TRUE(records.AppendEnd());
    EXPECT_EQ(Statement(), "INSERT INTO t SET `t`.`ID` = 1");
    records.EnableAutoUserAndTimeStamp(true);
    EXPECT_TRUE(records.SetUserAndTimeStamp(true));
}

TEST_F(Stamps, Kept_K98_OverrideTheValuesOfTheCaller)
{
    records.AppendStart();
    records.SetFieldText("ERFASST", "somebody");
    records.SetFieldLong("ID", 1);
    records.SetFieldDate("ERF_TIME", CDateTime(1999, 1, 1, 0, 0, 0));
    EXPECT_TRUE(records.AppendEnd());
    EXPECT_EQ(Statement(), "INSERT INTO t SET `t`.`ERFASST` = 'tester', `t`.`ID` = 1, `t`.`ERF_TIME` = T");
    EXPECT_EQ(Changes().back().find("1999"), std::string::npos);
}

struct UserRow
{
    const char* user;
    const char* stamp;
};

TEST_F(Stamps, CarryTheUserUpToTheFirstUnderscoreOrColon)
{
    const UserRow rows[] = {
        {"meier", "'meier'"},     {"meier_admin", "'meier'"},
        {"meier_a_b", "'meier'"}, {"meier:x", "'meier'"},
        {"meier:x:y", "'meier'"}, {"a:b_c", "'a:b'"},
        {"a_b:c", "'a'"},         {"_meier", "''"},
        {":meier", "''"},         {"", "''"},
        {"o'neil", "'o\\'neil'"}, {"null", "null"},
        {"Meier M", "'Meier M'"},
    };
    for (const UserRow& row : rows) {
        m_database.GetServer().SetUser(row.user);
        records.AppendStart();
        EXPECT_TRUE(records.AppendEnd());
        EXPECT_EQ(Statement(), std::string("INSERT INTO t SET `t`.`ERF_TIME` = T, `t`.`ERFASST` = ") + row.stamp);
    }
}

TEST_F(Stamps, CarryTheUserAsAText)
{
    m_client.OnListFields("T", {TextField("ERFASST", 8), DateField("ERF_TIME")});
    CFieldCache::Instance().RemoveAll();
    m_database.GetServer().SetUser(UtCString("m\xC3\xBC\xD0\x96", UT_ENCODING_UTF8));
    records.AppendStart();
    EXPECT_TRUE(records.AppendEnd());
    // of the last two letters latin1 has the first
    EXPECT_EQ(Statement(), "INSERT INTO t SET `t`.`ERF_TIME` = T, `t`.`ERFASST` = 'm\xC3\xBC?'");
}

TEST_F(Stamps, NeedAConnection)
{
    records.SetDatabase(nullptr, "");
    EXPECT_FALSE(records.SetUserAndTimeStamp(true));
}

} // namespace
