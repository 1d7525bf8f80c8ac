#pragma once

#include "framework/VariantName.h"

namespace framework {

/// Converts a value to an OLE automation date. A date is taken as it is, whatever its value; every other type is
/// converted by the platform's coercion with flags 0: VT_EMPTY gives 0.0; a number or truth value (-1 or 0) is taken as
/// the date value and must lie in the years 100 to 9999; a text is read as `platform::ParseLocaleDate` does with flags
/// 0. False, and `date` untouched, for VT_NULL, VT_ERROR, a number out of range, a text that is no date, and without
/// memory. Other type codes, VT_BYREF included, are left to Windows; other systems refuse them.
bool VariantToOleDate(const VARIANT& value, DATE& date) noexcept;

} // namespace framework
