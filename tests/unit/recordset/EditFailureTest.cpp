#include "CMyKey.h"
#include "EditFixture.h"

#include "harness/FailurePoints.h"

// The bracket when the server does not answer, and what it refuses to send.

namespace {

using fake::Call;
using fake::Reply;
using harness::FailureRun;
using recordset_test::Bytes;
using recordset_test::DateField;
using recordset_test::EditedRecordSet;
using recordset_test::KeyField;
using recordset_test::Server;
using recordset_test::TextField;
using Statements = std::vector<std::string>;

void PrepareServer()
{
    fake::Client& client = fake::Client::Get();
    CFieldCache::Instance().RemoveAll();
    client.OnListFields("T", {KeyField("ID"), TextField("NAME"), TextField("MUTATOR"), DateField("MUT_TIME"),
                              TextField("ERFASST"), DateField("ERF_TIME")});
    client.OnPrefix("INSERT", Reply::Ok(1));
    client.OnPrefix("UPDATE", Reply::Ok(1, 0, "Rows matched: 1  Changed: 1  Warnings: 0"));
    client.OnPrefix("DELETE", Reply::Ok(1));
    client.OnPrefix("SELECT", Reply::Rows(std::vector<fake::Field>{KeyField("ID"), TextField("NAME")}, {{"1", "x"}}));
}

void ExpectOutcome(const EditedRecordSet& records, bool succeeded)
{
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
    EXPECT_EQ(records.GetModifyErrorCode(), succeeded ? 1 : 0);
    EXPECT_FALSE(records.GetModifyErrorMessage().IsEmpty());
}

void ExpectUsable(EditedRecordSet& records)
{
    EXPECT_TRUE(records.AppendStart());
    EXPECT_TRUE(records.SetFieldText("NAME", "O'Neil"));
    EXPECT_TRUE(records.AppendEnd());
    EXPECT_TRUE(records.ModifyStart("ID = 1"));
    EXPECT_TRUE(records.DeleteRec());
    EXPECT_TRUE(records.ModifyEnd());
}

/// Every statement that was sent carries everything that it was to carry.
void ExpectWholeStatements(const std::string& start, const std::vector<std::string>& parts)
{
    for (const std::string& statement : fake::Client::Get().Statements()) {
        for (const std::string& part : parts) {
            EXPECT_TRUE(!statement.starts_with(start) || statement.find(part) != std::string::npos) << statement;
        }
    }
}

class EditFailures : public testing::TestWithParam<bool>
{
protected:
    static void ForEachFailure(const std::function<void(FailureRun&, EditedRecordSet&)>& scenario)
    {
        harness::FailurePlan plan;
        plan.persistent = GetParam();
        const size_t points = harness::ForEachFailurePoint(
            PrepareServer,
            [&](FailureRun& run) {
                CMyDatabase database(Server("utf8mb4"), "shop");
                EditedRecordSet records(database, "t");
                if (!records.GetTableName().IsEmpty()) // it is bound only when there was a connection
                    scenario(run, records);
                run.EndOfWork();
                EXPECT_TRUE(records.SetDatabase(&database, "t"));
                ExpectUsable(records);
            },
            plan);
        EXPECT_GE(points, 3U);
    }
};

INSTANTIATE_TEST_SUITE_P(OnceAndForGood, EditFailures, testing::Bool());

TEST_P(EditFailures, OfAnInsert)
{
    ForEachFailure([](FailureRun& run, EditedRecordSet& records) {
        EXPECT_TRUE(records.AppendStart());
        EXPECT_TRUE(records.SetFieldLong("ID", 7));
        const bool isSet = records.SetFieldText("NAME", "O'Neil");
        const bool isAppended = records.AppendEnd();
        ExpectOutcome(records, isAppended);
        EXPECT_TRUE(isSet || !isAppended);
        ExpectWholeStatements("INSERT", {"`t`.`ID` = 7", "`t`.`NAME` = 'O\\'Neil'"});
        if (run.Failed(Call::Query, "INSERT") && (!run.IsLostConnection() || GetParam())) {
            EXPECT_FALSE(isAppended);
        }
    });
}

TEST_P(EditFailures, OfAnUpdate)
{
    ForEachFailure([](FailureRun& run, EditedRecordSet& records) {
        records.ModifyStart("ID = 7");
        const bool isSet = records.SetFieldText("NAME", "O'Neil");
        const bool isModified = records.ModifyEnd();
        ExpectOutcome(records, isModified);
        EXPECT_TRUE(isSet || !isModified);
        ExpectWholeStatements("UPDATE", {"`t`.`NAME` = 'O\\'Neil'", " WHERE (ID = 7)"});
        if (run.Failed(Call::Query, "UPDATE") && (!run.IsLostConnection() || GetParam())) {
            EXPECT_FALSE(isModified);
        }
    });
}

TEST_P(EditFailures, OfADelete)
{
    ForEachFailure([](FailureRun& run, EditedRecordSet& records) {
        records.ModifyStart("ID = 7");
        EXPECT_TRUE(records.DeleteRec());
        const bool isDeleted = records.ModifyEnd();
        ExpectOutcome(records, isDeleted);
        ExpectWholeStatements("DELETE", {" WHERE(ID = 7)"});
        if (run.Failed(Call::Query, "DELETE") && (!run.IsLostConnection() || GetParam())) {
            EXPECT_FALSE(isDeleted);
        }
    });
}

TEST_P(EditFailures, OfTheCurrentRowsKey)
{
    ForEachFailure([](FailureRun&, EditedRecordSet& records) {
        records.Select("");
        if (!records.ModifyStart()) {
            EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
            return;
        }
        EXPECT_TRUE(records.DeleteRec());
        ExpectOutcome(records, records.ModifyEnd());
        ExpectWholeStatements("DELETE", {" WHERE(`t`.`ID` = "});
    });
}

class EditRefusals : public recordset_test::EditFixture
{
};

TEST_F(EditRefusals, AServerGoneWithinTheBracketIsReconnectedTo)
{
    records.AppendStart();
    records.SetFieldLong("ID", 7);
    m_client.LoseConnection();
    EXPECT_TRUE(records.SetFieldText("NAME", "O'Neil"));
    EXPECT_TRUE(records.AppendEnd());
    EXPECT_EQ(Changes().back(), "INSERT INTO t SET `t`.`ID` = 7, `t`.`NAME` = 'O\\'Neil'");
}

TEST_F(EditRefusals, AServerGoneForGoodIsReported)
{
    records.AppendStart();
    records.SetFieldLong("ID", 7);
    m_client.LoseConnection();
    m_client.FailAlways(Call::Connect, 2003, "Can't connect");
    EXPECT_FALSE(records.AppendEnd());
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
    EXPECT_EQ(records.GetModifyErrorMessage(), "2003: Can't connect");
}

TEST_F(EditRefusals, AValueThatNobodyCanEscapeIsNeverLeftOut)
{
    records.ModifyStart("ID = 1");
    EXPECT_TRUE(records.SetFieldLong("ID", 7));
    m_database.Close();
    m_client.FailAlways(Call::Connect, 2003, "Can't connect");
    EXPECT_FALSE(records.SetFieldText("NAME", "O'Neil"));
    EXPECT_FALSE(records.SetFieldBuffer("NAME", "x", 1));
    m_client.Succeed(Call::Connect);
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
    EXPECT_FALSE(records.GetModifyErrorMessage().IsEmpty());
    EXPECT_FALSE(records.AppendEnd());
    EXPECT_TRUE(Changes().empty());
    records.ModifyStart("ID = 1");
    EXPECT_TRUE(records.SetFieldText("NAME", "O'Neil"));
    EXPECT_TRUE(records.ModifyEnd());
}

TEST_F(EditRefusals, BytesBeyondTheLongestValueAreNeverLeftOut)
{
    records.AppendStart();
    EXPECT_TRUE(records.SetFieldLong("ID", 7));
    EXPECT_FALSE(records.SetFieldBuffer("NAME", "x", 2147483648UL));
    EXPECT_FALSE(records.SetFieldBuffer("NAME", "x", 4294967295UL));
    EXPECT_FALSE(records.AppendEnd());
    EXPECT_EQ(records.GetModifyErrorMessage(), "2008: Out of memory");
    EXPECT_TRUE(Changes().empty());
    EXPECT_TRUE(records.SetFieldBuffer("NAME", nullptr, 4294967295UL)); // is NULL whatever the number
}

TEST_F(EditRefusals, AClosedConnectionIsOpenedToEscapeAValue)
{
    records.AppendStart();
    m_database.Close();
    EXPECT_TRUE(records.SetFieldText("NAME", "O'Neil"));
    m_database.Close();
    EXPECT_TRUE(records.SetFieldBuffer("ID", "x", 1));
    EXPECT_TRUE(records.AppendEnd());
    EXPECT_EQ(Changes().back(), "INSERT INTO t SET `t`.`NAME` = 'O\\'Neil', `t`.`ID` = 'x'");
}

TEST_F(EditRefusals, StampsAreNotLeftOutForATableThatCouldNotBeAskedBefore)
{
    m_client.OnListFieldsError("T", 2002);
    records.AppendStart();
    records.SetFieldText("NAME", "x");
    m_client.OnListFields("T", {TextField("ERFASST"), DateField("ERF_TIME")});
    EXPECT_TRUE(records.AppendEnd());
    EXPECT_NE(Changes().back().find("`t`.`ERFASST` = 'tester'"), std::string::npos);
}

TEST_F(EditRefusals, WithoutAConnectionNothingIsSent)
{
    EditedRecordSet unbound;
    unbound.SetTableName("t");
    EXPECT_TRUE(unbound.AppendStart());
    EXPECT_TRUE(unbound.SetFieldText("NAME", "Neil"));
    EXPECT_FALSE(unbound.AppendEnd());
    EXPECT_EQ(unbound.GetModifyErrorMessage(), "Keine Verbindung zum Server!");
    EXPECT_FALSE(unbound.SetFieldText("NAME", "O'Neil"));
    EXPECT_FALSE(unbound.AppendEnd());
    EXPECT_EQ(unbound.GetModifyErrorMessage(), "Keine Verbindung zum Server!");
    unbound.ModifyStart("ID = 1");
    unbound.DeleteRec();
    EXPECT_FALSE(unbound.ModifyEnd());
    EXPECT_EQ(unbound.GetModifyErrorMessage(), "Keine Verbindung zum Server!");
}

TEST_F(EditRefusals, AStatementWithAZeroByteIsNotSent)
{
    const std::string message = "1064: The statement holds a zero byte and was not sent";
    records.ModifyStart(UtCString(std::string_view("(1 = 1)\0 AND (ID = 1)", 21), UT_ENCODING_UTF8));
    records.DeleteRec();
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_EQ(Bytes(records.GetModifyErrorMessage()), message);
    EXPECT_EQ(m_database.GetErrorCode(), 1064U);
    records.ModifyStart("ID = 1");
    records.SetFieldOperation("ID", UtCString(std::string_view("5\0", 2), UT_ENCODING_UTF8));
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_EQ(Bytes(records.GetModifyErrorMessage()), message);
    m_client.SetNoBackslashEscapes(true);
    records.AppendStart();
    EXPECT_TRUE(records.SetFieldText("NAME", UtCString(std::string_view("a\0b", 3), UT_ENCODING_UTF8)));
    EXPECT_FALSE(records.AppendEnd());
    EXPECT_EQ(Bytes(records.GetModifyErrorMessage()), message);
    EXPECT_TRUE(Changes().empty());
}

TEST_F(EditRefusals, SettingsInUtf16SendNothing)
{
    m_database.GetServer().SetCharset("utf16le");
    records.AppendStart();
    records.SetFieldLong("ID", 7);
    EXPECT_FALSE(records.AppendEnd());
    EXPECT_TRUE(Changes().empty());
    EXPECT_EQ(Bytes(records.GetModifyErrorMessage()), "1064: The statement holds a zero byte and was not sent");
}

TEST_F(EditRefusals, ATableNameThatCouldSwallowTheStatementIsNotSent)
{
    for (const char* name : {"t -- ", "t#", "t/*", "a'b", "a\"b", "a`b"}) {
        records.SetTableName(name);
        records.AppendStart();
        records.SetFieldLong("ID", 7);
        EXPECT_FALSE(records.AppendEnd());
        const std::string message = std::string("1103: Incorrect table name '") + name + "'";
        EXPECT_EQ(Bytes(records.GetModifyErrorMessage()), message);
        EXPECT_EQ(m_database.GetErrorCode(), 1103U);
        records.ModifyStart("ID = 1");
        records.SetFieldLong("ID", 7);
        EXPECT_FALSE(records.ModifyEnd());
        EXPECT_EQ(Bytes(records.GetModifyErrorMessage()), message);
        records.ModifyStart("ID = 1");
        records.DeleteRec();
        EXPECT_FALSE(records.ModifyEnd());
        EXPECT_EQ(Bytes(records.GetModifyErrorMessage()), message);
    }
    EXPECT_TRUE(Changes().empty());
}

TEST_F(EditRefusals, ATableNameThatIsOneIsSentWhateverTheServerSays)
{
    for (const std::string name : {"order", "db.t", "a-b", "T_1$", "K\xC3\xBC\x63he", "5"}) {
        m_client.ForgetCalls();
        records.SetTableName(UtCString(name, UT_ENCODING_UTF8));
        records.AppendStart();
        records.SetFieldLong("ID", 7);
        EXPECT_TRUE(records.AppendEnd());
        records.ModifyStart("ID = 1");
        records.SetFieldLong("ID", 7);
        EXPECT_TRUE(records.ModifyEnd());
        records.ModifyStart("ID = 1");
        records.DeleteRec();
        EXPECT_TRUE(records.ModifyEnd());
        EXPECT_EQ(Changes(), (Statements{"INSERT INTO " + name + " SET `" + name + "`.`ID` = 7",
                                         "UPDATE " + name + " SET `" + name + "`.`ID` = 7 WHERE (ID = 1)",
                                         "DELETE FROM " + name + " WHERE(ID = 1)"}));
    }
}

TEST_F(EditRefusals, ATableNameWithBlanksIsLeftToTheServerUnlessItStandsAlone)
{
    records.SetTableName("my t");
    records.AppendStart();
    records.SetFieldLong("ID", 7);
    records.AppendEnd();
    records.ModifyStart("ID = 1");
    records.SetFieldLong("ID", 7);
    records.ModifyEnd();
    records.ModifyStart("ID = 1");
    records.DeleteRec();
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_EQ(records.GetModifyErrorMessage(), "1103: Incorrect table name 'my t'");
    EXPECT_EQ(Changes(),
              (Statements{"INSERT INTO my t SET `my t`.`ID` = 7", "UPDATE my t SET `my t`.`ID` = 7 WHERE (ID = 1)"}));
}

TEST_F(EditRefusals, ATableThatIsNotThereIsAskedForOncePerBracket)
{
    records.SetTableName("nowhere");
    records.EnableAutoUserAndTimeStamp(false);
    records.AppendStart();
    for (const char* column : {"A", "B", "C"})
        records.SetFieldText(column, "x");
    EXPECT_EQ(m_client.CountOf("mysql_list_fields"), 1U);
    EXPECT_TRUE(records.AppendEnd());
    EXPECT_EQ(m_client.CountOf("mysql_list_fields"), 1U);
    records.AppendStart();
    records.SetFieldNull("A");
    EXPECT_EQ(m_client.CountOf("mysql_list_fields"), 2U);
}

TEST_F(EditRefusals, ASetterThatASelectFollowsStartsAnew)
{
    m_database.Close();
    m_client.FailAlways(Call::Connect, 2003);
    EXPECT_FALSE(records.SetFieldText("NAME", "O'Neil"));
    m_client.Succeed(Call::Connect);
    m_client.OnPrefix("SELECT", Reply::Rows(std::vector<fake::Field>{TextField("NAME")}, {{"x"}}));
    EXPECT_EQ(records.Select(""), 1);
    records.SetFieldText("NAME", "Neil");
    EXPECT_TRUE(records.AppendEnd());
}

} // namespace
