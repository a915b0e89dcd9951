// The audit log on POSIX: a file opened for appending, locked with flock while its last line is
// read and the new records are written and synced.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "base/audit_chain.h"
#include "platform/logon.h"
#include "platform/posix/backends.h"
#include "platform/services.h"

namespace lumacfg::platform {

std::string AuditLogPath() {
    const char* configured = std::getenv("LUMACFG_AUDIT_LOG");
    if (configured && *configured) return configured;
    return HostPath(JoinPath(ProgramDirectory(), "lumacfg-audit.log"));
}

namespace posix {
namespace {

// "2026-11-25T09:17:21.123Z"
std::string UtcTimestamp() {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    std::tm utc{};
    ::gmtime_r(&now.tv_sec, &utc);
    char text[40];
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &utc);
    std::snprintf(text + length, sizeof text - length, ".%03ldZ", now.tv_nsec / 1000000);
    return text;
}

std::string HostName() {
    char name[256] = {};
    if (::gethostname(name, sizeof name - 1) != 0) return {};
    return name;
}

class FileDescriptor {
  public:
    explicit FileDescriptor(int fd) : fd_(fd) {}
    ~FileDescriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    int get() const { return fd_; }

  private:
    int fd_;
};

// The bytes from the start of the log's last line to its end, read backwards in blocks; errno
// is set when false.
bool ReadTail(int fd, std::string& tail) {
    struct stat status {};
    if (::fstat(fd, &status) != 0) return false;
    constexpr off_t kBlock = 4096;
    off_t end = status.st_size;
    tail.clear();
    while (end > 0) {
        const off_t start = end > kBlock ? end - kBlock : 0;
        std::string block(static_cast<std::size_t>(end - start), '\0');
        const ssize_t got = ::pread(fd, block.data(), block.size(), start);
        if (got != static_cast<ssize_t>(block.size())) {
            if (got >= 0) errno = EIO;
            return false;
        }
        tail.insert(0, block);
        end = start;
        // Done once a line end stands before the last line's bytes.
        const std::size_t last = tail.size() - 1;
        if (last > 0 && tail.rfind('\n', last - 1) != std::string::npos) break;
    }
    return true;
}

bool WriteAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t wrote = ::write(fd, bytes.data(), bytes.size());
        if (wrote < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(wrote));
    }
    return true;
}

// The log opened for appending; a new one is made readable and writable by its owner and its
// group whatever the umask, so that every member of the station's group can append to it.
int OpenLog(const std::string& path) {
    constexpr int kFlags = O_RDWR | O_APPEND | O_CLOEXEC;
    const int created = ::open(path.c_str(), kFlags | O_CREAT | O_EXCL, 0660);
    if (created < 0) return errno == EEXIST ? ::open(path.c_str(), kFlags) : -1;
    if (::fchmod(created, 0660) == 0) return created;
    const int error = errno;
    ::close(created);
    errno = error;
    return -1;
}

// Writes the records and syncs them; when either fails part-way (a full disk), the log is cut
// back to the length it had, so no partial line is left for every later record to chain to.
// errno is the failure's.
bool WriteWhole(int fd, off_t length, std::string_view records) {
    if (WriteAll(fd, records) && ::fsync(fd) == 0) return true;
    const int error = errno;
    if (::ftruncate(fd, length) == 0) ::fsync(fd);
    errno = error;
    return false;
}

class ChainedAuditLog final : public AuditLog {
  public:
    bool Append(const std::vector<AuditEvent>& events) override {
        if (events.empty()) return true;
        const std::string path = AuditLogPath();
        FileDescriptor log(OpenLog(path));
        std::string tail;
        const bool written = log.get() >= 0 && ::flock(log.get(), LOCK_EX) == 0 &&
                             ReadTail(log.get(), tail) && Write(log.get(), events, tail);
        if (!written) Failures().Report(FileOperation::Write, path, std::strerror(errno));
        return written;  // closing the log gives up the lock
    }

  private:
    static bool Write(int fd, const std::vector<AuditEvent>& events, std::string_view tail) {
        struct stat status {};
        return ::fstat(fd, &status) == 0 && WriteWhole(fd, status.st_size, Records(events, tail));
    }

    static std::string Records(const std::vector<AuditEvent>& events, std::string_view tail) {
        const AuditIdentity& identity = Identity();
        const std::string time = UtcTimestamp(), host = HostName(), station = ProgramDirectory();
        const std::string user = identity.user.empty() ? DesktopUser() : identity.user;
        // A last line cut short (a write that never ended) keeps its bytes: the chain names it.
        std::string bytes = tail.empty() || tail.back() == '\n' ? "" : "\n";
        std::string previous(LastLine(tail));
        for (const AuditEvent& event : events) {
            JsonMembers members = {{"time", time},       {"host", host},
                                   {"user", user},       {"program", identity.program},
                                   {"station", station}, {"event", event.event}};
            members.insert(members.end(), event.details.begin(), event.details.end());
            previous = ChainedLine(std::move(members), previous);
            bytes += previous + '\n';
        }
        return bytes;
    }
};

}  // namespace

std::unique_ptr<AuditLog> MakeAuditLog() {
    return std::make_unique<ChainedAuditLog>();
}

}  // namespace posix
}  // namespace lumacfg::platform
