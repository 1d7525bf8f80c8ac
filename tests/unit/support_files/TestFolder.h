#pragma once

#include "text/UtCString.h"
#include "unit/NewFolder.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>

/// A new folder below the temporary one, removed with the object. Names within are in UTF-8, with "/" between them.
class TestFolder : public NewFolder
{
public:
    std::filesystem::path MakeFolder(const std::string& name) const
    {
        std::filesystem::create_directories(*this / name);
        return *this / name;
    }

    std::filesystem::path MakeFile(const std::string& name, const std::string& content = "content") const
    {
        std::filesystem::create_directories((*this / name).parent_path());
        std::ofstream(*this / name, std::ios::binary) << content;
        return *this / name;
    }

    std::string Read(const std::string& name) const
    {
        std::ostringstream content;
        content << std::ifstream(*this / name, std::ios::binary).rdbuf();
        return content.str();
    }
};

/// The path as the library writes it: with backslashes, in UTF-8.
inline UtCString Written(const std::filesystem::path& path)
{
    std::string text = Utf8(path);
    std::replace(text.begin(), text.end(), '/', '\\');
    return UtCString(std::string_view(text), UT_ENCODING_UTF8);
}

/// A text as it is, in Windows-1252.
inline UtCString Ansi(std::string_view text)
{
    return UtCString(text, UT_ENCODING_DEFAULT);
}
