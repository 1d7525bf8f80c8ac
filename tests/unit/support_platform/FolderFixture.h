#pragma once

#include "platform/Folder.h"

#include "unit/NewFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

/// A folder for a test. Names are in UTF-8, with "/" between them.
class FolderTest : public testing::Test
{
protected:
    fs::path Path(const std::string& name) const { return m_folder / name; }
    std::string Native(const std::string& name) const { return Utf8(m_folder / name); }

    void MakeFile(const std::string& name) const
    {
        fs::create_directories(Path(name).parent_path());
        std::ofstream(Path(name)) << "content";
    }

private:
    NewFolder m_folder;
};
