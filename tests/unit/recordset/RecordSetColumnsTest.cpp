#include "RecordSetFixture.h"

namespace {

using fake::Field;
using fake::Reply;
using recordset_test::Bytes;
using recordset_test::CountedRows;
using recordset_test::NumberField;
using recordset_test::OpenRecordSet;
using recordset_test::TextField;

class RecordSetColumns : public recordset_test::RecordSetFixture
{
protected:
    void Store(const std::vector<Field>& fields, size_t rows = 1)
    {
        m_client.OnPrefix("SELECT", Reply::Rows(fields, std::vector<fake::Row>(rows, fake::Row(fields.size(), "1"))));
        ASSERT_EQ(records.Select(""), static_cast<long>(rows));
        m_client.ForgetCalls();
    }
    void Store(const std::vector<std::string>& names, size_t rows = 1) { Store(fake::TextFields(names), rows); }

    void TearDown() override
    {
        records.Close();
        RecordSetFixture::TearDown();
    }

    OpenRecordSet records{m_database, "orders"};
    unsigned long no = 99;
};

// ---- GetFieldNo -----------------------------------------------------------------------------------------------------

TEST_F(RecordSetColumns, AnUnknownNameIsFalseAndGivesZero)
{
    Store(std::vector<std::string>{"A", "B"});
    EXPECT_FALSE(records.GetFieldNo("C", no));
    EXPECT_EQ(no, 0U);
}

TEST_F(RecordSetColumns, AnEmptyNameIsFalseAndGivesZero)
{
    Store(std::vector<std::string>{"A", "B"});
    EXPECT_FALSE(records.GetFieldNo("", no));
    EXPECT_EQ(no, 0U);
}

TEST_F(RecordSetColumns, AColumnWithoutANameIsNotFoundByTheEmptyName)
{
    for (size_t rows : {1U, 20U}) {
        Store({"A", "", "C", "D"}, rows);
        EXPECT_FALSE(records.GetFieldNo("", no));
        EXPECT_TRUE(records.GetFieldNo("C", no));
        EXPECT_EQ(no, 2U);
    }
}

TEST_F(RecordSetColumns, WithoutAResultEveryNameIsUnknown)
{
    EXPECT_FALSE(records.GetFieldNo("A", no));
    EXPECT_EQ(no, 0U);
}

struct SizeRow
{
    const char* name;
    size_t columns;
    size_t rows;
    bool streamed;
    bool indexed;
};

const SizeRow sizeRows[] = {
    {"ThreeColumnsManyRows", 3, 20, false, false}, {"FourColumnsTenRows", 4, 10, false, false},
    {"FourColumnsElevenRows", 4, 11, false, true}, {"FiveColumnsTwentyRows", 5, 20, false, true},
    {"FiveColumnsNoRow", 5, 0, false, false},      {"ThreeColumnsStreamed", 3, 20, true, false},
    {"FourColumnsStreamed", 4, 2, true, true},     {"FourColumnsStreamedWithoutRows", 4, 0, true, true},
};

class FieldIndex : public recordset_test::RecordSetFixture, public testing::WithParamInterface<SizeRow>
{
};

TEST_P(FieldIndex, IsBuiltForLargeResultsOnly)
{
    const SizeRow& row = GetParam();
    m_client.On("SELECT s", CountedRows(row.rows, row.columns));
    OpenRecordSet records(m_database, "");
    ASSERT_GE(records.SetSQLCommand("SELECT s", false, row.streamed), 0);
    EXPECT_FALSE(records.IsFieldHashLoaded());
    unsigned long no = 99;
    EXPECT_TRUE(records.GetFieldNo("C", no));
    EXPECT_EQ(no, 2U);
    EXPECT_EQ(records.IsFieldHashLoaded(), row.indexed);
    EXPECT_FALSE(records.GetFieldNo("X", no));
    EXPECT_FALSE(records.GetFieldNo("c", no));
    EXPECT_TRUE(records.GetFieldNo("A", no));
    EXPECT_EQ(no, 0U);
}

INSTANTIATE_TEST_SUITE_P(RecordSet, FieldIndex, testing::ValuesIn(sizeRows),
                         [](const testing::TestParamInfo<SizeRow>& named) { return named.param.name; });

TEST_F(RecordSetColumns, ASmallResultUsesTheIndexOnceItExists)
{
    Store(std::vector<std::string>{"A", "B"});
    EXPECT_TRUE(records.LoadFieldHash());
    EXPECT_TRUE(records.GetFieldNo("B", no));
    EXPECT_EQ(no, 1U);
    EXPECT_FALSE(records.GetFieldNo("C", no));
}

TEST_F(RecordSetColumns, LoadFieldHashIsFalseWithoutAResult)
{
    EXPECT_FALSE(records.LoadFieldHash());
    EXPECT_FALSE(records.IsFieldHashLoaded());
}

TEST_F(RecordSetColumns, TheFirstOfSeveralColumnsWithOneNameIsFound)
{
    for (size_t rows : {1U, 20U}) {
        Store({"X", "A", "A", "B", "A"}, rows);
        EXPECT_TRUE(records.GetFieldNo("A", no));
        EXPECT_EQ(no, 1U);
        EXPECT_EQ(records.IsFieldHashLoaded(), rows == 20);
    }
}

TEST_F(RecordSetColumns, LetterCaseAndBlanksCount)
{
    for (size_t rows : {1U, 20U}) {
        Store({"Name", "name", " name", "NAME"}, rows);
        EXPECT_TRUE(records.GetFieldNo("name", no));
        EXPECT_EQ(no, 1U);
        EXPECT_TRUE(records.GetFieldNo(" name", no));
        EXPECT_EQ(no, 2U);
        EXPECT_FALSE(records.GetFieldNo("nAME", no));
        EXPECT_FALSE(records.GetFieldNo("name ", no));
    }
}

TEST_F(RecordSetColumns, ANameIsFoundInEveryEncodingOfTheCaller)
{
    for (size_t rows : {1U, 20U}) {
        Store({"A", "B", "COUNT(*)", "D"}, rows);
        for (eUtEncodingType encoding :
             {UT_ENCODING_DEFAULT, UT_ENCODING_UTF8, UT_ENCODING_UTF16_LE, UT_ENCODING_UTF16_BE}) {
            EXPECT_TRUE(records.GetFieldNo(UtCString("COUNT(*)", encoding), no)) << encoding;
            EXPECT_EQ(no, 2U);
            EXPECT_FALSE(records.GetFieldNo(UtCString("COUNT", encoding), no)) << encoding;
        }
    }
}

TEST_F(RecordSetColumns, ANameWithAZeroByteIsNotItsBeginning)
{
    for (size_t rows : {1U, 20U}) {
        Store({"A", "B", "C", "D"}, rows);
        EXPECT_FALSE(records.GetFieldNo(UtCString(std::string_view("A\0x", 3), UT_ENCODING_DEFAULT), no));
    }
}

TEST_F(RecordSetColumns, Kept_K45_NamesAreComparedAsBytesOfTheSingleByteEncoding)
{
    for (size_t rows : {1U, 20U}) {
        Store({"A",
               "Gr\xC3\xB6\xC3\x9F"
               "e",
               "C", "D"},
              rows); // as a UTF-8 connection delivers it
        EXPECT_FALSE(records.GetFieldNo(UtCString("Gr\xC3\xB6\xC3\x9F"
                                                  "e",
                                                  UT_ENCODING_UTF8),
                                        no));
        EXPECT_TRUE(records.GetFieldNo(UtCString("Gr\xC3\xB6\xC3\x9F"
                                                 "e",
                                                 UT_ENCODING_DEFAULT),
                                       no));
        EXPECT_EQ(no, 1U);
    }
}

TEST_F(RecordSetColumns, LookupsInAnyOrderFindTheirColumns)
{
    for (size_t rows : {1U, 20U}) {
        Store({"A", "B", "C", "B", "E"}, rows);
        for (int turn = 0; turn < 3; ++turn) {
            for (const auto& [name, position] :
                 {std::pair{"E", 4U}, {"A", 0U}, {"A", 0U}, {"C", 2U}, {"B", 1U}, {"B", 1U}}) {
                EXPECT_TRUE(records.GetFieldNo(name, no));
                EXPECT_EQ(no, position) << name;
            }
            EXPECT_FALSE(records.GetFieldNo("D", no));
        }
    }
}

TEST_F(RecordSetColumns, LookupsFollowTheResult)
{
    Store({"A", "B", "C", "D"}, 20);
    ASSERT_TRUE(records.GetFieldNo("B", no));
    Store({"B", "A", "D", "C"}, 20);
    EXPECT_TRUE(records.GetFieldNo("B", no));
    EXPECT_EQ(no, 0U);
    EXPECT_TRUE(records.GetFieldNo("C", no));
    EXPECT_EQ(no, 3U);
}

// ---- Descriptions ---------------------------------------------------------------------------------------------------

TEST_F(RecordSetColumns, GetFieldNameIsTheAlias)
{
    Store(std::vector<Field>{{.name = "Total", .orgName = "sum"}, {.name = "COUNT(*)", .orgName = ""}});
    EXPECT_EQ(records.GetFieldName(0), "Total");
    EXPECT_EQ(records.GetFieldName(1), "COUNT(*)");
    EXPECT_EQ(records.GetFieldName(1).GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_EQ(records.GetFieldName(2), "");
    EXPECT_EQ(records.GetFieldName(4294967295U), "");
    records.Close();
    EXPECT_EQ(records.GetFieldName(0), "");
}

TEST_F(RecordSetColumns, GetFieldTypeClassifiesTheResultsColumn)
{
    Store(std::vector<Field>{NumberField("N"), TextField("T"), NumberField("D", MYSQL_TYPE_DATETIME)});
    EXPECT_EQ(records.GetFieldType("N"), MYTYPE_LONG);
    EXPECT_EQ(records.GetFieldType("T"), MYTYPE_TEXT);
    EXPECT_EQ(records.GetFieldType("D"), MYTYPE_DATETIME);
    EXPECT_EQ(records.GetFieldType(1), MYTYPE_TEXT);
    EXPECT_EQ(records.GetFieldType("X"), MYTYPE_UNKNOWN);
    EXPECT_EQ(records.GetFieldType(3), MYTYPE_UNKNOWN);
    records.Close();
    EXPECT_EQ(records.GetFieldType("N"), MYTYPE_UNKNOWN);
    EXPECT_EQ(records.GetFieldType(0), MYTYPE_UNKNOWN);
}

TEST_F(RecordSetColumns, GetFieldTypeStringNamesTypeAndWidth)
{
    Store(std::vector<Field>{NumberField("N"), TextField("T")});
    EXPECT_EQ(records.GetFieldTypeString("N"), "long");
    EXPECT_EQ(records.GetFieldTypeString("T"), "varchar[80]");
    EXPECT_EQ(records.GetFieldTypeString(1), "varchar[80]");
    EXPECT_EQ(records.GetFieldTypeString("X"), "fehler!");
    EXPECT_EQ(records.GetFieldTypeString(2), "fehler!");
    records.Close();
    EXPECT_EQ(records.GetFieldTypeString("N"), "fehler!");
    EXPECT_EQ(records.GetFieldTypeString(0), "fehler!");
}

TEST_F(RecordSetColumns, GetFieldSizeIsTheWidthInBytes)
{
    Store(std::vector<Field>{{.name = "A", .length = 80}, {.name = "B", .length = 2147483647}});
    EXPECT_EQ(records.GetFieldSize("A"), 80);
    EXPECT_EQ(records.GetFieldSize("B"), 2147483647);
    EXPECT_EQ(records.GetFieldSize("X"), 0);
    records.Close();
    EXPECT_EQ(records.GetFieldSize("A"), 0);
}

TEST_F(RecordSetColumns, Kept_K34_TheWidthOfALongTextIsMinusOne)
{
    Store(std::vector<Field>{{.name = "A", .type = MYSQL_TYPE_BLOB, .length = 4294967295UL}});
    EXPECT_EQ(records.GetFieldSize("A"), -1);
}

TEST_F(RecordSetColumns, GetFieldDescribesTheResultsColumn)
{
    Store(std::vector<Field>{{.name = "Total",
                              .orgName = "sum",
                              .type = MYSQL_TYPE_DOUBLE,
                              .flags = NOT_NULL_FLAG | NUM_FLAG,
                              .length = 22,
                              .decimals = 2,
                              .charsetnr = 63}});
    const CMyField field = records.GetField("Total");
    EXPECT_EQ(field.GetName(), "Total");
    EXPECT_EQ(field.GetName().GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_EQ(field.GetFieldType(), MYTYPE_DOUBLE);
    EXPECT_EQ(field.GetLength(), 22U);
    EXPECT_EQ(field.GetFlags(), static_cast<uint32_t>(NOT_NULL_FLAG | NUM_FLAG));
    EXPECT_EQ(field.GetDecimals(), 2U);
    EXPECT_EQ(field.GetDefault(), "");
    EXPECT_EQ(field.GetMySQLType(), 0U);
    EXPECT_EQ(field.GetCharsetNr(), 0U);
}

TEST_F(RecordSetColumns, GetFieldOfAnUnknownNameIsEmpty)
{
    Store(std::vector<std::string>{"A"});
    const CMyField field = records.GetField("X");
    EXPECT_EQ(field.GetName(), "");
    EXPECT_EQ(field.GetDefault(), "");
    EXPECT_EQ(field.GetFieldType(), MYTYPE_UNKNOWN);
    EXPECT_EQ(field.GetLength() + field.GetFlags() + field.GetDecimals() + field.GetMySQLType() + field.GetCharsetNr(),
              0U);
    EXPECT_EQ(CMyRecordSet().GetField("A").GetName(), "");
}

// ---- The table's columns --------------------------------------------------------------------------------------------

TEST_F(RecordSetColumns, GetTableFieldPtrGivesTheDeclaredColumn)
{
    m_client.OnListFields("ORDERS", {NumberField("Id"), TextField("Name", 8)});
    const CMyField* field = records.GetTableFieldPtr("NAME");
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->GetName(), "Name");
    EXPECT_EQ(field->GetCharsetNr(), 8U);
    ASSERT_NE(records.GetTableFieldPtr(0L), nullptr);
    EXPECT_EQ(records.GetTableFieldPtr(0L)->GetName(), "Id");
    EXPECT_EQ(records.GetTableFieldPtr("X"), nullptr);
    EXPECT_EQ(records.GetTableFieldPtr(""), nullptr);
    EXPECT_EQ(records.GetTableFieldPtr(2L), nullptr);
    EXPECT_EQ(records.GetTableFieldPtr(-1L), nullptr);
    EXPECT_EQ(m_client.CountOf("mysql_list_fields"), 1U);
    EXPECT_EQ(records.GetTableFieldType("id"), MYTYPE_LONG);
    EXPECT_EQ(records.GetTableFieldType("x"), MYTYPE_UNKNOWN);
}

TEST_F(RecordSetColumns, GetTableFieldPtrStaysValidWhenTheCacheDropsTheTable)
{
    m_client.OnListFields("ORDERS", {NumberField("Id")});
    const CMyField* field = records.GetTableFieldPtr("Id");
    ASSERT_NE(field, nullptr);
    CFieldCache::Instance().RemoveAll();
    EXPECT_EQ(field->GetName(), "Id");
}

TEST_F(RecordSetColumns, GetTableFieldPtrIsNullForAnUnknownTableAndWithoutBinding)
{
    EXPECT_EQ(records.GetTableFieldPtr("Id"), nullptr);
    EXPECT_EQ(m_database.GetErrorCode(), 1146U);
    records.SetTableName("");
    OpenRecordSet unbound;
    EXPECT_EQ(unbound.GetTableFieldPtr("Id"), nullptr);
    EXPECT_EQ(unbound.GetTableFieldPtr(0L), nullptr);
    EXPECT_EQ(unbound.GetTableFieldType("Id"), MYTYPE_UNKNOWN);
    EXPECT_EQ(OpenRecordSet(m_database, "").GetTableFieldPtr("Id"), nullptr);
}

// ---- GetFieldCharsetNr ----------------------------------------------------------------------------------------------

TEST_F(RecordSetColumns, Kept_K33_TheCharsetOfTheTableIsPreferredToThatOfTheResult)
{
    m_client.OnListFields("ORDERS", {TextField("Name", 8)});
    Store(std::vector<Field>{TextField("Name", 45)});
    unsigned int nr = 99;
    EXPECT_TRUE(records.GetFieldCharsetNr(0, nr));
    EXPECT_EQ(nr, 8U);
    nr = 99;
    EXPECT_TRUE(records.GetFieldCharsetNr("NAME", nr)); // the table does not mind the letter case
    EXPECT_EQ(nr, 8U);
}

TEST_F(RecordSetColumns, TheCharsetByNameNeedsNoResultWhenATableIsBound)
{
    m_client.OnListFields("ORDERS", {TextField("Name", 8)});
    unsigned int nr = 99;
    EXPECT_TRUE(records.GetFieldCharsetNr("Name", nr));
    EXPECT_EQ(nr, 8U);
    EXPECT_FALSE(records.GetFieldCharsetNr(0, nr));
}

TEST_F(RecordSetColumns, TheCharsetOfAColumnThatTheTableDoesNotHaveIsUnknown)
{
    m_client.OnListFields("ORDERS", {TextField("Name", 8)});
    Store(std::vector<Field>{TextField("Alias")});
    unsigned int nr = 99;
    EXPECT_FALSE(records.GetFieldCharsetNr(0, nr));
    EXPECT_FALSE(records.GetFieldCharsetNr("Alias", nr));
    EXPECT_EQ(nr, 99U);
}

TEST_F(RecordSetColumns, WithoutATableTheCharsetIsThatOfTheResult)
{
    OpenRecordSet untied(m_database, "");
    m_client.OnPrefix("SELECT", Reply::Rows(std::vector<Field>{TextField("A", 45), TextField("B", 8)}, {{"1", "2"}}));
    ASSERT_EQ(untied.Select("SELECT a, b FROM t"), 1);
    unsigned int nr = 99;
    EXPECT_TRUE(untied.GetFieldCharsetNr(0, nr));
    EXPECT_EQ(nr, 45U);
    EXPECT_TRUE(untied.GetFieldCharsetNr("B", nr));
    EXPECT_EQ(nr, 8U);
    nr = 99;
    EXPECT_FALSE(untied.GetFieldCharsetNr("X", nr));
    EXPECT_FALSE(untied.GetFieldCharsetNr(2, nr));
    untied.Close();
    EXPECT_FALSE(untied.GetFieldCharsetNr(0, nr));
    EXPECT_FALSE(untied.GetFieldCharsetNr("A", nr));
    EXPECT_EQ(nr, 99U);
    EXPECT_EQ(m_client.CountOf("mysql_list_fields"), 0U);
}

TEST_F(RecordSetColumns, TheCharsetWithoutAConnectionIsUnknown)
{
    CMyRecordSet unbound;
    unsigned int nr = 99;
    EXPECT_FALSE(unbound.GetFieldCharsetNr("A", nr));
    unbound.SetTableName("orders");
    EXPECT_FALSE(unbound.GetFieldCharsetNr("A", nr));
    EXPECT_FALSE(unbound.GetFieldCharsetNr(0, nr));
    EXPECT_EQ(nr, 99U);
}

TEST_F(RecordSetColumns, TheCharsetIsAskedForAnewEachTime)
{
    m_client.OnListFields("ORDERS", {TextField("Name", 8)});
    unsigned int nr = 0;
    ASSERT_TRUE(records.GetFieldCharsetNr("Name", nr));
    CFieldCache::Instance().RemoveAll();
    m_client.OnListFields("ORDERS", {TextField("Name", 45)});
    ASSERT_TRUE(records.GetFieldCharsetNr("Name", nr));
    EXPECT_EQ(nr, 45U);
}

TEST_F(RecordSetColumns, WhileAStreamIsReadTheCharsetOfAnUncachedTableIsUnknown)
{
    m_client.OnListFields("ORDERS", {TextField("Name", 8)});
    m_client.On("SELECT s", Reply::Rows(std::vector<Field>{TextField("Name")}, {{"1"}, {"2"}}));
    ASSERT_TRUE(records.SelectLargeResult("SELECT s"));
    unsigned int nr = 99;
    EXPECT_FALSE(records.GetFieldCharsetNr(0, nr)); // 2014 on the connection of the stream
    EXPECT_EQ(nr, 99U);
    EXPECT_TRUE(Bytes(records.GetErrorMessage()).starts_with("2014: "));
    EXPECT_TRUE(records.MoveNext());
}

} // namespace
