#include "CMyServer.h"

#include "unit/serverini/IniFolder.h"

#include <gtest/gtest.h>

namespace {

std::string Bytes(const UtCString& text)
{
    return std::string(text.View());
}

class LoadServerIni : public testing::Test
{
protected:
    /// Loads a file with these lines in the section "SQL-Server".
    bool Load(const std::string& entries)
    {
        return m_server.LoadServerINI(m_folder.Write("[SQL-Server]\r\n" + entries).c_str());
    }

    void ExpectReset() const
    {
        EXPECT_TRUE(m_server.IsConnectAllowed());
        EXPECT_EQ(m_server.GetPort(), 0U);
        EXPECT_EQ(m_server.GetEncodingType(), UT_ENCODING_DEFAULT);
        for (const UtCString& text : {m_server.GetHost(), m_server.GetAlias(), m_server.GetUser(),
                                      m_server.GetPassword(), m_server.GetCharset(), m_server.GetMySQLProgramDir(),
                                      m_server.GetDataDir(), m_server.GetServerINIFileName()})
            EXPECT_EQ(Bytes(text), "");
        EXPECT_FALSE(m_server.IsValid());
    }

    /// Gives every member a value that is not its default.
    void LoadEverything()
    {
        ASSERT_TRUE(
            Load("DataDir=D:\\data\r\nServerDir=C:\\sql\r\nCanConnect=0\r\nServer=db\r\nAlias=Main\r\nPort=3307\r\n"
                 "User=kim\r\nPassword=4BA341CA5F39E3E8\r\nCharset=utf8mb4\r\n"));
    }

    IniFolder m_folder;
    CMyServer m_server;
};

TEST_F(LoadServerIni, ReadsEveryKey)
{
    LoadEverything();
    EXPECT_EQ(Bytes(m_server.GetDataDir()), "D:\\data\\");
    EXPECT_EQ(Bytes(m_server.GetMySQLProgramDir()), "C:\\sql");
    EXPECT_FALSE(m_server.IsConnectAllowed());
    EXPECT_EQ(Bytes(m_server.GetHost()), "db");
    EXPECT_EQ(Bytes(m_server.GetAlias()), "Main::3307");
    EXPECT_EQ(m_server.GetPort(), 3307U);
    EXPECT_EQ(Bytes(m_server.GetUser()), "kim");
    EXPECT_EQ(Bytes(m_server.GetPassword()), "geheim");
    EXPECT_EQ(Bytes(m_server.GetCharset()), "utf8mb4");
    EXPECT_EQ(m_server.GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(Bytes(m_server.GetServerINIFileName()), m_folder.PathOf("Server.ini"));
}

TEST_F(LoadServerIni, GivesMissingKeysTheirDefaults)
{
    EXPECT_TRUE(Load("Port=3306\r\n"));
    EXPECT_EQ(Bytes(m_server.GetDataDir()), "");
    EXPECT_EQ(Bytes(m_server.GetMySQLProgramDir()), "");
    EXPECT_TRUE(m_server.IsConnectAllowed());
    EXPECT_EQ(Bytes(m_server.GetHost()), "localhost");
    EXPECT_EQ(Bytes(m_server.GetAlias()), "localhost::3306");
    EXPECT_EQ(m_server.GetPort(), 3306U);
    EXPECT_EQ(Bytes(m_server.GetUser()), "vela_root");
    EXPECT_EQ(Bytes(m_server.GetPassword()), "");
    EXPECT_EQ(Bytes(m_server.GetCharset()), "");
    EXPECT_EQ(m_server.GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_TRUE(m_server.IsValid());
}

TEST_F(LoadServerIni, IsInvalidWithoutAPort)
{
    EXPECT_FALSE(Load("Server=db\r\nUser=kim\r\nAlias=Main\r\n"));
    EXPECT_EQ(Bytes(m_server.GetHost()), "db");
    EXPECT_EQ(Bytes(m_server.GetUser()), "kim");
    EXPECT_EQ(Bytes(m_server.GetAlias()), "Main::0");
    EXPECT_EQ(m_server.GetPort(), 0U);
}

TEST_F(LoadServerIni, AnEmptyHostOrUserIsInvalidAndGetsNoDefault)
{
    EXPECT_FALSE(Load("Port=3306\r\nServer=\r\n"));
    EXPECT_EQ(Bytes(m_server.GetHost()), "");
    EXPECT_EQ(Bytes(m_server.GetAlias()), "::3306");
    EXPECT_FALSE(Load("Port=3306\r\nUser=\r\n"));
    EXPECT_EQ(Bytes(m_server.GetUser()), "");
}

TEST_F(LoadServerIni, AnEmptyArgumentChangesNothing)
{
    LoadEverything();
    EXPECT_FALSE(m_server.LoadServerINI(""));
    EXPECT_EQ(Bytes(m_server.GetHost()), "db");
    EXPECT_EQ(m_server.GetPort(), 3307U);
    EXPECT_EQ(Bytes(m_server.GetServerINIFileName()), m_folder.PathOf("Server.ini"));
    EXPECT_TRUE(m_server.IsValid());
}

TEST_F(LoadServerIni, AMissingFileResetsEverything)
{
    LoadEverything();
    EXPECT_FALSE(m_server.LoadServerINI(m_folder.PathOf("missing.ini").c_str()));
    ExpectReset();
}

TEST_F(LoadServerIni, OnlyBackslashesAndBlanksResetEverything)
{
    LoadEverything();
    EXPECT_FALSE(m_server.LoadServerINI("\\ \\ "));
    ExpectReset();
}

TEST_F(LoadServerIni, Kept_K74_LeavesTheUserEmptyWithoutAFile)
{
    EXPECT_EQ(Bytes(m_server.GetUser()), "vela_root");
    EXPECT_FALSE(m_server.LoadServerINI(m_folder.PathOf("missing.ini").c_str()));
    EXPECT_EQ(Bytes(m_server.GetUser()), "");
}

TEST_F(LoadServerIni, ASecondLoadKeepsNothingOfTheFirst)
{
    LoadEverything();
    EXPECT_TRUE(Load("Port=3306\r\n"));
    EXPECT_EQ(Bytes(m_server.GetPassword()), "");
    EXPECT_EQ(Bytes(m_server.GetAlias()), "localhost::3306");
    EXPECT_EQ(Bytes(m_server.GetDataDir()), "");
    EXPECT_EQ(Bytes(m_server.GetCharset()), "");
    EXPECT_EQ(m_server.GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_TRUE(m_server.IsConnectAllowed());
}

TEST_F(LoadServerIni, TakesItsOwnFileNameAgain)
{
    LoadEverything();
    EXPECT_TRUE(m_server.LoadServerINI(m_server.GetServerINIFileName()));
    EXPECT_EQ(Bytes(m_server.GetHost()), "db");
}

TEST_F(LoadServerIni, FindsTheFileInAFolder)
{
    m_folder.Write("[SQL-Server]\nPort=1\n");
    EXPECT_TRUE(m_server.LoadServerINI(m_folder.Path().c_str()));
    EXPECT_EQ(Bytes(m_server.GetServerINIFileName()), m_folder.Path() + "\\Server.ini");
    EXPECT_EQ(Bytes(m_server.GetServerINIDir()), m_folder.Path() + "\\");
}

TEST_F(LoadServerIni, DropsBackslashesAndBlanksBehindAFolder)
{
    m_folder.Write("[SQL-Server]\nPort=1\n");
    EXPECT_TRUE(m_server.LoadServerINI((m_folder.Path() + "\\ \\ ").c_str()));
    EXPECT_EQ(Bytes(m_server.GetServerINIFileName()), m_folder.Path() + "\\Server.ini");
}

TEST_F(LoadServerIni, DropsBackslashesAndBlanksBehindAFile)
{
    const std::string path = m_folder.Write("[SQL-Server]\nPort=1\n", "my.ini");
    EXPECT_TRUE(m_server.LoadServerINI((path + " \\").c_str()));
    EXPECT_EQ(Bytes(m_server.GetServerINIFileName()), path);
}

TEST_F(LoadServerIni, TakesTheEndingInAnyLetterCase)
{
    EXPECT_TRUE(m_server.LoadServerINI(m_folder.Write("[SQL-Server]\nPort=1\n", "MY.INI").c_str()));
    EXPECT_EQ(Bytes(m_server.GetServerINIFileName()), m_folder.PathOf("MY.INI"));
}

TEST_F(LoadServerIni, FindsAFileWhateverItsLetterCase)
{
    m_folder.Write("[SQL-Server]\nPort=7\n", "SERVER.INI");
    EXPECT_TRUE(m_server.LoadServerINI(m_folder.Path().c_str()));
    EXPECT_EQ(m_server.GetPort(), 7U);
}

TEST_F(LoadServerIni, TakesBackslashesAndSlashesAsSeparators)
{
    m_folder.MakeFolder("cfg");
    m_folder.Write("[SQL-Server]\nPort=1\n", "cfg/Server.ini");
    m_folder.Write("[SQL-Server]\nPort=2\n", "cfg/my.ini");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(m_folder.Path());
    EXPECT_TRUE(m_server.LoadServerINI("cfg\\\\"));
    EXPECT_EQ(m_server.GetPort(), 1U);
    EXPECT_EQ(Bytes(m_server.GetServerINIFileName()), "cfg\\Server.ini");
    EXPECT_EQ(Bytes(m_server.GetServerINIDir()), "cfg\\");
    EXPECT_TRUE(m_server.LoadServerINI("cfg\\my.ini"));
    EXPECT_EQ(m_server.GetPort(), 2U);
    EXPECT_TRUE(m_server.LoadServerINI("cfg\\my.ini"));
    EXPECT_EQ(m_server.GetPort(), 2U);
    std::filesystem::current_path(before);
}

TEST_F(LoadServerIni, TakesAPathOfEveryEncoding)
{
    m_folder.MakeFolder("\xC3\xA4\xC3\xB6");
    m_folder.Write("[SQL-Server]\nPort=1\n", "\xC3\xA4\xC3\xB6/Server.ini");
    const UtCString utf8((m_folder.Path() + "\\\xC3\xA4\xC3\xB6").c_str(), UT_ENCODING_UTF8);
    EXPECT_TRUE(m_server.LoadServerINI(utf8));
    EXPECT_TRUE(m_server.LoadServerINI(UtCString(utf8, UT_ENCODING_DEFAULT)));
    EXPECT_TRUE(m_server.LoadServerINI(UtCString(utf8, UT_ENCODING_UTF16_LE)));
    EXPECT_TRUE(m_server.LoadServerINI(UtCString(utf8, UT_ENCODING_UTF16_BE)));
    EXPECT_EQ(m_server.GetServerINIDir(), UtCString(m_folder.Path().c_str()) + UtCString("\\\xE4\xF6\\"));
}

TEST_F(LoadServerIni, TakesAPathWithQuotes)
{
    m_folder.MakeFolder("it's `mine`");
    m_folder.Write("[SQL-Server]\nPort=1\n", "it's `mine`/Server.ini");
    EXPECT_TRUE(m_server.LoadServerINI((m_folder.Path() + "\\it's `mine`").c_str()));
}

TEST_F(LoadServerIni, FindsNoFileBehindAZeroByte)
{
    const std::string path = m_folder.Write("[SQL-Server]\nPort=1\n", "my.ini");
    EXPECT_FALSE(
        m_server.LoadServerINI(UtCString(std::string_view(path + std::string("\0.ini", 5)), UT_ENCODING_DEFAULT)));
    ExpectReset();
}

TEST_F(LoadServerIni, FindsNoFileForALongPath)
{
    EXPECT_FALSE(m_server.LoadServerINI(std::string(100000, 'x').c_str()));
    ExpectReset();
}

TEST_F(LoadServerIni, AFolderInPlaceOfTheFileIsNoFile)
{
    m_folder.MakeFolder("my.ini");
    EXPECT_FALSE(m_server.LoadServerINI(m_folder.PathOf("my.ini").c_str()));
    ExpectReset();
}

TEST_F(LoadServerIni, AFileWithoutTheSectionGivesTheDefaults)
{
    EXPECT_FALSE(m_server.LoadServerINI(m_folder.Write("[mysqld]\nPort=3306\n").c_str()));
    EXPECT_EQ(Bytes(m_server.GetAlias()), "localhost::0");
}

TEST_F(LoadServerIni, NormalisesTheDataDirectory)
{
    EXPECT_TRUE(Load("Port=1\nDataDir=\"D:\\data\\ \\ \"\n"));
    EXPECT_EQ(Bytes(m_server.GetDataDir()), "D:\\data\\");
    EXPECT_TRUE(Load("Port=1\nDataDir=\\\n"));
    EXPECT_EQ(Bytes(m_server.GetDataDir()), "");
}

TEST_F(LoadServerIni, Kept_K75_StoresTheProgramDirectoryAsRead)
{
    EXPECT_TRUE(Load("Port=1\nServerDir=C:\\sql\n"));
    EXPECT_EQ(Bytes(m_server.GetMySQLProgramDir()), "C:\\sql");
    EXPECT_TRUE(Load("Port=1\nServerDir=C:\\sql\\\\\n"));
    EXPECT_EQ(Bytes(m_server.GetMySQLProgramDir()), "C:\\sql\\\\");
}

TEST_F(LoadServerIni, ReadsWhetherConnectingIsAllowed)
{
    for (const char* yes : {"True", "TRUE", "true", "1"}) {
        Load(std::string("CanConnect=") + yes + "\n");
        EXPECT_TRUE(m_server.IsConnectAllowed()) << yes;
    }
    for (const char* no : {"FALSE", "false", "0", "", "2", "yes"}) {
        Load(std::string("CanConnect=") + no + "\n");
        EXPECT_FALSE(m_server.IsConnectAllowed()) << no;
    }
}

struct PortCase
{
    const char* text;
    unsigned long port;
};

TEST_F(LoadServerIni, ReadsThePort)
{
    const PortCase cases[] = {{"3306", 3306},    {"1", 1},           {"65536", 65536}, {"4294967295", 4294967295UL},
                              {"4294967296", 0}, {"-1", 0},          {"0", 0},         {"", 0},
                              {"abc", 0},        {"3306x", 0},       {"33 06", 0},     {"3306.5", 0},
                              {"0x10", 0},       {"3306 ; ours", 0}, {"00007", 7},     {"99999999999999999999", 0},
                              {"+3306", 3306},   {"\" 3306\"", 3306}};
    for (const PortCase& row : cases) {
        EXPECT_EQ(Load(std::string("Port=") + row.text + "\n"), row.port != 0) << row.text;
        EXPECT_EQ(m_server.GetPort(), row.port) << row.text;
    }
}

TEST_F(LoadServerIni, CompletesTheAlias)
{
    Load("Port=3306\nAlias=Main::3306\n");
    EXPECT_EQ(Bytes(m_server.GetAlias()), "Main::3306");
    Load("Port=3307\nAlias=Main::3306\n");
    EXPECT_EQ(Bytes(m_server.GetAlias()), "Main::3306::3307");
    Load("Port=3307\nAlias=Main\n");
    EXPECT_EQ(Bytes(m_server.GetAlias()), "Main::3307");
    Load("Port=3307\nServer=db\n");
    EXPECT_EQ(Bytes(m_server.GetAlias()), "db::3307");
}

TEST_F(LoadServerIni, DeciphersThePassword)
{
    Load("Port=1\nPassword=83D6D6606258594D\n");
    EXPECT_EQ(Bytes(m_server.GetPassword()), "\xE4\xF6\xFC\xDF");
    EXPECT_EQ(m_server.GetPassword().GetEncodingType(), UT_ENCODING_DEFAULT);
}

TEST_F(LoadServerIni, AMalformedPasswordIsAnEmptyOne)
{
    for (const char* stored : {"", "4BA341CA5F39E3E", "4BA341CA5F39E3E8 ;", "x"}) {
        EXPECT_TRUE(Load(std::string("Port=1\nPassword=") + stored + "\n")) << stored;
        EXPECT_EQ(Bytes(m_server.GetPassword()), "") << stored;
    }
}

// 255 characters arrive, which is no whole number of blocks.
TEST_F(LoadServerIni, APasswordOfMoreThan120BytesIsAnEmptyOne)
{
    EXPECT_TRUE(Load("Port=1\nPassword=" + std::string(256, '0') + "\n"));
    EXPECT_EQ(Bytes(m_server.GetPassword()), "");
    EXPECT_TRUE(Load("Port=1\nPassword=" + std::string(240, '0') + "\n"));
    EXPECT_NE(Bytes(m_server.GetPassword()), "");
}

TEST_F(LoadServerIni, DerivesTheEncodingFromTheCharset)
{
    const std::pair<const char*, eUtEncodingType> cases[] = {
        {"utf8mb4", UT_ENCODING_UTF8},  {"utf8", UT_ENCODING_UTF8},        {"utf16", UT_ENCODING_UTF16_BE},
        {"ucs2", UT_ENCODING_UTF16_BE}, {"utf16le", UT_ENCODING_UTF16_LE}, {"latin1", UT_ENCODING_DEFAULT},
        {"UTF8", UT_ENCODING_DEFAULT},  {"", UT_ENCODING_DEFAULT}};
    for (const auto& [charset, encoding] : cases) {
        Load(std::string("Port=1\nCharset=") + charset + "\n");
        EXPECT_EQ(Bytes(m_server.GetCharset()), charset);
        EXPECT_EQ(m_server.GetEncodingType(), encoding) << charset;
    }
}

TEST_F(LoadServerIni, CutsEveryValueTo255Bytes)
{
    EXPECT_TRUE(Load("Port=1\nServer=" + std::string(300, 'h') + "\n"));
    EXPECT_EQ(Bytes(m_server.GetHost()), std::string(255, 'h'));
    EXPECT_EQ(Bytes(m_server.GetAlias()), std::string(255, 'h') + "::1");
}

TEST_F(LoadServerIni, TheConstructorWithAFileLoadsIt)
{
    const CMyServer server(UtCString(m_folder.Write("[SQL-Server]\nPort=3306\n").c_str()));
    EXPECT_TRUE(server.IsValid());
    EXPECT_EQ(server.GetPort(), 3306U);
    EXPECT_FALSE(CMyServer(UtCString(m_folder.PathOf("missing.ini").c_str())).IsValid());
}

TEST_F(LoadServerIni, TheDirectoryIsEmptyWithoutAFile)
{
    EXPECT_EQ(Bytes(m_server.GetServerINIDir()), "");
}

} // namespace
