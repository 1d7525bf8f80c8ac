#include "platform/NumberFormat.h"

#include "platform/PlainNumber.h"

std::string platform::FormatNumber(std::string_view number)
{
    const std::string digits = RoundedDigits(number);
    return digits.empty() ? digits : GroupedNumber(digits);
}
