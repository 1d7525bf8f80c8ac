#include "platform/win32/Recode.h"

#include "platform/win32/WinApi.h"

#include <limits>
#include <stdexcept>

namespace platform {
namespace {

// A negative length would mean a text with a zero at its end.
int Length(size_t size)
{
    if (size > static_cast<size_t>(std::numeric_limits<int>::max()))
        throw std::length_error("text");
    return static_cast<int>(size);
}

} // namespace

std::wstring ToWide(std::string_view text, unsigned int codePage)
{
    const int length = Length(text.size());
    const int needed = MultiByteToWideChar(codePage, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<size_t>(needed), L'\0');
    MultiByteToWideChar(codePage, 0, text.data(), length, wide.data(), needed);
    return wide;
}

std::wstring ToWide(std::string_view utf8)
{
    return ToWide(utf8, CP_UTF8);
}

std::string ToUtf8(std::wstring_view text)
{
    const int length = Length(text.size());
    const int needed = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<size_t>(needed), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), needed, nullptr, nullptr);
    return utf8;
}

bool ToAnsiPath(const wchar_t* path, char (&ansi)[ansiPathSize]) noexcept
{
    BOOL isMissing = FALSE;
    return AreFileApisANSI() &&
           WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, path, -1, ansi, ansiPathSize, nullptr, &isMissing) > 0 &&
           !isMissing;
}

} // namespace platform
