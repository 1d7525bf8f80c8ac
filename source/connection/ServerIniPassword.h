#pragma once

#include "text/UtCString.h"

#include <string_view>

namespace connection {

/// The password behind the "Password" value of a settings file, with encoding 256.
///
/// `hex` is upper-case hexadecimal text, 16 digits for each block, enciphered with the built-in key of `CDES` in
/// cipher-block chaining that starts from zeros. Every other character, lower-case letters included, counts as 0. Zero
/// bytes of the plain text are padding and are dropped wherever they stand. Empty for a text whose length is no
/// multiple of 16; a text that nobody enciphered gives some bytes, never an error. Empty also when memory runs out.
UtCString DecipherPassword(std::string_view hex) noexcept;

} // namespace connection
