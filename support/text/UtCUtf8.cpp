#include "text/UtCUtf8.h"

#include <cstring>

const char* UtCUtf8::SkipBOM(const char* text) noexcept
{
    if (text == nullptr)
        return nullptr;
    return std::strncmp(text, "\xEF\xBB\xBF", 3) == 0 ? text + 3 : text;
}
