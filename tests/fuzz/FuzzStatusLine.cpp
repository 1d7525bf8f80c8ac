// The number formatter and the status line: what is written reads back as what was given, and nothing else changes.
#include "admin/StatusReport.h"
#include "platform/NumberFormat.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool IsNumber(std::string_view text)
{
    return std::count(text.begin(), text.end(), '.') <= 1 && std::any_of(text.begin(), text.end(), IsDigit) &&
           std::all_of(text.begin(), text.end(), [](char character) { return IsDigit(character) || character == '.'; });
}

/// The digits up to the fourth decimal as one whole number, without zeros in front, counted up where the fifth one says
/// so.
std::string Rounded(std::string_view number)
{
    std::string digits = "0";
    size_t decimals = 0;
    bool isFraction = false;
    bool roundsUp = false;
    for (const char character : number) {
        if (character == '.') {
            isFraction = true;
        } else if (!isFraction || decimals < 4) {
            digits += character;
            decimals += isFraction;
        } else if (decimals++ == 4) {
            roundsUp = character >= '5';
        }
    }
    for (; decimals < 4; ++decimals)
        digits += '0';
    for (size_t at = digits.size(); roundsUp && at-- > 0;) {
        roundsUp = digits[at] == '9';
        digits[at] = roundsUp ? '0' : static_cast<char>(digits[at] + 1);
    }
    return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

/// The text without what divides digits.
std::string Digits(std::string_view text)
{
    std::string digits;
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits), IsDigit);
    return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

void CheckNumber(std::string_view number)
{
    const std::string text = platform::FormatNumber(number);
    Require(text.empty() != IsNumber(number));
    if (text.empty())
        return;
    Require(Digits(text) == Rounded(number));
    const size_t point = text.find('.');
    Require(point == text.size() - 5 && text.front() != '0' && text.front() != '\'');
    for (size_t fromPoint = 1; fromPoint <= point; ++fromPoint)
        Require((text[point - fromPoint] == '\'') == (fromPoint % 4 == 0));
    const std::string trimmed = admin::FormatNumber(number);
    Require(IsDigit(trimmed.front()) && IsDigit(trimmed.back()));
    Require(trimmed.find('.') == std::string::npos || trimmed.back() != '0');
}

/// What is neither digit nor what the formatting adds or removes.
std::string Labels(std::string_view text)
{
    std::string labels;
    for (const char character : text) {
        if (!IsDigit(character) && character != '\'' && character != '.' && character != ' ' && character != '\n')
            labels += character;
    }
    return labels;
}

void CheckLine(std::string_view line)
{
    // The first number is out of the way: its words would not be told from labels.
    const std::string given = "12.5 " + std::string(line);
    const std::string text = admin::FormatStatusLine(given);
    Require(Labels(text) == Labels(given));
    Require(text.find("\n ") == std::string::npos && text.find(" \n") == std::string::npos);
    admin::FormatStatusLine(line);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    CheckNumber(text);
    CheckLine(text);
    return 0;
}
