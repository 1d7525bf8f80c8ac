#include "CMyServer.h"

#include "IniFolder.h"
#include "harness/GeneratedIni.h"

#include <gtest/gtest.h>

#include <vector>

#include <unistd.h>

namespace {

using harness::GeneratedIni;
using harness::IniKind;
using harness::IniRandom;
using harness::IniSettings;

void ExpectLoaded(const std::string& path, const IniSettings& expected)
{
    const std::string port = std::to_string(expected.port);
    CMyServer server;
    const bool isValid = !expected.host.empty() && !expected.user.empty() && expected.port != 0;
    EXPECT_EQ(server.LoadServerINI(path.c_str()), isValid);
    EXPECT_EQ(server.GetHost().View(), expected.host);
    EXPECT_EQ(server.GetUser().View(), expected.user);
    EXPECT_EQ(server.GetMySQLProgramDir().View(), expected.programDirectory);
    EXPECT_EQ(server.GetPort(), expected.port);
    EXPECT_EQ(server.GetAlias().View(), expected.host + "::" + port);
    EXPECT_EQ(server.GetServerINIFileName().View(), path);
}

class GeneratedServerIni : public testing::TestWithParam<IniKind>
{
};

TEST_P(GeneratedServerIni, GivesItsDefinedResult)
{
    const IniFolder folder;
    IniRandom random(20240229);
    for (int index = 0; index < GetParam().count; ++index) {
        const GeneratedIni file = GetParam().generate(random);
        ExpectLoaded(folder.Write(file.bytes), file.expected);
        ASSERT_FALSE(HasFailure()) << "file " << index << ": " << testing::PrintToString(file.bytes.substr(0, 2000));
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, GeneratedServerIni,
                         testing::ValuesIn(harness::IniKinds().begin(), harness::IniKinds().end()),
                         [](const auto& row) { return row.param.name; });

std::string RandomIniName(IniRandom& random)
{
    return "it's \"" + harness::RandomCase(random, "settings") + "\" " + std::to_string(random()) +
           harness::RandomCase(random, ".ini");
}

TEST(UnusableServerIni, AFolderInPlaceOfTheFileIsNoFile)
{
    const IniFolder folder;
    IniRandom random(20240229);
    for (int index = 0; index < 50; ++index) {
        const std::string path = folder.PathOf(RandomIniName(random));
        std::filesystem::create_directory(path);
        CMyServer server;
        ASSERT_FALSE(server.LoadServerINI(path.c_str())) << path;
        ASSERT_TRUE(server.GetHost().IsEmpty() && server.GetUser().IsEmpty() && server.GetAlias().IsEmpty()) << path;
        ASSERT_TRUE(server.GetServerINIFileName().IsEmpty()) << path;
    }
}

TEST(UnusableServerIni, AFileThatCannotBeReadGivesTheDefaults)
{
    const IniFolder folder;
    IniRandom random(20240229);
    std::vector<std::string> paths;
    for (int index = 0; index < 50; ++index) {
        paths.push_back(folder.Write(harness::WellFormedIni(random).bytes, RandomIniName(random)));
        std::filesystem::permissions(paths.back(), std::filesystem::perms::none);
    }
    const bool isRoot = geteuid() == 0; // whom the permissions do not stop
    ASSERT_TRUE(!isRoot || seteuid(65534) == 0);
    for (const std::string& path : paths)
        ExpectLoaded(path, {});
    ASSERT_TRUE(!isRoot || seteuid(0) == 0);
}

TEST(HugeServerIni, ALineOfTenMegabytesIsRead)
{
    const IniFolder folder;
    const std::string filler(10'000'000, 'x');
    const IniSettings expected{"db", "kim", "", 3306};
    const std::string entries = "\n[SQL-Server]\nServer=db\nPort=3306\nUser=kim\n";
    ExpectLoaded(folder.Write(filler + entries), expected);
    ExpectLoaded(folder.Write("[" + filler + "]" + entries), expected);
    ExpectLoaded(folder.Write(entries + "ServerDir=\"" + filler + "\"\n"), {"db", "kim", std::string(255, 'x'), 3306});
}

TEST(HugeServerIni, AHundredThousandSectionsAreRead)
{
    const IniFolder folder;
    std::string bytes;
    for (int index = 0; index < 100'000; ++index)
        bytes += "[Section" + std::to_string(index) + "]\r\nPort=1\r\nServer=wrong\r\n";
    ExpectLoaded(folder.Write(bytes + "[SQL-Server]\r\nServer=db\r\nPort=3306\r\nUser=kim\r\n"),
                 {"db", "kim", "", 3306});
    ExpectLoaded(folder.Write(bytes), {});
}

} // namespace
