#include "connection/UserInterface.h"

#include <gtest/gtest.h>

namespace {

class Silent final : public MyDbUserInterface
{
public:
    int ShowMessage(const UtCString&, unsigned int) override { return 42; }
    void BeginWait() override {}
    void EndWait() override {}
};

TEST(MyDbSetUserInterface, ReturnsThePreviousOneAndNullForTheDefault)
{
    Silent first;
    Silent second;
    EXPECT_EQ(MyDbSetUserInterface(&first), nullptr);
    EXPECT_EQ(MyDbSetUserInterface(&second), &first);
    EXPECT_EQ(MyDbSetUserInterface(nullptr), &second);
    EXPECT_EQ(MyDbSetUserInterface(nullptr), nullptr);
}

TEST(MyDbSetUserInterface, PutsTheHostsOwnInForce)
{
    Silent own;
    MyDbSetUserInterface(&own);
    EXPECT_EQ(&connection::UserInterface(), &own);
    EXPECT_EQ(connection::UserInterface().ShowMessage("text", MYDB_MESSAGE_ERROR), 42);
    MyDbSetUserInterface(nullptr);
    EXPECT_NE(&connection::UserInterface(), &own);
}

TEST(DefaultUserInterface, GoesOnWithACleanupUnlessTheHostSaysNo)
{
    Silent own;
    for (const unsigned long filesLeft : {0UL, 1UL, 4294967295UL}) {
        EXPECT_TRUE(connection::UserInterface().ContinueCleanup(filesLeft));
        EXPECT_TRUE(own.ContinueCleanup(filesLeft));
    }
}

TEST(DefaultUserInterface, ShowsNothingWhileWaiting)
{
    testing::internal::CaptureStderr();
    connection::UserInterface().BeginWait();
    connection::UserInterface().EndWait();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
