#include "RecordSetFixture.h"

#include "MyDbFunctions.h"

namespace {

using fake::Reply;
using recordset_test::Bytes;
using recordset_test::CountedRows;
using recordset_test::OpenRecordSet;
using recordset_test::Server;

using RecordSetBinding = recordset_test::RecordSetFixture;

/// A connection that counts what is called through its virtual slots.
class CountingDatabase : public CMyDatabase
{
public:
    using CMyDatabase::CMyDatabase;
    bool Close() override
    {
        ++closes;
        return CMyDatabase::Close();
    }
    bool Open(bool interactive, const UtCString& databaseName) override
    {
        ++opens;
        lastInteractive = interactive;
        lastName = databaseName;
        return pretendOpen || CMyDatabase::Open(interactive, databaseName);
    }

    int closes = 0;
    int opens = 0;
    bool lastInteractive = true;
    bool pretendOpen = false;
    UtCString lastName{"?"};
};

void ExpectEmpty(const OpenRecordSet& records)
{
    EXPECT_EQ(records.GetDatabase(), nullptr);
    EXPECT_EQ(records.GetDB(), nullptr);
    EXPECT_FALSE(records.IsValid());
    EXPECT_FALSE(records.IsOpen());
    EXPECT_TRUE(records.IsEOF());
    EXPECT_FALSE(records.GetCloseConnectionOnExit());
    EXPECT_EQ(records.GetLastSQLCommand(), "");
    EXPECT_EQ(records.GetQueryTime(), 0U);
    EXPECT_EQ(records.GetAffectedRows(), 0);
    EXPECT_EQ(records.GetQueryInfo(), "");
    EXPECT_EQ(records.GetFieldCount(), 0U);
    EXPECT_EQ(records.GetTableName(), "");
    EXPECT_EQ(records.GetDatabaseName(), "");
    EXPECT_EQ(records.GetErrorMessage(), "");
    EXPECT_EQ(records.GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_EQ(records.GetModifyState(), MODIFY_NONE);
    EXPECT_FALSE(records.IsFieldHashLoaded());
}

TEST_F(RecordSetBinding, IsEmptyAfterTheDefaultConstructor)
{
    OpenRecordSet records;
    ExpectEmpty(records);
    EXPECT_EQ(records.GetCurrentRow(), -1);
}

TEST_F(RecordSetBinding, CarriesTheRunTimeClassOfARecordSet)
{
    const CMyRecordSet records;
    EXPECT_STREQ(CMyRecordSet::GetThisClass()->m_lpszClassName, "CMyRecordSet");
    EXPECT_EQ(records.GetRuntimeClass(), CMyRecordSet::GetThisClass());
    EXPECT_EQ(CMyRecordSet::GetThisClass()->m_nObjectSize, int(sizeof(CMyRecordSet)));
    EXPECT_TRUE(records.IsKindOf(CObject::GetThisClass()));
}

TEST_F(RecordSetBinding, TheConstructorsBindAlike)
{
    const CMyRecordSet byReference(m_database, "`orders`");
    const CMyRecordSet byPointer(&m_database, "`orders`");
    for (const CMyRecordSet* records : {&byReference, &byPointer}) {
        EXPECT_EQ(records->GetDatabase(), &m_database);
        EXPECT_TRUE(records->IsValid());
        EXPECT_EQ(records->GetTableName(), "orders");
        EXPECT_EQ(records->GetDatabaseName(), "shop");
        EXPECT_FALSE(records->IsOpen());
        EXPECT_EQ(records->GetLastSQLCommand(), "");
    }
    EXPECT_TRUE(m_client.Statements().empty());
}

TEST_F(RecordSetBinding, TheConstructorWithANullConnectionLeavesItUnbound)
{
    const OpenRecordSet records(nullptr, "orders");
    ExpectEmpty(records);
}

TEST_F(RecordSetBinding, SetDatabaseOpensAClosedConnectionThroughItsVirtualOpen)
{
    CountingDatabase database(Server(), "shop");
    CMyRecordSet records;
    EXPECT_TRUE(records.SetDatabase(&database, "orders"));
    EXPECT_EQ(database.opens, 1);
    EXPECT_FALSE(database.lastInteractive);
    EXPECT_EQ(database.lastName, "");
    EXPECT_TRUE(database.IsOpen());
}

TEST_F(RecordSetBinding, SetDatabaseLeavesAnOpenConnectionAlone)
{
    CountingDatabase database(Server(), "shop");
    ASSERT_TRUE(database.Open(false, ""));
    database.opens = 0;
    CMyRecordSet records;
    EXPECT_TRUE(records.SetDatabase(&database, "orders"));
    EXPECT_EQ(database.opens, 0);
}

TEST_F(RecordSetBinding, SetDatabaseAcceptsAConnectionWithoutDatabaseThatHasAHandle)
{
    CountingDatabase database(Server(), "");
    ASSERT_TRUE(database.Open(false, ""));
    database.opens = 0;
    CMyRecordSet records;
    EXPECT_TRUE(records.SetDatabase(&database, "orders"));
    EXPECT_EQ(database.opens, 1); // it says false, as there is no database, but there is a handle
    EXPECT_EQ(records.GetTableName(), "orders");
}

TEST_F(RecordSetBinding, SetDatabaseIsFalseWhenTheConnectionCannotBeOpened)
{
    m_client.FailAlways(fake::Call::Connect, 2002);
    CMyDatabase database(Server(), "shop");
    CMyRecordSet records(m_database, "before");
    EXPECT_FALSE(records.SetDatabase(&database, "orders"));
    EXPECT_EQ(records.GetDatabase(), &database);
    EXPECT_EQ(records.GetTableName(), "before");
}

TEST_F(RecordSetBinding, SetDatabaseBelievesADerivedConnectionThatSaysItIsOpen)
{
    CountingDatabase database(Server(), "shop");
    database.pretendOpen = true;
    CMyRecordSet records;
    EXPECT_TRUE(records.SetDatabase(&database, "orders"));
    EXPECT_EQ(records.GetTableName(), "orders");
    EXPECT_EQ(records.Select(""), -1);
}

TEST_F(RecordSetBinding, SetDatabaseWithNullUnbindsAndKeepsTheTable)
{
    CMyRecordSet records(m_database, "orders");
    EXPECT_FALSE(records.SetDatabase(nullptr, "other"));
    EXPECT_EQ(records.GetDatabase(), nullptr);
    EXPECT_EQ(records.GetTableName(), "orders");
}

TEST_F(RecordSetBinding, SetDatabaseWithAnEmptyTableNameKeepsTheTable)
{
    CMyRecordSet records(m_database, "orders");
    EXPECT_TRUE(records.SetDatabase(&m_database, ""));
    EXPECT_EQ(records.GetTableName(), "orders");
}

TEST_F(RecordSetBinding, SetDatabaseFreesTheResult)
{
    m_client.OnPrefix("SELECT", CountedRows(2));
    CMyRecordSet records(m_database, "orders");
    ASSERT_EQ(records.Select(""), 2);
    EXPECT_TRUE(records.SetDatabase(&m_database, ""));
    EXPECT_FALSE(records.IsOpen());
    EXPECT_EQ(m_client.ResultsOpened(), m_client.ResultsClosed());
}

TEST_F(RecordSetBinding, SetDatabaseFreesTheResultAlsoWhenItFails)
{
    m_client.OnPrefix("SELECT", CountedRows(2));
    CMyRecordSet records(m_database, "orders");
    ASSERT_EQ(records.Select(""), 2);
    EXPECT_FALSE(records.SetDatabase(nullptr, ""));
    EXPECT_FALSE(records.IsOpen());
    EXPECT_TRUE(records.IsEOF());

    ASSERT_TRUE(records.SetDatabase(&m_database, ""));
    ASSERT_EQ(records.Select(""), 2);
    CMyDatabase unreachable(Server(), "shop");
    m_client.FailAlways(fake::Call::Connect, 2002);
    EXPECT_FALSE(records.SetDatabase(&unreachable, ""));
    EXPECT_FALSE(records.IsOpen());
    EXPECT_EQ(m_client.ResultsOpened(), m_client.ResultsClosed());
}

struct NameRow
{
    const char* name;
    const char* given;
    const char* kept;
};

TEST_F(RecordSetBinding, SetTableNameRemovesBackticksAtBothEndsOnly)
{
    const NameRow rows[] = {{"plain", "orders", "orders"},       {"quoted", "`orders`", "orders"},
                            {"left only", "`orders", "orders"},  {"several", "```orders``", "orders"},
                            {"within", "`a`.`b`", "a`.`b"},      {"blanks", " orders ", " orders "},
                            {"blank outside", " `o` ", " `o` "}, {"only backticks", "``", ""}};
    CMyRecordSet records;
    for (const NameRow& row : rows) {
        records.SetTableName(row.given);
        EXPECT_EQ(records.GetTableName(), row.kept) << row.name;
    }
}

TEST_F(RecordSetBinding, SetTableNameTakesTheRecordSetsOwnName)
{
    CMyRecordSet records(m_database, "orders");
    records.SetTableName(records.GetTableName());
    EXPECT_EQ(records.GetTableName(), "orders");
}

TEST_F(RecordSetBinding, SetTableNameKeepsTheResult)
{
    m_client.OnPrefix("SELECT", CountedRows(2));
    CMyRecordSet records(m_database, "orders");
    ASSERT_EQ(records.Select(""), 2);
    records.SetTableName("other");
    EXPECT_TRUE(records.IsOpen());
    EXPECT_FALSE(records.IsEOF());
}

TEST_F(RecordSetBinding, TheConnectionStaysOpenWhenTheRecordSetGoes)
{
    CountingDatabase database(Server(), "shop");
    {
        CMyRecordSet records(database, "orders");
        database.closes = 0;
    }
    EXPECT_EQ(database.closes, 0);
    EXPECT_TRUE(database.IsOpen());
}

TEST_F(RecordSetBinding, TheConnectionIsClosedThroughItsVirtualCloseWhenAskedFor)
{
    CountingDatabase database(Server(), "shop");
    {
        CMyRecordSet records(database, "orders");
        database.closes = 0;
        records.SetCloseConnectionOnExit(true);
        EXPECT_TRUE(records.GetCloseConnectionOnExit());
    }
    EXPECT_EQ(database.closes, 1);
    EXPECT_FALSE(database.IsConnected());
}

TEST_F(RecordSetBinding, TheResultIsFreedBeforeTheConnectionIsClosed)
{
    m_client.OnPrefix("SELECT", CountedRows(2));
    {
        CMyRecordSet records(m_database, "orders");
        records.SetCloseConnectionOnExit(true);
        ASSERT_EQ(records.Select(""), 2);
        m_client.ForgetCalls();
    }
    EXPECT_EQ(m_client.CallNames(), (std::vector<std::string>{"mysql_free_result", "mysql_close"}));
}

TEST_F(RecordSetBinding, ClosingOnExitWithoutAConnectionDoesNothing)
{
    CMyRecordSet records;
    records.SetCloseConnectionOnExit(true);
}

TEST_F(RecordSetBinding, InitMembersGoesBackToTheEmptyState)
{
    m_client.OnPrefix("SELECT", CountedRows(2));
    OpenRecordSet records(m_database, "orders");
    records.SetCloseConnectionOnExit(true);
    ASSERT_EQ(records.Select(""), 2);
    records.InitMembers();
    ExpectEmpty(records);
    EXPECT_EQ(m_client.ResultsOpened(), m_client.ResultsClosed());
}

TEST_F(RecordSetBinding, IsValidTableAsksTheDatabase)
{
    m_client.On("SHOW TABLES FROM shop LIKE 'ORDERS'", Reply::Rows({"T"}, {{"orders"}}));
    EXPECT_TRUE(CMyRecordSet(m_database, "orders").IsValidTable());
    EXPECT_FALSE(CMyRecordSet(m_database, "others").IsValidTable());
    EXPECT_FALSE(CMyRecordSet(m_database, "").IsValidTable());
    EXPECT_FALSE(CMyRecordSet().IsValidTable());
}

TEST_F(RecordSetBinding, IsValidTableAsksTheBoundConnectionAlsoWhileAStreamIsRead)
{
    m_client.On("SHOW TABLES FROM shop LIKE 'ORDERS'", Reply::Rows({"T"}, {{"orders"}}));
    m_client.On("SELECT s", CountedRows(3));
    CMyRecordSet records(m_database, "orders");
    ASSERT_TRUE(records.SelectLargeResult("SELECT s"));
    EXPECT_TRUE(records.IsValidTable());
    EXPECT_TRUE(records.MoveNext());
}

TEST_F(RecordSetBinding, TheEncodingIsThatOfTheConnectionsSettings)
{
    const std::pair<const char*, eUtEncodingType> rows[] = {{"", UT_ENCODING_DEFAULT},
                                                            {"latin1", UT_ENCODING_DEFAULT},
                                                            {"utf8mb4", UT_ENCODING_UTF8},
                                                            {"utf16", UT_ENCODING_UTF16_BE},
                                                            {"utf16le", UT_ENCODING_UTF16_LE}};
    for (const auto& [charset, encoding] : rows) {
        CMyDatabase database(Server(charset), "shop");
        EXPECT_EQ(OpenRecordSet(database, "").GetEncodingType(), encoding) << charset;
    }
}

// ---- GetErrorMessage ------------------------------------------------------------------------------------------------

TEST_F(RecordSetBinding, TheErrorMessageIsTheOneThatTheConnectionKeeps)
{
    m_client.OnPrefix("SELECT", Reply::Error(1146, "Table 'shop.orders' doesn't exist"));
    CMyRecordSet records(m_database, "orders");
    EXPECT_EQ(records.Select(""), -1);
    EXPECT_EQ(records.GetErrorMessage(), "1146: Table 'shop.orders' doesn't exist");
}

TEST_F(RecordSetBinding, TheErrorMessageOfAConnectionWithoutErrorIsKeinFehler)
{
    EXPECT_EQ(CMyRecordSet(m_database, "orders").GetErrorMessage(), "Kein Fehler!");
}

TEST_F(RecordSetBinding, TheErrorMessageDescribesTheHandleWhereTheConnectionRecordedNoNumber)
{
    CMyDatabase database(Server(), "shop");
    CMyRecordSet records(database, "orders");
    database.Close();
    MyDbSetMaxTryConnect(0);
    EXPECT_EQ(records.Select(""), -1);
    MyDbSetMaxTryConnect(4294967295U);
    EXPECT_EQ(database.GetErrorMessage(), "Kein Fehler!"); // no connect was tried
    EXPECT_EQ(records.GetErrorMessage(), "Keine Verbindung zum Server!");
}

TEST_F(RecordSetBinding, TheErrorMessageOfAClosedConnectionSaysSo)
{
    CMyRecordSet records(m_database, "orders");
    m_database.Close();
    EXPECT_EQ(records.GetErrorMessage(), "Keine Verbindung zum Server!");
}

} // namespace
