#pragma once

#include <string>

namespace fake {

/// The client's own text for an error number; "Fake error <number>" for the numbers that only a server uses.
std::string ErrorText(unsigned int code);

/// Ends the test program with the message on standard error: the library under test broke a rule of the client.
[[noreturn]] void ReportMisuse(const std::string& message);

} // namespace fake
