#include "CMyServer.h"

#include "harness/FailingAllocations.h"
#include "unit/serverini/IniFolder.h"

#include <gtest/gtest.h>

namespace {

constexpr char stored[] = "001D3080CD1AA71BB3D53E82F2AB1BD84CB9448AC26920DB134F24A55E4EA494";
constexpr char password[] = "canary-7f3a91-do-not-show";

class LoadServerIniMemory : public testing::TestWithParam<bool>
{
};

// The password comes whole or not at all, so that no login is tried with a piece of it.
TEST_P(LoadServerIniMemory, RunsOutAtEveryPointWithoutHarm)
{
    const IniFolder folder;
    const UtCString path = folder.Write(std::string("[SQL-Server]\nPort=3306\nPassword=") + stored + "\n").c_str();
    CMyServer server;
    bool isPasswordDamaged = false;
    const long failures = harness::ForEachAllocation(GetParam(), [&] {
        server.LoadServerINI(path);
        isPasswordDamaged |= !server.GetPassword().IsEmpty() && server.GetPassword() != password;
    });
    EXPECT_GT(failures, 0);
    EXPECT_FALSE(isPasswordDamaged);
    EXPECT_TRUE(server.LoadServerINI(path));
    EXPECT_EQ(server.GetPassword(), password);
}

INSTANTIATE_TEST_SUITE_P(OnceAndForGood, LoadServerIniMemory, testing::Bool());

} // namespace
