#include "RecordSetFixture.h"

namespace {

using fake::Field;
using fake::Reply;
using recordset_test::Bytes;
using recordset_test::CountedRows;
using recordset_test::NumberField;
using recordset_test::OpenRecordSet;
using recordset_test::Server;
using recordset_test::TextField;

Field With(Field field, unsigned int flags)
{
    field.flags |= flags;
    return field;
}

Field BlobField(const char* name)
{
    return {.name = name, .type = MYSQL_TYPE_BLOB, .flags = BLOB_FLAG | BINARY_FLAG, .length = 65535, .charsetnr = 63};
}

class CopyRecord : public recordset_test::RecordSetFixture
{
protected:
    void TearDown() override
    {
        m_source.Close();
        m_target.Close();
        recordset_test::RecordSetFixture::TearDown();
    }

    /// The table of the target, ORDERS, and one row of the source, which has no table.
    void Script(const std::vector<Field>& targetFields, const std::vector<Field>& sourceFields, const fake::Row& row)
    {
        CFieldCache::Instance().RemoveAll();
        m_client.OnListFields("ORDERS", targetFields);
        m_client.On("SELECT source", Reply::Rows(sourceFields, {row}));
        ASSERT_EQ(m_source.Select("SELECT source"), 1);
        ASSERT_TRUE(m_target.AppendStart());
    }

    /// The INSERT that the target would send.
    std::string Insert()
    {
        m_target.EnableAutoUserAndTimeStamp(false);
        m_client.OnPrefix("INSERT", Reply::Ok(1));
        return m_target.AppendEnd() ? LastStatement() : "";
    }

    OpenRecordSet m_source{m_database, ""};
    OpenRecordSet m_target{m_database, "orders"};
};

TEST_F(CopyRecord, EntersEachValueByTheTypeOfItsTargetColumn)
{
    Script({NumberField("A"), TextField("B"), BlobField("C"), NumberField("D", MYSQL_TYPE_DOUBLE)},
           {TextField("A"), NumberField("B"), TextField("C"), TextField("D")}, {"1", "2", "3", "4.5"});
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_EQ(Insert(), "INSERT INTO orders SET `orders`.`A` = 1, `orders`.`B` = '2', `orders`.`C` = '3', "
                        "`orders`.`D` = 4.5");
}

TEST_F(CopyRecord, PutsMemosAndDatesBetweenApostrophesAndDecimalsBare)
{
    const std::vector<Field> fields = {
        NumberField("DAY", MYSQL_TYPE_DATE),
        NumberField("AT", MYSQL_TYPE_TIME),
        NumberField("STAMP", MYSQL_TYPE_TIMESTAMP),
        NumberField("PRICE", MYSQL_TYPE_NEWDECIMAL),
        {.name = "MEMO", .type = MYSQL_TYPE_BLOB, .flags = BLOB_FLAG, .charsetnr = 45},
    };
    Script(fields, fields, {"2024-03-05", "12:30:00", "2024-03-05 14:07:09", "12.50", "long"});
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_EQ(Insert(), "INSERT INTO orders SET `orders`.`DAY` = '2024-03-05', `orders`.`AT` = '12:30:00', "
                        "`orders`.`STAMP` = '2024-03-05 14:07:09', `orders`.`PRICE` = 12.50, `orders`.`MEMO` = 'long'");
}

TEST_F(CopyRecord, Kept_K89_EntersATextForANumberColumnBareAndUnchecked)
{
    Script({NumberField("A"), NumberField("BITS", MYSQL_TYPE_BIT), NumberField("C")},
           {TextField("A"), NumberField("BITS", MYSQL_TYPE_BIT), TextField("C")}, {"1, `B` = 2", "1", ""});
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_EQ(Insert(), "INSERT INTO orders SET `orders`.`A` = 1, `B` = 2, `orders`.`BITS` = 1, `orders`.`C` =");
}

TEST_F(CopyRecord, TakesTheTextNullForNullAsTheSettersDo)
{
    Script({With(TextField("A"), NOT_NULL_FLAG), TextField("B")}, {TextField("A"), TextField("B")}, {"Null", "nul"});
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_EQ(Insert(), "INSERT INTO orders SET `orders`.`A` = null, `orders`.`B` = 'nul'");
}

TEST_F(CopyRecord, LeavesOutKeysAuditColumnsAndUnknownColumns)
{
    std::vector<Field> target;
    for (const char* name : {"PK", "AI", "ERF_TIME", "ERFASST", "MUT_TIME", "MUTATOR", "mutator2", "UNIQ", "B"})
        target.push_back(TextField(name));
    const std::vector<Field> source = {With(TextField("PK"), PRI_KEY_FLAG),
                                       With(TextField("AI"), AUTO_INCREMENT_FLAG),
                                       TextField("ERF_TIME"),
                                       TextField("erfasst"),
                                       TextField("MUT_TIME"),
                                       TextField("Mutator"),
                                       TextField("mutator2"),
                                       With(TextField("UNIQ"), UNIQUE_KEY_FLAG),
                                       TextField("NOPE"),
                                       TextField("B")};
    Script(target, source, {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"});
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_EQ(Insert(), "INSERT INTO orders SET `orders`.`MUTATOR2` = '7', `orders`.`UNIQ` = '8', `orders`.`B` = '10'");
}

TEST_F(CopyRecord, LooksForKeysInTheSourceOnly)
{
    Script({With(NumberField("ID"), PRI_KEY_FLAG | AUTO_INCREMENT_FLAG)}, {NumberField("ID")}, {"7"});
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_EQ(Insert(), "INSERT INTO orders SET `orders`.`ID` = 7");
}

TEST_F(CopyRecord, FindsColumnsInAnyLetterCase)
{
    Script({TextField("Name")}, {TextField("nAME")}, {"x"});
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_EQ(Insert(), "INSERT INTO orders SET `orders`.`NAME` = 'x'");
}

TEST_F(CopyRecord, KeepsNullAndTheEmptyTextApart)
{
    Script({TextField("A"), TextField("B"), NumberField("C")}, {TextField("A"), TextField("B"), TextField("C")},
           {std::nullopt, "", std::nullopt});
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_EQ(Insert(), "INSERT INTO orders SET `orders`.`A` = null, `orders`.`B` = '', `orders`.`C` = null");
}

TEST_F(CopyRecord, Kept_K109_EntersAnEmptyTextForNullWhereTheColumnIsNotNull)
{
    Script({With(TextField("A"), NOT_NULL_FLAG), With(NumberField("B"), NOT_NULL_FLAG)},
           {TextField("A"), NumberField("B")}, {std::nullopt, std::nullopt});
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_EQ(Insert(), "INSERT INTO orders SET `orders`.`A` = '', `orders`.`B` = ''");
}

TEST_F(CopyRecord, KeepsEveryByteOfABlob)
{
    std::string bytes;
    for (int byte = 255; byte >= 0; --byte)
        bytes += static_cast<char>(byte);
    Script({BlobField("A")}, {BlobField("A")}, {bytes});
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    m_client.On("SELECT * FROM orders", Reply::Rows({BlobField("A")}, {{"old"}}));
    const std::string statement = Insert();
    const std::string prefix = "INSERT INTO orders SET `orders`.`A` = '";
    ASSERT_EQ(statement.substr(0, prefix.size()), prefix);
    std::string unescaped;
    for (size_t i = prefix.size(); i + 1 < statement.size(); ++i) {
        if (statement[i] != '\\') {
            unescaped += statement[i];
            continue;
        }
        const char escaped = statement[++i];
        unescaped += escaped == '0'   ? '\0'
                     : escaped == 'n' ? '\n'
                     : escaped == 'r' ? '\r'
                     : escaped == 'Z' ? '\x1A'
                                      : escaped;
    }
    EXPECT_EQ(unescaped, bytes);
}

TEST_F(CopyRecord, ConvertsTextsBetweenConnectionsOfDifferentEncodings)
{
    CMyDatabase utf8(Server("utf8mb4"), "shop");
    ASSERT_TRUE(utf8.Open(false, ""));
    m_client.OnListFields("ORDERS", {TextField("A"), BlobField("B")});
    m_client.On("SELECT source", Reply::Rows({TextField("A"), BlobField("B")}, {{"\xC3\xA4", "\xE4\xFF"}}));
    m_client.OnPrefix("INSERT", Reply::Ok(1));
    {
        OpenRecordSet source(m_database, ""); // its texts are in encoding 256
        OpenRecordSet target(utf8, "orders");
        target.EnableAutoUserAndTimeStamp(false);
        ASSERT_EQ(source.Select("SELECT source"), 1);
        ASSERT_TRUE(target.AppendStart());
        EXPECT_TRUE(target.CopyRecord(source));
        EXPECT_TRUE(target.AppendEnd());
        EXPECT_EQ(LastStatement(), "INSERT INTO orders SET `orders`.`A` = '\xC3\xA4', `orders`.`B` = '\xE4\xFF'");
    }
    CFieldCache::Instance().RemoveAll();
    OpenRecordSet source(utf8, "");
    OpenRecordSet target(m_database, "orders");
    target.EnableAutoUserAndTimeStamp(false);
    ASSERT_EQ(source.Select("SELECT source"), 1);
    ASSERT_TRUE(target.AppendStart());
    EXPECT_TRUE(target.CopyRecord(source));
    EXPECT_TRUE(target.AppendEnd());
    EXPECT_EQ(LastStatement(), "INSERT INTO orders SET `orders`.`A` = '\xE4', `orders`.`B` = '\xE4\xFF'");
}

TEST_F(CopyRecord, NeedsARowAndAnOpenBracket)
{
    Script({TextField("A")}, {TextField("A")}, {"x"});
    OpenRecordSet closed(m_database, "orders");
    EXPECT_FALSE(closed.CopyRecord(m_source)); // no bracket
    EXPECT_FALSE(m_target.CopyRecord(closed)); // no result
    m_source.MoveNext();
    EXPECT_FALSE(m_target.CopyRecord(m_source)); // no row
    EXPECT_FALSE(m_target.IsRecordModified());
}

TEST_F(CopyRecord, WorksInTheBracketOfAModification)
{
    Script({TextField("A")}, {TextField("A")}, {"x"});
    ASSERT_TRUE(m_target.ModifyStart("ID = 1"));
    m_target.EnableAutoUserAndTimeStamp(false);
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    m_client.OnPrefix("UPDATE", Reply::Ok(1, 0, "Rows matched: 1  Changed: 1  Warnings: 0"));
    EXPECT_TRUE(m_target.ModifyEnd());
    EXPECT_EQ(LastStatement(), "UPDATE orders SET `orders`.`A` = 'x' WHERE (ID = 1)");
}

TEST_F(CopyRecord, WorksInTheBracketOfADeletion)
{
    Script({TextField("A")}, {TextField("A")}, {"x"});
    ASSERT_TRUE(m_target.ModifyStart("ID = 1"));
    ASSERT_TRUE(m_target.DeleteRec());
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_TRUE(m_target.IsRecordModified());
    EXPECT_TRUE(m_target.IsDeleted());
}

TEST_F(CopyRecord, TakesPendingChangesOfTheSourceForItsValues)
{
    Script({TextField("A"), TextField("B"), TextField("C")}, {TextField("A"), TextField("B"), TextField("C")},
           {"a", "b", std::nullopt});
    m_source.Set("B", "changed");
    m_source.Set("C", "hidden by the NULL");
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_EQ(Insert(), "INSERT INTO orders SET `orders`.`A` = 'a', `orders`.`B` = 'changed', `orders`.`C` = null");
}

TEST_F(CopyRecord, EntersTheLastOfSeveralColumnsWithOneName)
{
    Script({TextField("A"), TextField("B")}, {TextField("A"), TextField("B"), TextField("a")}, {"1", "2", "3"});
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_EQ(Insert(), "INSERT INTO orders SET `orders`.`A` = '3', `orders`.`B` = '2'");
}

TEST_F(CopyRecord, FailsAndKeepsTheBracketFromWritingWhenAValueCannotBeEscaped)
{
    Script({TextField("A"), TextField("B")}, {TextField("A"), TextField("B")}, {"plain", "it's"});
    m_target.GetTableFieldPtr("A"); // into the cache
    m_database.Close();
    m_client.FailAlways(fake::Call::Connect, 2003);
    EXPECT_FALSE(m_target.CopyRecord(m_source));
    m_client.ForgetCalls();
    EXPECT_FALSE(m_target.AppendEnd());
    EXPECT_TRUE(m_client.Statements().empty());
}

TEST_F(CopyRecord, IsTrueWhenThereIsNothingToCopy)
{
    Script({TextField("A")}, {TextField("B")}, {"x"});
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_FALSE(m_target.IsRecordModified());
    m_target.SetTableName("unknown");
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_FALSE(m_target.IsRecordModified());
}

TEST_F(CopyRecord, AddsToChangesThatAreThereAndLeavesTheSourceAlone)
{
    Script({TextField("A"), TextField("B")}, {TextField("A")}, {"x"});
    m_target.SetFieldText("B", "mine");
    m_target.SetFieldText("A", "mine");
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_EQ(Insert(), "INSERT INTO orders SET `orders`.`B` = 'mine', `orders`.`A` = 'x'");
    EXPECT_FALSE(m_source.IsEOF());
    EXPECT_FALSE(m_source.IsRecordModified());
}

TEST_F(CopyRecord, CopiesTheRowOfTheRecordSetItself)
{
    CFieldCache::Instance().RemoveAll();
    const std::vector<Field> fields = {With(NumberField("ID"), PRI_KEY_FLAG), TextField("NAME"), TextField("C")};
    m_client.OnListFields("ORDERS", fields);
    m_client.On("SELECT * FROM orders", Reply::Rows(fields, {{"1", "one", std::nullopt}, {"2", "two", ""}}));
    ASSERT_EQ(m_target.Select(""), 2);
    ASSERT_TRUE(m_target.MoveTo(1));
    ASSERT_TRUE(m_target.AppendStart());
    EXPECT_TRUE(m_target.CopyRecord(m_target));
    EXPECT_EQ(m_target.GetCurrentRow(), 1);
    EXPECT_EQ(Insert(), "INSERT INTO orders SET `orders`.`NAME` = 'two', `orders`.`C` = ''");
}

TEST_F(CopyRecord, CopiesTheRowOfAStream)
{
    m_client.OnListFields("ORDERS", {TextField("A")});
    m_client.On("SELECT s", CountedRows(3));
    ASSERT_TRUE(m_source.SelectLargeResult("SELECT s"));
    ASSERT_TRUE(m_source.MoveNext());
    ASSERT_TRUE(m_target.AppendStart());
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_EQ(Insert(), "INSERT INTO orders SET `orders`.`A` = '1'");
    EXPECT_TRUE(m_source.MoveNext());
    EXPECT_EQ(m_source.GetFieldLong("A"), 2);
}

TEST_F(CopyRecord, AsksForTheColumnsOfTheTargetOnce)
{
    std::vector<Field> fields;
    for (const char* name : {"A", "B", "C", "D", "E", "F"})
        fields.push_back(TextField(name));
    CFieldCache::Instance().RemoveAll();
    m_client.On("SELECT source", CountedRows(1, 6));
    ASSERT_EQ(m_source.Select("SELECT source"), 1);
    ASSERT_TRUE(m_target.AppendStart());
    m_client.ForgetCalls();
    EXPECT_TRUE(m_target.CopyRecord(m_source)); // a table that is not there
    EXPECT_EQ(m_client.CountOf("mysql_list_fields"), 1U);
    m_client.OnListFields("ORDERS", fields);
    ASSERT_TRUE(m_target.AppendStart());
    m_client.ForgetCalls();
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_EQ(m_client.CountOf("mysql_list_fields"), 1U);
    m_client.ForgetCalls();
    EXPECT_TRUE(m_target.CopyRecord(m_source));
    EXPECT_TRUE(m_client.Statements().empty());
    EXPECT_EQ(m_client.CountOf("mysql_list_fields"), 0U);
}

} // namespace
