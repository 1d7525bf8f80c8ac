#include "CMyKey.h"
#include "EditFixture.h"

namespace {

using fake::Reply;
using recordset_test::Bytes;
using recordset_test::EditedRecordSet;
using recordset_test::KeyField;
using recordset_test::TextField;
using Statements = std::vector<std::string>;

class EditKey : public recordset_test::EditFixture
{
protected:
    void Store(const std::vector<fake::Field>& fields, const fake::Row& row)
    {
        m_client.OnPrefix("SELECT", Reply::Rows(fields, {row}));
        EXPECT_EQ(records.Select(""), 1);
        m_client.ForgetCalls();
    }
    std::string Clause(const CMyKey& key) { return Bytes(key.CreateClause(&records)); }
};

TEST_F(EditKey, IsTheCondition)
{
    EXPECT_TRUE(records.ModifyStart(CMyKey("name", "O'Neil", "=")));
    EXPECT_EQ(records.GetModifyState(), MODIFY_EDIT);
    records.SetFieldLong("ID", 2);
    EXPECT_TRUE(records.ModifyEnd());
    EXPECT_EQ(Changes(), Statements{"UPDATE t SET `t`.`ID` = 2 WHERE (`t`.`NAME` = 'O\\'Neil')"});
}

TEST_F(EditKey, DiscardsChangesAndIsFalseWhenEmpty)
{
    records.SetFieldLong("ID", 2);
    EXPECT_FALSE(records.ModifyStart(CMyKey()));
    EXPECT_EQ(records.GetModifyState(), MODIFY_EDIT);
    EXPECT_FALSE(records.IsRecordModified());
    records.DeleteRec();
    EXPECT_FALSE(records.ModifyEnd());
    EXPECT_TRUE(Changes().empty());
}

TEST_F(EditKey, Kept_K99_WithAnUnknownColumnIsTakenAndLeftToTheServer)
{
    EXPECT_TRUE(records.ModifyStart(CMyKey("NOPE", 5, "=")));
    records.SetFieldLong("ID", 2);
    records.ModifyEnd();
    EXPECT_EQ(Changes(), Statements{"UPDATE t SET `t`.`ID` = 2 WHERE (CMyKey_CreateClause_Field_Not_Exist_t_NOPE)"});
}

TEST_F(EditKey, Kept_K94_OfTheCurrentRowTellsWhetherThereIsAValue)
{
    Store({KeyField("ID"), TextField("NAME")}, {"17", "x"});
    CMyKey key("NAME", "before", "=");
    EXPECT_TRUE(records.GetPrimaryKey(key));
    EXPECT_EQ(Clause(key), "(`t`.`ID` = TRUE)");
    Store({KeyField("ID"), TextField("NAME")}, {std::nullopt, "x"});
    EXPECT_TRUE(records.GetPrimaryKey(key));
    EXPECT_EQ(Clause(key), "(`t`.`ID` = FALSE)");
    EXPECT_TRUE(records.ModifyStart());
    EXPECT_EQ(records.GetModifyState(), MODIFY_EDIT);
    EXPECT_TRUE(records.DeleteRec());
    EXPECT_TRUE(records.ModifyEnd());
    EXPECT_EQ(Changes(), Statements{"DELETE FROM t WHERE(`t`.`ID` = FALSE)"});
}

TEST_F(EditKey, OfTheCurrentRowDoesNotSeePendingChanges)
{
    Store({KeyField("ID")}, {"17"});
    records.SetFieldNull("NAME");
    records.SaveFieldValue("ID", "null", nullptr, 0);
    CMyKey key;
    EXPECT_TRUE(records.GetPrimaryKey(key));
    EXPECT_EQ(Clause(key), "(`t`.`ID` = TRUE)");
}

TEST_F(EditKey, OfSeveralColumnsIsInTheirOrder)
{
    m_client.OnListFields("T", {KeyField("A"), TextField("NAME"), KeyField("B")});
    CFieldCache::Instance().RemoveAll();
    Store({KeyField("B"), KeyField("A")}, {std::nullopt, "1"});
    CMyKey key;
    EXPECT_TRUE(records.GetPrimaryKey(key));
    EXPECT_EQ(Clause(key), "(`t`.`A` = TRUE) AND (`t`.`B` = FALSE)");
}

TEST_F(EditKey, HasNoColumnOfAnotherKey)
{
    fake::Field unique = KeyField("A");
    unique.flags = NUM_FLAG | UNIQUE_KEY_FLAG | NOT_NULL_FLAG | PART_KEY_FLAG;
    m_client.OnListFields("T", {unique, KeyField("B")});
    CFieldCache::Instance().RemoveAll();
    Store({KeyField("A"), KeyField("B")}, {"1", "2"});
    CMyKey key;
    EXPECT_TRUE(records.GetPrimaryKey(key));
    EXPECT_EQ(Clause(key), "(`t`.`B` = TRUE)");
}

TEST_F(EditKey, KeepsTheConditionsBeforeAColumnThatTheResultLacks)
{
    m_client.OnListFields("T", {KeyField("A"), KeyField("B"), KeyField("C")});
    CFieldCache::Instance().RemoveAll();
    Store({KeyField("A"), KeyField("C")}, {"1", "2"});
    CMyKey key;
    EXPECT_FALSE(records.GetPrimaryKey(key));
    EXPECT_EQ(Clause(key), "(`t`.`A` = TRUE)");
    EXPECT_FALSE(records.ModifyStart());
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
}

TEST_F(EditKey, IsNoneForATableWithoutPrimaryKey)
{
    m_client.OnListFields("T", {TextField("NAME")});
    CFieldCache::Instance().RemoveAll();
    Store({TextField("NAME")}, {"x"});
    CMyKey key("NAME", "before", "=");
    EXPECT_FALSE(records.GetPrimaryKey(key));
    EXPECT_TRUE(key.IsEmpty());
    records.AppendStart();
    records.SetFieldText("NAME", "y");
    EXPECT_FALSE(records.ModifyStart());
    EXPECT_EQ(records.GetModifyState(), MODIFY_APPEND); // nothing has changed
    EXPECT_TRUE(records.IsRecordModified());
}

TEST_F(EditKey, IsNoneForAnUnknownTable)
{
    EditedRecordSet unknown(m_database, "nowhere");
    CMyKey key("NAME", "before", "=");
    EXPECT_FALSE(unknown.GetPrimaryKey(key));
    EXPECT_TRUE(key.IsEmpty());
    EXPECT_FALSE(EditedRecordSet().GetPrimaryKey(key));
}

TEST_F(EditKey, IsThereOnceTheTableIs)
{
    m_client.OnListFieldsError("T", 1146);
    Store({KeyField("ID")}, {"17"});
    records.AppendStart();
    records.SetFieldText("NAME", "x"); // asks in vain
    m_client.OnListFields("T", {KeyField("ID")});
    CMyKey key;
    EXPECT_TRUE(records.GetPrimaryKey(key));
    EXPECT_EQ(Clause(key), "(`t`.`ID` = TRUE)");
}

TEST_F(EditKey, WithoutARowThereAreNoValues)
{
    Store({KeyField("ID")}, {"17"});
    records.MoveNext();
    CMyKey key;
    EXPECT_TRUE(records.GetPrimaryKey(key));
    EXPECT_EQ(Clause(key), "(`t`.`ID` = FALSE)");
}

} // namespace
