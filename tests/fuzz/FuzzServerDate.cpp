// The text of a date or date-time column.
#include "datetime/ServerDate.h"

#include <cstdlib>

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

/// The number of a piece, through the string class alone.
int Piece(std::string_view text, size_t position, size_t length)
{
    int number = 0;
    const UtCString piece(text.substr(position, length), UT_ENCODING_DEFAULT);
    return piece.Convert(number) ? number : 0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const CDateTime date = datetime::FromServerText(text);
    if (size <= 8 || Piece(text, 0, 4) <= 0) {
        Require(date.GetStatus() == CDateTime::null && date.GetValue() == 0);
        return 0;
    }
    const bool hasTime = size >= 18;
    const CDateTime expected(Piece(text, 0, 4), Piece(text, 5, 2), Piece(text, 8, 2), hasTime ? Piece(text, 11, 2) : 0,
                             hasTime ? Piece(text, 14, 2) : 0, hasTime ? Piece(text, 17, 2) : 0);
    Require(date.GetStatus() == expected.GetStatus() && date.GetValue() == expected.GetValue());
    return 0;
}
