#include "harness/SqlTokens.h"

#include <gtest/gtest.h>

namespace {

using namespace std::literals;
using harness::BackslashMode;
using harness::SqlToken;
using harness::SqlTokens;
using Tokens = std::vector<SqlToken>;

TEST(SqlTokens, ReadsAComparison)
{
    EXPECT_EQ(SqlTokens("(`T`.`F` <= 'x\\'y' )"), (Tokens{{SqlToken::Operator, "("},
                                                          {SqlToken::QuotedName, "T"},
                                                          {SqlToken::Operator, "."},
                                                          {SqlToken::QuotedName, "F"},
                                                          {SqlToken::Operator, "<="},
                                                          {SqlToken::Text, "x'y"},
                                                          {SqlToken::Operator, ")"}}));
}

TEST(SqlTokens, ReadsWordsAndNumbers)
{
    EXPECT_EQ(SqlTokens("a_1 = -2.5"), (Tokens{{SqlToken::Word, "a_1"},
                                               {SqlToken::Operator, "="},
                                               {SqlToken::Operator, "-"},
                                               {SqlToken::Word, "2"},
                                               {SqlToken::Operator, "."},
                                               {SqlToken::Word, "5"}}));
}

TEST(SqlTokens, ReadsWhatTheServerSeesOfAText)
{
    EXPECT_EQ(SqlTokens("'a''b\\\\\\n\\0\\%\\_\\q'"), (Tokens{{SqlToken::Text, "a'b\\\n\0\\%\\_q"s}}));
    EXPECT_EQ(SqlTokens("\"a'b\"\"\""), (Tokens{{SqlToken::Text, "a'b\""}}));
    EXPECT_EQ(SqlTokens("`a``b\\`"), (Tokens{{SqlToken::QuotedName, "a`b\\"}}));
}

TEST(SqlTokens, TakesBackslashesAsTheModeSays)
{
    EXPECT_EQ(SqlTokens("'a\\' OR '"), (Tokens{{SqlToken::Text, "a' OR "}}));
    EXPECT_EQ(SqlTokens("'a\\' OR ''", BackslashMode::IsPlain),
              (Tokens{{SqlToken::Text, "a\\"}, {SqlToken::Word, "OR"}, {SqlToken::Text, ""}}));
}

TEST(SqlTokens, ReadsComments)
{
    EXPECT_EQ(
        SqlTokens("a -- b\nc # d"),
        (Tokens{{SqlToken::Word, "a"}, {SqlToken::Comment, " b"}, {SqlToken::Word, "c"}, {SqlToken::Comment, " d"}}));
    EXPECT_EQ(SqlTokens("/*'*/1--2"), (Tokens{{SqlToken::Comment, "'"},
                                              {SqlToken::Word, "1"},
                                              {SqlToken::Operator, "-"},
                                              {SqlToken::Operator, "-"},
                                              {SqlToken::Word, "2"}}));
}

TEST(SqlTokens, SaysWhatDoesNotEnd)
{
    for (const char* text : {"'a", "'a\\'", "'a\\", "\"a'", "`a", "/* a"})
        EXPECT_EQ(SqlTokens(text).back().kind, SqlToken::Broken) << text;
}

} // namespace
