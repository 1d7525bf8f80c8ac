#include "EncipherPassword.h"

#include "connection/ServerIniPassword.h"

#include <gtest/gtest.h>

#include <random>

namespace {

TEST(EncipherPassword, WritesUpperCaseBlocks)
{
    EXPECT_EQ(EncipherPassword("geheim"), "4BA341CA5F39E3E8");
    EXPECT_EQ(EncipherPassword("Passwort"), "D7D3F5DBB45D9548");
    EXPECT_EQ(EncipherPassword("Passwort1"), "D7D3F5DBB45D95484937F46120FBE076");
    EXPECT_EQ(EncipherPassword(""), "");
}

TEST(EncipherPassword, RefusesWhatWouldNotComeBack)
{
    EXPECT_EQ(EncipherPassword(std::string(121, 'a')), std::nullopt);
    EXPECT_EQ(EncipherPassword(std::string_view("a\0b", 3)), std::nullopt);
}

TEST(EncipherPassword, IsUndoneByTheLibrary)
{
    std::mt19937 random(20240229);
    for (int round = 0; round < 2000; ++round) {
        std::string password(random() % 121, 'x');
        for (char& byte : password)
            byte = static_cast<char>(1 + random() % 255);
        const std::optional<std::string> stored = EncipherPassword(password);
        ASSERT_TRUE(stored.has_value());
        ASSERT_LE(stored->size(), 240U);
        ASSERT_EQ(connection::DecipherPassword(*stored).View(), password);
    }
}

} // namespace
