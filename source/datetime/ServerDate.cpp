#include "datetime/ServerDate.h"

namespace datetime {
namespace {

unsigned int Digit(char character)
{
    return static_cast<unsigned char>(character) - unsigned{'0'};
}

int ConvertedPiece(std::string_view piece)
{
    int number = 0;
    UtCString(piece, UT_ENCODING_DEFAULT).Convert(number);
    return number;
}

// Digits, that is what every server sends, need no general conversion.
int Pair(std::string_view text, size_t position)
{
    if (position + 2 > text.size())
        return ConvertedPiece(text.substr(position));
    const unsigned int tens = Digit(text[position]);
    const unsigned int ones = Digit(text[position + 1]);
    return tens < 10 && ones < 10 ? static_cast<int>(tens * 10 + ones) : ConvertedPiece(text.substr(position, 2));
}

int Year(std::string_view text)
{
    for (size_t position = 0; position < 4; ++position)
        if (Digit(text[position]) > 9)
            return ConvertedPiece(text.substr(0, 4));
    return Pair(text, 0) * 100 + Pair(text, 2);
}

CDateTime Empty()
{
    CDateTime empty;
    empty.SetNull();
    return empty;
}

} // namespace

CDateTime FromServerText(std::string_view text) noexcept
{
    if (text.size() <= 8)
        return Empty();
    const int year = Year(text);
    if (year <= 0)
        return Empty();
    const int month = Pair(text, 5);
    const int day = Pair(text, 8);
    // KEPT K-51: the time is read from 18 characters on, although a full date-time has 19.
    if (text.size() < 18)
        return CDateTime(year, month, day, 0, 0, 0);
    return CDateTime(year, month, day, Pair(text, 11), Pair(text, 14), Pair(text, 17));
}

} // namespace datetime
