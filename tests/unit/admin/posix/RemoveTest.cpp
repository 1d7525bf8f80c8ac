#include "unit/admin/RemoveFixture.h"

namespace {

namespace fs = std::filesystem;

class RemoveDatabaseWithSymbolicLinks : public RemoveFixture
{
};

TEST_F(RemoveDatabaseWithSymbolicLinks, NeverFollowsALink)
{
    MakeFolder("elsewhere");
    fs::remove_all(PathOf("DBS/shop"));
    fs::create_directory_symlink(PathOf("elsewhere"), PathOf("DBS/shop"));
    MakeFile("elsewhere/file");
    EXPECT_TRUE(m_database.RemoveDatabase());
    EXPECT_FALSE(Exists("DBS/shop"));
    EXPECT_TRUE(Exists("elsewhere/file"));
}

} // namespace
