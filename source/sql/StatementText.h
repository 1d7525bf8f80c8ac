#pragma once

#include "text/UtEncoding.h"

#include <string_view>

namespace sql {

/// The bytes of a text in `encoding` without the blanks, carriage returns and line feeds at its end.
std::string_view TrimStatement(std::string_view bytes, eUtEncodingType encoding) noexcept;

/// Whether the bytes mean the same in both encodings, so that a conversion would not change them: true for the same
/// encoding, and for ASCII text in the encodings that contain ASCII (256 and UTF-8).
bool MeansTheSame(std::string_view bytes, eUtEncodingType encoding, eUtEncodingType other) noexcept;

} // namespace sql
