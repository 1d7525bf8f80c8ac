// A host application as the library meets it: another program with classes, exceptions and memory of its own, which is
// linked to the shared library alone. Needs MYDB_SERVER=host:port, MYDB_USER and MYDB_PASSWORD.
#include "MyDB.h"
#include "text/UtMemory.h"

#include "host/HostServer.h"

#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// Overrides what a host may override, and notes each call that arrives.
class HostDatabase : public CMyDatabase
{
    DECLARE_DYNAMIC(HostDatabase)
public:
    HostDatabase() : CMyDatabase(HostServer(), UtCString("information_schema")) {}

    bool Close() override
    {
        m_calls.push_back("Close");
        return CMyDatabase::Close();
    }
    bool Open(bool interactive, const UtCString& databaseName) override
    {
        m_calls.push_back(std::string(interactive ? "Open interactive " : "Open ") + databaseName.string());
        return !m_refuses && CMyDatabase::Open(interactive, databaseName);
    }
    bool CheckAndRepairDatabaseIntegrity(bool askUser) override
    {
        m_calls.push_back(askUser ? "Check and ask" : "Check");
        return true;
    }

    std::vector<std::string> TakeCalls() { return std::move(m_calls); }
    void Refuse() { m_refuses = true; }

private:
    std::vector<std::string> m_calls;
    bool m_refuses = false;
};
IMPLEMENT_DYNAMIC(HostDatabase, CMyDatabase)

class HostRecordSet : public CMyRecordSet
{
public:
    explicit HostRecordSet(CMyDatabase& database) : CMyRecordSet(database, UtCString("T")) {}
    bool ModifyEnd() override { return m_isModified = true; }
    bool AppendEnd() override { return m_isAppended = true; }

    bool m_isModified = false;
    bool m_isAppended = false;
};

class ThrowingInterface : public MyDbUserInterface
{
public:
    ThrowingInterface() : m_previous(MyDbSetUserInterface(this)) {}
    ~ThrowingInterface() override { MyDbSetUserInterface(m_previous); }
    int ShowMessage(const UtCString&, unsigned int) override
    {
        ++m_messages;
        throw std::runtime_error("the host's own");
    }
    void BeginWait() override {}
    void EndWait() override {}

    int m_messages = 0;

private:
    MyDbUserInterface* m_previous;
};

using Calls = std::vector<std::string>;

TEST(Boundary, RecordsOfTheLibraryHaveTheirNamesAndBases)
{
    for (CRuntimeClass* const record :
         {RUNTIME_CLASS(CMyServer), RUNTIME_CLASS(CMyDatabase), RUNTIME_CLASS(CMyRecordSet)}) {
        EXPECT_EQ(record->m_wSchema, 0xFFFFU);
        EXPECT_EQ(record->m_pfnCreateObject, nullptr);
        EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(CObject));
    }
    EXPECT_STREQ(RUNTIME_CLASS(CMyServer)->m_lpszClassName, "CMyServer");
    EXPECT_STREQ(RUNTIME_CLASS(CMyDatabase)->m_lpszClassName, "CMyDatabase");
    EXPECT_STREQ(RUNTIME_CLASS(CMyRecordSet)->m_lpszClassName, "CMyRecordSet");
    EXPECT_EQ(RUNTIME_CLASS(CMyDatabase)->m_nObjectSize, static_cast<int>(sizeof(CMyDatabase)));
}

TEST(Boundary, RecordsAreTheSameOnBothSides)
{
    const CMyServer server;
    EXPECT_EQ(server.GetRuntimeClass(), RUNTIME_CLASS(CMyServer));
    EXPECT_EQ(server.GetRuntimeClass(), &CMyServer::classCMyServer);
    EXPECT_TRUE(server.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(server.IsKindOf(RUNTIME_CLASS(CMyDatabase)));
}

TEST(Boundary, AHostClassContinuesTheChainOfRecords)
{
    const HostDatabase database;
    EXPECT_STREQ(database.GetRuntimeClass()->m_lpszClassName, "HostDatabase");
    EXPECT_TRUE(database.IsKindOf(RUNTIME_CLASS(HostDatabase)));
    EXPECT_TRUE(database.IsKindOf(RUNTIME_CLASS(CMyDatabase)));
    EXPECT_TRUE(database.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(database.IsKindOf(RUNTIME_CLASS(CMyRecordSet)));
}

TEST(Boundary, AStatementOpensThroughTheHostsClass)
{
    HostDatabase database;
    database.Refuse();
    EXPECT_EQ(database.ExecuteQuery(UtCString("SELECT 1"), false, nullptr, false), -1);
    EXPECT_EQ(database.TakeCalls(), Calls({"Open "}));
}

TEST(Boundary, AnInteractiveOpenClosesAndChecksThroughTheHostsClass)
{
    HostDatabase database;
    ASSERT_TRUE(database.Open(true, UtCString("information_schema"))) << database.GetErrorMessage().string();
    EXPECT_EQ(database.TakeCalls(), Calls({"Open interactive information_schema", "Close", "Check and ask"}));
}

TEST(Boundary, ARecordSetOfTheHostIsReachedThroughItsBase)
{
    HostDatabase database;
    HostRecordSet rows(database);
    CMyRecordSet& base = rows;
    EXPECT_TRUE(base.ModifyEnd());
    EXPECT_TRUE(rows.m_isModified);
    EXPECT_FALSE(rows.m_isAppended);
    EXPECT_TRUE(base.AppendEnd());
    EXPECT_TRUE(rows.m_isAppended);
}

TEST(Boundary, AnExceptionOfTheHostDoesNotComeBack)
{
    ThrowingInterface interface;
    CMyServer server;
    const UtCString format("%s %s %s");
    EXPECT_FALSE(server.ConnectApplicationToServer(UtCString("missing.ini"), UtCString(""), format, format));
    EXPECT_EQ(interface.m_messages, 1);
    try {
        throw std::runtime_error("and the host's own exceptions still work");
    } catch (const std::exception& caught) {
        EXPECT_STREQ(caught.what(), "and the host's own exceptions still work");
    }
}

TEST(Boundary, ADateHasSixteenBytesOnBothSides)
{
    static_assert(sizeof(CDateTime) == 16 && sizeof(COleDateTime) == 16);
    CDateTime dates[2] = {CDateTime(2024, 3, 5, 18, 0, 0), CDateTime(2024, 2, 30, 0, 0, 0)};
    double value = 0;
    int status = -1;
    std::memcpy(&value, &dates[0], sizeof value);
    std::memcpy(&status, reinterpret_cast<const char*>(&dates[0]) + 8, sizeof status);
    EXPECT_EQ(value, 45356.75);
    EXPECT_EQ(status, 0);
    std::memcpy(&status, reinterpret_cast<const char*>(&dates[1]) + 8, sizeof status);
    EXPECT_EQ(status, 1);
    const COleDateTime ole(2024, 3, 5, 18, 0, 0);
    std::memcpy(static_cast<void*>(&dates[1]), &ole, sizeof ole);
    EXPECT_EQ(dates[1].GetYear(), 2024);
    EXPECT_EQ(dates[1].GetHour(), 18);
}

TEST(Boundary, ADateOfARowComesByValue)
{
    HostDatabase database;
    CMyRecordSet rows(database, UtCString("T"));
    ASSERT_EQ(rows.Select(UtCString("SELECT TIMESTAMP'2024-03-05 18:00:00' AS D"), false, false), 1);
    const CDateTime date = rows.GetFieldDate(UtCString("D"));
    EXPECT_EQ(date.GetYear(), 2024);
    EXPECT_EQ(date.GetHour(), 18);
}

TEST(Boundary, MemoryMayBeMadeOnOneSideAndReleasedOnTheOther)
{
    UtCStringList list;
    for (int number = 0; number < 1000; ++number)
        list.AddList({UtCString(std::string(static_cast<size_t>(number), 'x').c_str())});
    std::vector<UtCString> copies;
    for (int position = 0; position < 1000; ++position)
        copies.push_back(list.item(position));
    UtCString text = copies[999];
    text += UtCString("y");
    EXPECT_EQ(std::string_view(text.string()).size(), 1000U);
    void* const block = UtAllocMemoryBlock(100);
    std::memset(block, 1, 100);
    UtFreeMemory(block);
}

} // namespace
