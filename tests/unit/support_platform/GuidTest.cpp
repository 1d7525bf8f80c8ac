#include "platform/Guid.h"

#include "harness/GuidText.h"

#include <gtest/gtest.h>

namespace {

constexpr _GUID sample = {0x6b29fc40, 0xca47, 0x1067, {0xb3, 0x1d, 0x00, 0xdd, 0x01, 0x06, 0x62, 0xda}};
constexpr _GUID untouched = {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};

TEST(GuidCharacters, WritesLowerCaseGroups)
{
    EXPECT_EQ(GuidText(sample), "6b29fc40-ca47-1067-b31d-00dd010662da");
    EXPECT_EQ(GuidText(_GUID{}), "00000000-0000-0000-0000-000000000000");
}

TEST(GuidFromText, ReadsEitherCase)
{
    for (const char* const text : {"6b29fc40-ca47-1067-b31d-00dd010662da", "6B29FC40-CA47-1067-B31D-00DD010662DA"}) {
        _GUID guid = untouched;
        EXPECT_TRUE(platform::GuidFromText(text, guid)) << text;
        EXPECT_EQ(guid, sample) << text;
    }
}

TEST(GuidFromText, RefusesEveryOtherForm)
{
    using namespace std::string_view_literals;
    const std::string_view texts[] = {
        ""sv,
        "6b29fc40ca471067b31d00dd010662da"sv,
        "{6b29fc40-ca47-1067-b31d-00dd010662da}"sv,
        " 6b29fc40-ca47-1067-b31d-00dd010662da"sv,
        "6b29fc40-ca47-1067-b31d-00dd010662da "sv,
        "6b29fc40-ca47-1067-b31d-00dd010662d"sv,
        "6b29fc40-ca47-1067-b31d-00dd010662dag"sv,
        "6b29fc40-ca47-1067-b31d-00dd010662dg"sv,
        "+b29fc40-ca47-1067-b31d-00dd010662da"sv,
        "-b29fc40-ca47-1067-b31d-00dd010662da"sv,
        "6b29fc40 ca47-1067-b31d-00dd010662da"sv,
        "6b29fc4-0ca47-1067-b31d-00dd010662da"sv,
        "6b29fc40-ca47-1067-b31d-00dd010662d\0"sv,
        "0xb29fc4-ca47-1067-b31d-00dd010662da"sv,
    };
    for (const std::string_view text : texts) {
        _GUID guid = untouched;
        EXPECT_FALSE(platform::GuidFromText(text, guid)) << text;
        EXPECT_EQ(guid, untouched) << text;
    }
}

} // namespace
