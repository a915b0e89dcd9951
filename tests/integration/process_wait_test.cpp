#include "integration/process_wait.h"

#include <gtest/gtest.h>

#include "platform/services.h"
#include "support/fake_desktop.h"

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

// A program started as a normal window shows it a moment later: the first tick that finds it
// brings it to the front, once; a wait that was not asked to raises nothing.
TEST(ProcessWaitTest, TheProgramsWindowIsBroughtToTheFrontOnceItShows) {
    for (bool raise : {true, false}) {
        int questions = 0;
        platform::SetProcesses(std::make_unique<ScriptedProcesses>(4, questions));
        support::FakeDesktop desktop;
        platform::SetWindows(std::make_unique<support::FakeWindows>(desktop));
        ProcessWait wait(77, raise);
        EXPECT_TRUE(wait.Tick());  // no window yet
        desktop.windows[5] = {.className = "BarSet", .caption = "Toolbar", .process = 77};
        EXPECT_TRUE(wait.Tick());
        EXPECT_TRUE(wait.Tick());
        EXPECT_EQ(desktop.changes,
                  raise ? std::vector<std::string>{"zorder 5 top"} : std::vector<std::string>{})
            << raise;
    }
    platform::ResetServices();
}

}  // namespace
}  // namespace lumacfg
