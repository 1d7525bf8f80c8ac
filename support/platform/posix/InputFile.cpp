#include "platform/InputFile.h"

namespace platform {

std::FILE* OpenInputFile(const char* nativePath) noexcept
{
    return std::fopen(nativePath, "rbe");
}

} // namespace platform
