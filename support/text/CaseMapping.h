#pragma once

#include <cstdint>

/// The simple case mapping of Unicode: one character to one character, independent of language and position.
namespace text {

/// The upper case of a character; itself when it has none or is no code point.
uint32_t ToUpper(uint32_t character) noexcept;

/// The lower case of a character; itself when it has none or is no code point.
uint32_t ToLower(uint32_t character) noexcept;

} // namespace text
