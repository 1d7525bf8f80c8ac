#include "log/UtAppLogging.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

class Recorder : public UtAppLogSink
{
public:
    void Warning(const char* file, long line, const char* key, const char* function) override
    {
        m_text += std::string(file) + '|' + std::to_string(line) + '|' + key + '|' + function + '\n';
    }
    std::string m_text;
};

class Thrower : public UtAppLogSink
{
public:
    void Warning(const char*, long, const char*, const char*) override { throw std::runtime_error("disk full"); }
};

/// Puts the sink in place for the time of a test.
class Installed
{
public:
    explicit Installed(UtAppLogSink& sink) { UtAppLogging::SetSink(&sink); }
    Installed(const Installed&) = delete;
    Installed& operator=(const Installed&) = delete;
    ~Installed() { UtAppLogging::SetSink(nullptr); }
};

} // namespace

TEST(UtAppLogging, WritesALineOnStandardErrorByDefault)
{
    testing::internal::CaptureStderr();
    UtAppLogging::LogWarning("UtArray.h", 42, "some.key", "UtArray<T>::RemoveAt");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "UtArray.h(42): warning: some.key in UtArray<T>::RemoveAt\n");
}

TEST(UtAppLogging, HandsWarningsToItsSink)
{
    Recorder recorder;
    const Installed installed(recorder);
    testing::internal::CaptureStderr();
    UtAppLogging::LogWarning("a.h", 1, "key", "f");
    UtAppLogging::LogWarning("b.h", -1, "other", "g");
    EXPECT_EQ(recorder.m_text, "a.h|1|key|f\nb.h|-1|other|g\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(UtAppLogging, TakesNullAsTheEmptyText)
{
    Recorder recorder;
    const Installed installed(recorder);
    UtAppLogging::LogWarning(nullptr, 0, nullptr, nullptr);
    EXPECT_EQ(recorder.m_text, "|0||\n");
}

TEST(UtAppLogging, ReturnsThePreviousSink)
{
    Recorder first;
    Recorder second;
    EXPECT_EQ(UtAppLogging::SetSink(&first), nullptr);
    EXPECT_EQ(UtAppLogging::SetSink(&second), &first);
    EXPECT_EQ(UtAppLogging::SetSink(nullptr), &second);
    EXPECT_EQ(UtAppLogging::SetSink(nullptr), nullptr);
}

TEST(UtAppLogging, LosesTheWarningWhenTheSinkThrows)
{
    Thrower thrower;
    const Installed installed(thrower);
    EXPECT_NO_THROW(UtAppLogging::LogWarning("a.h", 1, "key", "f"));
}
