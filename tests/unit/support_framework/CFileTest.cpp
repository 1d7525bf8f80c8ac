#include "framework/CFile.h"

#include "harness/OpenFile.h"
#include "harness/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace {

constexpr unsigned int creating = CFile::modeCreate | CFile::modeReadWrite | CFile::shareExclusive;

class CFileTest : public testing::Test
{
protected:
    UtCString Name() const { return UtCString(m_path.string(), UT_ENCODING_UTF8); }
    std::string Content() const
    {
        std::ifstream stream(m_path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(stream), {});
    }

    harness::TemporaryFolder m_folder;
    std::filesystem::path m_path = m_folder.Path() / "file";
};

template <class Body> bool ThrowsFileException(Body&& body)
{
    try {
        body();
        return false;
    } catch (CFileException* exception) {
        exception->Delete();
        return true;
    }
}

TEST_F(CFileTest, CreatesAndWrites)
{
    CFile file;
    ASSERT_TRUE(file.Open(Name(), creating));
    file.Write("ab\0c", 4);
    file.Write("d", 1);
    file.Close();
    EXPECT_EQ(Content(), std::string("ab\0cd", 5));
}

TEST_F(CFileTest, EmptiesAFileThatIsThere)
{
    std::ofstream(m_path) << "old";
    CFile file;
    ASSERT_TRUE(file.Open(Name(), creating));
    EXPECT_EQ(Content(), "");
}

TEST_F(CFileTest, RefusesAFileThatIsOpenAndLeavesItAlone)
{
    CFile first;
    ASSERT_TRUE(first.Open(Name(), creating));
    first.Write("mine", 4);
    CFile second;
    EXPECT_FALSE(second.Open(Name(), creating));
    first.Close();
    EXPECT_EQ(Content(), "mine");
    EXPECT_TRUE(second.Open(Name(), creating));
}

TEST_F(CFileTest, IsNotOpenedTwice)
{
    CFile file;
    ASSERT_TRUE(file.Open(Name(), creating));
    EXPECT_FALSE(file.Open(UtCString((m_folder.Path() / "other").string(), UT_ENCODING_UTF8), creating));
    EXPECT_FALSE(std::filesystem::exists(m_folder.Path() / "other"));
}

TEST_F(CFileTest, RefusesWhatIsNoFileAndOtherWaysOfOpening)
{
    CFile file;
    EXPECT_FALSE(file.Open("", creating));
    EXPECT_FALSE(file.Open(UtCString(m_folder.Path().string(), UT_ENCODING_UTF8), creating));
    EXPECT_FALSE(file.Open(UtCString((m_path / "x").string(), UT_ENCODING_UTF8), creating));
    EXPECT_FALSE(file.Open(UtCString(std::string(5000, 'x'), UT_ENCODING_UTF8), creating));
    EXPECT_FALSE(file.Open(Name(), CFile::modeCreate | CFile::modeReadWrite));
    EXPECT_FALSE(file.Open(Name(), 0));
    EXPECT_FALSE(std::filesystem::exists(m_path));
}

TEST_F(CFileTest, ThrowsWhenTheDiskIsFull)
{
    CFile file;
    ASSERT_TRUE(file.Open("/dev/full", creating));
    EXPECT_TRUE(ThrowsFileException([&] { file.Write("x", 1); }));
    file.Write("", 0);
    file.Close();
}

TEST_F(CFileTest, ThrowsWhenTheSystemReportsAFailureOnClosing)
{
    CFile file;
    ASSERT_TRUE(file.Open(Name(), creating));
    ASSERT_TRUE(harness::CloseDescriptorOf(m_path));
    EXPECT_TRUE(ThrowsFileException([&] { file.Close(); }));
    file.Close(); // it is closed all the same
    ASSERT_TRUE(file.Open(Name(), creating));
    ASSERT_TRUE(harness::CloseDescriptorOf(m_path));
    file.Abort();
}

TEST_F(CFileTest, ThrowsOnWritingWhileClosed)
{
    CFile file;
    EXPECT_TRUE(ThrowsFileException([&] { file.Write("x", 1); }));
    ASSERT_TRUE(file.Open(Name(), creating));
    file.Close();
    EXPECT_TRUE(ThrowsFileException([&] { file.Write("x", 1); }));
}

TEST_F(CFileTest, ClosesAndAbortsWhatIsNotOpen)
{
    CFile file;
    file.Close();
    file.Abort();
    ASSERT_TRUE(file.Open(Name(), creating));
    file.Write("kept", 4);
    file.Abort();
    file.Abort();
    EXPECT_EQ(Content(), "kept");
}

TEST_F(CFileTest, HasRunTimeClassRecords)
{
    const CFile file;
    EXPECT_STREQ(file.GetRuntimeClass()->m_lpszClassName, "CFile");
    CFileException* const exception = new CFileException;
    EXPECT_STREQ(exception->GetRuntimeClass()->m_lpszClassName, "CFileException");
    exception->Delete();
}

} // namespace
