#include "unit/serverini/IniFileCase.h"

#include "platform/win32/WinApi.h"

using namespace std::string_view_literals;

namespace {

// What Wine's reader gives for files that nobody writes on purpose. Each row stands in docs/porting.md.
const IniFileCase wineCases[] = {
    {"LoneCarriageReturnEndsALine", "[SQL-Server]\nPort=33\r06\n"sv, "33"},
    {"SectionEndsAtTheLastBracket", "[SQL-Server] ; our server ]\nPort=3306\n"sv, "default"},
    {"LineWithoutEqualsSignHidesTheEntry", "[SQL-Server]\nPort\nPort=2\n"sv, "default"},
    {"Utf8MarkIsKnown", "\xEF\xBB\xBF[SQL-Server]\nPort=3306\n"sv, "3306"},
    {"Utf16BecomesTheNearestLetters",
     "\xFF\xFE[\0S\0Q\0L\0-\0S\0e\0r\0v\0e\0r\0]\0\n\0P\0o\0r\0t\0=\0\xE4\x00\xAC\x20\x54\x01\x14\x20\xFF\x00\xA0\x00x\0\n\0"sv,
     "\xE4\x80R\x97\xFF\xA0x"},
    {"Utf16CharactersWithoutAPlaceBecomeQuestionMarks",
     "\xFF\xFE[\0S\0Q\0L\0-\0S\0e\0r\0v\0e\0r\0]\0\n\0P\0o\0r\0t\0=\0\x00\x4E\x3D\xD8\x00\xDE\x85\x00x\0\n\0"sv,
     "????x"},
    {"Utf16HighByteFirstIsKnown",
     "\xFE\xFF\0[\0S\0Q\0L\0-\0S\0e\0r\0v\0e\0r\0]\0\n\0P\0o\0r\0t\0=\0"
     "3\0\n"sv,
     "3"},
};

INSTANTIATE_TEST_SUITE_P(FilesUnderWine, IniFileTable, testing::ValuesIn(wineCases), NameOfRow);

/// A file that nobody else can open.
class HeldFile
{
public:
    explicit HeldFile(const std::string& path)
        : m_handle(CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr))
    {
    }
    ~HeldFile() { CloseHandle(m_handle); }
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

    bool IsHeld() const { return m_handle != INVALID_HANDLE_VALUE; }

private:
    HANDLE m_handle;
};

TEST(ReadIniValueOfWindows, GivesTheDefaultForAFileThatAnotherHolds)
{
    const IniFolder folder;
    const std::string path = folder.Write("[SQL-Server]\nPort=1\n");
    const HeldFile held(path);
    ASSERT_TRUE(held.IsHeld());
    EXPECT_EQ(ReadIni(path), "default");
}

TEST(ReadIniValueOfWindows, LeavesNoFileOpen)
{
    const IniFolder folder;
    const std::string path = folder.Write("[SQL-Server]\nPort=1\n");
    EXPECT_EQ(ReadIni(path), "1");
    EXPECT_TRUE(HeldFile(path).IsHeld());
}

TEST(ReadIniValueOfWindows, GivesTheDefaultForADevice)
{
    for (const char* const path : {"NUL", "CON", "\\\\.\\NUL", "\\\\.\\pipe\\mydb"})
        EXPECT_EQ(ReadIni(path), "default") << path;
}

TEST(ReadIniValueOfWindows, DoesNotWaitForAPipe)
{
    const HANDLE pipe = CreateNamedPipeA("\\\\.\\pipe\\mydb_unit.ini", PIPE_ACCESS_DUPLEX, PIPE_TYPE_BYTE | PIPE_WAIT,
                                         1, 256, 256, 0, nullptr);
    ASSERT_NE(pipe, INVALID_HANDLE_VALUE);
    EXPECT_EQ(ReadIni("\\\\.\\pipe\\mydb_unit.ini"), "default");
    CloseHandle(pipe);
}

// A name without a folder would be looked up in the folder of Windows.
TEST(ReadIniValueOfWindows, ReadsAPathWithoutAFolderInTheWorkingFolder)
{
    const IniFolder folder;
    folder.Write("[SQL-Server]\nPort=7\n", "my.ini");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    EXPECT_EQ(ReadIni("my.ini"), "7");
    EXPECT_EQ(ReadIni(".\\my.ini"), "7");
    std::filesystem::current_path(before);
}

TEST(ReadIniValueOfWindows, SeesAChangeAtOnce)
{
    const IniFolder folder;
    for (int number = 1000; number < 1300; ++number)
        ASSERT_EQ(ReadIni(folder.Write("[SQL-Server]\nPort=" + std::to_string(number) + "\n")), std::to_string(number));
}

TEST(ReadIniValueOfWindows, ReadsAPathThatTheAnsiCodePageLacks)
{
    const IniFolder folder;
    for (const char* const name : {"M\xC3\xBCller.ini", "\xCE\xB1\xCE\xB2.ini", "\xE6\x97\xA5.ini"})
        EXPECT_EQ(ReadIni(folder.Write("[SQL-Server]\nPort=7\nUser=\xE4\n", name)), "7") << name;
    EXPECT_EQ(ReadIni(folder.PathOf("\xCE\xB1\xCE\xB2.ini"), "SQL-Server", "User"), "\xE4");
}

TEST(ReadIniValueOfWindows, StripsQuotesBeforeItCutsAtEveryPath)
{
    const IniFolder folder;
    const std::string umlauts(255, '\xE4');
    for (const char* const name : {"plain.ini", "\xCE\xB1\xCE\xB2.ini"})
        for (const char* const more : {"", "x"})
            EXPECT_EQ(ReadIni(folder.Write("[SQL-Server]\nPort=\"" + umlauts + more + "\"\n", name)), umlauts) << name;
}

TEST(ReadIniValueOfWindows, GivesTheDefaultForAPathOfMoreThan259Characters)
{
    const IniFolder folder;
    EXPECT_EQ(ReadIni(folder.PathOf(std::string(300, 'x') + ".ini")), "default");
    EXPECT_EQ(ReadIni(std::string(100'000, 'x')), "default");
}

} // namespace
