#include "unit/serverini/GeneratedServerIni.h"

namespace {

using harness::IniKind;
using harness::IniRandom;
using harness::IniSettings;

class GeneratedServerIni : public testing::TestWithParam<IniKind>
{
};

TEST_P(GeneratedServerIni, GivesItsDefinedResult)
{
    ExpectEachLoaded(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Kinds, GeneratedServerIni,
                         testing::ValuesIn(harness::IniKinds().begin(), harness::IniKinds().end()),
                         [](const auto& row) { return row.param.name; });

std::string RandomIniName(IniRandom& random)
{
    return "it's `" + harness::RandomCase(random, "settings") + "` " + std::to_string(random()) +
           harness::RandomCase(random, ".ini");
}

TEST(UnusableServerIni, AFolderInPlaceOfTheFileIsNoFile)
{
    const IniFolder folder;
    IniRandom random(20240229);
    for (int index = 0; index < 50; ++index) {
        const std::string name = RandomIniName(random);
        const std::string path = folder.PathOf(name);
        folder.MakeFolder(name);
        CMyServer server;
        ASSERT_FALSE(server.LoadServerINI(path.c_str())) << path;
        ASSERT_TRUE(server.GetHost().IsEmpty() && server.GetUser().IsEmpty() && server.GetAlias().IsEmpty()) << path;
        ASSERT_TRUE(server.GetServerINIFileName().IsEmpty()) << path;
    }
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
