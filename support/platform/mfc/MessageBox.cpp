#include "platform/MessageBox.h"

#include "platform/mfc/FrameworkText.h"

int platform::ShowMessageBox(std::string_view utf8, unsigned int type) noexcept
{
    int answer = 0;
    try {
        answer = AfxMessageBox(FrameworkText(utf8), type, 0);
    } catch (...) { // without memory nobody is asked
    }
    if (answer > 0)
        return answer;
    return (type & MB_TYPEMASK) == MB_YESNO ? IDNO : IDOK;
}
