#include "harness/System.h"
#include "harness/TemporaryFolder.h"
#include "harness/win32/WineRun.h"

namespace harness {

std::filesystem::path MakeFolder()
{
    std::filesystem::path folder = NewName("mydb_test");
    while (!std::filesystem::create_directory(folder)) {
        folder = NewName("mydb_test");
    }
    return folder;
}

/// When the program ends otherwise, scripts/wine.sh removes the folder.
std::shared_ptr<void> RemoveAtEnd(const std::filesystem::path& folder)
{
    return std::shared_ptr<void>(nullptr, [folder](void*) { RemoveFolder(folder); });
}

} // namespace harness
