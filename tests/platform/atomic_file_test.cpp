// Whole-file reads and replacements where the directory or the thing at the path refuses: the
// old bytes survive, no temporary file is left, nothing but a regular file is touched, and the
// reason is given. Needs the right to mount (tests run as root).
#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <string>

#include "platform/posix/atomic_file.h"
#include "support/scoped_mount.h"
#include "support/temp_dir.h"

namespace lumacfg::platform::posix {
namespace {

namespace fs = std::filesystem;
using support::ScopedMount;
using support::TempDir;
using support::WriteBytes;

// Uses up the file system's room: one file grown until the disk is full.
void FillSpace(const fs::path& dir) {
    int fd = ::open((dir / "filler").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
    ASSERT_GE(fd, 0);
    std::string block(4096, 'f');
    while (::write(fd, block.data(), block.size()) > 0) {
    }
    ::close(fd);
}

// Everything under dir: kind, and the bytes of regular files, the target of links.
std::map<std::string, std::string> Snapshot(const fs::path& dir) {
    std::map<std::string, std::string> seen;
    for (const auto& entry : fs::recursive_directory_iterator(dir)) {
        const std::string name = entry.path().lexically_relative(dir).string();
        struct stat info {};
        ::lstat(entry.path().c_str(), &info);
        if (S_ISLNK(info.st_mode)) {
            seen[name] = "link to " + fs::read_symlink(entry.path()).string();
        } else if (S_ISREG(info.st_mode)) {
            seen[name] = support::ReadBytes(entry.path()).value_or("?");
        } else {
            seen[name] = "mode " + std::to_string(info.st_mode & S_IFMT);
        }
    }
    return seen;
}

// Fails the test instead of hanging it, should a call wait on a FIFO.
class Deadline {
  public:
    Deadline() { ::alarm(20); }
    ~Deadline() { ::alarm(0); }
};

constexpr const char* kOld = "[S]\nK=old\n";

// A link is written through only to a regular file: whatever else it leads to is refused with
// its kind, and nothing changes.
TEST(ReplaceFileTest, ALinkToWhatIsNoRegularFileIsRefused) {
    TempDir temp("lumacfg-atomic");
    const fs::path& dir = temp.Path();
    ASSERT_EQ(::mkfifo((dir / "fifo").c_str(), 0666), 0);
    ASSERT_EQ(::mknod((dir / "null").c_str(), S_IFCHR | 0666, ::makedev(1, 3)), 0);
    fs::create_directory(dir / "dir");
    const std::pair<const char*, std::string> cases[] = {
        {"fifo", "a FIFO"}, {"null", "a character device"}, {"dir", "a directory"}};
    for (const auto& [target, kind] : cases) {
        SCOPED_TRACE(target);
        fs::create_symlink(target, dir / "link");
        const auto before = Snapshot(dir);
        {
            Deadline deadline;
            FileWrite written = ReplaceFile((dir / "link").string(), kOld);
            EXPECT_FALSE(written.ok);
            EXPECT_EQ(written.reason, "not a regular file (a symbolic link to " + kind + ")");
            EXPECT_TRUE(WriteProblem((dir / "link").string()).has_value());
        }
        EXPECT_EQ(Snapshot(dir), before);
        fs::remove(dir / "link");
    }
}

TEST(ReplaceFileTest, LinksStayLinksAndPermissionsAreKept) {
    TempDir temp("lumacfg-atomic");
    const fs::path& dir = temp.Path();
    WriteBytes(dir / "real/station.ist", kOld);
    ::chmod((dir / "real/station.ist").c_str(), 0640);
    fs::create_directory(dir / "station");
    fs::create_symlink("../real/station.ist", dir / "station/lumagen.ist");
    ASSERT_TRUE(ReplaceFile((dir / "station/lumagen.ist").string(), "new").ok);
    EXPECT_EQ(Snapshot(dir), (std::map<std::string, std::string>{
                                 {"real", "mode " + std::to_string(S_IFDIR)},
                                 {"real/station.ist", "new"},
                                 {"station", "mode " + std::to_string(S_IFDIR)},
                                 {"station/lumagen.ist", "link to ../real/station.ist"}}));
    EXPECT_EQ(fs::status(dir / "real/station.ist").permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);

    // A new file takes the permissions the process gives new files.
    mode_t mask = ::umask(027);
    ASSERT_TRUE(ReplaceFile((dir / "fresh.ist").string(), "new").ok);
    ::umask(mask);
    EXPECT_EQ(fs::status(dir / "fresh.ist").permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

// A writer killed before its rename leaves its temporary file; the next replacement of that
// file removes it. The files of a writer that still runs, and everything else, stay.
TEST(ReplaceFileTest, TemporariesOfEndedWritersGo) {
    TempDir temp("lumacfg-atomic");
    const fs::path& dir = temp.Path();
    const pid_t ended = ::fork();
    if (ended == 0) ::_exit(0);
    ::waitpid(ended, nullptr, 0);
    const std::string running = std::to_string(::getppid());
    const std::map<std::string, std::string> kept = {
        {".station.ist.lumacfg-" + running + "-a1B2c3", "running writer"},
        {".other.ist.lumacfg-" + std::to_string(ended) + "-a1B2c3", "another file's"},
        {".station.ist.lumacfg-x-a1B2c3", "no process id"},
        {".station.ist.a1B2c3", "not this program's"},
    };
    for (const auto& [name, bytes] : kept) WriteBytes(dir / name, bytes);
    WriteBytes(dir / (".station.ist.lumacfg-" + std::to_string(ended) + "-a1B2c3"), "ended");
    ASSERT_TRUE(ReplaceFile((dir / "station.ist").string(), "new").ok);
    std::map<std::string, std::string> expected = kept;
    expected["station.ist"] = "new";
    EXPECT_EQ(Snapshot(dir), expected);
}

TEST(ReadRegularFileTest, OnlyARegularFileIsRead) {
    TempDir temp("lumacfg-atomic");
    const fs::path& dir = temp.Path();
    WriteBytes(dir / "station.ist", kOld);
    ::mkfifo((dir / "fifo").c_str(), 0666);
    ::mknod((dir / "null").c_str(), S_IFCHR | 0666, ::makedev(1, 3));
    fs::create_directory(dir / "dir");
    fs::create_symlink("fifo", dir / "link-to-fifo");
    fs::create_symlink("station.ist", dir / "link");
    fs::create_symlink("gone", dir / "dangling");
    using S = FileRead::Status;
    const std::tuple<const char*, S, std::string> cases[] = {
        {"station.ist", S::Read, kOld},
        {"link", S::Read, kOld},
        {"missing", S::Missing, ""},
        {"dangling", S::Missing, ""},
        {"fifo", S::Failed, "not a regular file (a FIFO)"},
        {"link-to-fifo", S::Failed, "not a regular file (a FIFO)"},
        {"null", S::Failed, "not a regular file (a character device)"},
        {"dir", S::Failed, "not a regular file (a directory)"},
    };
    Deadline deadline;
    for (const auto& [name, status, text] : cases) {
        FileRead read = ReadRegularFile((dir / name).string());
        EXPECT_EQ(read.status, status) << name;
        EXPECT_EQ(status == S::Read ? read.bytes : read.reason, text) << name;
    }
}

// Runs `body` in a child process as "nobody", so that directory permissions count, and returns
// its exit code; -1 when the child could not drop the super-user's rights.
int RunUnprivileged(const std::function<int()>& body) {
    pid_t child = ::fork();
    if (child == 0) {
        if (::setgroups(0, nullptr) != 0 || ::setgid(65534) != 0 || ::setuid(65534) != 0) {
            ::_exit(99);
        }
        ::_exit(body());
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) != 99 ? WEXITSTATUS(status) : -1;
}

// Where no new file may be made beside the file but the file may be written, it is written in
// place once its new size is reserved; where its owner cannot be kept by a new file, too.
TEST(ReplaceFileTest, InPlaceOnlyWhenTheNewSizeIsReserved) {
    if (::geteuid() != 0) GTEST_SKIP() << "needs the super-user to switch to another user";
    TempDir temp("lumacfg-atomic");
    ::chmod(temp.Path().c_str(), 0755);
    const std::string grown = "[S]\nK=" + std::string(30000, 'g') + "\n";
    struct Case {
        const char* what;
        bool fullDisk;
        mode_t directoryMode;  // the files' directory, owned by the super-user
        const char* name;
        std::string bytes;
        const char* reason;  // "" when written
    };
    const Case cases[] = {
        {"room on the disk", false, 0555, "station.ist", grown, ""},
        {"full disk, the file grows", true, 0555, "station.ist", grown, "No space left on device"},
        {"full disk, the file shrinks", true, 0555, "station.ist", "[S]\n", ""},
        {"a new file", false, 0555, "new.ist", "[S]\n", "Permission denied"},
        {"another's file", false, 0777, "station.ist", grown, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const fs::path disk = temp.Path() / "disk", dir = disk / "locked";
        const ScopedMount mount = ScopedMount::Tmpfs(disk, "size=64k,mode=0755");
        if (!mount.Ok()) GTEST_SKIP() << mount.Error();
        WriteBytes(dir / "station.ist", kOld);
        ::chmod((dir / "station.ist").c_str(), 0666);
        ::chmod(dir.c_str(), c.directoryMode);
        if (c.fullDisk) FillSpace(disk);
        struct stat before {};
        ::stat((dir / "station.ist").c_str(), &before);

        const std::string path = (dir / c.name).string();
        int code = RunUnprivileged([&] {
            FileWrite written = ReplaceFile(path, c.bytes);
            return written.ok == (*c.reason == '\0') && written.reason == c.reason ? 0 : 1;
        });
        if (code < 0) GTEST_SKIP() << "cannot run as nobody";
        EXPECT_EQ(code, 0);
        const bool written = *c.reason == '\0';
        auto expected = std::map<std::string, std::string>{
            {"station.ist", written && std::string(c.name) == "station.ist" ? c.bytes : kOld}};
        EXPECT_EQ(Snapshot(dir), expected);  // no temporary file either
        struct stat after {};
        ::stat((dir / "station.ist").c_str(), &after);
        EXPECT_EQ(after.st_ino, before.st_ino);
        EXPECT_EQ(after.st_uid, 0u);
        EXPECT_EQ(after.st_mode & 07777, 0666u);
    }
}

}  // namespace
}  // namespace lumacfg::platform::posix
