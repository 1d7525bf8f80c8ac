#pragma once

/// Calls every member whose name <windows.h> changes, in a source that includes that header in front of the library's
/// (`Before`) or behind them (`Behind`). The members have to be the same, and those of the DLL.
bool MembersAnswerWithHeaderBefore();
bool MembersAnswerWithHeaderBehind();
