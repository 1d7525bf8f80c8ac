#pragma once

#include "text/UtCString.h"

namespace datetime {

inline constexpr unsigned int largestSelector = 12;

/// An OLE automation date in the form 1 to 12 of `CDateTime::GetDate`. "Invalid DateTime" when its fields cannot be
/// read, empty for another selector. Takes no memory.
UtCString Format(double value, unsigned int selector);

} // namespace datetime
