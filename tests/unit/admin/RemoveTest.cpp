#include "CMyTable.h"
#include "RemoveFixture.h"

#include "harness/FailurePoints.h"
#include "harness/OtherRoot.h"

#include <stdexcept>

namespace {

using fake::Reply;
namespace fs = std::filesystem;

class RemoveTable : public CatalogueFixture
{
};

TEST_F(RemoveTable, DropsTheTableAndAsksWhetherItIsGone)
{
    m_client.On("SHOW TABLES FROM shop LIKE 'ORDERS'", Tables({}));
    EXPECT_FALSE(m_database.RemoveTable("orders"));
    EXPECT_EQ(m_client.Statements(),
              (Statements{"DROP TABLE IF EXISTS shop.orders", "SHOW TABLES FROM shop LIKE 'ORDERS'"}));
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(RemoveTable, Kept_K130_IsTrueWhenTheTableIsStillThere)
{
    m_client.On("DROP TABLE IF EXISTS shop.orders", Reply::Error(1142, "denied"));
    m_client.On("SHOW TABLES FROM shop LIKE 'ORDERS'", Tables({{"orders"}}));
    EXPECT_TRUE(m_database.RemoveTable("orders"));
    EXPECT_EQ(m_database.GetErrorCode(), 0UL) << "the error of the test comes in place of that of the drop";
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(RemoveTable, ForgetsTheTableBeforeItIsDropped)
{
    m_client.OnListFields("ORDERS", {{.name = "ID"}});
    ASSERT_TRUE(m_database.GetTable("orders").IsValid());
    unsigned long cached = 99;
    m_client.SetStatementObserver([&](const std::string& statement) {
        if (statement.starts_with("DROP"))
            cached = CFieldCache::Instance().GetCount();
    });
    m_database.RemoveTable("orders");
    EXPECT_EQ(cached, 0UL);
}

TEST_F(RemoveTable, TakesANameInBackticks)
{
    m_client.OnListFields("MY TABLE", {{.name = "ID"}});
    ASSERT_TRUE(m_database.GetTable("my table").IsValid());
    m_client.ForgetCalls();
    m_client.SetDefaultReply(Tables({}));
    EXPECT_FALSE(m_database.RemoveTable("`my table`"));
    EXPECT_EQ(m_client.Statements(),
              (Statements{"DROP TABLE IF EXISTS shop.`my table`", "SHOW TABLES FROM shop LIKE 'MY TABLE'"}));
    EXPECT_EQ(CFieldCache::Instance().GetCount(), 0UL);
}

TEST_F(RemoveTable, DoesNothingForAnEmptyName)
{
    EXPECT_FALSE(m_database.RemoveTable(""));
    EXPECT_TRUE(m_client.Calls().empty());
}

// ---- The directory --------------------------------------------------------------------------------------------------

class DatabasePath : public CatalogueFixture
{
};

TEST_F(DatabasePath, IsBelowTheDataDirectory)
{
    m_database.GetServer().SetDataDir("C:\\data");
    EXPECT_EQ(Bytes(m_database.GetDBPath()), "C:\\data\\DBS\\shop\\");
    m_database.GetServer().SetDataDir("/var/lib/data\\ ");
    EXPECT_EQ(Bytes(m_database.GetDBPath()), "/var/lib/data\\DBS\\shop\\");
}

TEST_F(DatabasePath, Kept_K136_IsRelativeWithoutADataDirectoryAndTheNameWithoutAConnection)
{
    EXPECT_EQ(Bytes(m_database.GetDBPath()), "DBS\\shop\\");
    m_database.GetServer().SetDataDir("C:\\data");
    m_database.Close();
    EXPECT_EQ(Bytes(m_database.GetDBPath()), "shop");
}

TEST_F(DatabasePath, LosesNoLetterWhereTheEncodingsDiffer)
{
    CMyDatabase database(Settings(), UtCString("\xD0\xB6", UT_ENCODING_UTF8));
    ASSERT_TRUE(database.Open(false, ""));
    database.GetServer().SetDataDir("K\xFC\\");
    EXPECT_EQ(Bytes(database.GetDBPath()), "K\xC3\xBC\\DBS\\\xD0\xB6\\");
    EXPECT_EQ(database.GetDBPath().GetEncodingType(), UT_ENCODING_UTF8);
}

// ---- A whole database -----------------------------------------------------------------------------------------------

using RemoveDatabase = RemoveFixture;

TEST_F(RemoveDatabase, OpensTheConnectionAnewAndEndsClosed)
{
    EXPECT_TRUE(m_database.RemoveDatabase());
    EXPECT_EQ(m_client.CallNames().front(), "mysql_close");
    ASSERT_EQ(m_client.Connects().size(), 1U);
    EXPECT_EQ(m_client.Connects()[0].database, "shop");
    EXPECT_FALSE(m_database.IsConnected());
    EXPECT_EQ(Bytes(m_database.GetDatabaseName()), "shop");
}

TEST_F(RemoveDatabase, Kept_K134_DeletesTheDirectoryOfADatabaseThatItDoesNotDrop)
{
    ASSERT_FALSE(fs::exists("/Server.ini")) << "this machine has the very file";
    EXPECT_TRUE(m_database.RemoveDatabase());
    EXPECT_FALSE(Exists("DBS/shop"));
    EXPECT_TRUE(Exists("DBS/other"));
    EXPECT_EQ(m_client.Statements(), Statements{"SHOW TABLES"}) << "the one of the opening";
}

TEST_F(RemoveDatabase, SucceedsWhereThereIsNoDirectory)
{
    EXPECT_TRUE(m_database.RemoveDatabase());
    EXPECT_TRUE(m_database.RemoveDatabase());
}

TEST_F(RemoveDatabase, IsFalseWhenTheDirectoryStays)
{
    fs::remove_all(PathOf("DBS/shop"));
    MakeFile("DBS/shop");
    EXPECT_FALSE(m_database.RemoveDatabase());
    EXPECT_TRUE(Exists("DBS/shop"));
}

TEST_F(RemoveDatabase, Kept_K139_FindsTheDirectoryIgnoringLetterCase)
{
    fs::rename(PathOf("DBS/shop"), PathOf("DBS/SHOP"));
    fs::rename(PathOf("DBS"), PathOf("dbs"));
    EXPECT_TRUE(m_database.RemoveDatabase());
    EXPECT_FALSE(Exists("dbs/SHOP"));
    EXPECT_TRUE(Exists("dbs/other"));
}

TEST_F(RemoveDatabase, DoesNothingForAnEmptyName)
{
    CMyDatabase nameless(Settings(), "");
    ASSERT_TRUE(nameless.Open(false, ""));
    m_client.ForgetCalls();
    nameless.GetServer().SetDataDir(m_folder.Path().string().c_str());
    EXPECT_FALSE(nameless.RemoveDatabase());
    EXPECT_TRUE(nameless.IsConnected());
    EXPECT_TRUE(m_client.Calls().empty());
    EXPECT_TRUE(Exists("DBS/shop"));
}

TEST_F(RemoveDatabase, RefusesNamesThatLeadElsewhere)
{
    for (const char* name : {".", "..", "../DBS/shop", "..\\other", "/", "\\", "shop/deep", "C:", "::shop", "shop.",
                             "shop ", " ", "/tmp::shop"})
        ExpectRefusal(name);
}

TEST_F(RemoveDatabase, DeletesNothingWithoutAConnection)
{
    m_client.FailNext(fake::Call::Connect, 2002);
    EXPECT_FALSE(m_database.RemoveDatabase());
    EXPECT_TRUE(Exists("DBS/shop"));
    EXPECT_FALSE(m_database.IsConnected());
    EXPECT_TRUE(m_messages.Messages().empty());
}

class ClaimsToBeOpen : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool Open(bool, const UtCString&) override { return true; }
};

TEST_F(RemoveDatabase, DeletesNothingWhenADerivedClassOnlyClaimsToBeOpen)
{
    ClaimsToBeOpen database(m_database.GetServer(), "shop");
    EXPECT_FALSE(database.RemoveDatabase());
    EXPECT_TRUE(Exists("DBS/shop"));
}

class OpensAndThrows : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool Open(bool interactive, const UtCString& databaseName) override
    {
        CMyDatabase::Open(interactive, databaseName);
        throw std::runtime_error("host");
    }
};

TEST_F(RemoveDatabase, EndsClosedAlsoWhenADerivedClassThrows)
{
    OpensAndThrows database(m_database.GetServer(), "shop");
    EXPECT_FALSE(database.RemoveDatabase());
    EXPECT_FALSE(database.IsConnected());
    EXPECT_TRUE(Exists("DBS/shop"));
}

class Throws : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool Close() override { throw std::runtime_error("host"); }
};

TEST_F(RemoveDatabase, IsFalseWhenADerivedClassThrows)
{
    Throws database(m_database.GetServer(), "shop");
    EXPECT_FALSE(database.RemoveDatabase());
    EXPECT_TRUE(Exists("DBS/shop"));
}

// ---- A database that the server knows -------------------------------------------------------------------------------

/// The folder is the root and the working directory of the process, in which a settings file names the server.
class RemoveKnownDatabase : public RemoveDatabase
{
protected:
    RemoveKnownDatabase()
    {
        MakeFile("Server.ini", "[SQL-Server]\nServer=configured\nPort=3308\nUser=lea\n");
        m_client.On("SHOW DATABASES", Reply::Rows({"Database"}, {{"mysql"}, {"Shop"}}));
        m_client.On("SHOW TABLES", Tables({{"a"}, {"b"}}));
        m_database.GetServer().SetDataDir("\\.");
    }

    template <class Work> void InFolder(Work work) { EXPECT_TRUE(harness::InOtherRoot(m_folder.Path(), work)); }
};

TEST_F(RemoveKnownDatabase, ClosesTheTablesAndDropsItOverASecondConnection)
{
    InFolder([&] {
        EXPECT_TRUE(m_database.RemoveDatabase());
        EXPECT_EQ(m_client.Statements(), (Statements{"SHOW TABLES", "SHOW DATABASES", "SHOW TABLES",
                                                     "FLUSH TABLES `a`, `b`", "DROP DATABASE shop"}));
        ASSERT_EQ(m_client.Connects().size(), 3U);
        EXPECT_EQ(m_client.Connects()[1].host, "configured");
        const fake::ConnectRecord& second = m_client.Connects()[2];
        EXPECT_EQ(second.host, "db.example");
        EXPECT_EQ(second.port, 3307U);
        EXPECT_EQ(second.user, "kim");
        EXPECT_EQ(second.password, "pw");
        EXPECT_EQ(second.database, "");
        EXPECT_FALSE(m_database.IsConnected());
        EXPECT_EQ(m_client.Leaks(), "");
    });
    EXPECT_FALSE(Exists("DBS/shop"));
    EXPECT_TRUE(Exists("DBS/other"));
}

TEST_F(RemoveKnownDatabase, ClosesItsOwnConnectionBeforeTheDrop)
{
    InFolder([&] {
        m_client.SetStatementObserver([&](const std::string& statement) {
            if (statement.starts_with("DROP")) {
                EXPECT_FALSE(m_database.IsConnected());
            }
        });
        EXPECT_TRUE(m_database.RemoveDatabase());
    });
}

TEST_F(RemoveKnownDatabase, ClosesNoTablesWhereThereAreNone)
{
    m_client.On("SHOW TABLES", Tables({}));
    InFolder([&] {
        EXPECT_TRUE(m_database.RemoveDatabase());
        EXPECT_EQ(m_client.Statements(),
                  (Statements{"SHOW TABLES", "SHOW DATABASES", "SHOW TABLES", "DROP DATABASE shop"}));
    });
}

TEST_F(RemoveKnownDatabase, NeverDropsAsRoot)
{
    m_database.GetServer().SetUser("root");
    InFolder([&] {
        EXPECT_TRUE(m_database.RemoveDatabase());
        EXPECT_EQ(m_client.Connects()[0].user, "root") << "a user set later is sent as it is";
        EXPECT_EQ(m_client.Connects()[2].user, "vela_root");
        EXPECT_EQ(m_database.GetServer().GetUser(), "root");
    });
}

TEST_F(RemoveKnownDatabase, DeletesNothingWhenTheSecondConnectionFails)
{
    InFolder([&] {
        m_client.SetStatementObserver([&](const std::string& statement) {
            if (statement.starts_with("FLUSH"))
                m_client.FailAlways(fake::Call::Connect, 1045);
        });
        EXPECT_FALSE(m_database.RemoveDatabase());
        EXPECT_FALSE(m_database.IsConnected());
        EXPECT_TRUE(m_messages.Messages().empty());
        EXPECT_EQ(m_client.Statements().back(), "FLUSH TABLES `a`, `b`");
    });
    EXPECT_TRUE(Exists("DBS/shop"));
}

TEST_F(RemoveKnownDatabase, DropsNothingWhenTheServerCannotBeAskedAndDeletesTheDirectory)
{
    InFolder([&] {
        m_client.SetStatementObserver([&](const std::string& statement) {
            if (statement == "SHOW TABLES")
                m_client.FailAlways(fake::Call::Connect, 2002);
        });
        EXPECT_TRUE(m_database.RemoveDatabase());
        EXPECT_EQ(m_client.Statements(), Statements{"SHOW TABLES"});
    });
    EXPECT_FALSE(Exists("DBS/shop"));
}

TEST_F(RemoveKnownDatabase, Kept_K135_DeletesTheDirectoryAlsoWhenTheDropFails)
{
    m_client.On("DROP DATABASE shop", Reply::Error(1044, "denied"));
    m_client.On("FLUSH TABLES `a`, `b`", Reply::Error(1227, "denied"));
    InFolder([&] {
        EXPECT_TRUE(m_database.RemoveDatabase());
        EXPECT_TRUE(m_messages.Messages().empty());
        EXPECT_EQ(m_database.GetErrorCode(), 1227UL) << "the drop had another connection";
    });
    EXPECT_FALSE(Exists("DBS/shop"));
}

TEST_F(RemoveKnownDatabase, DeletesBelowTheWorkingDirectoryWithoutADataDirectory)
{
    InFolder([&] {
        CMyDatabase database(Settings(), "shop");
        EXPECT_TRUE(database.RemoveDatabase());
    });
    EXPECT_FALSE(Exists("DBS/shop"));
    EXPECT_TRUE(Exists("DBS/other"));
}

TEST_F(RemoveKnownDatabase, EveryClientCallMayFail)
{
    const auto script = [] {
        fake::Client::Get().On("SHOW DATABASES", Reply::Rows({"Database"}, {{"shop"}}));
        fake::Client::Get().On("SHOW TABLES", Reply::Rows({"t"}, {{"a"}}));
    };
    m_database.Close(); // its client is made anew for each run
    InFolder([&] {
        const std::size_t calls = harness::ForEachFailurePoint(script, [](harness::FailureRun& run) {
            fs::create_directories("DBS/shop");
            CMyServer server = Settings();
            server.SetDataDir("\\.");
            CMyDatabase database(server, "shop");
            const bool isRemoved = database.RemoveDatabase();
            run.EndOfWork();
            EXPECT_EQ(isRemoved, !fs::exists("DBS/shop"));
            EXPECT_FALSE(database.IsConnected());
            if (!run.Failed()) {
                EXPECT_TRUE(isRemoved);
            }
            EXPECT_TRUE(database.RemoveDatabase()) << "the object can be used again";
            EXPECT_FALSE(fs::exists("DBS/shop"));
        });
        EXPECT_GE(calls, 12U) << "three connections, five statements";
    });
}

} // namespace
