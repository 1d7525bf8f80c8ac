#include "metadata/TableLoad.h"

#include "harness/MessageRecorder.h"
#include "unit/metadata/MetadataFixture.h"

#include <algorithm>
#include <string_view>

namespace {

using namespace metadata_test;
using Entry = std::shared_ptr<CTableCache>;

const char* const statusOfOrders = "SHOW TABLE STATUS FROM shop LIKE 'ORDERS'";

class TableLoad : public MetadataFixture
{
protected:
    TableLoad() : m_database(Settings(), "shop") { OpenQuietly(m_database); }

    void TearDown() override
    {
        m_database.Close();
        MetadataFixture::TearDown();
    }

    Entry LoadOrders() { return m_cache.GetOrLoad(&m_database, "orders"); }

    /// Loads ORDERS while the server answers the status query so.
    Entry LoadWithStatus(const fake::Reply& reply)
    {
        m_cache.RemoveAll();
        m_client.Once(statusOfOrders, reply);
        return LoadOrders();
    }

    WatchedDatabase m_database;
};

// ---------------------------------------------------------------------------------------------------------------
// The connection

TEST_F(TableLoad, OpensAClosedConnectionFirst)
{
    WatchedDatabase closed(Settings(), "shop");
    EXPECT_NE(m_cache.GetOrLoad(&closed, "orders"), nullptr);
    EXPECT_EQ(TakeTraffic(), (Traffic{"connect", "SHOW TABLES", "list ORDERS", statusOfOrders}));
    EXPECT_EQ(closed.opens, std::vector<std::string>{"false,\"\""});
}

TEST_F(TableLoad, DoesNotOpenAnOpenConnection)
{
    m_database.opens.clear();
    EXPECT_NE(LoadOrders(), nullptr);
    EXPECT_EQ(m_database.opens, std::vector<std::string>{});
}

TEST_F(TableLoad, FailsWhenTheConnectionCannotBeOpened)
{
    CMyDatabase closed(Settings(), "shop");
    m_client.FailNext(fake::Call::Connect, 2003, "Can't connect");
    EXPECT_EQ(m_cache.GetOrLoad(&closed, "orders"), nullptr);
    EXPECT_EQ(TakeTraffic(), (Traffic{"connect", "close"}));
    EXPECT_EQ(closed.GetErrorCode(), 2003U);
    EXPECT_EQ(Text(closed.GetErrorMessage()), "2003: Can't connect");
}

TEST_F(TableLoad, FailsWithInvalidSettingsWithoutAnError)
{
    CMyDatabase invalid(CMyServer(), "shop");
    EXPECT_EQ(m_cache.GetOrLoad(&invalid, "orders"), nullptr);
    EXPECT_EQ(TakeTraffic(), Traffic{});
    EXPECT_EQ(invalid.GetErrorCode(), 0U);
}

TEST_F(TableLoad, FailsOnAConnectionWithoutDatabase)
{
    CMyDatabase noDatabase(Settings(), "");
    EXPECT_EQ(m_cache.GetOrLoad(&noDatabase, "orders"), nullptr);
    EXPECT_EQ(TakeTraffic(), (Traffic{"connect", "list ORDERS"}));
    EXPECT_EQ(noDatabase.GetErrorCode(), 1046U);
}

// ---------------------------------------------------------------------------------------------------------------
// The name

TEST_F(TableLoad, AsksForTheTrimmedUpperCaseName)
{
    const Entry entry = m_cache.GetOrLoad(&m_database, " ` Orders` ");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(TakeTraffic(), (Traffic{"list ORDERS", statusOfOrders}));
    EXPECT_EQ(Text(entry->GetName()), "ORDERS");
    EXPECT_EQ(entry->GetName().GetEncodingType(), UT_ENCODING_DEFAULT);
}

TEST_F(TableLoad, Kept_K25_AsksForUpperCaseAlsoWhereTheServerTellsTheCasesApart)
{
    m_client.OnListFieldsError("MIXEDCASE", 1146, "Table 'shop.MIXEDCASE' doesn't exist");
    m_client.OnListFields("MixedCase", {{.name = "id"}});
    EXPECT_EQ(m_cache.GetOrLoad(&m_database, "MixedCase"), nullptr);
    EXPECT_EQ(TakeTraffic(), Traffic{"list MIXEDCASE"});
}

TEST_F(TableLoad, AsksInTheConnectionsEncoding)
{
    CMyDatabase utf8(Settings("utf8mb4"), "shop");
    OpenQuietly(utf8);
    m_client.OnListFields("GR\xC3\x96SSE", {{.name = "id"}});
    const Entry entry = m_cache.GetOrLoad(&utf8, "gr\xF6sse");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->GetName().GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(TakeTraffic(), (Traffic{"list GR\xC3\x96SSE", "SHOW TABLE STATUS FROM shop LIKE 'GR\xC3\x96SSE'"}));
}

TEST_F(TableLoad, LeavesOutAByteOrderMarkOnAUtf8Connection)
{
    CMyDatabase utf8(Settings("utf8"), "shop");
    OpenQuietly(utf8);
    EXPECT_NE(m_cache.GetOrLoad(&utf8, UtCString("\xEF\xBB\xBForders", UT_ENCODING_UTF8)), nullptr);
    EXPECT_EQ(TakeTraffic().front(), "list ORDERS");
}

TEST_F(TableLoad, SendsTheSameBytesOnASingleByteConnectionAsTheyAre)
{
    EXPECT_EQ(m_cache.GetOrLoad(&m_database, "\xEF\xBB\xBForders"), nullptr);
    EXPECT_EQ(TakeTraffic(), Traffic{"list \xCF\xBB\xBFORDERS"}) << "\xEF is a letter there";
}

TEST_F(TableLoad, SendsTheSameBytesInAnotherEncodingAsTheyAre)
{
    using namespace std::string_view_literals;
    CMyDatabase utf16(Settings("utf16le"), "");
    ASSERT_TRUE(utf16.Open(false, ""));
    m_client.ForgetCalls();
    EXPECT_EQ(m_cache.GetOrLoad(&utf16, UtCString("\xEF\xBB\xBF\x41"sv, UT_ENCODING_UTF16_LE)), nullptr);
    EXPECT_EQ(TakeTraffic().front(), "list \xEF\xBB\xBF\x41");
}

TEST_F(TableLoad, SendsANameOf126Bytes)
{
    const std::string longest(126, 'X');
    m_client.OnListFields(longest, {{.name = "id"}});
    EXPECT_NE(m_cache.GetOrLoad(&m_database, UtCString(longest.c_str())), nullptr);
    EXPECT_EQ(TakeTraffic().front(), "list " + longest);
}

TEST_F(TableLoad, RefusesANameOf127BytesAsAFailedListing)
{
    const std::string tooLong(127, 'x');
    EXPECT_EQ(m_cache.GetOrLoad(&m_database, UtCString(tooLong.c_str())), nullptr);
    EXPECT_EQ(TakeTraffic(), Traffic{});
    EXPECT_EQ(m_database.GetErrorCode(), 1103U);
    EXPECT_EQ(Text(m_database.GetErrorMessage()), "1103: Incorrect table name '" + std::string(100, 'X') + "'");
    EXPECT_EQ(m_cache.GetCount(), 0U);
}

TEST_F(TableLoad, QuotesTheWholeLettersOfTheFirst100BytesOfARefusedName)
{
    std::string name = "X";
    for (int i = 0; i < 63; ++i)
        name += "\xC3\x96";
    CMyDatabase utf8(Settings("utf8mb4"), "shop");
    OpenQuietly(utf8);
    EXPECT_EQ(m_cache.GetOrLoad(&utf8, UtCString(name.c_str(), UT_ENCODING_UTF8)), nullptr);
    EXPECT_EQ(Text(utf8.GetErrorMessage()), "1103: Incorrect table name '" + name.substr(0, 99) + "'");
    EXPECT_EQ(utf8.GetErrorMessage().GetEncodingType(), UT_ENCODING_UTF8);
}

TEST_F(TableLoad, CountsTheBytesOfTheNameAndNotItsLetters)
{
    CMyDatabase utf8(Settings("utf8mb4"), "shop");
    OpenQuietly(utf8);
    const std::string letters63(63, '\xC4');
    EXPECT_EQ(m_cache.GetOrLoad(&utf8, UtCString(letters63.c_str())), nullptr);
    EXPECT_EQ(utf8.GetErrorCode(), 1146U) << "126 bytes are sent";
    EXPECT_EQ(m_cache.GetOrLoad(&utf8, UtCString((letters63 + "A").c_str())), nullptr);
    EXPECT_EQ(utf8.GetErrorCode(), 1103U) << "127 are not";
}

TEST_F(TableLoad, RefusesAHugeName)
{
    const std::string huge(1 << 20, 'x');
    EXPECT_EQ(m_cache.GetOrLoad(&m_database, UtCString(huge.c_str())), nullptr);
    EXPECT_EQ(m_database.GetErrorCode(), 1103U);
}

TEST_F(TableLoad, SendsANameUpToItsFirstZeroByte)
{
    using namespace std::string_view_literals;
    EXPECT_NE(m_cache.GetOrLoad(&m_database, UtCString("orders\0x"sv, UT_ENCODING_DEFAULT)), nullptr);
    EXPECT_EQ(TakeTraffic().front(), "list ORDERS");
    unsigned long position = 0;
    EXPECT_FALSE(m_cache.Find("orders", position)) << "it is cached under the whole name";
}

TEST_F(TableLoad, AsksForAnEmptyNameWhenNothingIsLeftAfterTrimming)
{
    m_client.OnListFieldsError("", 1103, "Incorrect table name ''");
    for (const char* name : {"`", " ", "` `"})
        EXPECT_EQ(m_cache.GetOrLoad(&m_database, name), nullptr);
    EXPECT_EQ(TakeTraffic(), (Traffic{"list ", "list ", "list "}));
    EXPECT_EQ(m_database.GetErrorCode(), 1103U);
}

TEST_F(TableLoad, TakesMalformedUtf8)
{
    CMyDatabase utf8(Settings("utf8mb4"), "shop");
    OpenQuietly(utf8);
    EXPECT_EQ(m_cache.GetOrLoad(&utf8, UtCString("\xC3\xFF\x80(", UT_ENCODING_UTF8)), nullptr);
    EXPECT_EQ(utf8.GetErrorCode(), 1146U);
}

// ---------------------------------------------------------------------------------------------------------------
// A failed listing

TEST_F(TableLoad, LeavesTheErrorOfAFailedListingOnTheConnectionAndDoesNotRepeatIt)
{
    m_client.OnListFieldsError("ORDERS", 1146, "Table 'shop.orders' doesn't exist");
    m_database.opens.clear();
    EXPECT_EQ(LoadOrders(), nullptr);
    EXPECT_EQ(TakeTraffic(), Traffic{"list ORDERS"});
    EXPECT_EQ(m_database.GetErrorCode(), 1146U);
    EXPECT_EQ(Text(m_database.GetErrorMessage()), "1146: Table 'shop.orders' doesn't exist");
    EXPECT_EQ(m_database.opens, std::vector<std::string>{});
}

TEST_F(TableLoad, RepeatsTheListingOnceForEachErrorOfALostConnection)
{
    for (const unsigned int lost : {2001U, 2006U, 2013U}) {
        m_cache.RemoveAll();
        m_database.opens.clear();
        m_client.ForgetCalls();
        m_client.FailNext(fake::Call::ListFields, lost);
        EXPECT_NE(LoadOrders(), nullptr) << lost;
        EXPECT_EQ(TakeTraffic(), (Traffic{"list ORDERS", "ping", "list ORDERS", statusOfOrders})) << lost;
        EXPECT_EQ(m_database.opens, std::vector<std::string>{"false,\"\""}) << lost;
        EXPECT_EQ(m_database.GetErrorCode(), 0U) << lost;
    }
}

TEST_F(TableLoad, RepeatsTheListingForNoOtherError)
{
    for (const unsigned int other : {1U, 1046U, 1100U, 1146U, 2000U, 2002U, 2003U, 2005U, 2008U, 2014U, 2055U}) {
        m_client.ForgetCalls();
        m_client.FailNext(fake::Call::ListFields, other);
        EXPECT_EQ(LoadOrders(), nullptr) << other;
        EXPECT_EQ(TakeTraffic(), Traffic{"list ORDERS"}) << other;
        EXPECT_EQ(m_database.GetErrorCode(), other);
    }
}

TEST_F(TableLoad, ConnectsAnewBetweenTheTwoListingsWhenTheConnectionIsGone)
{
    m_client.LoseConnection();
    EXPECT_NE(LoadOrders(), nullptr);
    EXPECT_EQ(TakeTraffic(),
              (Traffic{"list ORDERS", "ping", "close", "connect", "SHOW TABLES", "list ORDERS", statusOfOrders}));
}

TEST_F(TableLoad, GivesUpAfterTheSecondListingAndLeavesItsError)
{
    m_client.FailNext(fake::Call::ListFields, 2006);
    m_client.FailNext(fake::Call::ListFields, 2013, "Lost again");
    EXPECT_EQ(LoadOrders(), nullptr);
    EXPECT_EQ(TakeTraffic(), (Traffic{"list ORDERS", "ping", "list ORDERS"}));
    EXPECT_EQ(m_database.GetErrorCode(), 2013U);
    EXPECT_EQ(Text(m_database.GetErrorMessage()), "2013: Lost again");
}

TEST_F(TableLoad, GivesUpWhenTheConnectionCannotBeOpenedAgain)
{
    m_client.LoseConnection();
    m_client.FailNext(fake::Call::Connect, 2003, "Can't connect");
    EXPECT_EQ(LoadOrders(), nullptr);
    EXPECT_EQ(TakeTraffic(), (Traffic{"list ORDERS", "ping", "close", "connect", "close"}));
    EXPECT_EQ(m_database.GetErrorCode(), 2003U);
    EXPECT_FALSE(m_database.IsConnected());
}

TEST_F(TableLoad, ReportsAFailureForWhichTheClientGivesNoReason)
{
    m_client.OnListFieldsError("ORDERS", 0);
    EXPECT_EQ(LoadOrders(), nullptr);
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
    EXPECT_EQ(Text(m_database.GetErrorMessage()), "Kein Fehler!");
}

/// A connection whose Open says that all is well and leaves no handle.
class HollowDatabase : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool Open(bool, const UtCString&) override { return true; }
};

TEST_F(TableLoad, NeverAsksWithoutAHandle)
{
    HollowDatabase hollow(Settings(), "shop");
    EXPECT_EQ(m_cache.GetOrLoad(&hollow, "orders"), nullptr);
    EXPECT_EQ(TakeTraffic(), Traffic{});
}

/// A connection whose Open throws.
class ThrowingDatabase : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool Open(bool, const UtCString&) override { throw 1; }
};

TEST_F(TableLoad, LetsNoExceptionOfADerivedConnectionThrough)
{
    ThrowingDatabase throwing(Settings(), "shop");
    EXPECT_EQ(m_cache.GetOrLoad(&throwing, "orders"), nullptr);
}

// ---------------------------------------------------------------------------------------------------------------
// The columns

TEST_F(TableLoad, TakesTheColumnsInTheServersOrder)
{
    const Entry entry = LoadOrders();
    ASSERT_NE(entry, nullptr);
    ASSERT_EQ(entry->GetFieldCount(), 3U);
    EXPECT_EQ(Text(entry->GetField(0UL)->GetName()), "id");
    EXPECT_EQ(entry->GetField(0UL)->GetFieldType(), MYTYPE_LONG);
    EXPECT_EQ(entry->GetField(0UL)->GetFlags(), 3U);
    EXPECT_EQ(Text(entry->GetField(1UL)->GetName()), "Name");
    EXPECT_EQ(entry->GetField(1UL)->GetLength(), 60U);
    EXPECT_EQ(entry->GetField(1UL)->GetCharsetNr(), 33U);
    EXPECT_EQ(Text(entry->GetField(1UL)->GetDefault()), "Muster");
    EXPECT_EQ(Text(entry->GetField(2UL)->GetName()), "price");
    EXPECT_EQ(entry->GetField(2UL)->GetDecimals(), 31U);
}

TEST_F(TableLoad, FindsTheLaterOfTwoColumnsThatDifferInCaseOnly)
{
    m_client.OnListFields("ORDERS", {{.name = "id"}, {.name = "x"}, {.name = "ID"}});
    const Entry entry = LoadOrders();
    unsigned long position = 0;
    EXPECT_TRUE(entry->FindField("Id", position));
    EXPECT_EQ(position, 2U);
}

TEST_F(TableLoad, FailsForATableWithoutColumns)
{
    m_client.OnListFields("ORDERS", {});
    EXPECT_EQ(LoadOrders(), nullptr);
    EXPECT_EQ(TakeTraffic(), Traffic{"list ORDERS"});
    EXPECT_EQ(m_cache.GetCount(), 0U);
}

TEST_F(TableLoad, FreesTheListingBeforeTheNextStatement)
{
    LoadOrders();
    const std::vector<std::string> calls = m_client.CallNames();
    const auto freed = std::find(calls.begin(), calls.end(), "mysql_free_result");
    const auto queried = std::find(calls.begin(), calls.end(), "mysql_real_query");
    EXPECT_LT(freed - calls.begin(), queried - calls.begin());
}

TEST_F(TableLoad, TakesAWideTable)
{
    std::vector<fake::Field> fields;
    for (int i = 0; i < 4096; ++i)
        fields.push_back({.name = "c" + std::to_string(i)});
    m_client.OnListFields("ORDERS", fields);
    const Entry entry = LoadOrders();
    ASSERT_NE(entry, nullptr);
    unsigned long position = 0;
    EXPECT_TRUE(entry->FindField("C4095", position));
    EXPECT_EQ(position, 4095U);
}

// ---------------------------------------------------------------------------------------------------------------
// The engine

TEST_F(TableLoad, ReadsTheEngineFromItsColumnInAnyLetterCase)
{
    for (const char* column : {"Engine", "ENGINE", "engine"}) {
        const Entry entry = LoadWithStatus(fake::Reply::Rows({"Name", column}, {{"orders", "MyISAM"}}));
        EXPECT_EQ(Text(entry->GetEngine()), "MyISAM") << column;
        EXPECT_FALSE(entry->IsTransactional()) << column;
    }
}

TEST_F(TableLoad, ReadsTheEngineFromTheColumnTypeOfOldServers)
{
    EXPECT_EQ(Text(LoadWithStatus(fake::Reply::Rows({"Name", "Type"}, {{"orders", "BDB"}}))->GetEngine()), "BDB");
    EXPECT_EQ(Text(LoadWithStatus(fake::Reply::Rows({"TYPE"}, {{"HEAP"}}))->GetEngine()), "HEAP");
}

TEST_F(TableLoad, PrefersTheColumnEngineToTheColumnType)
{
    const Entry entry = LoadWithStatus(fake::Reply::Rows({"Type", "Engine"}, {{"BDB", "InnoDB"}}));
    EXPECT_EQ(Text(entry->GetEngine()), "InnoDB");
}

TEST_F(TableLoad, TakesInnoDbInLowerCaseForTransactional)
{
    const Entry entry = LoadWithStatus(fake::Reply::Rows({"Engine"}, {{"innodb"}}));
    EXPECT_TRUE(entry->IsTransactional());
    EXPECT_EQ(Text(entry->GetEngine()), "innodb") << "as the server reports it";
}

TEST_F(TableLoad, ReadsTheFirstRowOnly)
{
    const Entry entry = LoadWithStatus(fake::Reply::Rows({"Engine"}, {{"MyISAM"}, {"InnoDB"}}));
    EXPECT_EQ(Text(entry->GetEngine()), "MyISAM");
}

TEST_F(TableLoad, ReadsTheEngineToItsLastByte)
{
    const std::string withZero("InnoDB\0x", 8);
    const Entry entry = LoadWithStatus(fake::Reply::Rows({"Engine"}, {{withZero}}));
    EXPECT_EQ(Text(entry->GetEngine()), withZero);
    EXPECT_FALSE(entry->IsTransactional());
}

TEST_F(TableLoad, ShowsNoMessageWhateverFails)
{
    const harness::MessageRecorder messages;
    LoadWithStatus(fake::Reply::Error(1064, "You have an error"));
    m_client.OnListFieldsError("ORDERS", 1146);
    m_cache.RemoveAll();
    EXPECT_EQ(LoadOrders(), nullptr);
    EXPECT_TRUE(messages.Messages().empty());
}

struct MissingEngine
{
    const char* what;
    fake::Reply reply;
};

TEST_F(TableLoad, KeepsTheEntryWithoutAnEngineWhenTheServerGivesNone)
{
    const MissingEngine cases[] = {
        {"failed statement", fake::Reply::Error(1064, "You have an error")},
        {"failure while storing", fake::Reply::ErrorAtResult(1317, "Interrupted")},
        {"no result set", fake::Reply::Ok()},
        {"no rows", fake::Reply::Rows({"Name", "Engine"}, {})},
        {"NULL", fake::Reply::Rows({"Engine"}, {{std::nullopt}})},
        {"empty text", fake::Reply::Rows({"Engine"}, {{""}})},
        {"neither column", fake::Reply::Rows({"Name", "Motor"}, {{"orders", "InnoDB"}})},
    };
    for (const MissingEngine& missing : cases) {
        const Entry entry = LoadWithStatus(missing.reply);
        ASSERT_NE(entry, nullptr) << missing.what;
        EXPECT_TRUE(entry->GetEngine().IsEmpty()) << missing.what;
        EXPECT_FALSE(entry->IsTransactional()) << missing.what;
        EXPECT_EQ(entry->GetFieldCount(), 3U) << missing.what;
        EXPECT_EQ(m_cache.GetCount(), 1U) << missing.what;
    }
}

TEST_F(TableLoad, LeavesTheStateOfTheStatusQueryOnTheConnection)
{
    LoadOrders();
    EXPECT_EQ(Text(m_database.GetLastSQLCommand()), statusOfOrders);
    EXPECT_EQ(m_database.GetErrorCode(), 0U);
    LoadWithStatus(fake::Reply::Error(1064, "You have an error"));
    EXPECT_EQ(m_database.GetErrorCode(), 1064U) << "although the load succeeded";
}

TEST_F(TableLoad, KeepsAnEntryAliveThatReopeningTheConnectionDrops)
{
    m_client.On("SHOW TABLES", fake::Reply::Rows({"Tables_in_shop"}, {{"orders"}}));
    m_client.Once(statusOfOrders, fake::Reply::Error(2006));
    const Entry entry = LoadOrders();
    EXPECT_EQ(TakeTraffic(),
              (Traffic{"list ORDERS", statusOfOrders, "close", "connect", "SHOW TABLES", statusOfOrders}));
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(Text(entry->GetEngine()), "InnoDB");
    EXPECT_EQ(m_cache.GetCount(), 0U) << "the list of the opened database names it";
}

} // namespace
