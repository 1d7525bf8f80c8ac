#pragma once

#include "text/UtCString.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

/// A new folder below the temporary one, removed with the object.
class TestFolder
{
public:
    TestFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "mydb-files-XXXXXX").string();
        m_path = mkdtemp(pattern.data());
    }
    ~TestFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    std::filesystem::path operator/(const std::string& name) const { return m_path / name; }
    const std::filesystem::path& Path() const { return m_path; }

    std::filesystem::path MakeFolder(const std::string& name) const
    {
        std::filesystem::create_directories(m_path / name);
        return m_path / name;
    }

    std::filesystem::path MakeFile(const std::string& name, const std::string& content = "content") const
    {
        std::filesystem::create_directories((m_path / name).parent_path());
        std::ofstream(m_path / name, std::ios::binary) << content;
        return m_path / name;
    }

    std::string Read(const std::string& name) const
    {
        std::ostringstream content;
        content << std::ifstream(m_path / name, std::ios::binary).rdbuf();
        return content.str();
    }

private:
    std::filesystem::path m_path;
};

/// The path as the library writes it: with backslashes, in UTF-8.
inline UtCString Written(const std::filesystem::path& path)
{
    std::string text = path.string();
    std::replace(text.begin(), text.end(), '/', '\\');
    return UtCString(std::string_view(text), UT_ENCODING_UTF8);
}

/// A text as it is, in Windows-1252.
inline UtCString Ansi(std::string_view text)
{
    return UtCString(text, UT_ENCODING_DEFAULT);
}
