#include "CMyServer.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Bytes(const UtCString& text)
{
    return std::string(text.View());
}

CMyServer FullServer()
{
    CMyServer server;
    server.SetHost("db.example");
    server.SetAlias("Main");
    server.SetPort(3307);
    server.SetUser("me");
    server.SetPassword("secret");
    server.SetCharset("utf8mb4");
    server.SetMySQLProgramDir("C:\\mysql");
    server.SetDataDir("C:\\data");
    return server;
}

TEST(CMyServer, IsConstructedWithTheStandInUserAndOtherwiseEmpty)
{
    const CMyServer server;
    EXPECT_TRUE(server.IsConnectAllowed());
    EXPECT_EQ(Bytes(server.GetHost()), "");
    EXPECT_EQ(Bytes(server.GetAlias()), "");
    EXPECT_EQ(server.GetPort(), 0UL);
    EXPECT_EQ(Bytes(server.GetUser()), "vela_root");
    EXPECT_EQ(server.GetUser().GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_EQ(Bytes(server.GetPassword()), "");
    EXPECT_EQ(Bytes(server.GetCharset()), "");
    EXPECT_EQ(server.GetEncodingType(), UT_ENCODING_DEFAULT);
    EXPECT_EQ(Bytes(server.GetMySQLProgramDir()), "");
    EXPECT_EQ(Bytes(server.GetDataDir()), "");
    EXPECT_EQ(Bytes(server.GetServerINIFileName()), "");
}

TEST(CMyServer, IsNotValidWhenConstructed)
{
    EXPECT_FALSE(CMyServer().IsValid());
}

TEST(CMyServer, IsValidWithHostUserAndPortAlone)
{
    CMyServer server;
    server.SetHost("h");
    server.SetPort(1);
    EXPECT_TRUE(server.IsValid());
}

TEST(CMyServer, IsNotValidWithoutHostOrUserOrPort)
{
    CMyServer noHost = FullServer();
    noHost.SetHost("");
    EXPECT_FALSE(noHost.IsValid());
    CMyServer noUser = FullServer();
    noUser.SetUser("");
    EXPECT_FALSE(noUser.IsValid());
    CMyServer noPort = FullServer();
    noPort.SetPort(0);
    EXPECT_FALSE(noPort.IsValid());
}

TEST(CMyServer, GivesBackWhatIsSet)
{
    const CMyServer server = FullServer();
    EXPECT_EQ(Bytes(server.GetHost()), "db.example");
    EXPECT_EQ(Bytes(server.GetAlias()), "Main");
    EXPECT_EQ(server.GetPort(), 3307UL);
    EXPECT_EQ(Bytes(server.GetUser()), "me");
    EXPECT_EQ(Bytes(server.GetPassword()), "secret");
    EXPECT_EQ(Bytes(server.GetCharset()), "utf8mb4");
}

TEST(CMyServer, TakesAPortOf32Bits)
{
    CMyServer server;
    server.SetPort(4294967295UL);
    EXPECT_EQ(server.GetPort(), 4294967295UL);
}

void ExpectEqualMembers(const CMyServer& server, const CMyServer& expected)
{
    EXPECT_EQ(server.IsConnectAllowed(), expected.IsConnectAllowed());
    EXPECT_EQ(Bytes(server.GetHost()), Bytes(expected.GetHost()));
    EXPECT_EQ(Bytes(server.GetAlias()), Bytes(expected.GetAlias()));
    EXPECT_EQ(server.GetPort(), expected.GetPort());
    EXPECT_EQ(Bytes(server.GetUser()), Bytes(expected.GetUser()));
    EXPECT_EQ(Bytes(server.GetPassword()), Bytes(expected.GetPassword()));
    EXPECT_EQ(Bytes(server.GetCharset()), Bytes(expected.GetCharset()));
    EXPECT_EQ(server.GetEncodingType(), expected.GetEncodingType());
    EXPECT_EQ(Bytes(server.GetMySQLProgramDir()), Bytes(expected.GetMySQLProgramDir()));
    EXPECT_EQ(Bytes(server.GetDataDir()), Bytes(expected.GetDataDir()));
    EXPECT_EQ(Bytes(server.GetServerINIFileName()), Bytes(expected.GetServerINIFileName()));
}

TEST(CMyServer, IsCopiedWithAllMembers)
{
    const CMyServer server = FullServer();
    const CMyServer copy(server);
    ExpectEqualMembers(copy, server);
}

TEST(CMyServer, IsAssignedWithAllMembers)
{
    const CMyServer server = FullServer();
    CMyServer assigned;
    assigned.SetHost("other");
    assigned = server;
    ExpectEqualMembers(assigned, server);
}

TEST(CMyServer, StaysTheSameWhenAssignedToItself)
{
    CMyServer server = FullServer();
    CMyServer& same = server;
    server = same;
    ExpectEqualMembers(server, FullServer());
}

TEST(CMyServer, Kept_K14_IsEqualWhenHostAndPortAre)
{
    const CMyServer server = FullServer();
    CMyServer other;
    other.SetHost("DB.Example");
    other.SetPort(3307);
    EXPECT_TRUE(server == other);
    EXPECT_FALSE(server != other);
}

TEST(CMyServer, IsUnequalWhenHostOrPortIs)
{
    const CMyServer server = FullServer();
    CMyServer otherHost = server;
    otherHost.SetHost("db2.example");
    EXPECT_FALSE(server == otherHost);
    EXPECT_TRUE(server != otherHost);
    CMyServer otherPort = server;
    otherPort.SetPort(3306);
    EXPECT_FALSE(server == otherPort);
    EXPECT_TRUE(server != otherPort);
}

TEST(CMyServer, ComparesHostsAsTextsWhateverTheirEncoding)
{
    CMyServer server;
    server.SetHost(UtCString("M\xC3\x9CLLER", UT_ENCODING_UTF8));
    CMyServer other;
    other.SetHost(UtCString("m\xFCller", UT_ENCODING_DEFAULT));
    EXPECT_TRUE(server == other);
}

struct Charset
{
    const char* name;
    const char* text;
    eUtEncodingType encoding;
};

class SetCharset : public testing::TestWithParam<Charset>
{
};

TEST_P(SetCharset, DerivesTheEncoding)
{
    CMyServer server;
    server.SetCharset("utf8"); // so that "stays 256" is told from "becomes 256"
    server.SetCharset(GetParam().text);
    EXPECT_EQ(server.GetEncodingType(), GetParam().encoding);
    EXPECT_EQ(Bytes(server.GetCharset()), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Charsets, SetCharset,
    testing::Values(Charset{"Utf8mb4", "utf8mb4", UT_ENCODING_UTF8}, Charset{"Utf8", "utf8", UT_ENCODING_UTF8},
                    Charset{"Utf16", "utf16", UT_ENCODING_UTF16_BE}, Charset{"Ucs2", "ucs2", UT_ENCODING_UTF16_BE},
                    Charset{"Utf16le", "utf16le", UT_ENCODING_UTF16_LE},
                    Charset{"Latin1", "latin1", UT_ENCODING_DEFAULT}, Charset{"Utf32", "utf32", UT_ENCODING_DEFAULT},
                    Charset{"Utf8mb3", "utf8mb3", UT_ENCODING_DEFAULT},
                    Charset{"UpperCase", "UTF8", UT_ENCODING_DEFAULT},
                    Charset{"BlankInFront", " utf8", UT_ENCODING_DEFAULT},
                    Charset{"BlankBehind", "utf8 ", UT_ENCODING_DEFAULT}, Charset{"Empty", "", UT_ENCODING_DEFAULT}),
    [](const testing::TestParamInfo<Charset>& row) { return row.param.name; });

struct Directory
{
    const char* name;
    const char* given;
    const char* stored;
    bool result;
};

class SetDirectory : public testing::TestWithParam<Directory>
{
};

TEST_P(SetDirectory, NormalisesTheDataDirectory)
{
    CMyServer server;
    EXPECT_EQ(server.SetDataDir(GetParam().given), GetParam().result);
    EXPECT_EQ(Bytes(server.GetDataDir()), GetParam().stored);
    EXPECT_EQ(Bytes(server.GetMySQLProgramDir()), "");
}

TEST_P(SetDirectory, NormalisesTheProgramDirectory)
{
    CMyServer server;
    EXPECT_EQ(server.SetMySQLProgramDir(GetParam().given), GetParam().result);
    EXPECT_EQ(Bytes(server.GetMySQLProgramDir()), GetParam().stored);
    EXPECT_EQ(Bytes(server.GetDataDir()), "");
}

INSTANTIATE_TEST_SUITE_P(Directories, SetDirectory,
                         testing::Values(Directory{"NoBackslash", "C:\\data", "C:\\data\\", true},
                                         Directory{"OneBackslash", "C:\\data\\", "C:\\data\\", true},
                                         Directory{"BackslashesAndBlanks", "C:\\db\\\\ \\", "C:\\db\\", true},
                                         Directory{"BlankBehind", "C:\\db ", "C:\\db\\", true},
                                         Directory{"BlankInFront", " C:\\db", " C:\\db\\", true},
                                         Directory{"BlankInside", "C:\\my data", "C:\\my data\\", true},
                                         Directory{"Slash", "/var/lib/", "/var/lib/\\", true},
                                         Directory{"OnlyABackslash", "\\", "", false},
                                         Directory{"OnlyBlanks", "  ", "", false},
                                         Directory{"BackslashAndBlank", "\\ \\", "", false}),
                         [](const testing::TestParamInfo<Directory>& row) { return row.param.name; });

TEST(SetDataDir, ComparesWithTheNormalisedValue)
{
    CMyServer server;
    EXPECT_TRUE(server.SetDataDir("C:\\data"));
    EXPECT_TRUE(server.SetDataDir("C:\\data"));
    EXPECT_EQ(Bytes(server.GetDataDir()), "C:\\data\\");
    EXPECT_TRUE(server.SetDataDir("C:\\data\\"));
    EXPECT_EQ(Bytes(server.GetDataDir()), "C:\\data\\");
}

TEST(SetDataDir, TakesItsOwnValue)
{
    CMyServer server = FullServer();
    EXPECT_TRUE(server.SetDataDir(server.GetDataDir()));
    EXPECT_EQ(Bytes(server.GetDataDir()), "C:\\data\\");
}

TEST(SetDataDir, EmptiesTheStoredDirectoryWhenItFails)
{
    CMyServer server = FullServer();
    EXPECT_FALSE(server.SetDataDir(" "));
    EXPECT_EQ(Bytes(server.GetDataDir()), "");
    server = FullServer();
    EXPECT_FALSE(server.SetMySQLProgramDir(""));
    EXPECT_EQ(Bytes(server.GetMySQLProgramDir()), "");
}

TEST(SetDataDir, Kept_K15_IsTrueForAnEmptyPathWhereNoneIsStored)
{
    CMyServer server;
    EXPECT_TRUE(server.SetDataDir(""));
    EXPECT_TRUE(server.SetMySQLProgramDir(""));
    EXPECT_EQ(Bytes(server.GetDataDir()), "");
}

TEST(CMyServer, HasARunTimeClassRecord)
{
    const CMyServer server;
    EXPECT_STREQ(server.GetRuntimeClass()->m_lpszClassName, "CMyServer");
    EXPECT_EQ(server.GetRuntimeClass()->m_wSchema, 0xFFFFU);
    EXPECT_EQ(server.GetRuntimeClass()->m_pfnCreateObject, nullptr);
    EXPECT_EQ(server.GetRuntimeClass(), &CMyServer::classCMyServer);
    EXPECT_TRUE(server.IsKindOf(RUNTIME_CLASS(CObject)));
}

} // namespace
