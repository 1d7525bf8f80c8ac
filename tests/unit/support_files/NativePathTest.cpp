#include "files/NativePath.h"

#include "platform/PathRules.h"
#include "unit/support_files/TestFolder.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_view_literals;

// The native form is written with "/" here, whatever the system's separator is.
TEST(NativePath, TranslatesSeparators)
{
    const struct
    {
        std::string_view written;
        const char* native;
    } rows[] = {
        {"no\\such\\file.ini"sv, "no/such/file.ini"},
        {"no/such\\file.ini"sv, "no/such/file.ini"},
        {"no\\such\\"sv, "no/such/"},
        {"\\no\\such"sv, "/no/such"},
        {"C:\\no\\such"sv, "C:/no/such"},
        {"\\\\server\\share"sv, "//server/share"},
        {"nosuchfile"sv, "nosuchfile"},
        {"\\"sv, "/"},
        {"/"sv, "/"},
        {".\\nosuchfile"sv, "./nosuchfile"},
    };
    for (const auto& row : rows) {
        std::string native = row.native;
        std::replace(native.begin(), native.end(), '/', platform::SystemPathRules().separator);
        EXPECT_EQ(files::NativePath(Ansi(row.written)), native) << row.written;
    }
}

TEST(NativePath, IsEmptyForAnEmptyPathAndAZeroByte)
{
    EXPECT_EQ(files::NativePath(UtCString()), "");
    EXPECT_EQ(files::NativePath(Ansi("tmp\0x"sv)), "");
    EXPECT_EQ(files::NativePath(Ansi("\0"sv)), "");
    EXPECT_EQ(files::NativePath(Ansi("\\tmp\0"sv)), "");
}

TEST(NativePath, IsInUtf8)
{
    EXPECT_EQ(files::NativePath(Ansi("no such M\xFCller \x80")), "no such M\xC3\xBCller \xE2\x82\xAC");
}

} // namespace
