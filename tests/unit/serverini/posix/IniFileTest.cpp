#include "unit/serverini/IniFileCase.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace std::string_view_literals;

// What the library's own reader does where Windows' reader under Wine does something else, and what only POSIX has in
// place of a file: pipes, devices in the tree, files that cannot be read though they open.

namespace {

const IniFileCase fileCases[] = {
    {"LoneCarriageReturnEndsNoLine", "[SQL-Server]\nPort=33\r06\n"sv, "33\r06"},
    {"SectionEndsAtTheFirstBracket", "[SQL-Server] ; our server ]\nPort=3306\n"sv, "3306"},
    {"LineWithoutEqualsSignIsNoEntry", "[SQL-Server]\nPort\nPort=2\n"sv, "2"},
    {"Utf16CutInsideAUnit",
     "\xFF\xFE[\0S\0Q\0L\0-\0S\0e\0r\0v\0e\0r\0]\0\n\0P\0o\0r\0t\0=\0"
     "3\0"
     "4"sv,
     "3"},
    {"Utf16BecomesWindows1252",
     "\xFF\xFE[\0S\0Q\0L\0-\0S\0e\0r\0v\0e\0r\0]\0\n\0P\0o\0r\0t\0=\0\xE4\x00\xAC\x20\x54\x01\x14\x20\xFF\x00\xA0\x00x\0\n\0"sv,
     "\xE4\x80?\x97\xFF\xA0x"},
    {"Utf16CharactersWithoutAPlace",
     "\xFF\xFE[\0S\0Q\0L\0-\0S\0e\0r\0v\0e\0r\0]\0\n\0P\0o\0r\0t\0=\0\x00\x01\x3D\xD8\x00\xDE\x85\x00x\0\n\0"sv,
     "????x"},
    {"Utf16HighByteFirst",
     "\xFE\xFF\0[\0S\0Q\0L\0-\0S\0e\0r\0v\0e\0r\0]\0\n\0P\0o\0r\0t\0=\0"
     "3\0\n"sv,
     "default"},
};

INSTANTIATE_TEST_SUITE_P(FilesOnPosix, IniFileTable, testing::ValuesIn(fileCases), NameOfRow);

TEST(ReadIniValueByTheReaderForPosix, Kept_K78_AUtf8MarkHidesTheFirstLine)
{
    const IniFolder folder;
    EXPECT_EQ(ReadIni(folder.Write("\xEF\xBB\xBF[SQL-Server]\nPort=3306\n")), "default");
}

TEST(ReadIniValueByTheReaderForPosix, FindsNoKeyInAComment)
{
    const IniFolder folder;
    EXPECT_EQ(ReadIni(folder.Write("[SQL-Server]\n;Port=1\n"), "SQL-Server", ";Port"), "default");
}

TEST(ReadIniValueByTheReaderForPosix, FindsNoNameOfMoreThan256Bytes)
{
    const IniFolder folder;
    const std::string longName(300, 'k');
    const std::string path = folder.Write("[" + longName + "]\n" + longName + "=1\nk=2\n");
    EXPECT_EQ(ReadIni(path, longName.c_str(), "k"), "default");
    EXPECT_EQ(ReadIni(folder.Write("[s]\n" + longName + "=1\nk=2\n"), "s", longName.c_str()), "default");
    EXPECT_EQ(ReadIni(folder.Write("[s]\n" + longName + "=1\n"), "s", std::string(256, 'k').c_str()), "default");
}

TEST(ReadIniValueByTheReaderForPosix, GivesTheDefaultForAPipeAndDoesNotWait)
{
    const IniFolder folder;
    ASSERT_EQ(mkfifo(folder.PathOf("pipe.ini").c_str(), 0600), 0);
    EXPECT_EQ(ReadIni(folder.PathOf("pipe.ini")), "default");
}

TEST(ReadIniValueByTheReaderForPosix, GivesTheDefaultForADevice)
{
    EXPECT_EQ(ReadIni("/dev/zero"), "default");
}

TEST(ReadIniValueByTheReaderForPosix, GivesTheDefaultWhenReadingFails)
{
    EXPECT_EQ(ReadIni("/proc/self/mem"), "default") << "a regular file whose first page cannot be read";
}

TEST(ReadIniValueByTheReaderForPosix, LeavesNoFileOpen)
{
    const IniFolder folder;
    const std::string path = folder.Write("[SQL-Server]\nPort=1\n");
    const int before = open("/dev/null", O_RDONLY | O_CLOEXEC);
    close(before);
    EXPECT_EQ(ReadIni(path), "1");
    EXPECT_EQ(ReadIni(folder.Path()), "default");
    const int after = open("/dev/null", O_RDONLY | O_CLOEXEC);
    close(after);
    EXPECT_EQ(after, before);
}

} // namespace
