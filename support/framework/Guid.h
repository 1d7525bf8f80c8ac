#pragma once

// The framework's name for the identifier and its text form.
#include "platform/Guid.h"
