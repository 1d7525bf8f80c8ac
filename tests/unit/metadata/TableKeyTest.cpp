#include "metadata/TableKey.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

struct KeyCase
{
    const char* name;
    const char* lookupKey;
    const char* loadKey;
};

constexpr KeyCase keyCases[] = {
    {"orders", "ORDERS", "ORDERS"},
    {"Orders", "ORDERS", "ORDERS"},
    {"`orders`", "ORDERS", "ORDERS"},
    {"``orders", "ORDERS", "ORDERS"},
    {"`or`ders`", "OR`DERS", "OR`DERS"},
    {" orders ", " ORDERS ", "ORDERS"},
    {" `orders` ", " `ORDERS` ", "ORDERS"},
    {"` orders `", " ORDERS ", "ORDERS"},
    {"my orders", "MY ORDERS", "MY ORDERS"},
    {"it's", "IT'S", "IT'S"},
    {"\torders\n", "\tORDERS\n", "\tORDERS\n"},
    {"`", "", ""},
    {" ", " ", ""},
    {"` `", " ", ""},
    {"", "", ""},
};

TEST(LookupKey, StripsBackticksOnlyAndTurnsToUpperCase)
{
    for (const KeyCase& row : keyCases)
        EXPECT_EQ(std::string(metadata::LookupKey(row.name).View()), row.lookupKey) << '[' << row.name << ']';
}

TEST(LoadKey, StripsBlanksAndBackticksAndTurnsToUpperCase)
{
    for (const KeyCase& row : keyCases)
        EXPECT_EQ(std::string(metadata::LoadKey(row.name, UT_ENCODING_DEFAULT).View()), row.loadKey)
            << '[' << row.name << ']';
}

TEST(LoadKey, IsInTheConnectionsEncoding)
{
    for (const eUtEncodingType encoding :
         {UT_ENCODING_DEFAULT, UT_ENCODING_UTF8, UT_ENCODING_UTF16_LE, UT_ENCODING_UTF16_BE})
        EXPECT_EQ(metadata::LoadKey("orders", encoding).GetEncodingType(), encoding);
}

TEST(LoadKey, ConvertsTheNameToTheConnectionsEncoding)
{
    EXPECT_EQ(std::string(metadata::LoadKey("gr\xF6\xDF"
                                            "e",
                                            UT_ENCODING_UTF8)
                              .View()),
              "GR\xC3\x96\xC3\x9F"
              "E");
}

TEST(LookupKey, KeepsAnEmbeddedZero)
{
    using namespace std::string_view_literals;
    const UtCString name("a\0b"sv, UT_ENCODING_DEFAULT);
    EXPECT_EQ(metadata::LookupKey(name).View(), "A\0B"sv);
    EXPECT_EQ(metadata::LoadKey(name, UT_ENCODING_DEFAULT).View(), "A\0B"sv);
}

TEST(LookupKey, FindsANameOfAnotherEncoding)
{
    const UtCString loaded = metadata::LoadKey(UtCString("gr\xC3\xB6\xC3\x9F"
                                                         "e",
                                                         UT_ENCODING_UTF8),
                                               UT_ENCODING_UTF8);
    EXPECT_TRUE(loaded == metadata::LookupKey("Gr\xF6\xDF"
                                              "e"));
}

} // namespace
