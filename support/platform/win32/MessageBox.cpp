#include "platform/MessageBox.h"

#include "platform/win32/Recode.h"
#include "platform/win32/WinApi.h"

#include <algorithm>

namespace platform {
namespace {

/// The name of the program, without folder and ending.
std::wstring Caption()
{
    wchar_t buffer[MAX_PATH];
    const std::wstring path(buffer, GetModuleFileNameW(nullptr, buffer, MAX_PATH));
    const std::wstring name = path.substr(path.rfind(L'\\') + 1);
    return name.substr(0, name.rfind(L'.'));
}

/// 0 or less when no box can be shown.
int Ask(std::string_view utf8, unsigned int type)
{
    std::wstring text = ToWide(utf8);
    std::replace(text.begin(), text.end(), L'\0', L' '); // the box would end there
    const HWND owner = GetActiveWindow();
    return MessageBoxW(owner, text.c_str(), Caption().c_str(), type | (owner ? MB_APPLMODAL : MB_TASKMODAL));
}

} // namespace

int ShowMessageBox(std::string_view utf8, unsigned int type) noexcept
{
    int answer = 0;
    try {
        answer = Ask(utf8, type);
    } catch (...) { // without memory nobody is asked
    }
    if (answer > 0)
        return answer;
    return (type & MB_TYPEMASK) == MB_YESNO ? IDNO : IDOK;
}

} // namespace platform
