#include "harness/GuidText.h"

#include "platform/win32/WinApi.h"

#include <gtest/gtest.h>

#include <rpc.h>

namespace {

TEST(GuidCharactersOnWindows, AreThoseOfTheSystemWhichAsksForMemory)
{
    for (_GUID guid : {_GUID{}, _GUID{0x6b29fc40, 0xca47, 0x1067, {0xb3, 0x1d, 0x00, 0xdd, 0x01, 0x06, 0x62, 0xda}},
                       _GUID{0xFFFFFFFF, 0xFFFF, 0x00FF, {0, 255, 1, 254, 2, 253, 3, 252}}}) {
        RPC_CSTR text = nullptr;
        ASSERT_EQ(UuidToStringA(&guid, &text), RPC_S_OK);
        EXPECT_EQ(GuidText(guid), reinterpret_cast<const char*>(text));
        RpcStringFreeA(&text);
    }
}

} // namespace
