#pragma once

#include "text/UtEncoding.h"

#include <string_view>

namespace sql {

/// The bytes of a text in `encoding` without the blanks, carriage returns and line feeds at its end.
std::string_view TrimStatement(std::string_view bytes, eUtEncodingType encoding) noexcept;

/// Whether a text in `encoding` has no character but blanks (U+0020).
bool IsBlank(std::string_view bytes, eUtEncodingType encoding) noexcept;

} // namespace sql
