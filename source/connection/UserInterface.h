#pragma once

#include "MyDbUserInterface.h"

namespace connection {

/// The user interface in force: the host's own one, or the platform's default.
MyDbUserInterface& UserInterface() noexcept;

} // namespace connection
