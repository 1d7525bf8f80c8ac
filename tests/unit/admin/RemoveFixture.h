#pragma once

#include "CatalogueFixture.h"
#include "harness/TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <string>

/// A connection by settings whose data directory exists. ExistDatabase finds no settings file in the root, so no
/// database is known.
class RemoveFixture : public CatalogueFixture
{
protected:
    RemoveFixture()
    {
        MakeFolder("DBS/shop/deep");
        MakeFolder("DBS/other");
        MakeFile("DBS/shop/deep/file");
        m_database.GetServer().SetDataDir(m_folder.Path().string().c_str());
    }

    std::filesystem::path PathOf(const std::string& path) const { return m_folder.Path() / path; }
    void MakeFolder(const std::string& path) const { std::filesystem::create_directories(PathOf(path)); }
    void MakeFile(const std::string& path, const char* bytes = "x") const { std::ofstream(PathOf(path)) << bytes; }
    bool Exists(const std::string& path) const { return std::filesystem::exists(PathOf(path)); }

    /// A database of this name is not removed, and nothing at all is done.
    void ExpectRefusal(const char* name)
    {
        CMyDatabase database(Settings(), name);
        ASSERT_TRUE(database.Open(false, "")) << name;
        database.GetServer().SetDataDir(m_folder.Path().string().c_str());
        m_client.ForgetCalls();
        EXPECT_FALSE(database.RemoveDatabase()) << name;
        EXPECT_TRUE(m_client.Calls().empty()) << name;
        EXPECT_TRUE(database.IsOpen()) << name;
        EXPECT_TRUE(Exists("DBS/shop/deep/file")) << name;
        EXPECT_TRUE(Exists("DBS/other")) << name;
    }

    harness::TemporaryFolder m_folder;
};
