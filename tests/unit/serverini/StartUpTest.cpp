#include "CMyServer.h"

#include "connection/ProcessState.h"
#include "fake_client/FakeClientFixture.h"
#include "harness/AllocationFailure.h"
#include "harness/FailurePoints.h"
#include "harness/MessageRecorder.h"
#include "unit/serverini/IniFolder.h"

namespace {

constexpr char connectFormat[] = "Die Verbindung zum Datenbankserver ist nicht m\xF6glich!\n\n"
                                 "Fehler %s: %s\n\nServer:\t%s";
constexpr char directoryFormat[] = "Das Verzeichnis %s ist nicht verf\xFCgbar.\n\nDatenverzeichnis:\t%s\n\n"
                                   "Pr\xFC"
                                   "fen Sie bitte die Freigabe von %s und danach %s.";

/// A settings file, a folder in the place of the data directory, and a scripted server.
class StartUp : public fake::ClientFixture
{
protected:
    StartUp() : m_savedLimit(connection::ProcessConnectLimit())
    {
        connection::ProcessConnectLimit() = {};
        for (const char* const name : {"data", "data/dbs", "data/mdbs", "data/temp"})
            std::filesystem::create_directory(m_folder.PathOf(name));
    }
    ~StartUp() override { connection::ProcessConnectLimit() = m_savedLimit; }

    void RemoveFolder(const char* name) const { std::filesystem::remove_all(m_folder.PathOf(name)); }
    void WriteSettings(const std::string& more) const
    {
        m_folder.Write("[SQL-Server]\r\nServer=db.example\r\nAlias=Zentrale\r\nPort=3307\r\nUser=kim\r\n" + more);
    }
    void WriteSettings() const { WriteSettings("DataDir=" + m_folder.PathOf("data") + "\r\n"); }
    /// The path below the data directory as it is composed.
    std::string DataPath(const char* name = "") const { return m_folder.PathOf("data") + "\\" + name; }

    bool Start(CMyServer& server) const
    {
        return server.ConnectApplicationToServer(m_folder.Path().c_str(), "ignored", connectFormat, directoryFormat);
    }
    bool Start() { return Start(m_server); }

    IniFolder m_folder;
    harness::MessageRecorder m_messages;
    CMyServer m_server;

private:
    connection::ConnectLimit m_savedLimit;
};

TEST_F(StartUp, IsTrueAndShowsNothingWhenAllIsThere)
{
    WriteSettings();
    EXPECT_TRUE(Start());
    EXPECT_TRUE(m_messages.Messages().empty());
    EXPECT_EQ(m_server.GetAlias(), "Zentrale::3307");
    ASSERT_EQ(m_client.Connects().size(), 1U);
    EXPECT_EQ(m_client.Connects()[0].user, "kim");
    EXPECT_EQ(m_client.Connects()[0].database, "");
    EXPECT_EQ(m_client.HandlesClosed(), 1U);
}

TEST_F(StartUp, Kept_K119_ShowsAMissingSettingsFileWithCodeZeroAndWithoutAText)
{
    EXPECT_FALSE(Start());
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text, "Die Verbindung zum Datenbankserver ist nicht m\xF6glich!\n\n"
                                             "Fehler 0: \n\nServer:\t");
    EXPECT_EQ(m_messages.Messages()[0].type, 16U);
    EXPECT_TRUE(m_client.Connects().empty());
}

TEST_F(StartUp, ShowsTheAliasOfInvalidSettings)
{
    m_folder.Write("[SQL-Server]\r\nAlias=Zentrale\r\n");
    EXPECT_FALSE(Start());
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text, "Die Verbindung zum Datenbankserver ist nicht m\xF6glich!\n\n"
                                             "Fehler 0: \n\nServer:\tZentrale::0");
}

TEST_F(StartUp, AnEmptyPathIsShownAndKeepsTheSettings)
{
    m_server.SetAlias("Alt");
    m_server.SetHost("db.example");
    m_server.SetPort(3307);
    EXPECT_FALSE(m_server.ConnectApplicationToServer("", "", "%s|%s|%s", ""));
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text, "0||Alt");
    EXPECT_TRUE(m_server.IsValid());
    EXPECT_TRUE(m_client.Connects().empty()) << "what was loaded before plays no part";
}

TEST_F(StartUp, ShowsAFailedConnectionInOneBox)
{
    WriteSettings();
    m_client.FailAlways(fake::Call::Connect, 1045, "Access denied for user 'j\xC3\xBCrgen'@'host'");
    EXPECT_FALSE(Start());
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text,
              "Die Verbindung zum Datenbankserver ist nicht m\xF6glich!\n\n"
              "Fehler 1045: 1045: Access denied for user 'j\xFCrgen'@'host'\n\nServer:\tZentrale::3307");
    EXPECT_EQ(m_messages.Messages()[0].type, 16U);
    EXPECT_EQ(m_client.Connects().size(), 1U);
}

TEST_F(StartUp, LooksForNoFolderWithoutAConnection)
{
    WriteSettings();
    RemoveFolder("data");
    m_client.FailAlways(fake::Call::Connect, 2002, "Can't connect");
    EXPECT_FALSE(Start());
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_NE(m_messages.Messages()[0].text.find("Fehler 2002: 2002: Can't connect"), std::string::npos);
}

TEST_F(StartUp, ShowsAReachedConnectLimitAsNoError)
{
    WriteSettings();
    connection::ProcessConnectLimit().maximum = 0;
    EXPECT_FALSE(Start());
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text, "Die Verbindung zum Datenbankserver ist nicht m\xF6glich!\n\n"
                                             "Fehler 0: Kein Fehler!\n\nServer:\tZentrale::3307");
    EXPECT_TRUE(m_client.Connects().empty());
}

TEST_F(StartUp, ShowsAMissingFolderWithItsDataDirectory)
{
    WriteSettings();
    RemoveFolder("data/mdbs");
    EXPECT_FALSE(Start());
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text, "Das Verzeichnis " + DataPath("mdbs\\") +
                                                 " ist nicht verf\xFCgbar.\n\nDatenverzeichnis:\t" + DataPath() +
                                                 "\n\nPr\xFC"
                                                 "fen Sie bitte die Freigabe von " +
                                                 DataPath() + " und danach " + DataPath("mdbs\\") + ".");
    EXPECT_EQ(m_messages.Messages()[0].type, 16U);
}

TEST_F(StartUp, Kept_K115_FailsWithoutADataDirectory)
{
    WriteSettings("");
    EXPECT_FALSE(m_server.ConnectApplicationToServer(m_folder.Path().c_str(), "", connectFormat, "[%s|%s|%s|%s]"));
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text, "[|||]");
}

TEST_F(StartUp, KeepsTheSettingsWhateverTheOutcome)
{
    WriteSettings();
    RemoveFolder("data/temp");
    EXPECT_FALSE(Start());
    EXPECT_EQ(m_server.GetHost(), "db.example");
    EXPECT_EQ(m_server.GetPort(), 3307U);
    m_client.FailAlways(fake::Call::Connect, 2002);
    EXPECT_FALSE(Start());
    EXPECT_TRUE(m_server.IsValid());
    EXPECT_EQ(m_server.GetDataDir().View(), DataPath());
}

TEST_F(StartUp, IgnoresTheSecondText)
{
    WriteSettings("");
    for (const char* const text : {"", "%s%s%s%s%s", "text"})
        EXPECT_FALSE(m_server.ConnectApplicationToServer(m_folder.Path().c_str(), text, "c", "d"));
    ASSERT_EQ(m_messages.Messages().size(), 3U);
    for (const harness::MessageRecorder::Message& message : m_messages.Messages())
        EXPECT_EQ(message.text, "d");
}

TEST_F(StartUp, FillsFormatsWithAnyNumberOfPlaceholders)
{
    for (const auto& [format, expected] :
         {std::pair{"", ""}, {"ohne", "ohne"}, {"%s%s%s%s%s%s", "0"}, {"100 %% %d %s %", "100 % %d 0 %"}}) {
        m_server.ConnectApplicationToServer(m_folder.PathOf("none.ini").c_str(), "", format, "");
        EXPECT_EQ(m_messages.Messages().back().text, expected);
    }
}

TEST_F(StartUp, FillsNothingIntoWhatItHasFilledIn)
{
    m_folder.Write("[SQL-Server]\r\nAlias=100%s %% %n\r\nPort=3307\r\n");
    m_client.FailAlways(fake::Call::Connect, 1045, "user '%s' has no %s");
    EXPECT_FALSE(m_server.ConnectApplicationToServer(m_folder.Path().c_str(), "", "%s|%s|%s", ""));
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text, "1045|1045: user '%s' has no %s|100%s %% %n::3307");
}

TEST_F(StartUp, AFormatEndsAtAZeroByte)
{
    const UtCString format(std::string_view("[%s]\0[%s]", 9), UT_ENCODING_DEFAULT);
    EXPECT_FALSE(m_server.ConnectApplicationToServer("", "", format, ""));
    ASSERT_EQ(m_messages.Messages().size(), 1U);
    EXPECT_EQ(m_messages.Messages()[0].text, "[0]");
}

TEST_F(StartUp, ShowsTheBoxInTheEncodingOfItsFormat)
{
    WriteSettings();
    m_client.FailAlways(fake::Call::Connect, 1045, "\xD0\xAE\xC3\xBC");
    const UtCString utf8("gr\xC3\xBC\xC3\x9F %s", UT_ENCODING_UTF8);
    const UtCString path = m_folder.Path().c_str();
    for (const UtCString& format :
         {utf8, UtCString(utf8, UT_ENCODING_UTF16_LE), UtCString(utf8, UT_ENCODING_UTF16_BE)}) {
        m_server.ConnectApplicationToServer(path, "", format + UtCString(" %s"), "");
        EXPECT_EQ(m_messages.Messages().back().text, "gr\xC3\xBC\xC3\x9F 1045 1045: \xD0\xAE\xC3\xBC");
    }
    m_server.ConnectApplicationToServer(path, "", "gr\xFC\xDF %s %s", "");
    EXPECT_EQ(m_messages.Messages().back().text, "gr\xFC\xDF 1045 1045: ?\xFC");
}

TEST_F(StartUp, TakesItsOwnFileNameAgain)
{
    WriteSettings();
    ASSERT_TRUE(Start());
    EXPECT_TRUE(m_server.ConnectApplicationToServer(m_server.GetServerINIFileName(), "", connectFormat, ""));
}

TEST_F(StartUp, ReplacesTheUserRoot)
{
    m_folder.Write("[SQL-Server]\r\nPort=3307\r\nUser=root\r\n");
    Start();
    ASSERT_EQ(m_client.Connects().size(), 1U);
    EXPECT_EQ(m_client.Connects()[0].user, "vela_root");
}

TEST_F(StartUp, IsFalseWhenTheHostsBoxThrows)
{
    class Throwing final : public MyDbUserInterface
    {
    public:
        int ShowMessage(const UtCString&, unsigned int) override { throw 1; }
        void BeginWait() override {}
        void EndWait() override {}
    };
    Throwing userInterface;
    MyDbUserInterface* const previous = MyDbSetUserInterface(&userInterface);
    EXPECT_FALSE(Start());
    MyDbSetUserInterface(previous);
}

TEST_F(StartUp, EveryClientCallMayFail)
{
    WriteSettings();
    const std::size_t calls =
        harness::ForEachFailurePoint([] {},
                                     [this](harness::FailureRun& run) {
                                         connection::ProcessConnectLimit() = {};
                                         CMyServer server;
                                         const std::size_t before = m_messages.Messages().size();
                                         const bool result = Start(server);
                                         run.EndOfWork();
                                         EXPECT_EQ(result, !run.Failed());
                                         EXPECT_EQ(m_messages.Messages().size() - before, run.Failed() ? 1U : 0U);
                                         connection::ProcessConnectLimit() = {};
                                         EXPECT_TRUE(Start(server));
                                     });
    EXPECT_GE(calls, 2U);
}

// Without a connection: the scripted client allocates too.
TEST_F(StartUp, EveryAllocationMayFail)
{
    m_folder.Write("[SQL-Server]\r\nAlias=Zentrale\r\n");
    for (const bool forGood : {false, true}) {
        bool result = false;
        EXPECT_GT(harness::ForEachAllocation(forGood, [&] { result |= Start(); }), 0);
        EXPECT_FALSE(result);
    }
}

// ---- The folders

class DirectoryAccess : public StartUp
{
protected:
    DirectoryAccess() { m_server.SetDataDir(m_folder.PathOf("data").c_str()); }

    UtCString m_missing{"untouched"};
};

TEST_F(DirectoryAccess, IsTrueWhenAllFoldersExist)
{
    EXPECT_TRUE(m_server.CheckDirectoryAccess(&m_missing));
    EXPECT_TRUE(m_server.CheckDirectoryAccess(nullptr));
    EXPECT_EQ(m_missing, "untouched");
}

TEST_F(DirectoryAccess, NamesTheFirstThatIsMissing)
{
    for (const char* const name : {"temp", "mdbs", "dbs"}) {
        RemoveFolder((std::string("data/") + name).c_str());
        EXPECT_FALSE(m_server.CheckDirectoryAccess(&m_missing));
        EXPECT_EQ(m_missing.View(), DataPath(name) + "\\");
        EXPECT_FALSE(m_server.CheckDirectoryAccess(nullptr));
    }
    RemoveFolder("data");
    EXPECT_FALSE(m_server.CheckDirectoryAccess(&m_missing));
    EXPECT_EQ(m_missing.View(), DataPath());
}

TEST_F(DirectoryAccess, AFileIsNoFolder)
{
    RemoveFolder("data/dbs");
    m_folder.Write("", "data/dbs");
    EXPECT_FALSE(m_server.CheckDirectoryAccess(&m_missing));
    EXPECT_EQ(m_missing.View(), DataPath("dbs\\"));
}

TEST_F(DirectoryAccess, IgnoresLetterCase)
{
    RemoveFolder("data/dbs");
    m_folder.MakeFolder("data/DBS");
    EXPECT_TRUE(m_server.CheckDirectoryAccess(&m_missing));
}

TEST_F(DirectoryAccess, EveryAllocationMayFail)
{
    for (const bool forGood : {false, true}) {
        EXPECT_GT(harness::ForEachAllocation(forGood, [&] { m_server.CheckDirectoryAccess(&m_missing); }), 0);
        EXPECT_TRUE(m_server.CheckDirectoryAccess(nullptr));
    }
    RemoveFolder("data/temp");
    bool result = false;
    for (const bool forGood : {false, true})
        harness::ForEachAllocation(forGood, [&] { result |= m_server.CheckDirectoryAccess(&m_missing); });
    EXPECT_FALSE(result);
    EXPECT_EQ(m_missing.View(), DataPath("temp\\"));
}

TEST_F(DirectoryAccess, IsFalseWithAnEmptyPathWithoutADataDirectory)
{
    EXPECT_FALSE(CMyServer().CheckDirectoryAccess(&m_missing));
    EXPECT_EQ(m_missing, "");
}

TEST_F(DirectoryAccess, TakesAnyDirectory)
{
    for (const char* const name : {"dbs", "mdbs", "temp"})
        m_folder.MakeFolder(std::string("it's one `folder`/") + name);
    m_server.SetDataDir(m_folder.PathOf("it's one `folder`").c_str());
    EXPECT_TRUE(m_server.CheckDirectoryAccess(nullptr));
    m_server.SetDataDir(UtCString(m_folder.PathOf("data") + std::string("\0x", 2), UT_ENCODING_DEFAULT));
    EXPECT_FALSE(m_server.CheckDirectoryAccess(nullptr));
    m_server.SetDataDir(std::string(100000, 'x').c_str());
    EXPECT_FALSE(m_server.CheckDirectoryAccess(&m_missing));
    EXPECT_EQ(m_missing.GetByteLength(), 100001U);
}

} // namespace
