#include "platform/MessageBox.h"

#include "platform/mfc/FrameworkText.h"

#include <algorithm>
#include <string>

int platform::ShowMessageBox(std::string_view utf8, unsigned int type) noexcept
{
    int answer = 0;
    try {
        std::string text(utf8);
        std::replace(text.begin(), text.end(), '\0', ' '); // the box would end there
        answer = AfxMessageBox(FrameworkText(text), type, 0);
    } catch (...) { // without memory nobody is asked
    }
    if (answer > 0)
        return answer;
    return (type & MB_TYPEMASK) == MB_YESNO ? IDNO : IDOK;
}
