#include "framework/GuidText.h"

#include "harness/GuidText.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_view_literals;

constexpr _GUID sample = {0x6b29fc40, 0xca47, 0x1067, {0xb3, 0x1d, 0x00, 0xdd, 0x01, 0x06, 0x62, 0xda}};

_GUID Read(std::string_view text)
{
    return framework::GuidFromLooseText(UtCString(text, UT_ENCODING_DEFAULT));
}

TEST(GuidFromLooseText, ReadsWhatPeopleAndProgramsWrite)
{
    for (const std::string_view text : {
             "6b29fc40-ca47-1067-b31d-00dd010662da"sv,
             "6B29FC40-CA47-1067-B31D-00DD010662DA"sv,
             "{6B29FC40-CA47-1067-B31D-00DD010662DA}"sv,
             "guid{6b29fc40-ca47-1067-b31d-00dd010662da}"sv,
             "UUID 6B29FC40-CA47-1067-B31D-00DD010662DA"sv,
             "{guid{6b29fc40-ca47-1067-b31d-00dd010662da}}"sv,
             "{GUID 6b29fc40-ca47-1067-b31d-00dd010662da}"sv,
             "{{{6b29fc40-ca47-1067-b31d-00dd010662da"sv,
             "6b29fc40-ca47-1067-b31d-00dd010662da}}}"sv,
             "  { 6b29fc40 - ca47 - 1067 - b31d - 00dd010662da }  "sv,
             "6 b 2 9 f c 4 0-ca47-1067-b31d-00dd010662da"sv,
             "g u i d { 6b29fc40-ca47-1067-b31d-00dd010662da }"sv,
         })
        EXPECT_EQ(Read(text), sample) << text;
}

TEST(GuidFromLooseText, IsAllZeroForEverythingElse)
{
    for (const std::string_view text : {
             ""sv,
             " "sv,
             "{}"sv,
             "guid"sv,
             "6b29fc40ca471067b31d00dd010662da"sv,
             "6b29fc40-ca47-1067-b31d-00dd010662d"sv,
             "6b29fc40-ca47-1067-b31d-00dd010662daa"sv,
             "6b29fc40-ca47-1067-b31d-00dd010662dg"sv,
             "(6b29fc40-ca47-1067-b31d-00dd010662da)"sv,
             "guiduuid6b29fc40-ca47-1067-b31d-00dd010662da"sv,
             "urn:uuid:6b29fc40-ca47-1067-b31d-00dd010662da"sv,
             "6b29fc40-ca47-1067-b31d-00dd010662da\t"sv,
             "6b29fc40-ca47-1067-b31d-00dd010662da\0"sv,
             "\0006b29fc40-ca47-1067-b31d-00dd010662da"sv,
             "}6b29fc40-ca47-1067-b31d-00dd010662da{"sv,
             "6b29fc40-ca47-1067-b31d-00dd010662\xFC"
             "a"sv,
         })
        EXPECT_EQ(Read(text), _GUID{}) << text;
}

TEST(GuidFromLooseText, ReadsTheAllZeroGuid)
{
    EXPECT_EQ(Read("{00000000-0000-0000-0000-000000000000}"), _GUID{});
}

TEST(GuidFromLooseText, ReadsEveryEncoding)
{
    for (const eUtEncodingType encoding : {UT_ENCODING_UTF8, UT_ENCODING_UTF16_LE, UT_ENCODING_UTF16_BE}) {
        const UtCString ansi("{6B29FC40-CA47-1067-B31D-00DD010662DA}"sv, UT_ENCODING_DEFAULT);
        EXPECT_EQ(framework::GuidFromLooseText(UtCString(ansi, encoding)), sample) << encoding;
    }
}

TEST(GuidFromLooseText, ReadsBackWhatIsWritten)
{
    EXPECT_EQ(Read("{" + GuidText(sample) + "}"), sample);
}

} // namespace
