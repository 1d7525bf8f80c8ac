#include "fake_client/FakeErrors.h"

#include <cstdio>
#include <cstdlib>

namespace fake {

std::string ErrorText(unsigned int code)
{
    switch (code) {
    case 2001:
        return "Can't create UNIX socket (24)";
    case 2002:
        return "Can't connect to server on '127.0.0.1' (115)";
    case 2006:
        return "Server has gone away";
    case 2008:
        return "Client run out of memory";
    case 2013:
        return "Lost connection to server during query";
    case 2014:
        return "Commands out of sync; you can't run this command now";
    default:
        return "Fake error " + std::to_string(code);
    }
}

void ReportMisuse(const std::string& message)
{
    std::fprintf(stderr, "fake client: %s\n", message.c_str());
    std::fflush(stderr);
    std::abort();
}

} // namespace fake
