#include "CMyDatabase.h"
#include "CMyServer.h"

#include "fake_client/FakeClientFixture.h"
#include "harness/FailurePoints.h"
#include "harness/MessageRecorder.h"
#include "unit/serverini/IniFolder.h"

namespace {

using fake::Reply;

class ExistDatabase : public fake::ClientFixture
{
protected:
    ExistDatabase()
    {
        m_folder.Write("[SQL-Server]\nServer=configured\nPort=3308\nUser=kim\n");
        m_client.On("SHOW DATABASES", Reply::Rows({"Database"}, {{"mysql"}, {"Kalk"}, {"last"}}));
    }

    UtCString NameOf(const std::string& database) const { return (m_folder.Path() + "::" + database).c_str(); }

    IniFolder m_folder;
    CMyServer m_server;
};

TEST_F(ExistDatabase, FindsADatabaseOfTheConfiguredServer)
{
    EXPECT_TRUE(m_server.ExistDatabase(NameOf("Kalk")));
    EXPECT_TRUE(m_server.ExistDatabase(NameOf("mysql")));
    EXPECT_TRUE(m_server.ExistDatabase(NameOf("last")));
}

TEST_F(ExistDatabase, IgnoresLetterCase)
{
    EXPECT_TRUE(m_server.ExistDatabase(NameOf("kALK")));
}

TEST_F(ExistDatabase, DoesNotFindAnUnknownDatabase)
{
    EXPECT_FALSE(m_server.ExistDatabase(NameOf("kal")));
    EXPECT_FALSE(m_server.ExistDatabase(NameOf("kalk2")));
    EXPECT_FALSE(m_server.ExistDatabase(NameOf("%")));
    EXPECT_FALSE(m_server.ExistDatabase(NameOf("")));
    EXPECT_FALSE(m_server.ExistDatabase(NameOf(" kalk")));
}

TEST_F(ExistDatabase, DropsTheBlanksAroundTheName)
{
    EXPECT_TRUE(m_server.ExistDatabase(UtCString("  ") + NameOf("kalk") + UtCString("  ")));
}

TEST_F(ExistDatabase, TakesAFileInPlaceOfItsFolder)
{
    m_folder.Write("[SQL-Server]\nPort=3309\n", "my.ini");
    EXPECT_TRUE(m_server.ExistDatabase((m_folder.PathOf("my.ini") + "::kalk").c_str()));
    EXPECT_EQ(m_client.Connects().at(0).port, 3309U);
}

TEST_F(ExistDatabase, AsksTheServerOfTheFileAndNotItsOwn)
{
    m_server.SetHost("own");
    m_server.SetPort(1);
    EXPECT_TRUE(m_server.ExistDatabase(NameOf("kalk")));
    ASSERT_EQ(m_client.Connects().size(), 1U);
    EXPECT_EQ(m_client.Connects()[0].host, "configured");
    EXPECT_EQ(m_client.Connects()[0].port, 3308U);
    EXPECT_EQ(m_client.Connects()[0].user, "kim");
    EXPECT_EQ(m_client.Connects()[0].database, "");
    EXPECT_EQ(m_server.GetHost(), "own");
    EXPECT_EQ(m_server.GetServerINIFileName(), "");
}

TEST_F(ExistDatabase, ReplacesTheUserRoot)
{
    m_folder.Write("[SQL-Server]\nPort=3308\nUser=root\n");
    EXPECT_TRUE(m_server.ExistDatabase(NameOf("kalk")));
    EXPECT_EQ(m_client.Connects().at(0).user, "vela_root");
}

TEST_F(ExistDatabase, AnEmptyNameIsNowhere)
{
    EXPECT_FALSE(m_server.ExistDatabase(""));
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(ExistDatabase, IsFalseWithoutItsSettingsFile)
{
    m_server.SetHost("own");
    m_server.SetPort(1);
    EXPECT_FALSE(m_server.ExistDatabase((m_folder.Path() + "\\missing::kalk").c_str()));
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(ExistDatabase, IsFalseWhenItsSettingsFileIsInvalid)
{
    m_folder.Write("[SQL-Server]\nServer=configured\n");
    EXPECT_FALSE(m_server.ExistDatabase(NameOf("kalk")));
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(ExistDatabase, APlainNameIsLookedUpInTheRootAndNotOnThisServer)
{
    ASSERT_FALSE(std::filesystem::exists("/Server.ini")) << "this machine has the very file";
    m_server.SetHost("own");
    m_server.SetPort(1);
    EXPECT_FALSE(m_server.ExistDatabase("kalk"));
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(ExistDatabase, IsFalseWhenTheStatementFailsAndShowsNothing)
{
    const harness::MessageRecorder messages;
    m_client.Once("SHOW DATABASES", Reply::Error(1227));
    EXPECT_FALSE(m_server.ExistDatabase(NameOf("kalk")));
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(ExistDatabase, IsFalseWhenTheServerShowsNone)
{
    m_client.Once("SHOW DATABASES", Reply::Rows({"Database"}, {}));
    EXPECT_FALSE(m_server.ExistDatabase(NameOf("kalk")));
}

TEST_F(ExistDatabase, ReadsTheColumnOfThatNameOnly)
{
    m_client.Once("SHOW DATABASES", Reply::Rows({"Name"}, {{"kalk"}}));
    EXPECT_FALSE(m_server.ExistDatabase(NameOf("kalk")));
    m_client.Once("SHOW DATABASES", Reply::Rows({"Name"}, {{"kalk"}}));
    EXPECT_FALSE(m_server.ExistDatabase(NameOf("")));
    m_client.Once("SHOW DATABASES", Reply::Rows({"DATABASE"}, {{"kalk"}}));
    EXPECT_FALSE(m_server.ExistDatabase(NameOf("kalk"))) << "column names are compared exactly";
    m_client.Once("SHOW DATABASES", Reply::Rows({"Name", "Database"}, {{"kalk", "other"}}));
    EXPECT_FALSE(m_server.ExistDatabase(NameOf("kalk")));
    m_client.Once("SHOW DATABASES", Reply::Rows({"Name", "Database"}, {{"other", "kalk"}}));
    EXPECT_TRUE(m_server.ExistDatabase(NameOf("kalk")));
}

TEST_F(ExistDatabase, IgnoresLetterCaseBeyondAsciiInEveryEncoding)
{
    m_client.On("SHOW DATABASES", Reply::Rows({"Database"}, {{"K\xC3\x9C"
                                                              "CHE"}}));
    const UtCString name = NameOf("k\xFC"
                                  "che");
    EXPECT_TRUE(m_server.ExistDatabase(name));
    EXPECT_TRUE(m_server.ExistDatabase(UtCString(name, UT_ENCODING_UTF8)));
    EXPECT_TRUE(m_server.ExistDatabase(UtCString(name, UT_ENCODING_UTF16_LE)));
    EXPECT_FALSE(m_server.ExistDatabase(NameOf("kuche")));
}

TEST_F(ExistDatabase, ClosesItsConnection)
{
    EXPECT_TRUE(m_server.ExistDatabase(NameOf("mysql"))) << "the first of several rows";
    EXPECT_EQ(m_client.HandlesOpened(), 1U);
    EXPECT_EQ(m_client.HandlesClosed(), 1U);
    EXPECT_EQ(m_client.Statements(), std::vector<std::string>{"SHOW DATABASES"});
}

TEST_F(ExistDatabase, IsFalseWithoutAConnection)
{
    const harness::MessageRecorder messages;
    m_client.FailAlways(fake::Call::Connect, 2002);
    EXPECT_FALSE(m_server.ExistDatabase(NameOf("kalk")));
    EXPECT_EQ(m_client.Connects().size(), 2U) << "one attempt, and one more";
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(ExistDatabase, OfAConnectionAsksForItsOwnName)
{
    m_server.SetHost("own");
    m_server.SetPort(1);
    m_server.SetUser("kim");
    CMyDatabase known(m_server, NameOf("kalk"));
    CMyDatabase unknown(m_server, NameOf("missing"));
    EXPECT_TRUE(known.Open(false, "") && known.ExistDatabase());
    EXPECT_TRUE(unknown.Open(false, ""));
    EXPECT_FALSE(unknown.ExistDatabase());
}

TEST_F(ExistDatabase, OfAConnectionThatIsNotOpenAsksNobody)
{
    EXPECT_FALSE(CMyDatabase(m_server, NameOf("kalk")).ExistDatabase());
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST(ExistDatabaseFailures, EveryClientCallMayFail)
{
    const IniFolder folder;
    folder.Write("[SQL-Server]\nPort=3308\n");
    const UtCString name = (folder.Path() + "::kalk").c_str();
    const auto script = [] { fake::Client::Get().On("SHOW DATABASES", Reply::Rows({"Database"}, {{"kalk"}})); };
    const std::size_t calls = harness::ForEachFailurePoint(script, [&name](harness::FailureRun& run) {
        const CMyServer server;
        const bool found = server.ExistDatabase(name);
        run.EndOfWork();
        if (!run.Failed()) {
            EXPECT_TRUE(found);
        }
        EXPECT_TRUE(server.ExistDatabase(name)) << "the object can be used again";
    });
    EXPECT_GE(calls, 4U) << "a connection is made and a list is read";
}

} // namespace
