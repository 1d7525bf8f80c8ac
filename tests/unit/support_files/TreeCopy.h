#pragma once

#include "files/UtFile.h"

#include "unit/support_files/TestFolder.h"

#include <gtest/gtest.h>

#include <set>

inline int Copy(const TestFolder& folder, const char* from = "from", const char* to = "to")
{
    return UtCopyDirectory(Written(folder / from), Written(folder / to));
}

/// The names in a tree, in UTF-8 and with "/" between them.
inline std::set<std::string> Names(const std::filesystem::path& folder)
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        names.insert(Utf8(entry.path().lexically_relative(folder).generic_u8string()));
    return names;
}
