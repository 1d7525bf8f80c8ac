#include "unit/admin/RemoveFixture.h"

namespace {

class RemoveDatabaseOfWindows : public RemoveFixture
{
};

TEST_F(RemoveDatabaseOfWindows, DoesNothingForANameThatNoFolderCanHave)
{
    for (const char* name : {"nul", "CON", "com1.x", "sho?", "*"}) {
        CMyDatabase database(Settings(), name);
        ASSERT_TRUE(database.Open(false, "")) << name;
        database.GetServer().SetDataDir(m_folder.Path().string().c_str());
        m_client.ForgetCalls();
        EXPECT_FALSE(database.RemoveDatabase()) << name;
        EXPECT_TRUE(m_client.Calls().empty()) << name;
        EXPECT_TRUE(Exists("DBS/shop/deep/file")) << name;
    }
}

} // namespace
