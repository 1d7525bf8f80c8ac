#include "KeyFixture.h"

namespace {

using namespace recordset_test;
using namespace std::literals;

class CreateClause : public KeyFixture
{
};

TEST_F(CreateClause, JoinsTheComparisons)
{
    CMyKey key("name", "O'Neil", "=");
    key.Add("age", 30, ">").Add("deleted_at", CDateTime(), "=");
    EXPECT_EQ(Clause(key), "(`customer`.`NAME` = 'O\\'Neil') AND (`customer`.`AGE` > 30) AND "
                           "(`customer`.`DELETED_AT` IS NULL)");
}

TEST_F(CreateClause, IsEmptyForAnEmptyKeyAndWithoutRecordSet)
{
    EXPECT_EQ(Clause(CMyKey()), "");
    EXPECT_EQ(Bytes(CMyKey("name", "x", "=").CreateClause(nullptr)), "");
    EXPECT_EQ(Bytes(CMyKey().CreateClause(nullptr)), "");
}

TEST_F(CreateClause, IsEmptyForAnEmptyKeyAlsoWithoutTable)
{
    const OpenRecordSet records(m_database, "");
    EXPECT_EQ(Bytes(CMyKey().CreateClause(&records)), "");
}

TEST_F(CreateClause, Kept_K84_SaysInPlaceOfTheClauseThatThereIsNoTable)
{
    const OpenRecordSet records(m_database, "");
    EXPECT_EQ(Bytes(CMyKey("name", "x", "=").CreateClause(&records)), "CMyKey_CreateClause_No_Tablename");
    const CMyRecordSet unbound;
    EXPECT_EQ(Bytes(CMyKey("name", "x", "=").CreateClause(&unbound)), "CMyKey_CreateClause_No_Tablename");
}

TEST_F(CreateClause, Kept_K84_SaysInPlaceOfTheClauseWhichColumnDoesNotExist)
{
    CMyKey key("name", "x", "=");
    key.Add("nowhere", 1, "=").Add("neither", 2, "=");
    EXPECT_EQ(Clause(key), "CMyKey_CreateClause_Field_Not_Exist_customer_NOWHERE");
    EXPECT_EQ(Clause(CMyKey("", "x", "=")), "CMyKey_CreateClause_Field_Not_Exist_customer_");
}

TEST_F(CreateClause, SaysThatTheColumnDoesNotExistWhereTheTableIsUnknown)
{
    const OpenRecordSet records(m_database, "strangers");
    EXPECT_EQ(Bytes(CMyKey("name", "x", "=").CreateClause(&records)),
              "CMyKey_CreateClause_Field_Not_Exist_strangers_NAME");
    CMyRecordSet unbound;
    unbound.SetTableName("strangers");
    EXPECT_EQ(Bytes(CMyKey("name", "x", "=").CreateClause(&unbound)),
              "CMyKey_CreateClause_Field_Not_Exist_strangers_NAME");
}

TEST_F(CreateClause, LooksTheColumnsUpInTheCurrentTable)
{
    m_client.OnListFields("ORDERS", {TextField("age"), NumberField("total")});
    EXPECT_EQ(Clause(CMyKey("age", 1, "=")), "(`customer`.`AGE` = 1)");
    m_customers.SetTableName("Orders");
    EXPECT_EQ(Clause(CMyKey("age", 1, "=")), "(`Orders`.`AGE` = '1')");
    EXPECT_EQ(Clause(CMyKey("name", 1, "=")), "CMyKey_CreateClause_Field_Not_Exist_Orders_NAME");
    EXPECT_EQ(Order(CMyKey("total", 1, "<>")), "Orders.TOTAL DESC");
    EXPECT_EQ(Order(CMyKey("name", 1, "<>")), "");
}

TEST_F(CreateClause, AsksForTheColumnsOnceAndOnlyWhenThereAreConditionsForATable)
{
    const OpenRecordSet nameless(m_database, "");
    const CMyKey key("name", "x", "=");
    Clause(CMyKey());
    Order(CMyKey());
    key.CreateClause(&nameless);
    key.CreateOrderClause(&nameless);
    EXPECT_EQ(m_client.CallNames(), std::vector<std::string>{});
    Clause(key);
    Clause(key);
    Order(key);
    EXPECT_EQ(m_client.CountOf("mysql_list_fields"), 1U);
}

TEST_F(CreateClause, DoesNotLoadATableWhileAStreamIsRead)
{
    m_client.On("SELECT s", CountedRows(3));
    ASSERT_TRUE(m_customers.SelectLargeResult("SELECT s"));
    EXPECT_EQ(Clause(CMyKey("name", "x", "=")), "CMyKey_CreateClause_Field_Not_Exist_customer_NAME");
    EXPECT_EQ(Order(CMyKey("name", "x", "=")), "");
    EXPECT_EQ(m_customers.GetErrorMessage(), "Kein Fehler!");
    const OpenRecordSet others(m_database, "customer");
    EXPECT_EQ(Bytes(CMyKey("name", "x", "=").CreateClause(&others)), "(`customer`.`NAME` = 'x')");
    EXPECT_EQ(Clause(CMyKey("name", "x", "=")), "(`customer`.`NAME` = 'x')"); // in the cache now
    m_customers.Close();
}

TEST_F(CreateClause, TakesNameWithABacktickForAnUnknownColumn)
{
    EXPECT_EQ(Clause(CMyKey("o`clock", "x", "=")), "CMyKey_CreateClause_Field_Not_Exist_customer_O`CLOCK");
    m_client.OnListFields("A`B", {NumberField("id")});
    const OpenRecordSet records(m_database, "a`b");
    EXPECT_EQ(Bytes(CMyKey("id", 1, "=").CreateClause(&records)), "CMyKey_CreateClause_Field_Not_Exist_a`b_ID");
}

// --- The type of the column decides about apostrophes

struct TypeCase
{
    const char* column;
    const char* comparison;
};

class ClauseValue : public KeyFixture, public testing::WithParamInterface<TypeCase>
{
};

TEST_P(ClauseValue, StandsBetweenApostrophesAsTheColumnWants)
{
    EXPECT_EQ(Clause(CMyKey(GetParam().column, "7", "=")), "(`customer`."s + GetParam().comparison + ")");
    EXPECT_EQ(Clause(CMyKey(GetParam().column, 7, "=")), "(`customer`."s + GetParam().comparison + ")");
}

INSTANTIATE_TEST_SUITE_P(Columns, ClauseValue,
                         testing::Values(TypeCase{"name", "`NAME` = '7'"}, TypeCase{"memo", "`MEMO` = '7'"},
                                         TypeCase{"picture", "`PICTURE` = '7'"},
                                         TypeCase{"deleted_at", "`DELETED_AT` = '7'"}, TypeCase{"born", "`BORN` = '7'"},
                                         TypeCase{"wakes", "`WAKES` = '7'"}, TypeCase{"id", "`ID` = 7"},
                                         TypeCase{"age", "`AGE` = 7"}, TypeCase{"turnover", "`TURNOVER` = 7"},
                                         TypeCase{"share", "`SHARE` = 7"}, TypeCase{"big", "`BIG` = 7"},
                                         TypeCase{"price", "`PRICE` = 7"}),
                         [](const auto& test) { return test.param.column; });

TEST_F(CreateClause, Kept_K85_WritesAValueForANumberColumnAsItIs)
{
    EXPECT_EQ(Clause(CMyKey("age", "0) OR (1=1", "=")), "(`customer`.`AGE` = 0) OR (1=1)");
    EXPECT_EQ(Clause(CMyKey("age", "", "=")), "(`customer`.`AGE` = )");
}

TEST_F(CreateClause, WritesDatesBetweenApostrophes)
{
    EXPECT_EQ(Clause(CMyKey().Add("deleted_at", CDateTime(2023, 5, 7, 8, 9, 10), "<")),
              "(`customer`.`DELETED_AT` < '2023-05-07 08:09:10')");
}

TEST_F(CreateClause, WritesApostrophesAroundAValueAsData)
{
    EXPECT_EQ(Clause(CMyKey("name", "'abc'", "=")), "(`customer`.`NAME` = '\\'abc\\'')");
}

TEST_F(CreateClause, WritesTheOperatorAsItIs)
{
    EXPECT_EQ(Clause(CMyKey("name", "M_%", "LIKE")), "(`customer`.`NAME` LIKE 'M\\_%')");
    EXPECT_EQ(Clause(CMyKey("age", 1, "anything")), "(`customer`.`AGE` anything 1)");
}

TEST_F(CreateClause, WritesAnEmptyText)
{
    EXPECT_EQ(Clause(CMyKey("name", "", "=")), "(`customer`.`NAME` = '')");
}

TEST_F(CreateClause, WritesZeroBytesAndMalformedTextsAsTheyAre)
{
    CMyKey key("name", UtCString("a\0'b\xC3"sv, UT_ENCODING_DEFAULT), "=");
    EXPECT_EQ(Clause(key), "(`customer`.`NAME` = 'a\0\\'b\xC3')"s);
}

// --- null

TEST_F(CreateClause, Kept_K82_TakesTheTextNullForTheMissingValue)
{
    for (const char* value : {"null", "NULL", "Null"}) {
        EXPECT_EQ(Clause(CMyKey("name", value, "=")), "(`customer`.`NAME` IS NULL)");
        EXPECT_EQ(Clause(CMyKey("age", value, "")), "(`customer`.`AGE` IS NULL)");
    }
    EXPECT_EQ(Clause(CMyKey("name", "nulls", "=")), "(`customer`.`NAME` = 'nulls')");
    EXPECT_EQ(Clause(CMyKey("name", "null ", "=")), "(`customer`.`NAME` = 'null ')");
}

TEST_F(CreateClause, Kept_K83_TestsForNotNullWithEveryOtherOperator)
{
    for (const char* op : {"<>", "LIKE", "<=>", " =", "= ", "IS", "=="})
        EXPECT_EQ(Clause(CMyKey("name", "NULL", op)), "(`customer`.`NAME` IS NOT NULL)") << op;
}

TEST_F(CreateClause, TestsForNullWhereADateOrAGuidIsNone)
{
    CMyKey key;
    key.Add("born", CDateTime(), "=").Add("born", CDateTime(2023, 2, 29, 0, 0, 0), "=").Add("name", _GUID{}, "<");
    EXPECT_EQ(Clause(key), "(`customer`.`BORN` IS NULL) AND (`customer`.`BORN` IS NULL) AND "
                           "(`customer`.`NAME` IS NOT NULL)");
}

TEST_F(CreateClause, ReadsOperatorsAndNullInUtf16)
{
    const UtCString null("Null", UT_ENCODING_UTF16_LE, UT_ENCODING_DEFAULT);
    const UtCString equals("=", UT_ENCODING_UTF16_LE, UT_ENCODING_DEFAULT);
    const UtCString like("like", UT_ENCODING_UTF16_BE, UT_ENCODING_DEFAULT);
    const UtCString less("<=", UT_ENCODING_UTF16_BE, UT_ENCODING_DEFAULT);
    EXPECT_EQ(Clause(CMyKey("name", null, equals)), "(`customer`.`NAME` IS NULL)");
    EXPECT_EQ(Clause(CMyKey("name", null, less)), "(`customer`.`NAME` IS NOT NULL)");
    EXPECT_EQ(Clause(CMyKey("name", "a_", like)), "(`customer`.`NAME` like 'a\\_')");
    EXPECT_EQ(Order(CMyKey("name", 1, less)), "customer.NAME DESC");
}

// --- Encodings

class ClauseEncoding : public KeyFixture
{
protected:
    UtCString ClauseOn(const char* charset, const CMyKey& key)
    {
        CMyDatabase database{Server(charset), "shop"};
        const OpenRecordSet records(database, "customer");
        return key.CreateClause(&records);
    }

    /// The bytes between the apostrophes of a clause in an 8-bit encoding.
    std::string ValueOn(const char* charset, const UtCString& value)
    {
        const std::string clause = Bytes(ClauseOn(charset, CMyKey("name", value, "=")));
        const size_t begin = clause.find('\'') + 1;
        return begin == 0 ? clause : clause.substr(begin, clause.size() - 2 - begin);
    }
};

TEST_F(ClauseEncoding, IsThatOfTheConnection)
{
    EXPECT_EQ(ClauseOn("", CMyKey("name", "x", "=")).GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_EQ(ClauseOn("utf8mb4", CMyKey("name", "x", "=")).GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(ClauseOn("utf8mb4", CMyKey("x", "x", "=")).GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(ClauseOn("utf8mb4", CMyKey()).GetEncodingType(), UT_ENCODING_UTF8);
    CMyDatabase database{Server("utf8mb4"), "shop"};
    const OpenRecordSet nameless(database, "");
    EXPECT_EQ(CMyKey("name", "x", "=").CreateClause(&nameless).GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(CMyKey("name", "x", "=").CreateClause(nullptr).GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_EQ(ClauseOn("utf16", CMyKey("name", "x", "=")),
              UtCString("(`customer`.`NAME` = 'x')", UT_ENCODING_UTF16_BE));
}

TEST_F(ClauseEncoding, ConvertsTheValue)
{
    EXPECT_EQ(ValueOn("utf8mb4", "M\xFCller's"), "M\xC3\xBCller\\'s");
    EXPECT_EQ(ValueOn("", UtCString("M\xC3\xBCller's \xF0\x9F\x98\x80", UT_ENCODING_UTF8)), "M\xFCller\\'s ?");
    EXPECT_EQ(ValueOn("utf8mb4", UtCString("a'\xE2\x82\xAC", UT_ENCODING_UTF16_LE, UT_ENCODING_UTF8)),
              "a\\'\xE2\x82\xAC");
}

TEST_F(ClauseEncoding, ReplacesWhatIsMalformedWhereItConverts)
{
    EXPECT_EQ(ValueOn("", UtCString("a\xC3'", UT_ENCODING_UTF8)), "a?\\'");
    EXPECT_EQ(ValueOn("utf8mb4", UtCString("a\0\x00\xD8'"sv, UT_ENCODING_UTF16_LE)), "a\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(ValueOn("utf8mb4", UtCString("a\xC3'", UT_ENCODING_UTF8)), "a\xC3\\'");
}

TEST_F(ClauseEncoding, RefusesPiecesThatWouldShiftTheirNeighbours)
{
    const std::string failure = "CMyKey_CreateClause_Fail";
    ASSERT_EQ(ValueOn("", "x"), "x"); // the table's name cannot be sent in UTF-16: have it in the cache
    EXPECT_EQ(ValueOn("utf16le", UtCString("a\0b"sv, UT_ENCODING_UTF16_LE)), failure);
    EXPECT_EQ(ValueOn("utf16le", UtCString("ab", UT_ENCODING_UTF32)), failure);
    EXPECT_EQ(ValueOn("", UtCString("a'", UT_ENCODING_UTF32)), "a\\'");
}

TEST_F(ClauseEncoding, Kept_K86_EscapesWithBackslashesWhateverTheServersMode)
{
    m_client.SetNoBackslashEscapes(true);
    EXPECT_EQ(ValueOn("utf8mb4", "O'Neil"), "O\\'Neil");
}

// --- Lists that are no conditions

TEST_F(CreateClause, FailsWhereTheItemsAreNoConditions)
{
    CMyKey key("name", "x", "=");
    key.Remove(2);
    EXPECT_EQ(Clause(key), "CMyKey_CreateClause_Fail");
    static_cast<UtCStringList&>(key).Add("x");
    EXPECT_EQ(Clause(key), "(`customer`.`NAME` = 'x')");
    static_cast<UtCStringList&>(key).Add("x");
    EXPECT_EQ(Clause(key), "CMyKey_CreateClause_Fail");
    EXPECT_EQ(Order(key), "");
}

// --- Order

class CreateOrderClause : public KeyFixture
{
};

TEST_F(CreateOrderClause, NamesTheColumnsAndTurnsThoseWithLess)
{
    CMyKey key("name", "ignored", "=");
    key.Add("deleted_at", "null", "<").Add("age", 1, "<=").Add("id", 1, ">").Add("big", 1, " <").Add("share", 1, "<>");
    EXPECT_EQ(Order(key), "customer.NAME, customer.DELETED_AT DESC, customer.AGE DESC, customer.ID, customer.BIG, "
                          "customer.SHARE DESC");
}

TEST_F(CreateOrderClause, IsEmptyWithoutConditionsRecordSetOrTable)
{
    EXPECT_EQ(Order(CMyKey()), "");
    EXPECT_EQ(Bytes(CMyKey("name", 1, "").CreateOrderClause(nullptr)), "");
    const OpenRecordSet records(m_database, "");
    EXPECT_EQ(Bytes(CMyKey("name", 1, "").CreateOrderClause(&records)), "");
}

TEST_F(CreateOrderClause, Kept_K87_IsEmptyForOneUnknownColumnAndQuotesNoName)
{
    CMyKey key("name", 1, "");
    key.Add("nowhere", 1, "").Add("age", 1, "");
    EXPECT_EQ(Order(key), "");
    EXPECT_EQ(Order(CMyKey("o`clock", 1, "<")), "customer.O`CLOCK DESC");
}

TEST_F(CreateOrderClause, HasTheEncodingOfTheConnection)
{
    CMyDatabase database{Server("utf8mb4"), "shop"};
    const OpenRecordSet records(database, "customer");
    EXPECT_EQ(CMyKey("name", 1, "").CreateOrderClause(&records).GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(CMyKey("nowhere", 1, "").CreateOrderClause(&records).GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(CMyKey().CreateOrderClause(&records).GetEncodingType(), UT_ENCODING_UTF8);
    const OpenRecordSet nameless(database, "");
    EXPECT_EQ(CMyKey("name", 1, "").CreateOrderClause(&nameless).GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(CMyKey("name", 1, "").CreateOrderClause(nullptr).GetEncodingType(), UT_ENCODING_DEFAULT);
}

} // namespace
