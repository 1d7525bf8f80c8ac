#include "platform/MessageBox.h"

#include "platform/posix/Terminal.h"

namespace platform {

int ShowMessageBox(std::string_view utf8, unsigned int type) noexcept
{
    constexpr unsigned int buttonBits = 15;
    constexpr unsigned int yesNoButtons = 4;
    constexpr int answerOk = 1;
    constexpr int answerNo = 7;

    WriteToTerminal(utf8);
    return (type & buttonBits) == yesNoButtons ? answerNo : answerOk;
}

} // namespace platform
