#include "sql/StatementKind.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace std::string_view_literals;

bool IsSelect(std::string_view text, eUtEncodingType encoding = UT_ENCODING_DEFAULT)
{
    return sql::IsSelectQuery(UtCString(text, encoding));
}

/// ASCII text as UTF-16.
std::string Utf16(std::string_view text, bool highByteFirst)
{
    std::string units;
    for (const char character : text) {
        units += highByteFirst ? std::string{'\0', character} : std::string{character, '\0'};
    }
    return units;
}

struct Named
{
    const char* name;
    std::string_view text;
    bool givesRows;
};

const std::vector<Named> statements = {
    {"Select", "SELECT * FROM t", true},
    {"SelectInLowerCase", "select * from t", true},
    {"SelectInMixedCase", "sElEcT * FROM t", true},
    {"SelectOfExactlyTenCharacters", "SELECT 123", true},
    {"SelectOfNineCharacters", "SELECT 12", false},
    {"SelectWithoutABlankBehind", "SELECT(1+2+3)", false},
    {"SelectWithATabBehind", "SELECT\t1+2+3", false},
    {"SelectWithALineFeedBehind", "SELECT\n* FROM t", true},
    {"SelectWithACarriageReturnBehind", "SELECT\r* FROM t", true},
    {"SelectWithALineBreakBehind", "SELECT\r\n* FROM t", true},
    {"SelectWithABlankInFront", " SELECT * FROM t", false},
    {"SelectWithALineBreakInFront", "\nSELECT * FROM t", false},
    {"SelectBehindAParenthesis", "(SELECT * FROM t)", false},
    {"SelectBehindAComment", "/* x */ SELECT * FROM t", false},
    {"SelectAsPartOfALongerWord", "SELECTED * FROM t", false},
    {"SelectIntoOutfile", "SELECT * FROM t INTO OUTFILE 'x'", false},
    {"SelectIntoOutfileInLowerCase", "select * from t into outfile 'x'", false},
    {"SelectIntoOutfileOverLines", "SELECT * FROM t\nINTO OUTFILE\r'x'", false},
    {"SelectIntoOutfileOverALineBreakOfTwo", "SELECT * FROM t INTO\r\nOUTFILE 'x'", true},
    {"SelectIntoOutfileWithTwoBlanksBetween", "SELECT * FROM t INTO  OUTFILE 'x'", true},
    {"SelectIntoOutfileAtTheEnd", "SELECT * FROM t INTO OUTFILE", true},
    {"SelectIntoOutfileWithoutABlankBehind", "SELECT * FROM t INTO OUTFILE'x'", true},
    {"SelectIntoOutfileWithinALiteral", "SELECT ' INTO OUTFILE ' FROM t", false},
    {"SelectIntoDumpfile", "SELECT * FROM t INTO DUMPFILE 'x'", false},
    {"SelectIntoDumpfileInMixedCase", "SELECT * FROM t Into DumpFile 'x'", false},
    {"SelectIntoAVariable", "SELECT a INTO @a FROM t", true},
    {"SelectIntoOutfileWithUnion", "SELECT 1 UNION SELECT 2 INTO OUTFILE 'x'", false},
    {"Show", "SHOW TABLES", true},
    {"ShowInLowerCase", "show tables", true},
    {"ShowWithALineBreakBehind", "SHOW\nTABLES", true},
    {"ShowOfTenCharacters", "SHOW INDEX", true},
    {"ShowWithABlankInFront", " SHOW TABLES", false},
    {"ShowWithoutABlankBehind", "SHOWTABLES x", false},
    {"Check", "CHECK TABLE t", true},
    {"CheckInLowerCase", "check table t", true},
    {"Checksum", "CHECKSUM TABLE t", false},
    {"Repair", "REPAIR TABLE t", true},
    {"RepairInLowerCase", "repair table t", true},
    {"Optimize", "OPTIMIZE TABLE t", true},
    {"OptimizeInLowerCase", "optimize table t", true},
    {"Explain", "EXPLAIN SELECT 1", true},
    {"ExplainInLowerCase", "explain select 1", true},
    {"ShowIntoOutfile", "SHOW TABLES INTO OUTFILE 'x'", true},
    {"Backup", "BACKUP TABLE t TO 'x'", false},
    {"Restore", "RESTORE TABLE t FROM 'x'", false},
    {"Describe", "DESCRIBE tablename", false},
    {"Analyze", "ANALYZE TABLE t", false},
    {"DescribeInLowerCase", "describe tablename", false},
    {"DescribeWithUnion", "DESCRIBE SELECT 1 UNION SELECT 2", true},
    {"AnalyzeWithUnion", "ANALYZE SELECT 1 UNION SELECT 2", true},
    {"HandlerRead", "HANDLER t READ FIRST", true},
    {"HandlerReadInLowerCase", "handler t read first", true},
    {"HandlerReadOverLines", "HANDLER\rt\nREAD\nFIRST", true},
    {"HandlerReadAtTheEnd", "HANDLER t READ", false},
    {"HandlerOpen", "HANDLER t OPEN", false},
    {"HandlerOpenWithUnion", "HANDLER t OPEN UNION x", true},
    {"HandlerOfATableThatIsCalledRead", "HANDLER READ OPEN", true},
    {"HandlerOnly", "HANDLER   ", false},
    {"ReadWithoutHandler", "LOCK t READ LOCAL", false},
    {"UnionInParentheses", "(SELECT 1) UNION (SELECT 2)", true},
    {"UnionInLowerCase", "(select 1) union (select 2)", true},
    {"UnionOverLines", "(SELECT 1)\nUNION\n(SELECT 2)", true},
    {"UnionAll", "(SELECT 1) UNION ALL (SELECT 2)", true},
    {"UnionWithoutBlanks", "(SELECT 1)UNION(SELECT 2)", false},
    {"UnionWithTabs", "(SELECT 1)\tUNION\t(SELECT 2)", false},
    {"UnionBehindABlankInFront", " SELECT 1 UNION SELECT 2", true},
    {"UnionInAnInsert", "INSERT INTO t SELECT 1 UNION SELECT 2", true},
    {"UnionAtTheStart", "UNION SELECT 2", false},
    {"UnionAtTheStartBehindABlank", " UNION SELECT 2", true},
    {"UnionAtTheVeryEnd", "(SELECT 1) UNION ", true},
    {"UnionCutAtTheEnd", "(SELECT 1) UNION", false},
    {"UnionInsideAWord", "(SELECT 1) REUNION x", false},
    {"Insert", "INSERT INTO t VALUES (1)", false},
    {"InsertOfSelect", "INSERT INTO t SELECT * FROM u", false},
    {"Update", "UPDATE t SET a = 1", false},
    {"Delete", "DELETE FROM t", false},
    {"Call", "CALL p(1, 2)", false},
    {"With", "WITH x AS (SELECT 1) SELECT * FROM x", false},
    {"Empty", "", false},
    {"OneCharacter", "S", false},
    {"NineBlanks", "         ", false},
    {"TenBlanks", "          ", false},
    {"TenLineBreaks", "\n\n\n\n\n\n\n\n\n\n", false},
    {"ZeroByteBehindSelect", "SELECT\0* FROM t"sv, false},
    {"UnionBehindAZeroByte", "x\0xxxxx UNION y"sv, true},
    {"SelectWithAZeroByteAmongTenCharacters", "SELECT 1\0 "sv, true},
};

class IsSelectQuery : public testing::TestWithParam<Named>
{
};

TEST_P(IsSelectQuery, JudgesTheStatementInTheSingleByteEncoding)
{
    EXPECT_EQ(IsSelect(GetParam().text), GetParam().givesRows);
}

TEST_P(IsSelectQuery, JudgesTheStatementInUtf8)
{
    EXPECT_EQ(IsSelect(GetParam().text, UT_ENCODING_UTF8), GetParam().givesRows);
}

TEST_P(IsSelectQuery, JudgesTheStatementInUtf16LowByteFirst)
{
    EXPECT_EQ(IsSelect(Utf16(GetParam().text, false), UT_ENCODING_UTF16_LE), GetParam().givesRows);
}

TEST_P(IsSelectQuery, JudgesTheStatementInUtf16HighByteFirst)
{
    EXPECT_EQ(IsSelect(Utf16(GetParam().text, true), UT_ENCODING_UTF16_BE), GetParam().givesRows);
}

INSTANTIATE_TEST_SUITE_P(Statements, IsSelectQuery, testing::ValuesIn(statements),
                         [](const testing::TestParamInfo<Named>& row) { return row.param.name; });

TEST(IsSelectQueryLength, CountsCharactersAndNotBytes)
{
    EXPECT_FALSE(IsSelect("SELECT \xC3\xBC\xC3\xBC", UT_ENCODING_UTF8)); // 9 characters in 11 bytes
    EXPECT_TRUE(IsSelect("SELECT \xC3\xBC\xC3\xBC\xC3\xBC", UT_ENCODING_UTF8));
    EXPECT_FALSE(IsSelect("SHOW \xF0\x9F\x98\x80\xF0\x9F\x98\x80\xF0\x9F\x98\x80\xF0\x9F\x98\x80", UT_ENCODING_UTF8));
    EXPECT_TRUE(IsSelect("SHOW \xF0\x9F\x98\x80\xF0\x9F\x98\x80\xF0\x9F\x98\x80\xF0\x9F\x98\x80x", UT_ENCODING_UTF8));
}

TEST(IsSelectQueryLength, CountsEachByteOfTheSingleByteEncoding)
{
    EXPECT_TRUE(IsSelect("SELECT \xC3\xBC\xC3"));
    EXPECT_FALSE(IsSelect("SELECT \xC3\xBC"));
}

TEST(IsSelectQueryLength, CountsASurrogatePairAsOneCharacter)
{
    EXPECT_FALSE(IsSelect(Utf16("SELECT 1", false) + std::string("\x3D\xD8\x00\xDE", 4), UT_ENCODING_UTF16_LE));
    EXPECT_TRUE(IsSelect(Utf16("SELECT 12", false) + std::string("\x3D\xD8\x00\xDE", 4), UT_ENCODING_UTF16_LE));
}

TEST(IsSelectQueryEncoding, FindsNoKeywordInLettersThatOnlyLookAlike)
{
    EXPECT_FALSE(IsSelect("\xEF\xBC\xB3"
                          "ELECT * FROM t",
                          UT_ENCODING_UTF8));                                       // full-width S
    EXPECT_FALSE(IsSelect("(SELECT 1) UN\xC3\x8DON (SELECT 2)", UT_ENCODING_UTF8)); // I with acute
    EXPECT_FALSE(IsSelect("(SELECT 1) UN\xC4\xB0ON (SELECT 2)", UT_ENCODING_UTF8)); // I with dot
}

TEST(IsSelectQueryEncoding, FindsKeywordsInLettersWhoseUpperCaseIsAscii)
{
    EXPECT_TRUE(IsSelect("\xC5\xBF"
                         "elect * from t",
                         UT_ENCODING_UTF8));                                       // long s
    EXPECT_TRUE(IsSelect("(select 1) un\xC4\xB1on (select 2)", UT_ENCODING_UTF8)); // dotless i
    EXPECT_FALSE(IsSelect("(select 1) un\xC4\xB1on (select 2)"));                  // two other letters there
    const std::string dotless = Utf16("(select 1) un", false) + "\x31\x01" + Utf16("on (select 2)", false);
    EXPECT_TRUE(IsSelect(dotless, UT_ENCODING_UTF16_LE));
    EXPECT_FALSE(IsSelect(dotless, UT_ENCODING_UTF16_BE));
}

TEST(IsSelectQueryEncoding, ReadsNoHalfALetterAtTheEnd)
{
    EXPECT_FALSE(IsSelect("(select 1) un\xC4", UT_ENCODING_UTF8));
    EXPECT_FALSE(IsSelect("\xC5\xC5\xC5\xC5\xC5\xC5\xC5\xC5\xC5\xC5", UT_ENCODING_UTF8));
    EXPECT_TRUE(IsSelect("(select 1) UNION \xC4", UT_ENCODING_UTF8));
    EXPECT_FALSE(IsSelect("(select 1) un\xC4 ion ", UT_ENCODING_UTF8));
    EXPECT_FALSE(IsSelect("(select 1) un\xC4"
                          "1on (select 2)",
                          UT_ENCODING_UTF8));
}

TEST(IsSelectQueryEncoding, FindsKeywordsBetweenOtherCharacters)
{
    EXPECT_TRUE(IsSelect("(SELECT '\xC3\xBC') UNION (SELECT '\xE2\x82\xAC')", UT_ENCODING_UTF8));
    EXPECT_TRUE(IsSelect("(SELECT '\xFC') UNION (SELECT '\x80')"));
    EXPECT_FALSE(IsSelect("SELECT '\xFC' INTO OUTFILE '\x80'"));
}

TEST(IsSelectQueryEncoding, ReadsAByteOrderMarkAsACharacterInFront)
{
    EXPECT_FALSE(IsSelect("\xEF\xBB\xBFSELECT * FROM t", UT_ENCODING_UTF8));
}

TEST(IsSelectQueryEncoding, GetsOverMalformedUtf8)
{
    EXPECT_TRUE(IsSelect("(SELECT '\xE2\x82') UNION (SELECT '\xFF')", UT_ENCODING_UTF8));
    EXPECT_FALSE(IsSelect("\xF0\x9F\x98", UT_ENCODING_UTF8));
    EXPECT_TRUE(IsSelect("(SELECT '\xE2 UNION ", UT_ENCODING_UTF8));
}

TEST(IsSelectQueryEncoding, GetsOverAHalfUnitAtTheEnd)
{
    EXPECT_TRUE(IsSelect(Utf16("SELECT * FROM t", false) + "x", UT_ENCODING_UTF16_LE));
    EXPECT_FALSE(IsSelect("x", UT_ENCODING_UTF16_LE));
}

TEST(IsSelectQueryEncoding, DoesNotTakeAUnitForItsLowByte)
{
    // U+5320 U+4520 ...: the low bytes spell a keyword, the characters do not.
    const std::string letters = "SELECT * FROM t";
    std::string units;
    for (const char letter : letters) {
        units += {letter, '\x53'};
    }
    EXPECT_FALSE(IsSelect(units, UT_ENCODING_UTF16_LE));
}

TEST(IsSelectQueryEncoding, ReadsATextThatIsNeverConvertedAsUtf16)
{
    EXPECT_FALSE(IsSelect("SELECT * FROM t", UT_ENCODING_UTF32));
    EXPECT_TRUE(IsSelect(Utf16("SELECT * FROM t", false), UT_ENCODING_UTF32));
    EXPECT_FALSE(IsSelect(Utf16("SELECT * FROM t", true), UT_ENCODING_UTF32));
}

TEST(IsSelectQueryPrefixes, Kept_K01_TakesDescribeAnalyzeBackupAndRestoreForStatementsWithoutRows)
{
    EXPECT_FALSE(IsSelect("DESCRIBE tablename"));
    EXPECT_FALSE(IsSelect("ANALYZE TABLE tablename"));
    EXPECT_FALSE(IsSelect("BACKUP TABLE t TO 'x'"));
    EXPECT_FALSE(IsSelect("RESTORE TABLE t FROM 'x'"));
}

TEST(IsSelectQueryLength, Kept_K02_TakesLessThanTenCharactersForAStatementWithoutRows)
{
    EXPECT_FALSE(IsSelect("SHOW KEYS"));
    EXPECT_TRUE(IsSelect("SHOW KEYS "));
}

TEST(IsSelectQueryPrefixes, Kept_K13_LooksNotBehindABlankInFront)
{
    EXPECT_FALSE(IsSelect(" SELECT * FROM t"));
}

TEST(IsSelectQueryLong, IsFoundAtTheEndOfALongText)
{
    const std::string filler(1 << 20, 'x');
    EXPECT_TRUE(IsSelect("(SELECT '" + filler + "') UNION (SELECT 1)"));
    EXPECT_FALSE(IsSelect("SELECT '" + filler + "' INTO OUTFILE 'x'"));
}

} // namespace
