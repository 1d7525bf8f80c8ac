#include "CMyKey.h"
#include "RecordSetFixture.h"

#include <cmath>
#include <vector>

namespace {

using namespace std::literals;
using server_test::OpenRecordSet;

using Ids = std::vector<long>;

const _GUID guid = {0x6B29FC40, 0xCA47, 0x1067, {0xB3, 0x1D, 0x00, 0xDD, 0x01, 0x06, 0x62, 0xDA}};

/// A text in UTF-8, zero bytes included.
UtCString Utf8(std::string_view bytes)
{
    return UtCString(bytes, UT_ENCODING_UTF8);
}

/// A table of things whose names are hard to quote, on a connection that speaks UTF-8.
class Key : public server_test::RecordSetFixture
{
protected:
    Key()
    {
        Run("CREATE TABLE things (ID INT PRIMARY KEY AUTO_INCREMENT, NAME VARCHAR(60) CHARACTER SET utf8mb4 COLLATE "
            "utf8mb4_bin, SIZE INT, PRICE DOUBLE, MADE DATETIME, DAY DATE, OPENS TIME, CODE VARCHAR(38), NOTE TEXT, "
            "RAW "
            "BLOB)");
        EXPECT_TRUE(m_utf8.Open(false, "")) << m_utf8.GetErrorMessage().string();
    }

    void Insert(const std::vector<std::string>& names)
    {
        for (const std::string& name : names)
            Run("INSERT INTO things (NAME) VALUES (" + m_temporary.Sql().Quoted(name) + ")");
    }

    /// The IDs of the rows that a clause selects, in order; {-1} when the statement fails.
    Ids Found(const UtCString& clause)
    {
        OpenRecordSet rows(m_utf8, "things");
        if (rows.Select(clause) < 0)
            return {-1};
        Ids ids;
        for (; !rows.IsEOF(); rows.MoveNext())
            ids.push_back(rows.GetFieldLong("ID"));
        return ids;
    }
    Ids Found(const CMyKey& key) { return Found(ClauseOf(key)); }
    Ids Named(const UtCString& name, const char* op = "=") { return Found(CMyKey("name", name, op)); }

    /// Changes the session of the connection.
    void Set(const char* statement)
    {
        ASSERT_NE(m_utf8.ExecuteQuery(statement, false, nullptr, false), -1L) << m_utf8.GetErrorMessage().string();
    }

    UtCString ClauseOf(const CMyKey& key)
    {
        const OpenRecordSet rows(m_utf8, "things");
        return key.CreateClause(&rows);
    }

    CMyServer m_server{Server("utf8mb4")};
    CMyDatabase m_utf8{m_server, m_temporary.Name().c_str()};
};

TEST_F(Key, FindsExactlyTheTextThatWasMeant)
{
    const std::vector<std::string> names = {"plain",
                                            "O'Neil",
                                            "\"quoted\"",
                                            "back\\slash",
                                            "\\",
                                            "\\'",
                                            "''",
                                            "'whole'",
                                            "' OR '1'='1",
                                            "\\' OR 1=1 -- ",
                                            "line\r\nbreak\ttab\x1A",
                                            "a_b",
                                            "a1b",
                                            "100%",
                                            "M\xC3\xBCller \xF0\x9F\x98\x80",
                                            "`",
                                            "; DROP TABLE things",
                                            "/* x */ # -- "};
    Insert(names);
    for (size_t index = 0; index < names.size(); ++index)
        EXPECT_EQ(Named(Utf8(names[index])), Ids{static_cast<long>(index) + 1}) << names[index];
}

TEST_F(Key, IsRefusedWithAZeroByte)
{
    Run("INSERT INTO things (NAME, SIZE) VALUES ('a', 1), ('a\\0b', 1), ('', 1)");
    CMyKey key("size", 1, "=");
    for (const std::string_view value : {"a\0b"sv, "\0"sv, "a\0' OR 1=1) -- "sv}) {
        EXPECT_EQ(Named(Utf8(value)), Ids{-1});
        EXPECT_EQ(m_utf8.GetErrorCode(), 1064);
        EXPECT_EQ(Found(CMyKey(key).Add("name", Utf8(value), "=")), Ids{-1});
        EXPECT_EQ(m_utf8.GetErrorCode(), 1064);
        EXPECT_EQ(Found(CMyKey("size", Utf8("1"s + std::string(value)), "=")), Ids{-1});
        EXPECT_EQ(m_utf8.GetErrorCode(), 1064);
    }
}

TEST_F(Key, FindsNothingForMalformedUtf8)
{
    Insert({"a", "a?", "b"});
    for (const std::string_view value : {"a\xC3"sv, "\xE2\x82"sv, "a\xF0'"sv})
        EXPECT_EQ(Named(Utf8(value)), Ids{}) << value;
}

TEST_F(Key, FindsEveryRowWithALikePattern)
{
    Insert({"a_b", "a1b", "100%", "100_%", "1000", "x\\y", "\\\\host", "\\a"});
    EXPECT_EQ(Named("a_b", "LIKE"), Ids{1});
    EXPECT_EQ(Named("a_b", "like"), Ids{1});
    EXPECT_EQ(Named("100%", "LIKE"), (Ids{3, 4, 5}));
    EXPECT_EQ(Named("100_%", "LIKE"), Ids{4});
    EXPECT_EQ(Named("100_%", "="), Ids{4});
    EXPECT_EQ(Named("a_b", "NOT LIKE"), (Ids{3, 4, 5, 6, 7, 8}));
}

TEST_F(Key, Kept_K81_FindsBackslashesWithLikeOnlyWhereTheValueBeginsWithOne)
{
    Insert({"x\\y", "xy", "\\\\host", "\\a"});
    EXPECT_EQ(Named("x\\y", "LIKE"), Ids{2});
    EXPECT_EQ(Named("\\\\host", "LIKE"), Ids{3});
    EXPECT_EQ(Named("\\%", "LIKE"), (Ids{3, 4}));
}

TEST_F(Key, ComparesNumbersAsNumbers)
{
    Run("INSERT INTO things (SIZE, PRICE) VALUES (5, 2.5), (30, 0.1235), (-7, -0.5), (0, 0)");
    EXPECT_EQ(Found(CMyKey("size", 5, ">")), Ids{2});
    EXPECT_EQ(Found(CMyKey("size", -7L, "=")), Ids{3});
    EXPECT_EQ(Found(CMyKey("size", "30", "=")), Ids{2});
    EXPECT_EQ(Found(CMyKey().Add("price", 2.5, "=")), Ids{1});
    EXPECT_EQ(Found(CMyKey().Add("price", 0.123456, "=")), Ids{2});
    EXPECT_EQ(Found(CMyKey().Add("price", -0.5, "=")), Ids{3});
    EXPECT_EQ(Found(CMyKey().Add("price", -0.0, "=")), Ids{4});
    EXPECT_EQ(Found(CMyKey().Add("price", 1e308, ">")), Ids{});
    EXPECT_EQ(Found(CMyKey().Add("size", true, "=")), Ids{});
}

TEST_F(Key, IsRefusedWithWhatIsNoNumber)
{
    Run("INSERT INTO things (PRICE) VALUES (1)");
    for (const double value : {HUGE_VAL, -HUGE_VAL, std::nan("")}) {
        EXPECT_EQ(Found(CMyKey().Add("price", value, "=")), Ids{-1}) << value;
        EXPECT_EQ(m_utf8.GetErrorCode(), 1054) << value;
    }
    EXPECT_EQ(Found(CMyKey("size", "", "=")), Ids{-1});
    EXPECT_EQ(m_utf8.GetErrorCode(), 1064);
}

TEST_F(Key, Kept_K85_AddressesAllRowsWithATextThatIsNoNumber)
{
    Run("INSERT INTO things (SIZE) VALUES (1), (2), (3)");
    EXPECT_EQ(Found(CMyKey("size", "0) OR (1=1", "=")), (Ids{1, 2, 3}));
}

TEST_F(Key, QuotesANumberForATextColumn)
{
    Insert({"5", "05", "5x"});
    EXPECT_EQ(Found(CMyKey("name", 5, "=")), Ids{1});
}

TEST_F(Key, FindsDates)
{
    Run("INSERT INTO things (MADE, DAY, OPENS) VALUES ('2023-05-07 08:09:10', '2023-05-07', '08:09:10'), "
        "('2023-05-07', '2023-05-08', '00:00:00'), (NULL, NULL, NULL)");
    const CDateTime moment(2023, 5, 7, 8, 9, 10);
    EXPECT_EQ(Found(CMyKey().Add("made", moment, "=")), Ids{1});
    EXPECT_EQ(Found(CMyKey().Add("made", moment.GetDateOnly(), "=")), Ids{2});
    EXPECT_EQ(Found(CMyKey().Add("day", moment.GetDateOnly(), "<=")), Ids{1});
    EXPECT_EQ(Found(CMyKey().Add("opens", moment.GetTimeOnly(), "=")), Ids{1});
    EXPECT_EQ(Found(CMyKey().Add("made", CDateTime(), "=")), Ids{3});
    EXPECT_EQ(Found(CMyKey().Add("made", CDateTime(), "<>")), (Ids{1, 2}));
}

TEST_F(Key, FindsGuids)
{
    Insert({"a", "b"});
    Run("UPDATE things SET CODE = '{6b29fc40-ca47-1067-b31d-00dd010662da}' WHERE NAME = 'b'");
    EXPECT_EQ(Found(CMyKey("code", guid, "=")), Ids{2});
    EXPECT_EQ(Found(CMyKey("code", _GUID{}, "=")), Ids{1});
}

TEST_F(Key, FindsTextsInMemosAndBlobs)
{
    Run("INSERT INTO things (NOTE, RAW) VALUES ('it''s', 'x\\'y'), ('its', 'xy')");
    EXPECT_EQ(Found(CMyKey("note", "it's", "=")), Ids{1});
    EXPECT_EQ(Found(CMyKey("raw", "x'y", "=")), Ids{1});
}

TEST_F(Key, Kept_K82_FindsTheMissingValueForTheTextNull)
{
    Insert({"null", "Null", "x"});
    Run("INSERT INTO things (NAME) VALUES (NULL)");
    EXPECT_EQ(Named("null"), Ids{4});
    EXPECT_EQ(Named("NULL", "<=>"), (Ids{1, 2, 3}));
}

TEST_F(Key, JoinsConditions)
{
    Run("INSERT INTO things (NAME, SIZE) VALUES ('a', 1), ('a', 2), ('b', 2)");
    CMyKey key("name", "a", "=");
    EXPECT_EQ(Found(key), (Ids{1, 2}));
    EXPECT_EQ(Found(key.Add("size", 2, "=")), Ids{2});
}

TEST_F(Key, Kept_K84_IsRefusedWithAFailureInPlaceOfTheClause)
{
    Insert({"a"});
    EXPECT_EQ(Found(CMyKey("nowhere", "x", "=")), Ids{-1});
    EXPECT_EQ(m_utf8.GetErrorCode(), 1054);
    EXPECT_EQ(Found(CMyKey("1 or 1=1", "x", "=")), Ids{-1});
    EXPECT_EQ(m_utf8.GetErrorCode(), 1054);
    EXPECT_EQ(Found(UtCString("CMyKey_CreateClause_No_Tablename")), Ids{-1});
    EXPECT_EQ(m_utf8.GetErrorCode(), 1054);
    EXPECT_EQ(Found(UtCString("CMyKey_CreateClause_Fail")), Ids{-1});
    EXPECT_EQ(m_utf8.GetErrorCode(), 1054);
}

TEST_F(Key, EndsInAnErrorWithABacktickInAName)
{
    Run("ALTER TABLE things ADD `A``B` INT, ADD `NAME`` = 'a' OR ``NAME` INT");
    Insert({"a", "b"});
    EXPECT_EQ(Found(CMyKey("a`b", 1, "=")), Ids{-1});
    EXPECT_EQ(m_utf8.GetErrorCode(), 1064);
    EXPECT_EQ(Found(CMyKey("name` = 'a' or `name", 1, "=")), Ids{-1});
    EXPECT_EQ(m_utf8.GetErrorCode(), 1064);
}

TEST_F(Key, NamesColumnsWithBlanksAndQuotes)
{
    Run("ALTER TABLE things ADD `MY 'OWN' \"COLUMN\"` INT, ADD `SELECT` INT");
    Run("INSERT INTO things (`MY 'OWN' \"COLUMN\"`, `SELECT`) VALUES (1, 2), (2, 1)");
    EXPECT_EQ(Found(CMyKey("my 'own' \"column\"", 2, "=")), Ids{2});
    EXPECT_EQ(Found(CMyKey("select", 2, "=")), Ids{1});
}

TEST_F(Key, FindsColumnsWithUmlautsOnlyOverASingleByteConnection)
{
    Run("ALTER TABLE things ADD `gr\xC3\xB6sse` INT");
    const CMyKey key("gr\xF6sse", 2, "=");
    EXPECT_EQ(ClauseOf(key), UtCString("CMyKey_CreateClause_Field_Not_Exist_things_GR\xD6SSE"));
    EXPECT_EQ(Found(key), Ids{-1});
    EXPECT_EQ(m_utf8.GetErrorCode(), 1054);
    CMyDatabase latin1(Server(), m_temporary.Name().c_str());
    ASSERT_TRUE(latin1.Open(false, "")); // forgets the names as the other connection read them
    ASSERT_NE(latin1.ExecuteQuery("SET NAMES latin1", false, nullptr, false), -1L);
    Run("INSERT INTO things (`gr\xC3\xB6sse`) VALUES (1), (2)");
    OpenRecordSet rows(latin1, "things");
    EXPECT_EQ(rows.Select(key, "", ""), 1);
    EXPECT_EQ(rows.GetFieldLong("ID"), 2);
}

TEST_F(Key, EndsInAnErrorWithNamesThatAreTooLong)
{
    Insert({"a"});
    EXPECT_EQ(Found(CMyKey(std::string(65, 'x').c_str(), 1, "=")), Ids{-1});
    EXPECT_EQ(m_utf8.GetErrorCode(), 1054);
    EXPECT_EQ(Found(CMyKey(std::string(70000, 'x').c_str(), 1, "=")), Ids{-1});
}

TEST_F(Key, EndsInAnErrorWithSqlInPlaceOfAName)
{
    Insert({"a", "b"});
    for (const char* name :
         {"", " or 1=1", "id or 1=1 -- ", "(1) or 1=1", "'' or 1=1", ".id or 1=1", "; delete from things",
          " union select * from things", " := 1 or 1=1", "\" or 1=1", "/* */ or 1=1"})
        EXPECT_EQ(Found(CMyKey(name, 1, "=")), Ids{-1}) << name;
    EXPECT_EQ(Found(UtCString()), (Ids{1, 2}));
}

TEST_F(Key, OrdersRows)
{
    Run("INSERT INTO things (SIZE, PRICE) VALUES (1, 1), (2, 1), (2, 2)");
    CMyKey key("size", "", "<");
    key.Add("price", "", "");
    const OpenRecordSet rows(m_utf8, "things");
    EXPECT_EQ(Found(UtCString("ORDER BY ") + key.CreateOrderClause(&rows)), (Ids{2, 3, 1}));
}

TEST_F(Key, FindsTextsOfAnotherEncoding)
{
    Insert({"M\xC3\xBCller", "Muller"});
    EXPECT_EQ(Named("M\xFCller"), Ids{1});
    EXPECT_EQ(Named(UtCString("M\xC3\xBCller", UT_ENCODING_UTF16_LE, UT_ENCODING_UTF8)), Ids{1});
}

// --- What escaping with backslashes does not protect

TEST_F(Key, Kept_K86_LetsAValueOutOfItsQuotesWithoutBackslashEscapes)
{
    Insert({"a", "O'Neil", "back\\slash", "x"});
    Set("SET sql_mode = 'NO_BACKSLASH_ESCAPES'");
    EXPECT_EQ(Named("a"), Ids{1});
    EXPECT_EQ(Named("O'Neil"), Ids{-1}); // the text ends behind the backslash
    EXPECT_EQ(m_utf8.GetErrorCode(), 1064);
    EXPECT_EQ(Named("back\\slash"), Ids{});        // two backslashes are two
    EXPECT_EQ(Named("' OR 1=1) OR ('1"), Ids{-1}); // the apostrophes that remain are not balanced
    EXPECT_EQ(Named("' OR 1=1) -- "), (Ids{1, 2, 3, 4}));
}

TEST_F(Key, Kept_K86_LetsAValueOutOfItsQuotesInCharacterSetsWithBackslashesInCharacters)
{
    Insert({"a", "b"});
    const UtCString value("\xBF' OR 1=1) -- ", UT_ENCODING_UTF8);
    EXPECT_EQ(Named(value), Ids{});
    Set("SET NAMES gbk");
    EXPECT_EQ(Named(value), (Ids{1, 2}));
}

} // namespace
