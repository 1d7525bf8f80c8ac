#include "platform/CopyFile.h"

#include "unit/support_platform/FolderFixture.h"

namespace {

class CopyToNewFile : public FolderTest
{
protected:
    void Write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(Path(name), std::ios::binary) << bytes;
    }
    std::string Read(const std::string& name) const
    {
        std::ifstream file(Path(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }
    bool Copy(const char* from, const char* to) const { return platform::CopyToNewFile(Native(from), Native(to)); }
};

TEST_F(CopyToNewFile, CopiesEveryByteOfAFileOfAnySize)
{
    for (const size_t size : {size_t{0}, size_t{1}, size_t{65536}, size_t{1'000'001}}) {
        std::string bytes(size, '\0');
        for (size_t i = 0; i < size; ++i)
            bytes[i] = static_cast<char>(i * 7 + i / 256);
        const std::string target = "to" + std::to_string(size);
        Write("from", bytes);
        EXPECT_TRUE(Copy("from", target.c_str()));
        EXPECT_TRUE(Read(target) == bytes) << size;
    }
}

TEST_F(CopyToNewFile, LeavesAFileThatIsThere)
{
    Write("from", "new");
    Write("to", "of another program");
    EXPECT_FALSE(Copy("from", "to"));
    EXPECT_EQ(Read("to"), "of another program");
}

TEST_F(CopyToNewFile, LeavesAFileThatIsThereWhenTheSourceCannotBeRead)
{
    Write("to", "of another program");
    EXPECT_FALSE(Copy("missing", "to"));
    EXPECT_FALSE(Copy("", "to"));
    EXPECT_EQ(Read("to"), "of another program");
}

TEST_F(CopyToNewFile, LeavesNothingBehindAFailure)
{
    fs::create_directory(Path("folder"));
    EXPECT_FALSE(Copy("missing", "to"));
    EXPECT_FALSE(Copy("folder", "to"));
    EXPECT_FALSE(fs::exists(Path("to")));
    Write("from", "x");
    EXPECT_FALSE(Copy("from", "missing/to"));
    EXPECT_FALSE(Copy("from", "folder"));
    EXPECT_TRUE(fs::is_empty(Path("folder")));
}

} // namespace
