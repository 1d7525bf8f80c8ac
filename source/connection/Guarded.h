#pragma once

namespace connection {

/// Runs `body` and gives its result; gives `failure` when it throws. The outermost step of a public member, which must
/// not let an exception reach the host: that of an exhausted memory, or one out of a host's own derived class.
template <class Result, class Body> Result Guarded(Result failure, Body&& body) noexcept
{
    try {
        return body();
    } catch (...) {
        return failure;
    }
}

} // namespace connection
