#include "platform/PlainNumber.h"

#include <algorithm>

namespace platform {
namespace {

constexpr size_t decimals = 4;
constexpr size_t groupSize = 3;

bool HasOnlyDigits(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char character) { return character >= '0' && character <= '9'; });
}

/// The digits of the number times ten to the power of `decimals`, the rest cut off.
std::string Scaled(std::string_view whole, std::string_view fraction)
{
    std::string digits(whole.substr(std::min(whole.find_first_not_of('0'), whole.size())));
    digits += fraction.substr(0, decimals);
    if (fraction.size() < decimals)
        digits.append(decimals - fraction.size(), '0');
    return digits;
}

void AddOne(std::string& digits)
{
    const size_t carriesInto = digits.find_last_not_of('9');
    const size_t firstNine = carriesInto == std::string::npos ? 0 : carriesInto + 1;
    std::fill(digits.begin() + static_cast<std::ptrdiff_t>(firstNine), digits.end(), '0');
    if (carriesInto == std::string::npos)
        digits.insert(digits.begin(), '1');
    else
        ++digits[carriesInto];
}

std::string Grouped(std::string_view whole)
{
    std::string text;
    for (size_t position = 0; position < whole.size(); ++position) {
        if (position != 0 && (whole.size() - position) % groupSize == 0)
            text += '\'';
        text += whole[position];
    }
    return text;
}

} // namespace

std::string RoundedDigits(std::string_view number)
{
    const size_t point = std::min(number.find('.'), number.size());
    const std::string_view whole = number.substr(0, point);
    const std::string_view fraction = point == number.size() ? std::string_view() : number.substr(point + 1);
    if ((whole.empty() && fraction.empty()) || !HasOnlyDigits(whole) || !HasOnlyDigits(fraction))
        return {};
    std::string digits = Scaled(whole, fraction);
    if (fraction.size() > decimals && fraction[decimals] >= '5')
        AddOne(digits);
    return digits;
}

std::string GroupedNumber(const std::string& digits)
{
    const std::string_view scaled = digits;
    const size_t point = scaled.size() - decimals;
    return Grouped(scaled.substr(0, point)) + '.' + digits.substr(point);
}

} // namespace platform
