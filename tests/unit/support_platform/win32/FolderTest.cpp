#include "unit/support_platform/FolderFixture.h"

#include "platform/win32/WinApi.h"

namespace {

using FolderOfWindows = FolderTest;

std::wstring UnixPath(const fs::path& path)
{
    using GetUnixFileName = char*(CDECL*)(const wchar_t*);
    const auto getName = reinterpret_cast<GetUnixFileName>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32"), "wine_get_unix_file_name")));
    char* const name = getName(path.c_str());
    const fs::path result = std::u8string(name, name + std::string_view(name).size());
    HeapFree(GetProcessHeap(), 0, name);
    return result.wstring();
}

/// A link of the system below Wine: Wine's own functions make and remove none, and show one to a folder as Windows
/// does.
class UnixLink
{
public:
    UnixLink(const fs::path& target, const fs::path& link) : m_folder(link.parent_path()), m_link(UnixPath(m_folder))
    {
        m_link += L'/' + link.filename().wstring();
        Run(L"ln -s \"" + UnixPath(target) + L"\" \"" + m_link + L"\"");
        for (int attempt = 0; attempt < 200 && !fs::exists(link); ++attempt)
            Sleep(20);
        EXPECT_TRUE(fs::exists(link));
    }
    UnixLink(const UnixLink&) = delete;
    UnixLink& operator=(const UnixLink&) = delete;
    ~UnixLink()
    {
        Run(L"rm -f \"" + m_link + L"\"");
        for (int attempt = 0; attempt < 200 && fs::exists(m_folder) && !fs::is_empty(m_folder); ++attempt)
            Sleep(20);
    }

private:
    static void Run(std::wstring command)
    {
        const std::wstring program = L"\\\\?\\unix\\bin\\" + command.substr(0, 2);
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process{};
        EXPECT_TRUE(CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                   &startup, &process));
    }

    fs::path m_folder;
    std::wstring m_link;
};

TEST_F(FolderOfWindows, RemovesWriteProtectedFilesAndFolders)
{
    MakeFile("tree/locked/deep/file");
    for (const char* const name : {"tree/locked/deep/file", "tree/locked/deep", "tree/locked", "tree"})
        ASSERT_TRUE(SetFileAttributesW(Path(name).c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN));
    EXPECT_TRUE(platform::RemoveFolderTree(Native("tree")));
    EXPECT_FALSE(fs::exists(Path("tree")));
}

TEST_F(FolderOfWindows, RemovesATreeThatIsDeeperThanAPathMayBeLong)
{
    const std::wstring name(100, L'd');
    std::wstring path = L"\\\\?\\" + Path("tree").wstring();
    ASSERT_TRUE(CreateDirectoryW(path.c_str(), nullptr));
    for (int level = 0; level < 6; ++level) {
        path += L'\\' + name;
        ASSERT_TRUE(CreateDirectoryW(path.c_str(), nullptr));
    }
    EXPECT_TRUE(platform::RemoveFolderTree(Native("tree")));
    EXPECT_FALSE(fs::exists(Path("tree")));
}

TEST_F(FolderOfWindows, FailsWhenSomebodyHasAFileOpen)
{
    MakeFile("tree/file");
    const HANDLE file =
        CreateFileW(Path("tree/file").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(platform::RemoveFolderTree(Native("tree")));
    EXPECT_TRUE(fs::exists(Path("tree/file")));
    CloseHandle(file);
    EXPECT_TRUE(platform::RemoveFolderTree(Native("tree")));
}

TEST_F(FolderOfWindows, TakesBothSeparatorsAndOnesAtTheEnd)
{
    MakeFile("tree/deep/file");
    std::vector<std::string> names;
    EXPECT_TRUE(platform::ListFolder(Native("") + "tree/deep/", names));
    EXPECT_EQ(names, std::vector<std::string>{"file"});
    EXPECT_TRUE(platform::RemoveFolderTree(Native("") + "/tree/\\"));
    EXPECT_FALSE(fs::exists(Path("tree")));
}

TEST_F(FolderOfWindows, NeverFollowsALinkWhichWineCanSeeAndNotRemove)
{
    MakeFile("outside/file");
    fs::create_directory(Path("tree"));
    const UnixLink link(Path("outside"), Path("tree/link"));
    EXPECT_FALSE(platform::RemoveFolderTree(Native("tree")));
    EXPECT_FALSE(platform::RemoveFolderTree(Native("tree/link")));
    EXPECT_TRUE(fs::exists(Path("outside/file")));
}

} // namespace
