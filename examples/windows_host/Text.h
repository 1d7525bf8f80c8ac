// Texts between the library, which tags them with an encoding, and the wide functions of Windows.
#pragma once

#include "text/UtCString.h"

#include <string>

std::wstring Wide(const UtCString& text);
UtCString Utf8(const std::wstring& text);

/// With points between the thousands, as German readers expect it: 1.234.567.
std::wstring Grouped(long long number);
