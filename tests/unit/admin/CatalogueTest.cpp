#include "CMyTable.h"
#include "CatalogueFixture.h"
#include "text/UtCStringList.h"

#include "harness/FailurePoints.h"

#include <limits>

namespace {

using fake::Reply;
using fake::Row;

class Catalogue : public CatalogueFixture
{
protected:
    std::vector<std::string> Names(const char* pattern)
    {
        UtCStringList list("what was there");
        const long count = m_database.GetTables(list, pattern);
        std::vector<std::string> names;
        for (int position = 0; position < list.GetCount(); ++position)
            names.push_back(Bytes(list.item(position)));
        EXPECT_EQ(count, static_cast<long>(names.size()));
        return names;
    }
};

TEST_F(Catalogue, GivesTheTablesAsOneText)
{
    m_client.On("SHOW TABLES", Tables({{"a"}, {"b"}}));
    EXPECT_EQ(Bytes(m_database.GetTables("")), "`a`, `b`");
    EXPECT_EQ(m_client.Statements(), Statements{"SHOW TABLES"});
}

TEST_F(Catalogue, GivesOneTableWithoutASeparator)
{
    m_client.On("SHOW TABLES", Tables({{"orders"}}));
    EXPECT_EQ(Bytes(m_database.GetTables("")), "`orders`");
    EXPECT_EQ(Names(""), std::vector<std::string>{"orders"});
}

TEST_F(Catalogue, KeepsTheOrderOfTheServer)
{
    m_client.On("SHOW TABLES", Tables({{"z"}, {"a"}, {"m"}}));
    EXPECT_EQ(Bytes(m_database.GetTables("")), "`z`, `a`, `m`");
    EXPECT_EQ(Names(""), (std::vector<std::string>{"z", "a", "m"}));
}

TEST_F(Catalogue, PassesAPatternOn)
{
    m_client.On("SHOW TABLES LIKE 'x%'", Tables({{"x1"}}));
    EXPECT_EQ(Bytes(m_database.GetTables("x%")), "`x1`");
}

TEST_F(Catalogue, Kept_K131_ListsAllTablesWhateverThePatternSays)
{
    m_client.On("SHOW TABLES", Tables({{"x1"}, {"y"}}));
    EXPECT_EQ(Names("x%"), (std::vector<std::string>{"x1", "y"}));
    EXPECT_EQ(m_client.Statements(), Statements{"SHOW TABLES"});
}

TEST_F(Catalogue, HasNothingForADatabaseWithoutTables)
{
    m_client.On("SHOW TABLES", Tables({}));
    EXPECT_EQ(Bytes(m_database.GetTables("")), "");
    EXPECT_TRUE(Names("").empty());
    EXPECT_EQ(m_database.GetTableCount(), 0);
}

TEST_F(Catalogue, ReadsTheFirstColumnWhateverItsName)
{
    m_client.On("SHOW TABLES", Reply::Rows({"x", "y"}, {{"a", "BASE TABLE"}}));
    EXPECT_EQ(Bytes(m_database.GetTables("")), "`a`");
}

TEST_F(Catalogue, TextsAreInTheEncodingOfTheSettings)
{
    const char* const umlaut = "k\xC3\xBC"
                               "che";
    m_client.On("SHOW TABLES", Tables({{umlaut}}));
    EXPECT_EQ(m_database.GetTables("").GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(Bytes(m_database.GetTables("")), std::string("`") + umlaut + "`");
    m_database.GetServer().SetCharset("");
    EXPECT_EQ(m_database.GetTables("").GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_EQ(Bytes(m_database.GetTables("")), "`k\xFC"
                                               "che`");
}

TEST_F(Catalogue, CountsTheTables)
{
    m_client.On("SHOW TABLES", Tables({{"a"}, {"b"}, {"c"}}));
    EXPECT_EQ(m_database.GetTableCount(), 3);
    EXPECT_EQ(m_client.Statements(), Statements{"SHOW TABLES"});
}

TEST_F(Catalogue, AFailedListingIsEmptyAndShown)
{
    m_client.On("SHOW TABLES", Reply::Error(1044, "denied"));
    EXPECT_EQ(Bytes(m_database.GetTables("")), "");
    EXPECT_TRUE(Names("").empty());
    EXPECT_EQ(m_database.GetTableCount(), -1);
    EXPECT_EQ(m_database.GetErrorCode(), 1044UL);
    EXPECT_EQ(m_messages.Messages().size(), 3U);
}

TEST_F(Catalogue, AListingThatBreaksOffIsEmpty)
{
    m_client.On("SHOW TABLES", Tables({{"a"}, {"b"}}).CutAfter(1, 1105));
    EXPECT_EQ(Bytes(m_database.GetTables("")), "");
    EXPECT_EQ(m_database.GetErrorCode(), 1105UL);
}

TEST_F(Catalogue, AsksNobodyWithoutAnOpenConnection)
{
    CMyDatabase nameless(Settings(), "");
    ASSERT_TRUE(nameless.Open(false, ""));
    m_database.Close();
    m_client.ForgetCalls();
    for (CMyDatabase* database : {&m_database, &nameless}) {
        UtCStringList list("what was there");
        EXPECT_EQ(Bytes(database->GetTables("")), "");
        EXPECT_EQ(database->GetTables(list, ""), 0);
        EXPECT_EQ(list.GetCount(), 0);
        EXPECT_EQ(database->GetTableCount(), 0);
        EXPECT_EQ(database->GetDBSize(), -1);
        EXPECT_FALSE(database->RemoveTable("a"));
        EXPECT_FALSE(database->CompressDatabase(true));
        EXPECT_FALSE(database->CompressDatabase(false));
        EXPECT_FALSE(database->ExistDatabase());
    }
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(Catalogue, GivesAHandleOnATable)
{
    m_client.OnListFields("ORDERS", {{.name = "ID"}});
    const CMyTable table = m_database.GetTable("orders");
    EXPECT_TRUE(table.IsValid());
    EXPECT_EQ(Bytes(table.GetTableName()), "orders");
    EXPECT_EQ(table.GetFieldCount(), 1);
    m_client.ForgetCalls();
    EXPECT_TRUE(m_database.GetTable("Orders").IsValid());
    EXPECT_TRUE(m_client.Calls().empty()) << "it is in the cache";
}

TEST_F(Catalogue, GivesAnInvalidHandleOnAnUnknownTable)
{
    EXPECT_FALSE(m_database.GetTable("nothing").IsValid());
    EXPECT_FALSE(m_database.GetTable("").IsValid());
}

// ---- The size -------------------------------------------------------------------------------------------------------

Reply Status(std::vector<Row> dataAndIndex)
{
    return Reply::Rows({"Data_length", "Index_length"}, std::move(dataAndIndex));
}

TEST_F(Catalogue, AddsUpDataAndIndexOfAllTables)
{
    m_client.On("SHOW TABLE STATUS", Status({{"100", "20"}, {"3", "4"}, {"5000000000", "0"}}));
    EXPECT_EQ(m_database.GetDBSize(), 5000000127);
    EXPECT_EQ(m_client.Statements(), Statements{"SHOW TABLE STATUS"});
}

TEST_F(Catalogue, AddsNothingForWhatIsNoNumber)
{
    m_client.On("SHOW TABLE STATUS", Status({{"100", std::nullopt}, {std::nullopt, "x"}, {"", "7"}}));
    EXPECT_EQ(m_database.GetDBSize(), 107);
    m_client.On("SHOW TABLE STATUS", Reply::Rows({"Name", "Data_length"}, {{"a", "8"}}));
    EXPECT_EQ(m_database.GetDBSize(), 8);
    m_client.On("SHOW TABLE STATUS", Reply::Rows({"data_length", "INDEX_LENGTH"}, {{"1", "2"}}));
    EXPECT_EQ(m_database.GetDBSize(), 0) << "columns are found by their exact names";
}

TEST_F(Catalogue, EndsAtTheLargestNumber)
{
    m_client.On("SHOW TABLE STATUS", Status({{"9223372036854775807", "1"}, {"5", "5"}}));
    EXPECT_EQ(m_database.GetDBSize(), 9223372036854775807);
}

TEST_F(Catalogue, AddsUpNegativeSizesWithoutWrappingRound)
{
    m_client.On("SHOW TABLE STATUS", Status({{"-5", "3"}, {"10", "-1"}}));
    EXPECT_EQ(m_database.GetDBSize(), 7);
    m_client.On("SHOW TABLE STATUS", Status({{"-9223372036854775808", "-1"}, {"-1", "-1"}}));
    EXPECT_EQ(m_database.GetDBSize(), std::numeric_limits<__int64>::min());
}

TEST_F(Catalogue, Kept_K132_AnEmptyDatabaseHasNoSize)
{
    m_client.On("SHOW TABLE STATUS", Status({}));
    EXPECT_EQ(m_database.GetDBSize(), -1);
}

TEST_F(Catalogue, AFailedStatusHasNoSizeAndIsNotShown)
{
    m_client.On("SHOW TABLE STATUS", Reply::Error(1044, "denied"));
    EXPECT_EQ(m_database.GetDBSize(), -1);
    EXPECT_TRUE(m_messages.Messages().empty());
}

// ---- Compressing ----------------------------------------------------------------------------------------------------

class Compress : public CatalogueFixture
{
protected:
    void ScriptReport(std::vector<Row> typeAndText)
    {
        m_client.On("SHOW TABLES", Tables({{"a"}, {"b"}}));
        m_client.On("OPTIMIZE TABLE `a`, `b`", Reply::Rows({"Msg_type", "Msg_text"}, std::move(typeAndText)));
    }
};

TEST_F(Compress, OptimizesAllTablesInOneStatement)
{
    ScriptReport({{"note", "doing recreate + analyze instead"}, {"status", "OK"}, {"warning", "error"}});
    EXPECT_TRUE(m_database.CompressDatabase(true));
    EXPECT_EQ(m_client.Statements(), (Statements{"SHOW TABLES", "OPTIMIZE TABLE `a`, `b`"}));
}

TEST_F(Compress, FailsForAnErrorInAnyLetterCase)
{
    for (const char* type : {"error", "Error", "ERROR"}) {
        ScriptReport({{"status", "OK"}, {type, "Corrupt"}});
        EXPECT_FALSE(m_database.CompressDatabase(true)) << type;
    }
}

TEST_F(Compress, AcceptsAStatusOfAnyText)
{
    ScriptReport({{"status", "Operation failed"}});
    EXPECT_TRUE(m_database.CompressDatabase(true));
}

TEST_F(Compress, ReadsTheTypeByItsName)
{
    m_client.On("SHOW TABLES", Tables({{"a"}}));
    m_client.On("OPTIMIZE TABLE `a`", Reply::Rows({"Table", "Type"}, {{"error", "error"}}));
    EXPECT_TRUE(m_database.CompressDatabase(true));
}

TEST_F(Compress, Kept_K137_SucceedsWhenTheStatementFails)
{
    m_client.On("SHOW TABLES", Tables({{"a"}}));
    m_client.On("OPTIMIZE TABLE `a`", Reply::Error(1142, "denied"));
    EXPECT_TRUE(m_database.CompressDatabase(true));
    EXPECT_EQ(m_database.GetErrorCode(), 1142UL);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(Compress, SucceedsWithoutARow)
{
    ScriptReport({});
    EXPECT_TRUE(m_database.CompressDatabase(true));
}

TEST_F(Compress, FailsWithoutTables)
{
    m_client.On("SHOW TABLES", Tables({}));
    EXPECT_FALSE(m_database.CompressDatabase(true));
    EXPECT_FALSE(m_database.CompressDatabase(false));
    EXPECT_EQ(m_client.Statements(), (Statements{"SHOW TABLES", "SHOW TABLES"})) << "the lists, and nothing else";
}

TEST_F(Compress, RepairsWhenItIsNotToOptimize)
{
    m_client.On("SHOW TABLES", Tables({{"a"}}));
    m_client.SetDefaultReply(Reply::Rows({"Table", "Op", "Msg_type", "Msg_text"}, {{"shop.a", "x", "status", "OK"}}));
    EXPECT_TRUE(m_database.CompressDatabase(false));
    EXPECT_EQ(m_client.Statements()[2], "REPAIR TABLE `a` EXTENDED");
}

TEST(CatalogueFailures, EveryClientCallMayFail)
{
    const harness::MessageRecorder messages;
    const auto script = [] {
        fake::Client& client = fake::Client::Get();
        client.On("SHOW TABLES", Reply::Rows({"t"}, {{"a"}, {"b"}}));
        client.On("SHOW TABLE STATUS", Reply::Rows({"Data_length", "Index_length"}, {{"1", "2"}}));
        client.OnPrefix("OPTIMIZE", Reply::Rows({"Msg_type", "Msg_text"}, {{"Error", "Corrupt"}}));
    };
    const std::size_t calls = harness::ForEachFailurePoint(script, [](harness::FailureRun& run) {
        CMyServer server;
        server.SetHost("db.example");
        server.SetPort(3307);
        CMyDatabase database(server, "shop");
        database.Open(false, "");
        UtCStringList list;
        const UtCString text = database.GetTables("");
        const long listed = database.GetTables(list, "");
        const long count = database.GetTableCount();
        const __int64 size = database.GetDBSize();
        const bool isOptimized = database.CompressDatabase(true);
        run.EndOfWork();
        EXPECT_TRUE(text == "`a`, `b`" || text.IsEmpty());
        EXPECT_TRUE(listed == 2 || listed == 0);
        EXPECT_EQ(list.GetCount(), listed);
        EXPECT_TRUE(count == 2 || count == -1 || count == 0);
        EXPECT_TRUE(size == 3 || size == -1);
        if (!run.Failed()) {
            EXPECT_EQ(std::string(text.View()), "`a`, `b`");
            EXPECT_EQ(listed, 2);
            EXPECT_EQ(count, 2);
            EXPECT_EQ(size, 3);
            EXPECT_FALSE(isOptimized);
        }
        EXPECT_TRUE(database.Open(false, ""));
        EXPECT_EQ(database.GetTableCount(), 2) << "the object can be used again";
    });
    EXPECT_GE(calls, 12U);
}

} // namespace
