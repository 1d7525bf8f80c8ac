#include "platform/CopyFile.h"

#include "platform/win32/Recode.h"
#include "platform/win32/WinApi.h"

// Not the standard library's: mingw-w64's ends the program when memory runs out, and loses the attributes.
bool platform::CopyToNewFile(const std::string& from, const std::string& to) noexcept
try {
    return CopyFileW(ToWide(from).c_str(), ToWide(to).c_str(), TRUE) != 0;
} catch (...) {
    return false;
}
