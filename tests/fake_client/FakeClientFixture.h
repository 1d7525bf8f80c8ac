#pragma once

#include "fake_client/FakeClient.h"

#include <gtest/gtest.h>

namespace fake {

/// Fixture for tests on the fake client: each test starts with a reset one and ends with everything closed.
class ClientFixture : public testing::Test
{
protected:
    ClientFixture() { m_client.Reset(); }
    void TearDown() override { EXPECT_EQ(m_client.Leaks(), ""); }

    Client& m_client = Client::Get();
};

} // namespace fake
