#include "platform/NumberFormat.h"

#include "platform/win32/WinApi.h"

std::string platform::FormatNumber(std::string_view number)
{
    char point[] = ".";
    char thousands[] = "'";
    const NUMBERFMTA format = {4, 0, 3, point, thousands, 1};
    char text[128];
    const std::string terminated(number);
    const int size = GetNumberFormatA(LOCALE_USER_DEFAULT, 0, terminated.c_str(), &format, text, sizeof text);
    return size > 0 ? std::string(text) : std::string();
}
