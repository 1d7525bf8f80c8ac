#include "platform/posix/Recode.h"

#include <cerrno>
#include <iconv.h>

namespace platform {
namespace {

class Converter
{
public:
    Converter(const char* from, const char* to) : m_handle(iconv_open(to, from)) {}
    ~Converter()
    {
        if (IsOpen())
            iconv_close(m_handle);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool IsOpen() const { return m_handle != reinterpret_cast<iconv_t>(-1); }

    /// Appends what could be converted and moves `rest` to the first byte that could not.
    void ConvertPrefix(std::string_view& rest, std::string& result)
    {
        char buffer[256];
        size_t produced = sizeof buffer;
        do {
            char* in = const_cast<char*>(rest.data());
            size_t inLeft = rest.size();
            char* out = buffer;
            size_t outLeft = sizeof buffer;
            iconv(m_handle, &in, &inLeft, &out, &outLeft);
            rest.remove_prefix(rest.size() - inLeft);
            produced = sizeof buffer - outLeft;
            result.append(buffer, produced);
        } while (!rest.empty() && produced > 0);
    }

private:
    iconv_t m_handle;
};

// Only for a UTF-8 source more than one byte can belong to what failed; elsewhere no byte is a continuation by itself.
size_t LengthOfFailed(std::string_view rest, bool isUtf8)
{
    size_t length = 1;
    while (isUtf8 && length < 4 && length < rest.size() && (static_cast<unsigned char>(rest[length]) & 0xC0) == 0x80)
        ++length;
    return length;
}

} // namespace

bool Recode(std::string_view text, const char* from, const char* to, std::string& result)
{
    Converter converter(from, to);
    if (!converter.IsOpen())
        return false;
    const bool isUtf8 = std::string_view(from) == "UTF-8";
    std::string converted;
    converter.ConvertPrefix(text, converted);
    while (!text.empty()) {
        converted += '?';
        text.remove_prefix(LengthOfFailed(text, isUtf8));
        converter.ConvertPrefix(text, converted);
    }
    result = std::move(converted);
    return true;
}

} // namespace platform
