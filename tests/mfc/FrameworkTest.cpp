// The library with the framework's own types, as an MFC application meets it.
#include <afxcmn.h>
#include <afxdisp.h>
#include <afxwin.h>
#include <atltime.h>

#include "MyDB.h"
#include "files/UtFile.h"

#include "host/HostServer.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>

namespace {

FrameworkNotes& Notes()
{
    return FrameworkNotes::Get();
}

std::wstring Wide(const UtCString& text)
{
    const UtCString utf16(text, UT_ENCODING_UTF16_LE);
    std::wstring wide(utf16.View().size() / sizeof(wchar_t), L'\0');
    std::memcpy(wide.data(), utf16.View().data(), wide.size() * sizeof(wchar_t));
    return wide;
}

TEST(WithFramework, RecordsContinueTheFrameworksChain)
{
    for (CRuntimeClass* const record :
         {RUNTIME_CLASS(CMyServer), RUNTIME_CLASS(CMyDatabase), RUNTIME_CLASS(CMyRecordSet)}) {
        EXPECT_EQ(record->m_wSchema, 0xFFFFU);
        EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(CObject));
    }
    const CMyServer server;
    EXPECT_STREQ(server.GetRuntimeClass()->m_lpszClassName, "CMyServer");
    EXPECT_TRUE(server.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(server.IsKindOf(RUNTIME_CLASS(CFile)));
}

TEST(WithFramework, TheLibraryIsAnExtensionModule)
{
    EXPECT_EQ(Notes().extensionModules, 1);
}

TEST(WithFramework, SettingsAreCopiedAlthoughTheirBaseCannotBe)
{
    CMyServer server = HostServer();
    server.SetAlias(UtCString("Zentrale"));
    const CMyServer copy(server);
    EXPECT_STREQ(copy.GetAlias().string(), "Zentrale");
    EXPECT_EQ(copy.GetPort(), server.GetPort());
    CMyServer assigned;
    assigned = copy;
    EXPECT_TRUE(assigned == server);
    EXPECT_STREQ(assigned.GetUser().string(), server.GetUser().string());
}

TEST(WithFramework, DatesAreMadeOfTheFrameworksDates)
{
    static_assert(sizeof(CDateTime) == 16 && sizeof(COleDateTime) == 16);
    COleDateTime ole(45356.75);
    EXPECT_EQ(CDateTime(ole).GetYear(), 2024);
    EXPECT_EQ(CDateTime(ole).GetHour(), 18);
    ole.SetStatus(COleDateTime::null);
    EXPECT_EQ(CDateTime(ole).GetStatus(), CDateTime::null);
    CDateTime copied;
    std::memcpy(static_cast<void*>(&copied), &ole, sizeof ole);
    EXPECT_EQ(copied.GetValue(), 45356.75);

    const CDateTime fromTime(CTime(2024, 3, 5, 14, 7, 9));
    EXPECT_EQ(fromTime.GetDay(), 5);
    EXPECT_EQ(fromTime.GetSecond(), 9);
    EXPECT_EQ(fromTime.GetCTime().GetTime(), CTime(2024, 3, 5, 14, 7, 9).GetTime());

    VARIANT variant = {};
    variant.vt = VT_I4;
    variant.lVal = 45356;
    EXPECT_EQ(CDateTime(variant).GetMonth(), 3);
}

TEST(WithFramework, MessagesAreTheFrameworksBoxes)
{
    CMyServer server;
    const UtCString format("Keine Verbindung: %s %s %s \xFC"); // u with two dots in Windows-1252
    EXPECT_FALSE(server.ConnectApplicationToServer(UtCString("missing.ini"), UtCString(""), format, format));
    EXPECT_EQ(Notes().messageType, 16U);
    EXPECT_EQ(Notes().messageText, L"Keine Verbindung: 0   \u00FC");
}

/// With the folder of its files, which a copy of a database needs.
CMyServer LocalServer()
{
    CMyServer server = HostServer();
    const char* const folder = std::getenv("MYDB_DATA_DIR");
    server.SetDataDir(UtCString(folder ? folder : ""));
    return server;
}

class OnServer : public testing::Test
{
protected:
    OnServer()
    {
        Run("DROP DATABASE IF EXISTS vela_mfc");
        Run("CREATE DATABASE vela_mfc");
        EXPECT_TRUE(m_database.Open(false, UtCString("vela_mfc")));
        Run("CREATE TABLE T (ID INT PRIMARY KEY, B BLOB) ENGINE=MyISAM");
        std::string rows = "INSERT INTO T VALUES (0, 'bytes')";
        for (int id = 1; id < 500; ++id)
            rows += ",(" + std::to_string(id) + ",'x')";
        Run(rows);
    }
    ~OnServer() override { Run("DROP DATABASE vela_mfc"); }

    void Run(const std::string& sql)
    {
        EXPECT_GE(m_administrator.ExecuteQuery(UtCString(sql.c_str()), false, nullptr, false), 0) << sql;
        if (sql.starts_with("CREATE DATABASE"))
            m_administrator.Open(false, UtCString("vela_mfc"));
    }

    CMyDatabase m_administrator{HostServer(), UtCString("information_schema")};
    CMyDatabase m_database{LocalServer(), UtCString("vela_mfc")};
};

TEST_F(OnServer, ADumpMovesTheFrameworksBarAndWritesItsFile)
{
    CProgressCtrl bar;
    bar.SetRange32(0, 500);
    const UtCString file = UtGetTempDir() + UtCString("mydb_mfc_\xFC.txt");
    EXPECT_EQ(m_database.DumpTable(file, UtCString("T"), false, UtCString("SELECT ID FROM T ORDER BY ID"),
                                   UtCString(";"), UtCString(""), UtCString("\n"), &bar),
              500);
    EXPECT_EQ(bar.GetPos(), 500);
    EXPECT_EQ(UtIsFile(file), 1);
    EXPECT_EQ(m_database.DumpTable(UtCString("no\\such\\folder"), UtCString("T"), false, UtCString(""), UtCString(";"),
                                   UtCString(""), UtCString("\n"), &bar),
              -1);
    EXPECT_TRUE(DeleteFileW(Wide(file).c_str()));
}

TEST_F(OnServer, BytesArriveInTheFrameworksArray)
{
    CMyRecordSet rows(m_database, UtCString("T"));
    ASSERT_EQ(rows.Select(UtCString("WHERE ID=0")), 1);
    CByteArray bytes;
    ASSERT_TRUE(rows.GetFieldBlob(UtCString("B"), bytes));
    ASSERT_EQ(bytes.GetSize(), 5);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(bytes.GetData()), 5), "bytes");
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
