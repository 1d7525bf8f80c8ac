#pragma once

#include "unit/NewFolder.h"

#include <algorithm>

/// A folder for the settings files of one test; it goes with the test. Its paths are written with "/" everywhere.
class IniFolder
{
public:
    const std::string& Path() const { return m_path; }
    std::string PathOf(std::string_view name) const { return m_path + "/" + std::string(name); }

    /// Makes a folder within, with its parents.
    void MakeFolder(std::string_view name) const { std::filesystem::create_directories(m_folder / name); }

    /// Writes a file byte by byte as given and returns its path.
    std::string Write(std::string_view bytes, std::string_view name = "Server.ini") const
    {
        std::ofstream file(m_folder / name, std::ios::binary | std::ios::trunc);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return PathOf(name);
    }

private:
    static std::string WithSlashes(std::string path)
    {
        std::replace(path.begin(), path.end(), '\\', '/');
        return path;
    }

    NewFolder m_folder;
    std::string m_path = WithSlashes(Utf8(m_folder.Path()));
};
