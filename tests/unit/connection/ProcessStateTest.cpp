#include "connection/ProcessState.h"

#include <gtest/gtest.h>

namespace {

TEST(DefaultServer, IsOneObjectWithTheStandInUser)
{
    EXPECT_EQ(&connection::DefaultServer(), &connection::DefaultServer());
    EXPECT_TRUE(connection::DefaultServer().GetUser() == "vela_root");
    EXPECT_FALSE(connection::DefaultServer().IsValid());
}

} // namespace
