#include "sql/TextPattern.h"

#include <gtest/gtest.h>

namespace {

struct PatternCase
{
    const char* pattern;
    const char* text;
    bool matches;
};

constexpr PatternCase patterns[] = {
    {"%ab", "c", false},        {"", "", true},           {"", "a", false},
    {"", " ", false},                                                              // the empty text
    {"ab", "ab", true},         {"ab", "abc", false},     {"ab", "AB", false},     // equal, letter case counts
    {"AB", "ab", false},        {"a%b", "a%b", true},     {"a*b", "axb", false},   // no wildcard in the middle
    {"ab%", "abc", true},       {"ab*", "ABC", true},     {"ab%", "cab", false},   // begins with, in any letter case
    {"ab*%", "ab", true},       {"ab%", "a", false},                               //
    {"%ab", "cab", true},       {"*ab", "ab", true},      {"%ab", "abc", false},   // ends with
    {"%ab", "CAB", false},      {"%ab", "abab", false},   {"%ab", "", false},      // the first occurrence decides
    {"%%ab", "cab", true},      {"*%ab", "xx", false},                             //
    {"%ab%", "cabd", true},     {"*ab*", "ab", true},     {"%ab*", "a b", false},  // contains
    {"%ab%", "cABd", false},    {"%", "", true},          {"%", "anything", true}, // nothing but wildcards
    {"*%", "", true},           {"**", "x", true},                                 //
    {"\xE4%", "\xE4tna", true}, {"%\xE4", "x\xE4", true}, {"%\xE4", "\xE4\xE4", false}, //
};

TEST(TextPattern, ComparesAsItsWildcardsSay)
{
    for (const PatternCase& row : patterns)
        EXPECT_EQ(sql::TextPattern(row.pattern).Matches(row.text), row.matches) << row.pattern << " / " << row.text;
}

TEST(TextPattern, ComparesAcrossEncodings)
{
    const UtCString text("\xC3\xA4tna", UT_ENCODING_UTF8);
    EXPECT_TRUE(sql::TextPattern("\xE4%").Matches(text));
    EXPECT_TRUE(sql::TextPattern(UtCString("%tna")).Matches(text));
    EXPECT_FALSE(sql::TextPattern(UtCString("%t")).Matches(text));
}

} // namespace
