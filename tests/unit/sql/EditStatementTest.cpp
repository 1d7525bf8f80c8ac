#include "sql/EditStatement.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using sql::SetList;

template <class Append> std::string Built(Append append, eUtEncodingType encoding = UT_ENCODING_UTF8)
{
    text::TextBuilder statement(encoding);
    append(statement);
    return std::string(statement.Take().View());
}

TEST(EditStatement, NamesTheTableAsItIs)
{
    EXPECT_EQ(Built([](auto& s) { sql::AppendInsertInto(s, "my t"); }), "INSERT INTO my t SET ");
    EXPECT_EQ(Built([](auto& s) { sql::AppendUpdate(s, "my t"); }), "UPDATE my t SET ");
    EXPECT_EQ(Built([](auto& s) { sql::AppendDelete(s, "my t", "A = 1"); }), "DELETE FROM my t WHERE(A = 1)");
}

TEST(EditStatement, PutsAConditionIntoParenthesesUnlessItBeginsWithOne)
{
    EXPECT_EQ(Built([](auto& s) { sql::AppendUpdateCondition(s, "A = 1"); }), " WHERE (A = 1)");
    EXPECT_EQ(Built([](auto& s) { sql::AppendUpdateCondition(s, "(A = 1) OR B"); }), " WHERE (A = 1) OR B");
    EXPECT_EQ(Built([](auto& s) { sql::AppendDelete(s, "t", "(A = 1)"); }), "DELETE FROM t WHERE(A = 1)");
    const UtCString wide(UtCString("(A)"), UT_ENCODING_UTF16_BE);
    EXPECT_EQ(Built([&](auto& s) { sql::AppendUpdateCondition(s, wide); }), " WHERE (A)");
}

TEST(SetList, SeparatesAssignmentsByAComma)
{
    EXPECT_EQ(Built([](auto& s) { SetList(s, "t"); }), "");
    EXPECT_EQ(Built([](auto& s) {
                  SetList list(s, "t");
                  list.Add("A", "1");
                  list.Add("B", "'x'");
                  list.Add("C", "null");
              }),
              "`t`.`A` = 1, `t`.`B` = 'x', `t`.`C` = null");
}

TEST(SetList, DoublesBackticksInNames)
{
    EXPECT_EQ(Built([](auto& s) {
                  SetList list(s, "t`u");
                  list.Add("`", "1");
                  list.Add("A` = 1, `B", "2");
              }),
              "`t``u`.```` = 1, `t``u`.`A`` = 1, ``B` = 2");
}

TEST(SetList, ConvertsEachTextToTheEncodingOfTheStatement)
{
    EXPECT_EQ(Built([](auto& s) { SetList(s, "T\xFC").Add(UtCString("\xC3\x9C", UT_ENCODING_UTF8), "'\xFC'"); }),
              "`T\xC3\xBC`.`\xC3\x9C` = '\xC3\xBC'");
    EXPECT_EQ(Built([](auto& s) { SetList(s, "t").Add("A", "1"); }, UT_ENCODING_UTF16_BE),
              std::string("\0`\0t\0`\0.\0`\0A\0`\0 \0=\0 \0001", 22));
}

struct FigureRow
{
    const char* info;
    int32_t figure;
};

TEST(RowFigure, IsTheFirstNumber)
{
    const FigureRow rows[] = {
        {"Rows matched: 1  Changed: 0  Warnings: 0 in 0.001 Sec", 1},
        {"Rows matched: 0  Changed: 7", 0},
        {"Query OK. 3 Records in 0.000 Sec", 3},
        {"2147483647", 2147483647},
        {"2147483648", 2147483647},
        {"99999999999999999999 5", 5},
        {"99999999999999999999 99999999999999999999 5", -7},
        {"99999999999999999999", -7},
        {"none", -7},
        {"", -7},
        {"x1y2", 1},
    };
    for (const FigureRow& row : rows)
        EXPECT_EQ(sql::RowFigure(row.info, -7), row.figure) << row.info;
}

struct NameRow
{
    const char* name;
    bool canSwallow;
    bool isSingle;
};

TEST(TableNames, AreJudgedByWhatTheyCouldDoToAStatement)
{
    const NameRow rows[] = {
        {"t", false, true},
        {"Orders_2$", false, true},
        {"db.t", false, true},
        {"a-b", false, true},
        {"K\xFC"
         "che",
         false, true},
        {"my t", false, false},
        {"t,u", false, false},
        {"t(a)", false, false},
        {"t;", false, false},
        {"t\n", false, false},
        {"t@u", false, false},
        {"t'", true, false},
        {"t\"", true, false},
        {"t`", true, false},
        {"t#", true, false},
        {"t-- ", true, false},
        {"t--", true, false},
        {"t/*", true, false},
        {"t / *", false, false},
        {"", true, false},
    };
    for (const NameRow& row : rows) {
        for (const eUtEncodingType encoding : {UT_ENCODING_DEFAULT, UT_ENCODING_UTF16_LE}) {
            const UtCString name(UtCString(row.name), encoding);
            EXPECT_EQ(sql::CanSwallowStatement(name), row.canSwallow) << row.name;
            EXPECT_EQ(sql::IsSingleName(name), row.isSingle) << row.name;
        }
    }
    EXPECT_FALSE(sql::IsSingleName(UtCString(std::string_view("t\0", 2), UT_ENCODING_DEFAULT)));
}

} // namespace
