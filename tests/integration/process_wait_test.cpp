#include "integration/process_wait.h"

#include <gtest/gtest.h>

#include "platform/services.h"

namespace lumacfg {
namespace {

using namespace std::chrono_literals;

// A process that is running for the first `runningAnswers` questions, then gone.
class ScriptedProcesses final : public platform::ProcessService {
  public:
    ScriptedProcesses(int runningAnswers, int& questions)
        : runningAnswers_(runningAnswers), questions_(questions) {}
    std::optional<platform::ProcessId> Start(std::string_view) override { return std::nullopt; }
    bool IsRunning(platform::ProcessId id) override {
        return questions_++ < runningAnswers_ && id == 77;
    }

  private:
    int runningAnswers_;
    int& questions_;
};

class ProcessWaitTest : public ::testing::TestWithParam<int> {
  protected:
    void SetUp() override {
        platform::SetProcesses(std::make_unique<ScriptedProcesses>(GetParam(), questions_));
    }
    void TearDown() override { platform::ResetServices(); }

    int questions_ = 0;
};

TEST_P(ProcessWaitTest, PollsEvery300MsUntilTheProcessIsGoneAndThenNoMore) {
    std::vector<std::chrono::milliseconds> sleeps;
    WaitForProcess(77, [&](std::chrono::milliseconds interval) { sleeps.push_back(interval); });
    EXPECT_EQ(sleeps, std::vector(GetParam() + 1, 300ms));
    EXPECT_EQ(questions_, GetParam() + 1);

    ProcessWait ended(78);
    EXPECT_FALSE(ended.Tick());
    EXPECT_FALSE(ended.Tick());
    EXPECT_EQ(questions_, GetParam() + 2);
}

// 0: the process has gone before the first tick.
INSTANTIATE_TEST_SUITE_P(RunningTicks, ProcessWaitTest, ::testing::Values(0, 1, 4));

}  // namespace
}  // namespace lumacfg
