#pragma once

#include <string>

namespace datetime {

inline constexpr unsigned int largestSelector = 12;

/// An OLE automation date in the form 1 to 12 of `CDateTime::GetDate`. "Invalid DateTime" when its fields cannot be
/// read, empty for another selector.
std::string Format(double value, unsigned int selector);

} // namespace datetime
