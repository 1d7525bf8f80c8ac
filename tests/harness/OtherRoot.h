#pragma once

#include "harness/System.h"

#include <gtest/gtest.h>

// For what the library looks up in the root of the file system: a test must neither rely on that nor change it.
namespace harness {

/// Runs `work` with `folder` as the root of the file system and the working directory, see RunInRoot. False when an
/// expectation failed there, or when the root cannot be changed, which fails the test.
template <class Work> bool InOtherRoot(const std::filesystem::path& folder, Work&& work)
{
    return RunInRoot(folder, [&] {
        work();
        return !testing::Test::HasFailure();
    });
}

} // namespace harness
