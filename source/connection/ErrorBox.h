#pragma once

#include "text/UtCString.h"

namespace connection {

/// Shows that a statement failed: the error, what the server has to say about the statement (`summary`, left out when
/// empty) and the statement itself, cut after 32000 characters. The text is UTF-8, which loses nothing of the three.
void ShowStatementError(const UtCString& error, const UtCString& summary, const UtCString& statement);

/// Shows that the connection was lost again right after it had been restored, with the path of the program, and asks to
/// report it.
void ShowUnexpectedError();

} // namespace connection
