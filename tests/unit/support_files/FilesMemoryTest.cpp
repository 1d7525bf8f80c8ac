#include "files/NativePath.h"
#include "files/UtFile.h"
#include "harness/FailingAllocations.h"
#include "harness/System.h"
#include "unit/Environment.h"
#include "unit/support_files/TestFolder.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

/// Memory that runs out at each allocation in turn: once, or from there for good.
class FilesMemory : public testing::TestWithParam<bool>
{
protected:
    template <class Work> long ForEachAllocation(Work work) { return harness::ForEachAllocation(GetParam(), work); }

    TestFolder m_folder;
};

INSTANTIATE_TEST_SUITE_P(OnceAndForGood, FilesMemory, testing::Bool());

TEST_P(FilesMemory, APathIsTheRightOneOrEmpty)
{
    m_folder.MakeFile("another file with a name that is long");
    m_folder.MakeFile("The File With A Name That Is Long");
    const UtCString written = Written(m_folder / "the file with a name that is long");
    const std::string right = files::NativePath(written);
    bool isRightOrEmpty = true;
    const long failures = ForEachAllocation([&] {
        const std::string native = files::NativePath(written);
        isRightOrEmpty = isRightOrEmpty && (native.empty() || native == right);
    });
    EXPECT_GT(failures, 2);
    EXPECT_TRUE(isRightOrEmpty);
}

TEST_P(FilesMemory, AFileIsFoundOrNot)
{
    const UtCString file = Written(m_folder.MakeFile("The File With A Name That Is Long"));
    const UtCString folder = Written(m_folder.Path());
    ForEachAllocation([&] {
        UtIsFile(file);
        UtIsDir(folder);
    });
    EXPECT_NE(UtIsFile(file), 0);
}

TEST_P(FilesMemory, TheTemporaryFolderIsWholeOrEmpty)
{
    const std::string chosen = Utf8(m_folder.MakeFolder("The Folder With A Name That Is Long"));
    const Environment variable(harness::temporaryFolderVariable, chosen.c_str());
    const UtCString whole = UtGetTempDir();
    bool isWholeOrEmpty = true;
    ForEachAllocation([&] {
        const UtCString path = UtGetTempDir();
        isWholeOrEmpty = isWholeOrEmpty && (path.IsEmpty() || path == whole);
    });
    EXPECT_TRUE(isWholeOrEmpty);
}

TEST_P(FilesMemory, ACopyIsWholeOrFails)
{
    m_folder.MakeFile("from/deep/The File With A Name That Is Long", "content");
    const UtCString from = Written(m_folder / "from");
    const UtCString to = Written(m_folder / "to");
    const fs::path copied = m_folder / "to/deep/The File With A Name That Is Long";
    const fs::path target = m_folder / "to";
    bool isWholeOrFailed = true;
    const long failures = ForEachAllocation([&] {
        const bool isCopied = UtCopyDirectory(from, to) == 0;
        harness::AllocationFailure::allocationsLeft = -1;
        isWholeOrFailed = isWholeOrFailed && (!isCopied || fs::file_size(copied) == 7);
        fs::remove_all(target);
    });
    EXPECT_GT(failures, 5);
    EXPECT_TRUE(isWholeOrFailed);
}

TEST_P(FilesMemory, ADeletionIsWholeOrFails)
{
    const UtCString tree = Written(m_folder / "tree");
    const fs::path native = m_folder / "tree";
    m_folder.MakeFile("neighbour/file");
    const fs::path deep = native / "deep/The Folder With A Name That Is Long";
    bool isTrue = true;
    const long failures = ForEachAllocation([&] {
        const long left = harness::AllocationFailure::allocationsLeft;
        harness::AllocationFailure::allocationsLeft = -1;
        fs::create_directories(deep);
        harness::AllocationFailure::allocationsLeft = left;
        const bool isDeleted = UtDeleteDirectory(tree) == 0;
        harness::AllocationFailure::allocationsLeft = -1;
        isTrue = isTrue && isDeleted == !fs::exists(native);
    });
    EXPECT_GT(failures, 5);
    EXPECT_TRUE(isTrue);
    EXPECT_TRUE(fs::exists(m_folder / "neighbour/file"));
}

} // namespace
