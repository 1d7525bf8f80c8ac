#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include <stdlib.h>

/// A folder for the settings files of one test; it goes with the test. Others may read it.
class IniFolder
{
public:
    IniFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "mydb_ini_XXXXXX").string();
        m_path = mkdtemp(pattern.data());
        std::filesystem::permissions(m_path, std::filesystem::perms(0755));
    }
    IniFolder(const IniFolder&) = delete;
    IniFolder& operator=(const IniFolder&) = delete;
    ~IniFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::string& Path() const { return m_path; }
    std::string PathOf(std::string_view name) const { return m_path + "/" + std::string(name); }

    /// Writes a file byte by byte as given and returns its path, with "/".
    std::string Write(std::string_view bytes, std::string_view name = "Server.ini") const
    {
        std::ofstream file(PathOf(name), std::ios::binary | std::ios::trunc);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return PathOf(name);
    }

private:
    std::string m_path;
};
