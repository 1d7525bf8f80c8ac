#include "datetime/DateFormat.h"

#include "framework/OleDate.h"

#include <string_view>

namespace datetime {
namespace {

// The conversions are those of strftime. The two blanks of 2 to 5 and the one of 9 are part of the interface.
// KEPT K-50: the date-times for people have two blanks between date and time, the form for the server has one.
constexpr std::string_view patterns[largestSelector + 1] = {
    "",                   //
    "%d.%m.%Y",           //
    "%d.%m.%y  %H:%M",    //
    "%d.%m.%y  %H:%M:%S", //
    "%d.%m.%Y  %H:%M",    //
    "%d.%m.%Y  %H:%M:%S", //
    "%Y%m%d",             //
    "#%Y/%m/%d#",         //
    "'%Y-%m-%d'",         //
    "%Y-%m-%d %H:%M:%S",  //
    "%H:%M:%S",           //
    "%Y-%m-%d",           //
    "%H:%M",
};

void AppendTwoDigits(std::string& text, int number)
{
    text += static_cast<char>('0' + number / 10);
    text += static_cast<char>('0' + number % 10);
}

void AppendField(std::string& text, char conversion, const platform::CalendarFields& fields)
{
    switch (conversion) {
    case 'Y':
        AppendTwoDigits(text, fields.year / 100);
        return AppendTwoDigits(text, fields.year % 100);
    case 'y':
        return AppendTwoDigits(text, fields.year % 100);
    case 'm':
        return AppendTwoDigits(text, fields.month);
    case 'd':
        return AppendTwoDigits(text, fields.day);
    case 'H':
        return AppendTwoDigits(text, fields.hour);
    case 'M':
        return AppendTwoDigits(text, fields.minute);
    default:
        return AppendTwoDigits(text, fields.second);
    }
}

} // namespace

std::string Format(double value, unsigned int selector)
{
    platform::CalendarFields fields;
    if (!framework::FieldsFromOleDate(value, fields))
        return "Invalid DateTime";
    std::string text;
    const std::string_view pattern = selector <= largestSelector ? patterns[selector] : std::string_view();
    for (size_t position = 0; position < pattern.size(); ++position)
        if (pattern[position] == '%')
            AppendField(text, pattern[++position], fields);
        else
            text += pattern[position];
    return text;
}

} // namespace datetime
