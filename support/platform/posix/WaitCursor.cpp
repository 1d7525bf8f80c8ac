#include "platform/WaitCursor.h"

void platform::BeginWaitCursor() noexcept {}
void platform::EndWaitCursor() noexcept {}
