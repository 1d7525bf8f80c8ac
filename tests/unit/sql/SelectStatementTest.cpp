#include "sql/SelectStatement.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(SelectAll, NamesTheTableAsItIs)
{
    EXPECT_EQ(sql::SelectAll("orders", UT_ENCODING_DEFAULT).View(), "SELECT * FROM orders");
    EXPECT_EQ(sql::SelectAll("my orders", UT_ENCODING_DEFAULT).View(), "SELECT * FROM my orders");
    EXPECT_EQ(sql::SelectAll("", UT_ENCODING_DEFAULT).View(), "SELECT * FROM ");
}

TEST(SelectAll, TakesAPercentSignInTheNameForText)
{
    EXPECT_EQ(sql::SelectAll("a%sb", UT_ENCODING_DEFAULT).View(), "SELECT * FROM a%sb");
}

TEST(SelectAll, IsInTheEncodingAskedFor)
{
    const UtCString statement = sql::SelectAll(UtCString("K\xFC", UT_ENCODING_DEFAULT), UT_ENCODING_UTF8);
    EXPECT_EQ(statement.GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(statement.View(), "SELECT * FROM K\xC3\xBC");
}

struct ClauseRow
{
    const char* name;
    const char* clause;
    const char* statement;
};

class SelectByClause : public testing::TestWithParam<ClauseRow>
{
};

TEST_P(SelectByClause, Builds)
{
    EXPECT_EQ(sql::SelectByClause("orders", GetParam().clause).View(), GetParam().statement);
}

INSTANTIATE_TEST_SUITE_P(
    Clauses, SelectByClause,
    testing::Values(ClauseRow{"Condition", "id > 5", "SELECT orders.* FROM orders WHERE id > 5"},
                    ClauseRow{"Where", "WHERE id > 5", "SELECT orders.* FROM orders WHERE id > 5"},
                    ClauseRow{"WhereInLowerCase", "where id > 5", "SELECT orders.* FROM orders where id > 5"},
                    ClauseRow{"OrderBy", "ORDER BY id", "SELECT orders.* FROM orders ORDER BY id"},
                    ClauseRow{"OrderByInMixedCase", "Order By id", "SELECT orders.* FROM orders Order By id"},
                    ClauseRow{"OrderByWithTwoBlanks", "ORDER  BY id", "SELECT orders.* FROM orders WHERE ORDER  BY id"},
                    ClauseRow{"GroupBy", "GROUP BY id", "SELECT orders.* FROM orders GROUP BY id"},
                    ClauseRow{"Having", "HAVING id > 5", "SELECT orders.* FROM orders HAVING id > 5"},
                    ClauseRow{"Limit", "LIMIT 5", "SELECT orders.* FROM orders LIMIT 5"},
                    ClauseRow{"LimitInLowerCase", "limit 5", "SELECT orders.* FROM orders limit 5"},
                    ClauseRow{"KeywordAlone", "LIMIT", "SELECT orders.* FROM orders LIMIT"},
                    ClauseRow{"ShorterThanAKeyword", "a", "SELECT orders.* FROM orders WHERE a"},
                    ClauseRow{"Percent", "a LIKE '%s'", "SELECT orders.* FROM orders WHERE a LIKE '%s'"}),
    [](const testing::TestParamInfo<ClauseRow>& named) { return named.param.name; });

TEST(SelectByClause, Kept_K39_TakesAnyTextThatBeginsWithAKeywordForAClause)
{
    EXPECT_EQ(sql::SelectByClause("orders", "whereabouts = 1").View(), "SELECT orders.* FROM orders whereabouts = 1");
    EXPECT_EQ(sql::SelectByClause("orders", "limits > 1").View(), "SELECT orders.* FROM orders limits > 1");
}

TEST(SelectByClause, Kept_K40_DoesNotQuoteTheTable)
{
    EXPECT_EQ(sql::SelectByClause("my orders", "LIMIT 1").View(), "SELECT my orders.* FROM my orders LIMIT 1");
}

TEST(SelectByClause, KeepsAZeroByteOfTheClause)
{
    const UtCString clause(std::string_view("a = '\0'", 7), UT_ENCODING_UTF8);
    const UtCString statement = sql::SelectByClause("t", clause);
    EXPECT_EQ(statement.View(), std::string_view("SELECT t.* FROM t WHERE a = '\0'", 31));
    EXPECT_EQ(statement.GetEncodingType(), UT_ENCODING_UTF8);
}

} // namespace
