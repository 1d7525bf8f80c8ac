#include "unit/serverini/GeneratedServerIni.h"

#include <vector>

#include <unistd.h>

// Where the settings file of a test is nothing that another system has: a file without permissions, one that opens and
// cannot be read, names with characters that belong to paths elsewhere.

namespace {

class LoadServerIniOnPosix : public testing::Test
{
protected:
    IniFolder m_folder;
    CMyServer m_server;
};

/// Permissions do not stop root: for the life of the object root is nobody.
class WithoutPrivileges
{
public:
    WithoutPrivileges() { m_isReady = !m_isRoot || seteuid(65534) == 0; }
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;
    ~WithoutPrivileges() { EXPECT_TRUE(m_isReady && (!m_isRoot || seteuid(0) == 0)); }

private:
    const bool m_isRoot = geteuid() == 0;
    bool m_isReady;
};

TEST_F(LoadServerIniOnPosix, FilesWithoutPermissionGiveTheDefaults)
{
    harness::IniRandom random(20240229);
    std::vector<std::string> paths;
    for (int index = 0; index < 50; ++index) {
        const std::string name = "it's \"" + std::to_string(random()) + "\".ini";
        paths.push_back(m_folder.Write(harness::WellFormedIni(random).bytes, name));
        std::filesystem::permissions(paths.back(), std::filesystem::perms::none);
    }
    const WithoutPrivileges nobody;
    for (const std::string& path : paths)
        ExpectLoaded(path, {});
}

TEST_F(LoadServerIniOnPosix, AFileWhoseReadingFailsGivesTheDefaults)
{
    std::filesystem::create_symlink("/proc/self/mem", m_folder.PathOf("my.ini"));
    EXPECT_FALSE(m_server.LoadServerINI(m_folder.PathOf("my.ini").c_str()));
    EXPECT_EQ(m_server.GetHost().View(), "localhost");
    EXPECT_EQ(m_server.GetUser().View(), "vela_root");
}

TEST_F(LoadServerIniOnPosix, ADriveIsAFolderOfThatName)
{
    m_folder.MakeFolder("C:/cfg");
    m_folder.Write("[SQL-Server]\nPort=1\n", "C:/cfg/Server.ini");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(m_folder.Path());
    EXPECT_TRUE(m_server.LoadServerINI("C:\\cfg\\\\"));
    std::filesystem::current_path(before);
    EXPECT_EQ(m_server.GetServerINIFileName().View(), "C:\\cfg\\Server.ini");
    EXPECT_EQ(m_server.GetServerINIDir().View(), "C:\\cfg\\");
}

TEST_F(LoadServerIniOnPosix, TakesAPathWithDoubleQuotes)
{
    m_folder.MakeFolder("my \"own\"");
    m_folder.Write("[SQL-Server]\nPort=1\n", "my \"own\"/Server.ini");
    EXPECT_TRUE(m_server.LoadServerINI((m_folder.Path() + "\\my \"own\"").c_str()));
}

TEST_F(LoadServerIniOnPosix, ALinkIsADirectoryAsGoodAsAnother)
{
    for (const char* const name : {"mdbs", "temp"})
        m_folder.MakeFolder(std::string("my \"own\"/") + name);
    std::filesystem::create_directory_symlink("temp", m_folder.PathOf("my \"own\"/DBS"));
    m_server.SetDataDir(m_folder.PathOf("my \"own\"").c_str());
    EXPECT_TRUE(m_server.CheckDirectoryAccess(nullptr));
}

class GeneratedServerIniOnPosix : public testing::TestWithParam<harness::IniKind>
{
};

TEST_P(GeneratedServerIniOnPosix, AForeignMarkBelongsToTheFirstLine)
{
    ExpectEachLoaded(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Kinds, GeneratedServerIniOnPosix,
                         testing::ValuesIn(harness::IniKindsWithForeignMarks().begin(),
                                           harness::IniKindsWithForeignMarks().end()),
                         [](const auto& row) { return row.param.name; });

} // namespace
