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

// 0 running answers: the process has gone before the first tick.
TEST(ProcessWaitTest, PollsEvery300MsUntilTheProcessIsGoneAndThenNoMore) {
    for (int running : {0, 1, 4}) {
        int questions = 0;
        platform::SetProcesses(std::make_unique<ScriptedProcesses>(running, questions));
        std::vector<std::chrono::milliseconds> sleeps;
        WaitForProcess(77, [&](std::chrono::milliseconds interval) { sleeps.push_back(interval); });
        EXPECT_EQ(sleeps, std::vector(running + 1, 300ms)) << running;
        EXPECT_EQ(questions, running + 1);

        ProcessWait ended(78);
        EXPECT_FALSE(ended.Tick());
        EXPECT_FALSE(ended.Tick());
        EXPECT_EQ(questions, running + 2);
    }
    platform::ResetServices();
}

}  // namespace
}  // namespace lumacfg
