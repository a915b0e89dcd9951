// The POSIX process service with real processes.
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "platform/posix/backends.h"
#include "support/temp_dir.h"

namespace lumacfg::platform {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
namespace fs = std::filesystem;
using support::ReadBytes;
using support::TempDir;

// How long the process goes on running, as seen by `service` (at most five seconds).
Clock::duration RunTime(ProcessService& service, ProcessId id) {
    auto start = Clock::now();
    while (service.IsRunning(id) && Clock::now() - start < 5s) std::this_thread::sleep_for(10ms);
    return Clock::now() - start;
}

TEST(PosixProcesses, RunsACommandLineDetachedUntilItEnds) {
    const TempDir dir;
    const fs::path out = dir.Path() / "out.txt";
    auto service = posix::MakeProcessService();
    auto id = service->Start("sleep 0.2; printf '%s' \"$0 ran\" > '" + out.string() + "'");
    ASSERT_TRUE(id.has_value());
    EXPECT_EQ(getsid(static_cast<pid_t>(*id)), static_cast<pid_t>(*id));  // a session of its own
    auto runTime = RunTime(*service, *id);
    EXPECT_GE(runTime, 150ms);
    EXPECT_LT(runTime, 5s);
    EXPECT_EQ(ReadBytes(out), "/bin/sh ran");
}

TEST(PosixProcesses, AZombieIsNotRunningAndOtherIdsAreAskedOfTheSystem) {
    auto starter = posix::MakeProcessService();
    auto observer = posix::MakeProcessService();
    auto id = starter->Start("true");
    ASSERT_TRUE(id.has_value());
    // The starter does not ask, so the ended process stays a zombie for the observer.
    EXPECT_LT(RunTime(*observer, *id), 5s);
    EXPECT_FALSE(starter->IsRunning(*id));
    EXPECT_FALSE(observer->IsRunning(0));
    EXPECT_FALSE(observer->IsRunning(0xFFFFFFFFu));
    EXPECT_TRUE(observer->IsRunning(static_cast<ProcessId>(getpid())));
}

}  // namespace
}  // namespace lumacfg::platform
