#include "platform/IniFile.h"

#include "platform/win32/Recode.h"
#include "platform/win32/WinApi.h"

#include <algorithm>
#include <cstring>
#include <cwchar>

namespace platform {
namespace {

// More than arrives: a reader that cuts before it unquotes loses the last character.
constexpr DWORD bufferSize = 512;

// Of UTF-16 in any code page: three in UTF-8, four in GB 18030.
constexpr int mostBytesOfAUnit = 4;

/// A text as UTF-16, without memory: a settings file must not look as if it were missing for want of it. Empty when the
/// text has no place.
class ShortWideText
{
public:
    explicit ShortWideText(const char* utf8) noexcept
    {
        if (MultiByteToWideChar(CP_UTF8, 0, utf8, -1, m_text, bufferSize) == 0)
            m_text[0] = L'\0';
    }

    operator const wchar_t*() const noexcept { return m_text; }

private:
    wchar_t m_text[bufferSize];
};

/// The full path: a name without a folder would be looked up in the folder of Windows. False for a path that is longer
/// than the system's reader takes and for a device, which could let the reader wait.
bool FullPath(const std::string& utf8, wchar_t (&path)[MAX_PATH]) noexcept
{
    const ShortWideText given(utf8.c_str());
    const DWORD length = *given ? GetFullPathNameW(given, MAX_PATH, path, nullptr) : 0;
    return length > 0 && length < MAX_PATH && std::wcsncmp(path, L"\\\\.\\", 4) != 0;
}

IniValue Cut(const char* text) noexcept
{
    IniValue value{};
    value.length = std::min(std::strlen(text), IniValue::maximumLength);
    std::copy_n(text, value.length, value.text);
    return value;
}

IniValue ReadByWidePath(const wchar_t* path, const char* section, const char* key, const char* defaultValue) noexcept
{
    wchar_t wide[bufferSize] = L"";
    GetPrivateProfileStringW(ShortWideText(section), ShortWideText(key), ShortWideText(defaultValue), wide, bufferSize,
                             path);
    char text[bufferSize * mostBytesOfAUnit];
    const bool isRecoded = WideCharToMultiByte(CP_ACP, 0, wide, -1, text, sizeof text, nullptr, nullptr) > 0;
    return Cut(isRecoded ? text : defaultValue);
}

IniValue ReadByAnsiPath(const char* path, const char* section, const char* key, const char* defaultValue) noexcept
{
    char text[bufferSize + 1] = ""; // ends with a zero, whatever the system writes
    GetPrivateProfileStringA(section, key, defaultValue, text, bufferSize, path);
    return Cut(text);
}

} // namespace

IniValue ReadIniValue(const std::string& nativePath, const char* section, const char* key,
                      const char* defaultValue) noexcept
{
    wchar_t path[MAX_PATH];
    if (!FullPath(nativePath, path))
        return Cut(defaultValue);
    char ansiPath[ansiPathSize];
    return ToAnsiPath(path, ansiPath) ? ReadByAnsiPath(ansiPath, section, key, defaultValue)
                                      : ReadByWidePath(path, section, key, defaultValue);
}

} // namespace platform
