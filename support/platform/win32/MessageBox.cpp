#include "platform/MessageBox.h"

#include "platform/win32/Recode.h"
#include "platform/win32/WinApi.h"

int platform::ShowMessageBox(std::string_view utf8, unsigned int type) noexcept
{
    constexpr unsigned int buttonBits = 15;
    int answer = 0;
    try {
        answer = MessageBoxW(GetActiveWindow(), ToWide(utf8, CP_UTF8).c_str(), L"", type);
    } catch (...) { // without memory nobody is asked
    }
    if (answer != 0)
        return answer;
    return (type & buttonBits) == MB_YESNO ? IDNO : IDOK;
}
