#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

/// A new folder below the temporary one, removed with the object. Others may read it.
class NewFolder
{
public:
    NewFolder()
    {
        std::random_device random;
        do
            m_path = std::filesystem::temp_directory_path() / ("mydb_unit_" + std::to_string(random()));
        while (!std::filesystem::create_directory(m_path));
        m_path.make_preferred();
    }
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;
    ~NewFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::filesystem::path& Path() const { return m_path; }

    /// The path of a name within, given in UTF-8.
    std::filesystem::path operator/(std::string_view name) const
    {
        return m_path / std::u8string(name.begin(), name.end());
    }

private:
    std::filesystem::path m_path;
};

/// A path in UTF-8 as the system writes it.
inline std::string Utf8(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}
