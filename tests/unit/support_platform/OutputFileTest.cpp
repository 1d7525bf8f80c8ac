#include "platform/OutputFile.h"

#include "unit/NewFolder.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

class OutputFile : public testing::Test
{
protected:
    std::string Native(std::string_view name = "file") const { return Utf8(m_folder / name); }

    std::string Content(std::string_view name = "file") const
    {
        std::ostringstream content;
        content << std::ifstream(m_folder / name, std::ios::binary).rdbuf();
        return content.str();
    }

    NewFolder m_folder;
};

TEST_F(OutputFile, HoldsWhatWasWritten)
{
    const intptr_t file = platform::CreateOutputFile(Native());
    ASSERT_NE(file, platform::noFile);
    EXPECT_TRUE(platform::WriteOutputFile(file, "a\r\n\0b", 5));
    EXPECT_TRUE(platform::WriteOutputFile(file, nullptr, 0));
    EXPECT_TRUE(platform::WriteOutputFile(file, "\n", 1));
    EXPECT_TRUE(platform::CloseOutputFile(file));
    EXPECT_EQ(Content(), std::string("a\r\n\0b\n", 6));
}

TEST_F(OutputFile, IsEmptiedWhenItIsThere)
{
    std::ofstream(m_folder / "file") << "content";
    const intptr_t file = platform::CreateOutputFile(Native());
    ASSERT_NE(file, platform::noFile);
    EXPECT_TRUE(platform::CloseOutputFile(file));
    EXPECT_EQ(Content(), "");
}

TEST_F(OutputFile, RefusesASecondOpenerAndStaysAsItIs)
{
    const intptr_t file = platform::CreateOutputFile(Native());
    ASSERT_NE(file, platform::noFile);
    EXPECT_TRUE(platform::WriteOutputFile(file, "content", 7));
    EXPECT_EQ(platform::CreateOutputFile(Native()), platform::noFile);
    EXPECT_TRUE(platform::CloseOutputFile(file));
    EXPECT_EQ(Content(), "content");
    const intptr_t again = platform::CreateOutputFile(Native());
    EXPECT_NE(again, platform::noFile);
    EXPECT_TRUE(platform::CloseOutputFile(again));
}

TEST_F(OutputFile, IsNoneForAnEmptyPathAFolderAndAMissingFolder)
{
    EXPECT_EQ(platform::CreateOutputFile(""), platform::noFile);
    EXPECT_EQ(platform::CreateOutputFile(Native("")), platform::noFile);
    EXPECT_EQ(platform::CreateOutputFile(Native("missing/file")), platform::noFile);
}

TEST_F(OutputFile, TakesANameWithEveryCharacter)
{
    const std::string_view name = "M\xC3\xBCller \xCE\xB1\xE6\x97\xA5";
    const intptr_t file = platform::CreateOutputFile(Native(name));
    ASSERT_NE(file, platform::noFile);
    EXPECT_TRUE(platform::WriteOutputFile(file, "x", 1));
    EXPECT_TRUE(platform::CloseOutputFile(file));
    EXPECT_EQ(Content(name), "x");
}

TEST_F(OutputFile, TakesManyMegabytesAtOnce)
{
    const std::string bytes(40'000'000, 'x');
    const intptr_t file = platform::CreateOutputFile(Native());
    ASSERT_NE(file, platform::noFile);
    EXPECT_TRUE(platform::WriteOutputFile(file, bytes.data(), bytes.size()));
    EXPECT_TRUE(platform::CloseOutputFile(file));
    EXPECT_EQ(std::filesystem::file_size(m_folder / "file"), bytes.size());
}

TEST_F(OutputFile, ReportsThatNothingCouldBeWritten)
{
    EXPECT_FALSE(platform::WriteOutputFile(platform::noFile, "x", 1));
}

} // namespace
