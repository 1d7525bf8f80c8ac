#include "connection/ServerIniPassword.h"

#include "connection/CDES.h"
#include "connection/Guarded.h"

#include <string>

namespace {

constexpr std::size_t digitsPerBlock = 2 * CDES::blockSize;

std::uint8_t DigitValue(char digit) noexcept
{
    if (digit >= '0' && digit <= '9')
        return static_cast<std::uint8_t>(digit - '0');
    if (digit >= 'A' && digit <= 'F')
        return static_cast<std::uint8_t>(digit - 'A' + 10);
    // KEPT K-73: lower-case hexadecimal digits count as 0, like everything that is no digit.
    return 0;
}

CDES::Block BlockFromHex(std::string_view digits) noexcept
{
    CDES::Block block{};
    for (std::size_t index = 0; index < block.size(); ++index)
        block[index] =
            static_cast<std::uint8_t>(DigitValue(digits[2 * index]) << 4 | DigitValue(digits[2 * index + 1]));
    return block;
}

void AppendUnchained(const CDES::Block& deciphered, const CDES::Block& chain, std::string& password)
{
    for (std::size_t index = 0; index < deciphered.size(); ++index) {
        const auto byte = static_cast<char>(deciphered[index] ^ chain[index]);
        if (byte != '\0')
            password += byte;
    }
}

std::string Decipher(std::string_view hex)
{
    const CDES cipher;
    CDES::Block chain{};
    std::string password;
    for (std::size_t start = 0; start < hex.size(); start += digitsPerBlock) {
        const CDES::Block block = BlockFromHex(hex.substr(start, digitsPerBlock));
        AppendUnchained(cipher.Transform(block, CDES::Mode::Decrypt), chain, password);
        chain = block;
    }
    return password;
}

} // namespace

UtCString connection::DecipherPassword(std::string_view hex) noexcept
{
    if (hex.size() % digitsPerBlock != 0)
        return UtCString();
    return Guarded(UtCString(), [hex] { return UtCString(Decipher(hex), UT_ENCODING_DEFAULT); });
}
