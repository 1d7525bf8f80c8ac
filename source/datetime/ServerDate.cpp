#include "datetime/ServerDate.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace datetime {
namespace {

int Piece(std::string_view text, size_t position, size_t length)
{
    int number = 0;
    UtCString(text.substr(position, length), UT_ENCODING_DEFAULT).Convert(number);
    return number;
}

CDateTime Empty()
{
    CDateTime empty;
    empty.SetNull();
    return empty;
}

CDateTime FromPieces(std::string_view text)
{
    const int year = text.size() > 8 ? Piece(text, 0, 4) : 0;
    if (year <= 0)
        return Empty();
    const int month = Piece(text, 5, 2);
    const int day = Piece(text, 8, 2);
    // KEPT K-51: the time is read from 18 characters on, although a full date-time has 19.
    if (text.size() < 18)
        return CDateTime(year, month, day, 0, 0, 0);
    return CDateTime(year, month, day, Piece(text, 11, 2), Piece(text, 14, 2), Piece(text, 17, 2));
}

// Up to eight characters at once, each in a byte of its own and the first in the lowest.
class Digits
{
public:
    // `mask` has 0xFF where a digit is expected; the other characters are not looked at.
    Digits(const char* text, size_t count, uint64_t mask)
    {
        uint64_t characters = 0;
        std::memcpy(&characters, text, count);
        m_digits = (characters ^ 0x3030303030303030) & mask;
    }

    bool AreDigits() const { return (((m_digits + 0x0606060606060606) | m_digits) & 0xF0F0F0F0F0F0F0F0) == 0; }

    // For every position the number that its digit and the next one make.
    uint64_t Pairs() const { return m_digits * 10 + (m_digits >> 8); }

private:
    uint64_t m_digits;
};

int At(uint64_t pairs, int position)
{
    return static_cast<int>(pairs >> (8 * position) & 0xFF);
}

// What every server sends: digits wherever they are expected. False for everything else.
bool ReadPlainDateTime(std::string_view text, CDateTime& date)
{
    if (std::endian::native != std::endian::little || text.size() < 19)
        return false;
    const Digits front(text.data(), 8, 0x00FFFF00FFFFFFFF);      // 2024-03-
    const Digits middle(text.data() + 8, 8, 0xFFFF00FFFF00FFFF); // 05 14:07
    const Digits back(text.data() + 17, 2, 0xFFFF);              // 09
    const int year = At(front.Pairs(), 0) * 100 + At(front.Pairs(), 2);
    if (!front.AreDigits() || !middle.AreDigits() || !back.AreDigits() || year == 0)
        return false;
    date = CDateTime(year, At(front.Pairs(), 5), At(middle.Pairs(), 0), At(middle.Pairs(), 3), At(middle.Pairs(), 6),
                     At(back.Pairs(), 0));
    return true;
}

} // namespace

CDateTime FromServerText(std::string_view text) noexcept
{
    CDateTime date;
    return ReadPlainDateTime(text, date) ? date : FromPieces(text);
}

} // namespace datetime
