#pragma once

#include "platform/IniFile.h"

#include "unit/serverini/IniFolder.h"

#include <gtest/gtest.h>

/// A settings file and what it holds.
struct IniFileCase
{
    const char* name;
    std::string_view bytes;
    std::string_view value; ///< of "Port" in "SQL-Server"; "default" when there is none
};

inline std::string ReadIni(const std::string& path, const char* section = "SQL-Server", const char* key = "Port",
                           const char* defaultValue = "default")
{
    const platform::IniValue value = platform::ReadIniValue(path, section, key, defaultValue);
    EXPECT_LE(value.length, platform::IniValue::maximumLength);
    EXPECT_EQ(value.text[value.length], '\0');
    return std::string(value.text, value.length);
}

/// The value in a file with these bytes.
inline std::string ValueIn(std::string_view bytes)
{
    const IniFolder folder;
    return ReadIni(folder.Write(bytes));
}

/// A file of each row gives its value.
class IniFileTable : public testing::TestWithParam<IniFileCase>
{
};

inline std::string NameOfRow(const testing::TestParamInfo<IniFileCase>& row)
{
    return row.param.name;
}
