#pragma once

#include <cstdint>

namespace platform {

/// Milliseconds of a clock that never goes back; it wraps to 0 after 2^32 (49.7 days), so only differences, taken in
/// unsigned 32-bit arithmetic, mean something.
uint32_t TickCount() noexcept;

} // namespace platform
