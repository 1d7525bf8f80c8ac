#pragma once

#include "connection/CDES.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

/// The text that a `Server.ini` holds for a password: cipher-block chaining from zeros with the built-in key, the last
/// block filled up with zeros, upper-case hexadecimal digits. Nothing for a password that would not come back: one of
/// more than 120 bytes, of which a value of a settings file holds too few digits, or one with a zero byte.
inline std::optional<std::string> EncipherPassword(std::string_view password)
{
    constexpr std::size_t longestPassword = 120;
    constexpr char digits[] = "0123456789ABCDEF";
    if (password.size() > longestPassword || password.find('\0') != std::string_view::npos)
        return std::nullopt;

    const CDES cipher;
    CDES::Block chain{};
    std::string stored;
    for (; !password.empty(); password.remove_prefix(std::min(password.size(), chain.size()))) {
        for (std::size_t index = 0; index < std::min(password.size(), chain.size()); ++index)
            chain[index] ^= static_cast<std::uint8_t>(password[index]);
        chain = cipher.Transform(chain, CDES::Mode::Encrypt);
        for (const std::uint8_t byte : chain)
            stored += {digits[byte >> 4], digits[byte & 0x0F]};
    }
    return stored;
}
