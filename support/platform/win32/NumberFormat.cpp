#include "platform/NumberFormat.h"

#include "platform/PlainNumber.h"
#include "platform/win32/WinApi.h"

namespace platform {
namespace {

constexpr size_t decimals = 4;

/// Empty when the system refuses, as it does for long numbers. The digits are rounded already: a carry can come out of
/// the system's own rounding behind a missing separator.
std::string FormattedBySystem(const std::string& digits)
{
    char point[] = ".";
    char thousands[] = "'";
    const NUMBERFMTA format = {decimals, 0, 3, point, thousands, 1};
    const std::string number =
        '0' + digits.substr(0, digits.size() - decimals) + '.' + digits.substr(digits.size() - decimals);
    char text[128] = "";
    const int size = GetNumberFormatA(LOCALE_USER_DEFAULT, 0, number.c_str(), &format, text, sizeof text);
    return size > 0 ? text : "";
}

} // namespace

std::string FormatNumber(std::string_view number)
{
    const std::string digits = RoundedDigits(number);
    if (digits.empty())
        return digits;
    const std::string text = FormattedBySystem(digits);
    return text.empty() ? GroupedNumber(digits) : text;
}

} // namespace platform
