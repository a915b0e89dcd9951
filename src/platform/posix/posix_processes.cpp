// Processes on POSIX: a command line runs detached under /bin/sh in a session of its own, and
// "still running" means the process exists and is not a zombie. The single-instance lock is
// an exclusive flock on "lumacfg.lock" in the user's runtime directory.
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <set>
#include <string>

#include "platform/posix/backends.h"

namespace lumacfg::platform::posix {
namespace {

// The state letter of /proc/<pid>/stat ('Z' for a zombie); nullopt without /proc.
std::optional<char> ProcessState(pid_t pid) {
    std::ifstream stat("/proc/" + std::to_string(pid) + "/stat");
    std::string text((std::istreambuf_iterator<char>(stat)), std::istreambuf_iterator<char>());
    // The command name in parentheses may hold blanks and ")": the state follows the last ")".
    std::size_t close = text.rfind(')');
    if (close == std::string::npos || close + 2 >= text.size()) return std::nullopt;
    return text[close + 2];
}

class PosixProcesses final : public ProcessService {
  public:
    std::optional<ProcessId> Start(std::string_view commandLine) override {
        ReapEndedChildren();
        std::string command(commandLine);
        char shell[] = "/bin/sh";
        char dashC[] = "-c";
        char* argv[] = {shell, dashC, command.data(), nullptr};
        posix_spawnattr_t attributes;
        if (posix_spawnattr_init(&attributes) != 0) return std::nullopt;
        // A session of its own: the program does not share this one's terminal or signals.
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
        pid_t pid = 0;
        int failed = posix_spawn(&pid, shell, nullptr, &attributes, argv, environ);
        posix_spawnattr_destroy(&attributes);
        if (failed != 0) return std::nullopt;
        children_.insert(pid);
        ended_.erase(pid);
        return static_cast<ProcessId>(pid);
    }

    bool IsRunning(ProcessId id) override {
        if (id == 0 || id > static_cast<ProcessId>(INT_MAX)) return false;
        pid_t pid = static_cast<pid_t>(id);
        if (ended_.contains(pid)) return false;
        if (children_.contains(pid)) return !Reap(pid);
        if (kill(pid, 0) != 0 && errno != EPERM) return false;
        return ProcessState(pid).value_or('R') != 'Z';
    }

  private:
    // Collects a child that has ended; true when it has.
    bool Reap(pid_t pid) {
        int status = 0;
        pid_t result = waitpid(pid, &status, WNOHANG);
        if (result == 0) return false;
        children_.erase(pid);
        ended_.insert(pid);
        return true;
    }

    // Children nobody waits for (a help viewer, say) do not linger as zombies.
    void ReapEndedChildren() {
        for (pid_t pid : std::set<pid_t>(children_)) Reap(pid);
    }

    std::set<pid_t> children_;  // started here, not yet seen to end
    std::set<pid_t> ended_;     // started here and collected
};

class FileInstanceLock final : public InstanceLock {
  public:
    ~FileInstanceLock() override {
        if (fd_ >= 0) close(fd_);
    }

    // A lock file that cannot be opened cannot tell of another copy: this copy runs.
    bool Acquire() override {
        if (fd_ >= 0) return true;
        std::string path = RuntimeDirectory() + "/lumacfg.lock";
        int fd = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
        if (fd < 0) fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        if (fd < 0) return true;
        if (flock(fd, LOCK_EX | LOCK_NB) != 0) {
            bool heldElsewhere = errno == EWOULDBLOCK;
            close(fd);
            return !heldElsewhere;
        }
        fd_ = fd;
        return true;
    }

  private:
    int fd_ = -1;
};

}  // namespace

std::string RuntimeDirectory() {
    for (const char* name : {"LUMACFG_LOCK_DIR", "XDG_RUNTIME_DIR"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && *value != '\0') return value;
    }
    return "/tmp";
}

std::unique_ptr<ProcessService> MakeProcessService() {
    return std::make_unique<PosixProcesses>();
}
std::unique_ptr<InstanceLock> MakeInstanceLock() {
    return std::make_unique<FileInstanceLock>();
}

}  // namespace lumacfg::platform::posix

namespace lumacfg::platform {

// Commands run under /bin/sh: an argument in single quotes, a quote inside it closed, escaped
// and opened again.
std::string QuotedArgument(std::string_view argument) {
    std::string quoted = "'";
    for (char c : argument) quoted += (c == '\'') ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

}  // namespace lumacfg::platform
