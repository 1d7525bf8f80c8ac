#include "platform/InputFile.h"

#include "unit/NewFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <memory>

namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File Open(const std::string& nativePath)
{
    return File(platform::OpenInputFile(nativePath.c_str()), std::fclose);
}

class InputFile : public testing::TestWithParam<const char*>
{
protected:
    NewFolder m_folder;
};

TEST_P(InputFile, GivesTheBytesOfAFile)
{
    std::ofstream(m_folder / GetParam(), std::ios::binary) << std::string("a\r\n\x1A\0b\n", 7);
    const File file = Open(Utf8(m_folder / GetParam()));
    ASSERT_NE(file, nullptr);
    std::string bytes(100, '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    EXPECT_EQ(bytes, std::string("a\r\n\x1A\0b\n", 7));
}

INSTANTIATE_TEST_SUITE_P(Names, InputFile,
                         testing::Values("file",
                                         "gr\xC3\xB6\xC3\x9F"
                                         "er",
                                         "\xE6\x97\xA5\xE6\x9C\xAC", "\xF0\x9F\x98\x80", "a b'c"));

TEST(InputFileThatIsNone, IsNullAndSaysWhy)
{
    const NewFolder folder;
    errno = 0;
    EXPECT_EQ(Open(Utf8(folder / "missing")), nullptr);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(Open(""), nullptr);
    EXPECT_EQ(Open(Utf8(folder / std::string(1000, 'x'))), nullptr);
}

} // namespace
