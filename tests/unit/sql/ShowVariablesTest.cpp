#include "sql/ShowVariables.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(ShowStatusLike, AsksForTheNamedVariable)
{
    EXPECT_EQ(sql::ShowStatusLike("Uptime", UT_ENCODING_DEFAULT).View(), "SHOW STATUS LIKE 'Uptime'");
}

TEST(ShowVariablesLike, AsksForTheNamedVariable)
{
    EXPECT_EQ(sql::ShowVariablesLike("version", UT_ENCODING_DEFAULT).View(), "SHOW VARIABLES LIKE 'version'");
}

TEST(ShowVariablesLike, Kept_K120_TakesTheNameAsItIs)
{
    EXPECT_EQ(sql::ShowStatusLike("a'b\\c%_%s`", UT_ENCODING_DEFAULT).View(), "SHOW STATUS LIKE 'a'b\\c%_%s`'");
    EXPECT_EQ(sql::ShowVariablesLike(" A ", UT_ENCODING_DEFAULT).View(), "SHOW VARIABLES LIKE ' A '");
}

TEST(ShowVariablesLike, TakesAZeroByteAndAnEmptyName)
{
    EXPECT_EQ(
        sql::ShowVariablesLike(UtCString(std::string_view("a\0b", 3), UT_ENCODING_DEFAULT), UT_ENCODING_DEFAULT).View(),
        std::string_view("SHOW VARIABLES LIKE 'a\0b'", 25));
    EXPECT_EQ(sql::ShowVariablesLike("", UT_ENCODING_DEFAULT).View(), "SHOW VARIABLES LIKE ''");
}

TEST(ShowVariablesLike, IsInTheEncodingThatIsAskedFor)
{
    const UtCString statement = sql::ShowVariablesLike("gr\xF6\xDF\x65", UT_ENCODING_UTF8);
    EXPECT_EQ(statement.GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(statement.View(), "SHOW VARIABLES LIKE 'gr\xC3\xB6\xC3\x9F\x65'");
    const UtCString single = sql::ShowStatusLike(UtCString("\xC3\xB6", UT_ENCODING_UTF8), UT_ENCODING_DEFAULT);
    EXPECT_EQ(single.View(), "SHOW STATUS LIKE '\xF6'");
    EXPECT_EQ(sql::ShowStatusLike("a", UT_ENCODING_UTF16_LE).GetByteLength(), 40U);
}

} // namespace
