#pragma once

#include "fake_client/FakeState.h"

// What the C functions on handles and on results share.
namespace fake {

/// Sets the error of a handle; an empty text becomes the client's own text for the number, 0 clears it.
void SetError(MYSQL* handle, unsigned int code, const std::string& text = {});

/// What every command does first: clears the previous outcome and checks that it may run. False: it has failed and the
/// handle carries the error.
bool BeginCommand(MYSQL* handle, HandleState& state, Call call, const std::string& arguments);

} // namespace fake
