#include "platform/OutputFile.h"

#include "platform/win32/Recode.h"
#include "platform/win32/WinApi.h"

#include <algorithm>

namespace platform {

intptr_t CreateOutputFile(const std::string& nativePath) noexcept
try {
    return reinterpret_cast<intptr_t>(CreateFileW(ToWide(nativePath).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                                  CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
} catch (...) {
    return noFile;
}

bool WriteOutputFile(intptr_t file, const void* bytes, size_t size) noexcept
{
    constexpr size_t most = 1U << 30;
    const char* next = static_cast<const char*>(bytes);
    while (size > 0) {
        DWORD written = 0;
        const auto piece = static_cast<DWORD>(std::min(size, most));
        if (!WriteFile(reinterpret_cast<HANDLE>(file), next, piece, &written, nullptr) || written == 0)
            return false;
        next += written;
        size -= written;
    }
    return true;
}

bool CloseOutputFile(intptr_t file) noexcept
{
    return CloseHandle(reinterpret_cast<HANDLE>(file)) != 0;
}

} // namespace platform
