#include "sql/KeyClause.h"

#include "text/TextBuilder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace std::literals;

const UtCString table("T");
const UtCString field("F");
const UtCString equals("=");

UtCString Comparison(const UtCString& value, eUtEncodingType encoding)
{
    text::TextBuilder clause(encoding);
    sql::AppendComparison(clause, {table, field, equals, value}, MYTYPE_TEXT);
    return sql::TakeClause(clause);
}

TEST(AppendComparison, QuotesTheTypesOfTextsAndDates)
{
    for (MYTYPES type : {MYTYPE_TEXT, MYTYPE_BLOB, MYTYPE_MEMO, MYTYPE_DATETIME}) {
        text::TextBuilder clause(UT_ENCODING_DEFAULT);
        sql::AppendComparison(clause, {table, field, equals, "x"}, type);
        EXPECT_EQ(sql::TakeClause(clause), "(`T`.`F` = 'x')") << type;
    }
    for (MYTYPES type : {MYTYPE_UNKNOWN, MYTYPE_SHORT, MYTYPE_LONG, MYTYPE_DOUBLE, MYTYPE_INT64, MYTYPE_FLOAT}) {
        text::TextBuilder clause(UT_ENCODING_DEFAULT);
        sql::AppendComparison(clause, {table, field, equals, "x"}, type);
        EXPECT_EQ(sql::TakeClause(clause), "(`T`.`F` = x)") << type;
    }
}

TEST(AppendComparison, GivesTheTextUpWhereItCannotTakeAPieceIn)
{
    const UtCString halfUnit("a\0b"sv, UT_ENCODING_UTF16_LE);
    const UtCString wholeUnits("a\0"sv, UT_ENCODING_UTF16_LE);
    const UtCString opaque("ab", UT_ENCODING_UTF32);
    EXPECT_EQ(Comparison(halfUnit, UT_ENCODING_UTF16_LE), "CMyKey_CreateClause_Fail");
    EXPECT_EQ(Comparison(wholeUnits, UT_ENCODING_UTF16_LE), "(`T`.`F` = 'a')");
    EXPECT_EQ(Comparison(halfUnit, UT_ENCODING_UTF16_BE), UtCString("(`T`.`F` = 'a\xEF\xBF\xBD')", UT_ENCODING_UTF8));
    EXPECT_EQ(Comparison(opaque, UT_ENCODING_UTF16_BE), "CMyKey_CreateClause_Fail");
    EXPECT_EQ(Comparison(wholeUnits, UT_ENCODING_UTF32), "CMyKey_CreateClause_Fail");
    EXPECT_EQ(Comparison(opaque, UT_ENCODING_UTF32), "(`T`.`F` = 'ab')");
    EXPECT_EQ(Comparison(opaque, UT_ENCODING_UTF8), "(`T`.`F` = 'ab')");
    EXPECT_EQ(Comparison(UtCString(UT_ENCODING_UTF32), UT_ENCODING_UTF16_LE), "(`T`.`F` = '')");
}

TEST(ComparisonSize, IsAtLeastWhatTheComparisonTakes)
{
    for (eUtEncodingType encoding : {UT_ENCODING_DEFAULT, UT_ENCODING_UTF8, UT_ENCODING_UTF16_LE}) {
        for (const UtCString& value :
             {UtCString("null"), UtCString("M\xFCller"), UtCString(std::string(99, '\x80'), UT_ENCODING_DEFAULT)}) {
            const size_t size = sql::ComparisonSize({table, field, "<>", value}, encoding);
            text::TextBuilder clause(encoding);
            clause.Append(" AND ", UT_ENCODING_DEFAULT);
            sql::AppendComparison(clause, {table, field, "<>", value}, MYTYPE_TEXT);
            EXPECT_GE(size, clause.Take().GetByteLength());
        }
    }
}

TEST(ClauseFailure, IsReportedInTheEncodingOfTheClause)
{
    EXPECT_EQ(sql::NoTableName(UT_ENCODING_UTF8).GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(sql::NoTableName(UT_ENCODING_UTF16_LE), "CMyKey_CreateClause_No_Tablename");
    EXPECT_EQ(sql::FieldNotExist({table, field, equals, "x"}, UT_ENCODING_UTF16_LE),
              "CMyKey_CreateClause_Field_Not_Exist_T_F");
}

} // namespace
