#pragma once

#include <string_view>

namespace platform {

/// Shows a UTF-8 text to the person at the program and gives the answer, 1 (OK), 6 (Yes) or 7 (No). `type` has the bits
/// of the Windows message box: 16 error, 32 question, 64 information; 4 in the lowest four bits asks Yes or No.
///
/// Systems without message boxes write the text to the terminal and answer for the person: OK, and No to a question,
/// so that nothing is done which nobody agreed to. Never fails.
int ShowMessageBox(std::string_view utf8, unsigned int type) noexcept;

} // namespace platform
