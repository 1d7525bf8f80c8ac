#include "platform/mfc/FrameworkText.h"

#include "platform/win32/Recode.h"

CString platform::FrameworkText(std::string_view utf8)
{
    const std::wstring wide = ToWide(utf8);
    return CString(wide.c_str(), static_cast<int>(wide.size()));
}
