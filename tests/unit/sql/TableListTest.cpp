#include "sql/TableList.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(ShowTables, ListsAllForAnEmptyPattern)
{
    EXPECT_EQ(sql::ShowTables("", UT_ENCODING_DEFAULT).View(), "SHOW TABLES");
}

TEST(ShowTables, TakesThePatternAsItIs)
{
    EXPECT_EQ(sql::ShowTables("x%", UT_ENCODING_DEFAULT).View(), "SHOW TABLES LIKE 'x%'");
    EXPECT_EQ(sql::ShowTables(" a_'%s", UT_ENCODING_DEFAULT).View(), "SHOW TABLES LIKE ' a_'%s'");
}

TEST(ShowTables, IsInTheEncodingAskedFor)
{
    const UtCString statement = sql::ShowTables("k\xFC%", UT_ENCODING_UTF8);
    EXPECT_EQ(statement.GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(statement.View(), "SHOW TABLES LIKE 'k\xC3\xBC%'");
}

std::string ListOf(const std::vector<UtCString>& names)
{
    sql::TableListText list(UT_ENCODING_DEFAULT);
    for (const UtCString& name : names)
        list.Add(name);
    return std::string(list.Take().View());
}

TEST(TableListText, QuotesTheNamesAndSeparatesThem)
{
    EXPECT_EQ(ListOf({}), "");
    EXPECT_EQ(ListOf({"a"}), "`a`");
    EXPECT_EQ(ListOf({"a", "b"}), "`a`, `b`");
    EXPECT_EQ(ListOf({"order", "my table", "x-y", "a, b"}), "`order`, `my table`, `x-y`, `a, b`");
}

TEST(TableListText, Kept_K133_DoesNotEscapeABacktick)
{
    EXPECT_EQ(ListOf({"a`b", "c"}), "`a`b`, `c`");
}

TEST(TableListText, IsInItsOwnEncoding)
{
    sql::TableListText list(UT_ENCODING_UTF8);
    list.Add("K\xFC"
             "che");
    EXPECT_EQ(list.Take().View(), "`K\xC3\xBC"
                                  "che`");
}

struct SplitCase
{
    const char* description;
    const char* listText;
    std::vector<std::string> names;
};

class SplitTableList : public testing::TestWithParam<SplitCase>
{
};

TEST_P(SplitTableList, GivesTheNames)
{
    UtCStringList names;
    names.Add("what was there");
    sql::SplitTableList(GetParam().listText, names);
    std::vector<std::string> found;
    for (int position = 0; position < names.GetCount(); ++position)
        found.emplace_back(names.item(position).View());
    EXPECT_EQ(found, GetParam().names);
}

INSTANTIATE_TEST_SUITE_P(Lists, SplitTableList,
                         testing::Values(SplitCase{"NoTable", "", {}}, SplitCase{"OneTable", "`a`", {"a"}},
                                         SplitCase{"ThreeTables", "`a`, `b`, `c`", {"a", "b", "c"}},
                                         SplitCase{"BlanksWithinAName", "`my table`, `b`", {"my table", "b"}},
                                         SplitCase{"BlanksAtTheEndsOfAName", "` a `, `b`", {"a", "b"}},
                                         SplitCase{"ABacktickWithinAName", "`a`b`, `c`", {"a`b", "c"}},
                                         SplitCase{"BackticksAtTheEndsOfAName", "``a``, `c`", {"a", "c"}},
                                         SplitCase{"ACommaWithinAName", "`a,b`, `c`", {"a", "b", "c"}},
                                         SplitCase{"ANameOfNothingBut", "` `, ```, `c`, `,`", {"c"}},
                                         SplitCase{"ALongName",
                                                   "`a_name_that_needs_memory_of_its_own`, `b`",
                                                   {"a_name_that_needs_memory_of_its_own", "b"}}),
                         [](const auto& tested) { return tested.param.description; });

} // namespace
