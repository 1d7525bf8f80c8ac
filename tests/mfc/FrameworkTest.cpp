// The library with the framework's own types, as an MFC application meets it.
#include "mfc/Framework.h"

namespace {

TEST_F(WithFramework, RecordsContinueTheFrameworksChain)
{
    for (CRuntimeClass* const record :
         {RUNTIME_CLASS(CMyServer), RUNTIME_CLASS(CMyDatabase), RUNTIME_CLASS(CMyRecordSet)}) {
        EXPECT_EQ(record->m_wSchema, 0xFFFFU);
        EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(CObject));
    }
    EXPECT_STREQ(RUNTIME_CLASS(CMyDatabase)->m_lpszClassName, "CMyDatabase");
    EXPECT_STREQ(RUNTIME_CLASS(CMyRecordSet)->m_lpszClassName, "CMyRecordSet");
    const CMyServer server;
    EXPECT_STREQ(server.GetRuntimeClass()->m_lpszClassName, "CMyServer");
    EXPECT_TRUE(server.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(server.IsKindOf(RUNTIME_CLASS(CFile)));
}

TEST_F(WithFramework, TheLibraryIsAnExtensionModule)
{
    EXPECT_EQ(Notes().extensionModules, 1);
}

TEST_F(WithFramework, SettingsAreCopiedAlthoughTheirBaseCannotBe)
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

TEST_F(WithFramework, DatesAreMadeOfTheFrameworksDates)
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

// The framework follows the zone rules of the C run-time, which may differ from the system's in past years.
TEST_F(WithFramework, DatesAndTimesHaveTheSameFields)
{
    for (__int64 seconds = 100'000; seconds < 2'140'000'000; seconds += 3'333'333) {
        const CTime time(seconds);
        const CDateTime date(time);
        EXPECT_EQ(date.GetYear() * 10000 + date.GetMonth() * 100 + date.GetDay(),
                  time.GetYear() * 10000 + time.GetMonth() * 100 + time.GetDay())
            << seconds;
        EXPECT_EQ(date.GetHour() * 3600 + date.GetMinute() * 60 + date.GetSecond(),
                  time.GetHour() * 3600 + time.GetMinute() * 60 + time.GetSecond())
            << seconds;
        EXPECT_EQ(CDateTime(seconds).GetValue(), date.GetValue()) << seconds;
        const CTime back(date.GetYear(), date.GetMonth(), date.GetDay(), date.GetHour(), date.GetMinute(),
                         date.GetSecond());
        EXPECT_EQ(date.GetCTime().GetTime(), back.GetTime()) << seconds;
    }
}

TEST_F(WithFramework, ATimeThatTheFrameworkRefusesIsNone)
{
    EXPECT_EQ(CDateTime(CTime(-100'000'000'000)).GetStatus(), CDateTime::invalid);
    Notes().timesFail = true;
    EXPECT_EQ(CDateTime(2024, 3, 5, 14, 7, 9).GetCTime().GetTime(), 0);
}

TEST_F(WithFramework, MessagesAreTheFrameworksBoxes)
{
    CMyServer server;
    const UtCString format("Keine Verbindung: %s %s %s \xFC"); // u with two dots in Windows-1252
    EXPECT_FALSE(server.ConnectApplicationToServer(UtCString("missing.ini"), UtCString(""), format, format));
    EXPECT_EQ(Notes().messageType, 16U);
    EXPECT_EQ(Notes().messageText, L"Keine Verbindung: 0   \u00FC");
}

} // namespace
