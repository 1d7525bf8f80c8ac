#include "platform/IniFile.h"

#include "platform/win32/WinApi.h"

platform::IniValue platform::ReadIniValue(const std::string& nativePath, const char* section, const char* key,
                                          const char* defaultValue) noexcept
{
    IniValue value{};
    value.length =
        GetPrivateProfileStringA(section, key, defaultValue, value.text, sizeof value.text, nativePath.c_str());
    return value;
}
