#pragma once

#include "CMyServer.h"

#include "harness/GeneratedIni.h"
#include "unit/serverini/IniFolder.h"

#include <gtest/gtest.h>

inline void ExpectLoaded(const std::string& path, const harness::IniSettings& expected)
{
    const std::string port = std::to_string(expected.port);
    CMyServer server;
    const bool isValid = !expected.host.empty() && !expected.user.empty() && expected.port != 0;
    EXPECT_EQ(server.LoadServerINI(path.c_str()), isValid);
    EXPECT_EQ(server.GetHost().View(), expected.host);
    EXPECT_EQ(server.GetUser().View(), expected.user);
    EXPECT_EQ(server.GetMySQLProgramDir().View(), expected.programDirectory);
    EXPECT_EQ(server.GetPort(), expected.port);
    EXPECT_EQ(server.GetAlias().View(), expected.host + "::" + port);
    EXPECT_EQ(server.GetServerINIFileName().View(), path);
}

inline void ExpectEachLoaded(const harness::IniKind& kind)
{
    const IniFolder folder;
    harness::IniRandom random(20240229);
    for (int index = 0; index < kind.count; ++index) {
        const harness::GeneratedIni file = kind.generate(random);
        ExpectLoaded(folder.Write(file.bytes), file.expected);
        ASSERT_FALSE(testing::Test::HasFailure())
            << "file " << index << ": " << testing::PrintToString(file.bytes.substr(0, 2000));
    }
}
