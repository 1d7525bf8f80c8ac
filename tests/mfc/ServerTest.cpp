#include "mfc/OnServer.h"

namespace {

constexpr _GUID sample = {0x6b29fc40, 0xca47, 0x1067, {0xb3, 0x1d, 0x00, 0xdd, 0x01, 0x06, 0x62, 0xda}};

/// A class of the host, which puts its own steps in front of the library's.
class HostDatabase : public CMyDatabase
{
    DECLARE_DYNAMIC(HostDatabase)
public:
    HostDatabase() : CMyDatabase(HostServer(), UtCString("information_schema")) {}

    bool Open(bool interactive, const UtCString& databaseName) override
    {
        ++m_opens;
        return CMyDatabase::Open(interactive, databaseName);
    }

    int m_opens = 0;
};
IMPLEMENT_DYNAMIC(HostDatabase, CMyDatabase)

TEST_F(WithFramework, AClassOfTheHostOverridesOpen)
{
    HostDatabase database;
    EXPECT_STREQ(database.GetRuntimeClass()->m_lpszClassName, "HostDatabase");
    EXPECT_TRUE(database.IsKindOf(RUNTIME_CLASS(CMyDatabase)));
    EXPECT_GE(database.ExecuteQuery(UtCString("SELECT 1"), false, nullptr, false), 0);
    EXPECT_EQ(database.m_opens, 1) << "a closed connection is opened by the statement";
}

TEST_F(OnServer, BytesTravelInTheFrameworksArray)
{
    CMyRecordSet rows(m_database, UtCString("T"));
    ASSERT_EQ(rows.Select(UtCString("WHERE ID=0")), 1);
    CByteArray bytes;
    ASSERT_TRUE(rows.GetFieldBlob(UtCString("B"), bytes));
    ASSERT_EQ(bytes.GetSize(), 5);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(bytes.GetData()), 5), "bytes");

    bytes.SetSize(4);
    std::memcpy(bytes.GetData(), "\0\xFF'\\", 4);
    ASSERT_TRUE(rows.ModifyStart(UtCString("ID=0")));
    EXPECT_TRUE(rows.SetFieldBlob(UtCString("B"), bytes));
    EXPECT_TRUE(rows.ModifyEnd());
    ASSERT_EQ(rows.Select(UtCString("WHERE ID=0")), 1);
    CByteArray read;
    ASSERT_TRUE(rows.GetFieldBlob(UtCString("B"), read));
    ASSERT_EQ(read.GetSize(), 4);
    EXPECT_EQ(std::memcmp(read.GetData(), "\0\xFF'\\", 4), 0);
}

TEST_F(OnServer, NoBytesAreAnEmptyArray)
{
    CMyRecordSet rows(m_database, UtCString("T"));
    ASSERT_EQ(rows.Select(UtCString("WHERE ID=1")), 1);
    CByteArray bytes;
    bytes.SetSize(7);
    EXPECT_TRUE(rows.GetFieldBlob(UtCString("B"), bytes));
    EXPECT_EQ(bytes.GetSize(), 0);
}

TEST_F(OnServer, AGuidComesBack)
{
    CMyRecordSet rows(m_database, UtCString("T"));
    ASSERT_EQ(rows.Select(UtCString("WHERE ID=2")), 1);
    ASSERT_TRUE(rows.ModifyStart(UtCString("ID=2")));
    EXPECT_TRUE(rows.SetFieldGUID(UtCString("G"), sample));
    EXPECT_TRUE(rows.ModifyEnd());
    ASSERT_EQ(rows.Select(UtCString("WHERE ID=2")), 1);
    UtCString text;
    EXPECT_TRUE(rows.GetFieldText(UtCString("G"), text));
    EXPECT_STREQ(text.string(), "{6b29fc40-ca47-1067-b31d-00dd010662da}");
    EXPECT_TRUE(rows.GetFieldGUID(UtCString("G")) == sample);
}

TEST_F(OnServer, AQuestionIsTheFrameworksAndYesRepairs)
{
    EXPECT_FALSE(m_database.CheckAndRepairDatabaseIntegrity(true)) << "answered OK";
    EXPECT_EQ(Notes().messageType, 36U);
    EXPECT_NE(Notes().messageText, L"");
    Notes().answer = IDYES;
    Notes().messageType = 0;
    EXPECT_TRUE(m_database.CheckAndRepairDatabaseIntegrity(true));
    EXPECT_EQ(Notes().messageType, 36U);
    Notes().answer = 0; // no box could be shown
    EXPECT_FALSE(m_database.CheckAndRepairDatabaseIntegrity(true));
}

TEST_F(OnServer, AnErrorIsTheFrameworksBox)
{
    EXPECT_EQ(m_database.ExecuteQuery(UtCString("SELECT * FROM missing"), true, nullptr, false), -1);
    EXPECT_EQ(Notes().messageType, 16U);
    EXPECT_NE(Notes().messageText.find(L"SELECT * FROM missing"), std::wstring::npos);
}

TEST_F(OnServer, ACopyShowsTheFrameworksWaitCursor)
{
    CWinApp application;
    Run("DROP DATABASE IF EXISTS vela_mfc_copy");
    Run("CREATE DATABASE vela_mfc_copy");
    CMyDatabase target(LocalServer(), UtCString("vela_mfc_copy"));
    ASSERT_TRUE(target.Open(false, UtCString("vela_mfc_copy")));
    Run("DROP DATABASE vela_mfc_copy");
    EXPECT_TRUE(m_database.CopyDatabase(target, nullptr)) << m_database.GetErrorMessage().string();
    EXPECT_EQ(Notes().waitBegins, 1);
    EXPECT_EQ(Notes().waitEnds, 1);
    Run("DROP DATABASE vela_mfc_copy");
}

} // namespace
