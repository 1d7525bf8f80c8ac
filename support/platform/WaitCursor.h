#pragma once

namespace platform {

/// Shows the person at the program that something takes long, until `EndWaitCursor`. Pairs may be nested. To be called
/// by the thread of the user interface. Systems without a pointer show nothing.
void BeginWaitCursor() noexcept;
void EndWaitCursor() noexcept;

} // namespace platform
