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

/// A text as it grows; no pattern gives more than fits.
struct Line
{
    void Append(char character) noexcept { characters[size++] = character; }

    char characters[24];
    size_t size = 0;
};

void AppendTwoDigits(Line& line, int number)
{
    line.Append(static_cast<char>('0' + number / 10));
    line.Append(static_cast<char>('0' + number % 10));
}

void AppendField(Line& line, char conversion, const platform::CalendarFields& fields)
{
    switch (conversion) {
    case 'Y':
        AppendTwoDigits(line, fields.year / 100);
        return AppendTwoDigits(line, fields.year % 100);
    case 'y':
        return AppendTwoDigits(line, fields.year % 100);
    case 'm':
        return AppendTwoDigits(line, fields.month);
    case 'd':
        return AppendTwoDigits(line, fields.day);
    case 'H':
        return AppendTwoDigits(line, fields.hour);
    case 'M':
        return AppendTwoDigits(line, fields.minute);
    default:
        return AppendTwoDigits(line, fields.second);
    }
}

} // namespace

UtCString Format(double value, unsigned int selector)
{
    platform::CalendarFields fields;
    if (!framework::FieldsFromOleDate(value, fields))
        return "Invalid DateTime";
    Line line;
    const std::string_view pattern = selector <= largestSelector ? patterns[selector] : std::string_view();
    for (size_t position = 0; position < pattern.size(); ++position)
        if (pattern[position] == '%')
            AppendField(line, pattern[++position], fields);
        else
            line.Append(pattern[position]);
    return UtCString({line.characters, line.size}, UT_ENCODING_DEFAULT);
}

} // namespace datetime
