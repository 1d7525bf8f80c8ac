#include "sql/LookupStatement.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct SelectionCase
{
    const char* name;
    const char* fields;
    const char* condition;
    const char* order;
    const char* statement;
};

class SelectRows : public testing::TestWithParam<SelectionCase>
{
};

TEST_P(SelectRows, Builds)
{
    const SelectionCase& row = GetParam();
    const UtCString fields(row.fields), condition(row.condition), order(row.order);
    EXPECT_EQ(sql::SelectRows({"t", fields, condition, order}, UT_ENCODING_DEFAULT).View(), row.statement);
}

INSTANTIATE_TEST_SUITE_P(
    Selections, SelectRows,
    testing::Values(
        SelectionCase{"Everything", "", "", "", "SELECT `t`.* FROM `t` "},
        SelectionCase{"Fields", "a,b", "", "", "SELECT a,b FROM `t` "},
        SelectionCase{"Condition", "", "(`t`.`ID` = 5)", "", "SELECT `t`.* FROM `t` WHERE ((`t`.`ID` = 5)) "},
        SelectionCase{"Order", "a,b", "", "NAME", "SELECT a,b FROM `t` ORDER BY NAME"},
        SelectionCase{"OrderBy", "", "", "ORDER BY NAME", "SELECT `t`.* FROM `t` ORDER BY NAME"},
        SelectionCase{"OrderByAlone", "", "", "ORDER BY", "SELECT `t`.* FROM `t` ORDER BY"},
        SelectionCase{"OrderByWithoutABlank", "", "", "ORDER BYNAME", "SELECT `t`.* FROM `t` ORDER BYNAME"},
        SelectionCase{"SevenLetters", "", "", "ORDER B", "SELECT `t`.* FROM `t` ORDER BY ORDER B"},
        SelectionCase{"BlankInFrontOfOrderBy", "", "", " ORDER BY A", "SELECT `t`.* FROM `t` ORDER BY  ORDER BY A"},
        SelectionCase{"All", "a", "b = 1", "c DESC", "SELECT a FROM `t` WHERE (b = 1) ORDER BY c DESC"},
        SelectionCase{"PercentSigns", "%s", "a LIKE '%s'", "%s", "SELECT %s FROM `t` WHERE (a LIKE '%s') ORDER BY %s"},
        SelectionCase{"BlankCondition", "", " ", "", "SELECT `t`.* FROM `t` WHERE ( ) "}),
    [](const testing::TestParamInfo<SelectionCase>& named) { return named.param.name; });

TEST(SelectRowsOrder, Kept_K108_TakesOnlyOrderByInUpperCaseForAnOrderClause)
{
    EXPECT_EQ(sql::SelectRows({"t", "", "", "order by NAME"}, UT_ENCODING_DEFAULT).View(),
              "SELECT `t`.* FROM `t` ORDER BY order by NAME");
    EXPECT_EQ(sql::SelectRows({"t", "", "", "Order By NAME"}, UT_ENCODING_DEFAULT).View(),
              "SELECT `t`.* FROM `t` ORDER BY Order By NAME");
}

TEST(SelectRowsEncoding, ConvertsEachTextToTheEncodingAskedFor)
{
    const UtCString fields("\xE4", UT_ENCODING_DEFAULT);
    const UtCString condition("\xC3\xB6 = 1", UT_ENCODING_UTF8);
    const UtCString order(std::string_view("\xFC\0", 2), UT_ENCODING_UTF16_LE);
    const UtCString statement = sql::SelectRows({"\xDF", fields, condition, order}, UT_ENCODING_UTF8);
    EXPECT_EQ(statement.GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(statement.View(), "SELECT \xC3\xA4 FROM `\xC3\x9F` WHERE (\xC3\xB6 = 1) ORDER BY \xC3\xBC");
}

struct ConditionCase
{
    const char* name;
    const char* condition;
    const char* statement;
};

class CountRows : public testing::TestWithParam<ConditionCase>
{
};

TEST_P(CountRows, Builds)
{
    EXPECT_EQ(sql::CountRows("t", GetParam().condition, UT_ENCODING_DEFAULT).View(), GetParam().statement);
}

INSTANTIATE_TEST_SUITE_P(
    Conditions, CountRows,
    testing::Values(ConditionCase{"None", "", "SELECT COUNT(*) FROM `t` "},
                    ConditionCase{"Condition", "id > 5", "SELECT COUNT(*) FROM `t` WHERE id > 5"},
                    ConditionCase{"Where", "WHERE id > 5", "SELECT COUNT(*) FROM `t` WHERE id > 5"},
                    ConditionCase{"WhereInLowerCase", "where id > 5", "SELECT COUNT(*) FROM `t` where id > 5"},
                    ConditionCase{"WhereWithoutABlank", "WHERE(id)", "SELECT COUNT(*) FROM `t` WHERE WHERE(id)"},
                    ConditionCase{"Whereabouts", "whereabouts = 1", "SELECT COUNT(*) FROM `t` WHERE whereabouts = 1"},
                    ConditionCase{"Semicolon", "id > 5;", "SELECT COUNT(*) FROM `t` WHERE id > 5;"},
                    ConditionCase{"Statement", "SELECT 3", "SELECT 3"},
                    ConditionCase{"StatementInLowerCase", "select 3", "select 3"},
                    ConditionCase{"StatementWithoutABlank", "SELECT\n3", "SELECT COUNT(*) FROM `t` WHERE SELECT\n3"},
                    ConditionCase{"BlankInFront", " SELECT 3", "SELECT COUNT(*) FROM `t` WHERE  SELECT 3"},
                    ConditionCase{"PercentSigns", "a LIKE '%s%%'", "SELECT COUNT(*) FROM `t` WHERE a LIKE '%s%%'"}),
    [](const testing::TestParamInfo<ConditionCase>& named) { return named.param.name; });

TEST(CountRowsCondition, Kept_K104_StandsWithoutParenthesesSoThatClausesMayFollow)
{
    EXPECT_EQ(sql::CountRows("t", "a = 1 OR b = 2 GROUP BY c", UT_ENCODING_DEFAULT).View(),
              "SELECT COUNT(*) FROM `t` WHERE a = 1 OR b = 2 GROUP BY c");
}

TEST(CountRowsCondition, IsConvertedAlsoWhenItIsTheWholeStatement)
{
    const UtCString statement = sql::CountRows("t", UtCString("SELECT '\xE4'"), UT_ENCODING_UTF8);
    EXPECT_EQ(statement.GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(statement.View(), "SELECT '\xC3\xA4'");
    const UtCString wide(UtCString("SELECT 3"), UT_ENCODING_UTF16_BE);
    EXPECT_EQ(sql::CountRows("t", wide, UT_ENCODING_DEFAULT).View(), "SELECT 3");
}

TEST(CountTable, NamesTheTableInBackticks)
{
    EXPECT_EQ(sql::CountTable("my table", UT_ENCODING_DEFAULT).View(), "SELECT COUNT(*) FROM `my table`");
    EXPECT_EQ(sql::CountTable("%s", UT_ENCODING_DEFAULT).View(), "SELECT COUNT(*) FROM `%s`");
}

class ExistRows : public testing::TestWithParam<ConditionCase>
{
};

TEST_P(ExistRows, Builds)
{
    EXPECT_EQ(sql::ExistRows("t", GetParam().condition, UT_ENCODING_DEFAULT).View(), GetParam().statement);
}

INSTANTIATE_TEST_SUITE_P(
    Conditions, ExistRows,
    testing::Values(ConditionCase{"None", "", "SELECT '1' FROM `t` LIMIT 1"},
                    ConditionCase{"Condition", "id > 5", "SELECT '1' FROM `t` WHERE (id > 5) LIMIT 1"},
                    ConditionCase{"Semicolon", "id > 5;", "SELECT '1' FROM `t` WHERE (id > 5) LIMIT 1"},
                    ConditionCase{"SemicolonsAndBlanks", "id > 5 ;; ; ", "SELECT '1' FROM `t` WHERE (id > 5) LIMIT 1"},
                    ConditionCase{"OnlySemicolonsAndBlanks", " ;; ", "SELECT '1' FROM `t` LIMIT 1"},
                    ConditionCase{"SemicolonInFront", "; id", "SELECT '1' FROM `t` WHERE (; id) LIMIT 1"},
                    ConditionCase{"Or", "a = 1 OR b = 2", "SELECT '1' FROM `t` WHERE (a = 1 OR b = 2) LIMIT 1"},
                    ConditionCase{"Where", "WHERE id > 5;", "SELECT '1' FROM `t` WHERE id > 5 LIMIT 1"},
                    ConditionCase{"WhereInLowerCase", "where id > 5", "SELECT '1' FROM `t` where id > 5 LIMIT 1"},
                    ConditionCase{"WhereAlone", "WHERE ", "SELECT '1' FROM `t` WHERE (WHERE) LIMIT 1"},
                    ConditionCase{"SelectAlone", "SELECT ; ", "SELECT '1' FROM `t` WHERE (SELECT) LIMIT 1"},
                    ConditionCase{"BlankInFrontOfWhere", " WHERE id", "SELECT '1' FROM `t` WHERE ( WHERE id) LIMIT 1"},
                    ConditionCase{"Statement", "SELECT id FROM u; ", "SELECT id FROM u LIMIT 1"},
                    ConditionCase{"StatementInLowerCase", "select id from u", "select id from u LIMIT 1"},
                    ConditionCase{"PercentSigns", "a LIKE '%s%%'",
                                  "SELECT '1' FROM `t` WHERE (a LIKE '%s%%') LIMIT 1"}),
    [](const testing::TestParamInfo<ConditionCase>& named) { return named.param.name; });

TEST(ExistRowsStatement, Kept_K107_GetsItsLimitBehindOneOfItsOwn)
{
    EXPECT_EQ(sql::ExistRows("t", "SELECT id FROM u LIMIT 5", UT_ENCODING_DEFAULT).View(),
              "SELECT id FROM u LIMIT 5 LIMIT 1");
}

TEST(ExistRowsStatement, IsCutAtItsEndInWideEncodingsToo)
{
    const UtCString wide(UtCString("id > 5; ;"), UT_ENCODING_UTF16_LE);
    EXPECT_EQ(sql::ExistRows("t", wide, UT_ENCODING_DEFAULT).View(), "SELECT '1' FROM `t` WHERE (id > 5) LIMIT 1");
}

TEST(MaxOfField, LeavesTheNamesWithoutBackticks)
{
    EXPECT_EQ(sql::MaxOfField("t", "ID", UT_ENCODING_DEFAULT).View(), "SELECT MAX(t.ID) FROM t");
    EXPECT_EQ(sql::MaxOfField("%s", "%s", UT_ENCODING_DEFAULT).View(), "SELECT MAX(%s.%s) FROM %s");
    EXPECT_EQ(sql::MaxOfField("gr\xF6\xDF"
                              "e",
                              "ID", UT_ENCODING_UTF8)
                  .View(),
              "SELECT MAX(gr\xC3\xB6\xC3\x9F"
              "e.ID) FROM gr\xC3\xB6\xC3\x9F"
              "e");
}

} // namespace
