#include "EditFixture.h"

namespace {

using fake::Reply;
using recordset_test::Bytes;
using recordset_test::DateField;
using recordset_test::EditedRecordSet;
using recordset_test::KeyField;
using recordset_test::Server;
using recordset_test::TextField;
using Statements = std::vector<std::string>;

class EditBracket : public recordset_test::EditFixture
{
};

// ---- Starting -------------------------------------------------------------------------------------------------------

TEST_F(EditBracket, AppendStartOpensIt)
{
    EXPECT_FALSE(records.IsAppendOrModifyStarted());
    EXPECT_TRUE(records.AppendStart());
    EXPECT_EQ(records.GetModifyState(), MODIFY_APPEND);
    EXPECT_TRUE(records.IsAppendOrModifyStarted());
    EXPECT_FALSE(records.IsDeleted());
}

TEST_F(EditBracket, AppendStartNeedsATable)
{
    EditedRecordSet unbound(m_database, "");
    EXPECT_FALSE(unbound.AppendStart());
    EXPECT_EQ(unbound.GetModifyState(), MODIFY_NONE);
    unbound.ModifyStart("ID = 1");
    unbound.SetFieldLong("ID", 2);
    EXPECT_FALSE(unbound.AppendStart());
    EXPECT_EQ(unbound.GetModifyState(), MODIFY_EDIT); // as before
    EXPECT_FALSE(unbound.IsRecordModified());         // discarded all the same
    unbound.SetTableName("t");
    unbound.SetFieldLong("ID", 3);
    EXPECT_FALSE(unbound.ModifyEnd()); // so is the condition
    EXPECT_TRUE(Changes().empty());
}

TEST_F(EditBracket, AppendStartForgetsConditionAndChanges)
{
    records.ModifyStart("ID = 1");
    records.SetFieldLong("ID", 2);
    EXPECT_TRUE(records.AppendStart());
    EXPECT_FALSE(records.IsRecordModified());
    records.SetFieldLong("ID", 3);
    EXPECT_FALSE(records.ModifyEnd()); // there is no condition
    EXPECT_TRUE(Changes().empty());
}

TEST_F(EditBracket, ModifyStartTakesAConditionAndForgetsChanges)
{
    records.SetFieldLong("ID", 2);
    EXPECT_TRUE(records.ModifyStart("ID = 1"));
    EXPECT_EQ(records.GetModifyState(), MODIFY_EDIT);
    EXPECT_FALSE(records.IsRecordModified());
}

TEST_F(EditBracket, ModifyStartWithoutAConditionIsFalseAndOpensItAllTheSame)
{
    records.ModifyStart("ID = 1"); // is forgotten
    EXPECT_FALSE(records.ModifyStart(UtCString()));
    EXPECT_EQ(records.GetModifyState(), MODIFY_EDIT);
    records.SetFieldLong("ID", 2);
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
    EXPECT_TRUE(Changes().empty());
}

TEST_F(EditBracket, DeleteRecNeedsAnOpenModifyBracket)
{
    EXPECT_FALSE(records.DeleteRec());
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
    records.AppendStart();
    EXPECT_FALSE(records.DeleteRec());
    EXPECT_EQ(records.GetModifyState(), MODIFY_APPEND);
    records.ModifyStart("ID = 1");
    EXPECT_TRUE(records.DeleteRec());
    EXPECT_EQ(records.GetModifyState(), MODIFY_DELETE);
    EXPECT_TRUE(records.IsDeleted());
    EXPECT_FALSE(records.DeleteRec()); // is marked already
    EXPECT_EQ(records.GetModifyState(), MODIFY_DELETE);
}

TEST_F(EditBracket, DeleteRecIsFalseWithoutConditionOrTable)
{
    records.ModifyStart(UtCString());
    EXPECT_FALSE(records.DeleteRec());
    EXPECT_EQ(records.GetModifyState(), MODIFY_DELETE);
    EditedRecordSet unbound(m_database, "");
    unbound.ModifyStart("ID = 1");
    EXPECT_FALSE(unbound.DeleteRec());
    EXPECT_EQ(unbound.GetModifyState(), MODIFY_DELETE);
}

// ---- Ending ---------------------------------------------------------------------------------------------------------

TEST_F(EditBracket, AppendEndInserts)
{
    records.AppendStart();
    records.SetFieldLong("id", 7);
    records.SetFieldText("Name", "M\xFCller");
    EXPECT_TRUE(records.AppendEnd());
    EXPECT_EQ(Changes(), Statements{"INSERT INTO t SET `t`.`ID` = 7, `t`.`NAME` = 'M\xC3\xBCller'"});
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
    EXPECT_EQ(records.GetModifyErrorCode(), 1);
    EXPECT_TRUE(records.GetModifyErrorMessage().StartsWith("Query OK. 1 Record in ", true));
}

TEST_F(EditBracket, AppendEndInsertsInEveryState)
{
    records.SetFieldLong("ID", 1);
    EXPECT_TRUE(records.AppendEnd());
    records.ModifyStart("ID = 9");
    records.SetFieldLong("ID", 2);
    EXPECT_TRUE(records.AppendEnd());
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
    records.ModifyStart("ID = 9");
    records.DeleteRec();
    records.SetFieldLong("ID", 3);
    EXPECT_TRUE(records.AppendEnd());
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
    EXPECT_EQ(Changes(), (Statements{"INSERT INTO t SET `t`.`ID` = 1", "INSERT INTO t SET `t`.`ID` = 2",
                                     "INSERT INTO t SET `t`.`ID` = 3"}));
}

TEST_F(EditBracket, AppendEndIsFalseWhenNoRowWasInserted)
{
    m_client.OnPrefix("INSERT", Reply::Ok(0));
    records.AppendStart();
    records.SetFieldLong("ID", 7);
    EXPECT_FALSE(records.AppendEnd());
    EXPECT_EQ(records.GetModifyErrorCode(), 0);
    EXPECT_TRUE(records.GetModifyErrorMessage().StartsWith("Query OK. 0 Records in ", true));
}

TEST_F(EditBracket, AppendEndNeedsATableAndChanges)
{
    records.AppendStart();
    EXPECT_FALSE(records.AppendEnd());
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
    records.AppendStart();
    records.SetFieldLong("ID", 7);
    records.RemoveFieldInSetList("ID");
    EXPECT_FALSE(records.AppendEnd());
    records.SetFieldLong("ID", 7);
    records.SetTableName("");
    EXPECT_FALSE(records.AppendEnd());
    EXPECT_TRUE(Changes().empty());
    EXPECT_EQ(records.GetModifyErrorMessage(), "");
}

TEST_F(EditBracket, AFailedInsertLeavesTheServersTextAndNoFigure)
{
    m_client.OnPrefix("INSERT", Reply::Error(1062, "Duplicate entry '7' for key 'PRIMARY'"));
    records.AppendStart();
    records.SetFieldLong("ID", 7);
    EXPECT_FALSE(records.AppendEnd());
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
    EXPECT_EQ(records.GetModifyErrorCode(), 0);
    EXPECT_EQ(records.GetModifyErrorMessage(), "1062: Duplicate entry '7' for key 'PRIMARY'");
}

TEST_F(EditBracket, EveryEndForgetsTheOutcomeBefore)
{
    m_client.OncePrefix("INSERT", Reply::Error(1062));
    records.AppendStart();
    records.SetFieldLong("ID", 7);
    EXPECT_FALSE(records.AppendEnd());
    records.AppendStart();
    EXPECT_FALSE(records.AppendEnd());
    EXPECT_EQ(records.GetModifyErrorMessage(), "");
    records.SetFieldLong("ID", 8);
    EXPECT_TRUE(records.AppendEnd());
    records.ModifyStart(UtCString());
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_EQ(records.GetModifyErrorCode(), 0);
    EXPECT_EQ(records.GetModifyErrorMessage(), "");
}

struct ConditionRow
{
    const char* name;
    const char* condition;
    const char* update;
    const char* deletion;
};

TEST_F(EditBracket, ConditionsStandInParentheses)
{
    const ConditionRow rows[] = {
        {"a bare one", "ID = 1", "UPDATE t SET `t`.`ID` = 2 WHERE (ID = 1)", "DELETE FROM t WHERE(ID = 1)"},
        {"one in parentheses", "(ID = 1)", "UPDATE t SET `t`.`ID` = 2 WHERE (ID = 1)", "DELETE FROM t WHERE(ID = 1)"},
        {"several", "(ID = 1) AND (A = 2)", "UPDATE t SET `t`.`ID` = 2 WHERE (ID = 1) AND (A = 2)",
         "DELETE FROM t WHERE(ID = 1) AND (A = 2)"},
        {"a blank in front", " (ID = 1)", "UPDATE t SET `t`.`ID` = 2 WHERE ( (ID = 1))",
         "DELETE FROM t WHERE( (ID = 1))"},
        {"a percent sign", "A LIKE '%s'", "UPDATE t SET `t`.`ID` = 2 WHERE (A LIKE '%s')",
         "DELETE FROM t WHERE(A LIKE '%s')"},
    };
    for (const ConditionRow& row : rows) {
        SCOPED_TRACE(row.name);
        m_client.ForgetCalls();
        records.ModifyStart(row.condition);
        records.SetFieldLong("ID", 2);
        EXPECT_TRUE(records.ModifyEnd());
        records.ModifyStart(row.condition);
        EXPECT_TRUE(records.DeleteRec());
        EXPECT_TRUE(records.ModifyEnd());
        EXPECT_EQ(Changes(), (Statements{row.update, row.deletion}));
    }
}

TEST_F(EditBracket, ModifyEndNeedsChangesUnlessItDeletes)
{
    records.ModifyStart("ID = 1");
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
    EXPECT_TRUE(Changes().empty());
    records.ModifyStart("ID = 1");
    records.DeleteRec();
    EXPECT_TRUE(records.ModifyEnd());
    EXPECT_EQ(records.GetModifyErrorCode(), 1);
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
}

TEST_F(EditBracket, ModifyEndNeedsATable)
{
    records.ModifyStart("ID = 1");
    records.SetFieldLong("ID", 2);
    records.SetTableName("");
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
    EXPECT_TRUE(Changes().empty());
}

struct OutcomeRow
{
    const char* name;
    Reply reply;
    bool succeeds;
    long figure;
    const char* messageStart;
};

TEST_F(EditBracket, AnUpdateCountsTheRowsFound)
{
    const OutcomeRow rows[] = {
        {"one changed", Reply::Ok(1, 0, "Rows matched: 1  Changed: 1  Warnings: 0"), true, 1,
         "Rows matched: 1  Changed: 1  Warnings: 0 in "},
        {"several", Reply::Ok(2, 0, "Rows matched: 35  Changed: 2  Warnings: 0"), true, 35, "Rows matched: 35"},
        {"none found", Reply::Ok(0, 0, "Rows matched: 0  Changed: 0  Warnings: 0"), false, 0, "Rows matched: 0"},
        {"an info without words", Reply::Ok(0, 0, "12 34"), true, 12, "12 34 in "},
        {"no info", Reply::Ok(3), true, 3, "Query OK. 3 Records in "},
        {"too large for the figure", Reply::Ok(0, 0, "Rows matched: 3000000000  Changed: 5"), true, 2147483647,
         "Rows matched: 3000000000"},
        {"no number of rows", Reply::Ok(0, 0, "Rows matched: 99999999999999999999  Changed: 5"), true, 5,
         "Rows matched: 99999999999999999999"},
    };
    for (const OutcomeRow& row : rows) {
        SCOPED_TRACE(row.name);
        m_client.OnPrefix("UPDATE", row.reply);
        records.ModifyStart("ID = 1");
        records.SetFieldLong("ID", 2);
        EXPECT_EQ(records.ModifyEnd(), row.succeeds);
        EXPECT_EQ(records.GetModifyErrorCode(), row.figure);
        EXPECT_TRUE(records.GetModifyErrorMessage().StartsWith(row.messageStart, true))
            << records.GetModifyErrorMessage().string();
    }
}

TEST_F(EditBracket, Kept_K95_AnUpdateThatChangesNothingSucceeds)
{
    m_client.OnPrefix("UPDATE", Reply::Ok(0, 0, "Rows matched: 1  Changed: 0  Warnings: 0"));
    records.ModifyStart("ID = 1");
    records.SetFieldLong("ID", 1);
    EXPECT_TRUE(records.ModifyEnd());
    EXPECT_EQ(records.GetModifyErrorCode(), 1);
}

TEST_F(EditBracket, ADeleteCountsTheRowsDeleted)
{
    for (const unsigned long long count : {0ULL, 1ULL, 25ULL}) {
        m_client.OnPrefix("DELETE", Reply::Ok(count));
        records.ModifyStart("ID = 1");
        records.DeleteRec();
        EXPECT_EQ(records.ModifyEnd(), count > 0);
        EXPECT_EQ(records.GetModifyErrorCode(), static_cast<long>(count));
    }
}

TEST_F(EditBracket, ADeleteOfMoreRowsThanTheFigureHoldsIsFalse)
{
    for (const auto& [count, figure] : {std::pair(2147483647ULL, 2147483647L), {2147483648ULL, -2147483648L}}) {
        m_client.OnPrefix("DELETE", Reply::Ok(count));
        records.ModifyStart("ID = 1");
        records.DeleteRec();
        EXPECT_EQ(records.ModifyEnd(), figure > 0);
        EXPECT_EQ(records.GetModifyErrorCode(), figure);
    }
}

TEST_F(EditBracket, AFailedUpdateOrDeleteLeavesTheServersText)
{
    m_client.OnPrefix("UPDATE", Reply::Error(1054, "Unknown column 't.X' in 'field list'"));
    m_client.OnPrefix("DELETE", Reply::Error(1451, "a foreign key constraint fails"));
    records.ModifyStart("ID = 1");
    records.SetFieldLong("X", 1);
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_EQ(records.GetModifyErrorMessage(), "1054: Unknown column 't.X' in 'field list'");
    EXPECT_EQ(records.GetModifyErrorCode(), 0);
    records.ModifyStart("ID = 1");
    records.DeleteRec();
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_EQ(records.GetModifyErrorMessage(), "1451: a foreign key constraint fails");
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
}

TEST_F(EditBracket, IsClosedBeforeItsStatementRuns)
{
    eModifyStates state = MODIFY_DELETE;
    m_client.SetStatementObserver([&](const std::string&) { state = records.GetModifyState(); });
    records.AppendStart();
    records.SetFieldLong("ID", 1);
    records.AppendEnd();
    EXPECT_EQ(state, MODIFY_NONE);
    state = MODIFY_DELETE;
    records.ModifyStart("ID = 1");
    records.SetFieldLong("ID", 1);
    records.ModifyEnd();
    EXPECT_EQ(state, MODIFY_NONE);
    state = MODIFY_EDIT;
    records.ModifyStart("ID = 1");
    records.DeleteRec();
    records.ModifyEnd();
    EXPECT_EQ(state, MODIFY_NONE);
    m_client.SetStatementObserver({});
}

TEST_F(EditBracket, Kept_K96_ASecondEndSendsTheChangesAgain)
{
    records.AppendStart();
    records.SetFieldLong("ID", 7);
    EXPECT_TRUE(records.AppendEnd());
    EXPECT_TRUE(records.IsRecordModified());
    EXPECT_TRUE(records.AppendEnd());
    EXPECT_EQ(Changes(), (Statements{"INSERT INTO t SET `t`.`ID` = 7", "INSERT INTO t SET `t`.`ID` = 7"}));
    records.ModifyStart("ID = 1");
    records.SetFieldLong("ID", 8);
    EXPECT_TRUE(records.ModifyEnd());
    EXPECT_TRUE(records.ModifyEnd());
    EXPECT_EQ(Changes().back(), "UPDATE t SET `t`.`ID` = 8 WHERE (ID = 1)");
    EXPECT_EQ(Changes().size(), 4U);
}

// ---- The pending changes --------------------------------------------------------------------------------------------

TEST_F(EditBracket, AColumnSetTwiceKeepsItsPlaceAndItsLastValue)
{
    records.SetFieldLong("A", 1);
    records.SetFieldText("B", "x");
    records.SetFieldText("a", "a text that is longer than the one before it");
    EXPECT_EQ(SetClause(), "`t`.`A` = 'a text that is longer than the one before it', `t`.`B` = 'x'");
}

TEST_F(EditBracket, TheSetClauseReplacesWhatTheTextHeld)
{
    UtCString clause("before", UT_ENCODING_UTF16_LE);
    records.CreateSetClause(clause);
    EXPECT_TRUE(clause.IsEmpty());
    records.SetFieldLong("A", 1);
    records.CreateSetClause(clause);
    EXPECT_EQ(clause.GetEncodingType(), UT_ENCODING_UTF16_LE);
    EXPECT_EQ(clause, "`t`.`A` = 1");
}

TEST_F(EditBracket, RemovesAColumnFromTheList)
{
    EXPECT_FALSE(records.RemoveFieldInSetList("A"));
    records.SetFieldLong("A", 1);
    records.SetFieldLong("B", 2);
    records.SetFieldLong("C", 3);
    EXPECT_FALSE(records.RemoveFieldInSetList("D"));
    EXPECT_FALSE(records.RemoveFieldInSetList(""));
    EXPECT_TRUE(records.RemoveFieldInSetList("b"));
    EXPECT_EQ(SetClause(), "`t`.`A` = 1, `t`.`C` = 3");
    EXPECT_FALSE(records.RemoveFieldInSetList("B"));
    EXPECT_TRUE(records.RemoveFieldInSetList("A"));
    EXPECT_TRUE(records.RemoveFieldInSetList("C"));
    EXPECT_FALSE(records.RemoveFieldInSetList("C"));
    EXPECT_EQ(SetClause(), "");
}

TEST_F(EditBracket, Kept_K97_IsModifiedStaysTrueWhenTheLastChangeIsRemoved)
{
    EXPECT_FALSE(records.IsRecordModified());
    records.SetFieldLong("A", 1);
    EXPECT_TRUE(records.IsRecordModified());
    records.RemoveFieldInSetList("A");
    EXPECT_TRUE(records.IsRecordModified());
    records.AppendStart();
    EXPECT_FALSE(records.IsRecordModified());
}

} // namespace
