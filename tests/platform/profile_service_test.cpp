// The profile service on real files: reads, writes, batches, permissions and crash safety.
#include <fcntl.h>
#include <grp.h>
#include <signal.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "platform/posix/atomic_file.h"
#include "platform/posix/backends.h"
#include "support/temp_dir.h"

namespace lumacfg::platform::posix {
namespace {

namespace fs = std::filesystem;
using support::TempDir;
using support::WriteBytes;

class ProfileServiceTest : public ::testing::Test {
  protected:
    void SetUp() override { service_ = MakeProfileService(); }

    std::string PathOf(const std::string& name) const { return (dir_ / name).string(); }
    void Put(const std::string& name, const std::string& bytes) const {
        WriteBytes(dir_ / name, bytes);
    }
    std::string Bytes(const std::string& name) const {
        FileRead read = ReadRegularFile(PathOf(name));
        return read.status == FileRead::Status::Read ? read.bytes : "<missing>";
    }
    std::vector<std::string> Names(const std::string& sub = "") const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(dir_ / sub)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    std::string Get(const std::string& name, const std::string& section, const std::string& key) {
        return service_->GetString(PathOf(name), section, key, "", 512).text;
    }

    TempDir temp_{"lumacfg-profile"};
    fs::path dir_ = temp_.Path();
    std::unique_ptr<ProfileService> service_;
};

TEST_F(ProfileServiceTest, DeletingWhatIsNotThereCreatesNoFile) {
    EXPECT_TRUE(service_->WriteString(PathOf("none.ini"), "S", std::nullopt, std::nullopt));
    service_->BeginBatch();
    service_->WriteString(PathOf("none.ini"), "S", "K", std::nullopt);
    EXPECT_TRUE(service_->EndBatch());
    EXPECT_TRUE(Names().empty());
}

TEST_F(ProfileServiceTest, ReadOnlyFileRefusesWritesEvenToTheSuperUser) {
    const std::string original = "[S]\nK=old\n";
    Put("ro.ini", original);
    ASSERT_EQ(::chmod(PathOf("ro.ini").c_str(), 0444), 0);
    EXPECT_FALSE(service_->WriteString(PathOf("ro.ini"), "S", "K", "new"));
    EXPECT_FALSE(service_->WriteString(PathOf("ro.ini"), "S", "K", std::nullopt));
    EXPECT_FALSE(service_->WriteString(PathOf("ro.ini"), "S", std::nullopt, std::nullopt));
    service_->BeginBatch();
    EXPECT_FALSE(service_->WriteString(PathOf("ro.ini"), "S", "K", "new"));
    EXPECT_EQ(Get("ro.ini", "S", "K"), "old");  // as a key-by-key read would see it
    EXPECT_TRUE(service_->EndBatch());
    EXPECT_EQ(Bytes("ro.ini"), original);
    EXPECT_EQ(Names(), std::vector<std::string>{"ro.ini"});
}

TEST_F(ProfileServiceTest, ReplacementKeepsPermissionsAndLinks) {
    Put("kept.ini", "[S]\nK=1\n");
    ASSERT_EQ(::chmod(PathOf("kept.ini").c_str(), 0640), 0);
    ASSERT_TRUE(service_->WriteString(PathOf("kept.ini"), "S", "K", "2"));
    struct stat info {};
    ASSERT_EQ(::stat(PathOf("kept.ini").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0640u);

    mode_t mask = ::umask(022);
    ASSERT_TRUE(service_->WriteString(PathOf("fresh.ini"), "S", "K", "1"));
    ::umask(mask);
    ASSERT_EQ(::stat(PathOf("fresh.ini").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0644u);

    fs::create_symlink("kept.ini", dir_ / "link.ini");
    ASSERT_TRUE(service_->WriteString(PathOf("link.ini"), "S", "K", "3"));
    EXPECT_TRUE(fs::is_symlink(dir_ / "link.ini"));
    EXPECT_EQ(Bytes("kept.ini"), "[S]\nK=3\n");
}

// Runs `body` in a child process without the super-user's rights (as "nobody" when the
// tests run as root) and returns its exit code.
template <typename Body>
int RunUnprivileged(Body body) {
    pid_t child = ::fork();
    if (child < 0) return -1;
    if (child == 0) {
        if (::geteuid() == 0 &&
            (::setgroups(0, nullptr) != 0 || ::setgid(65534) != 0 || ::setuid(65534) != 0)) {
            ::_exit(99);
        }
        ::_exit(body());
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(ProfileServiceTest, WithoutRoomForATemporaryFileTheFileIsWrittenInPlace) {
    ASSERT_EQ(::chmod(dir_.c_str(), 0755), 0);
    if (RunUnprivileged([&] { return ::access(dir_.c_str(), X_OK) == 0 ? 0 : 1; }) != 0) {
        GTEST_SKIP() << "no unprivileged access to " << dir_;
    }
    fs::create_directory(dir_ / "locked");
    Put("locked/station.ist", "[S]\nK=1\n");
    Put("locked/secret.ist", "[S]\nK=1\n");
    ASSERT_EQ(::chmod(PathOf("locked/station.ist").c_str(), 0666), 0);
    ASSERT_EQ(::chmod(PathOf("locked/secret.ist").c_str(), 0222), 0);  // write, no read
    ASSERT_EQ(::chmod(PathOf("locked").c_str(), 0555), 0);
    struct stat before {};
    ASSERT_EQ(::stat(PathOf("locked/station.ist").c_str(), &before), 0);

    int code = RunUnprivileged([&] {
        auto service = MakeProfileService();
        if (!service->WriteString(PathOf("locked/station.ist"), "S", "K", "2")) return 1;
        // A file that cannot be read is never rebuilt from nothing.
        if (service->WriteString(PathOf("locked/secret.ist"), "S", "X", "2")) return 2;
        if (service->WriteString(PathOf("locked/new.ist"), "S", "K", "2")) return 3;
        return 0;
    });
    ::chmod(PathOf("locked").c_str(), 0755);
    ASSERT_EQ(code, 0);
    EXPECT_EQ(Bytes("locked/station.ist"), "[S]\nK=2\n");
    EXPECT_EQ(Bytes("locked/secret.ist"), "[S]\nK=1\n");
    struct stat after {};
    ASSERT_EQ(::stat(PathOf("locked/station.ist").c_str(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_EQ(after.st_mode & 07777, 0666u);
}

// A random station profile: mixed endings, duplicates, blanks, quotes, an unterminated end.
std::string RandomProfile(std::mt19937& random) {
    const char* lines[] = {"[WSX]",   "[wsx_32]", " [WSX,1] ", "KEY=1",    "key = \"two\" ",
                           "Other=x", "",         "; note",    "[Alpha",   "noequals",
                           "K2='q'",  "[Extra]",  "\t",        "other=dup"};
    std::string bytes;
    int count = static_cast<int>(random() % 14);
    for (int i = 0; i < count; ++i) {
        bytes += lines[random() % std::size(lines)];
        bytes += random() % 3 == 0 ? "\n" : "\r\n";
    }
    if (random() % 3 == 0) bytes += "KEY=end";
    return bytes;
}

TEST_F(ProfileServiceTest, BatchWritesTheBytesOfKeyByKeyWrites) {
    const char* sections[] = {"WSX", "wsx", "WSX_32", "WSX,1", "Extra", "New", "Alpha"};
    const char* keys[] = {"KEY", "key", "Other", "K2", "NEW_KEY", "noequals"};
    const char* values[] = {"", "0", "1", "C:\\DATA\\", "two words", "\"quoted\"", "a\r\nb"};
    const char* files[] = {"one.ist", "ONE.IST", "two.ini", "brand-new.ini", "BRAND-NEW.INI"};
    std::mt19937 random(7);
    auto single = MakeProfileService();
    for (int round = 0; round < 40; ++round) {
        fs::remove_all(dir_ / "a");
        fs::remove_all(dir_ / "b");
        fs::create_directory(dir_ / "a");
        fs::create_directory(dir_ / "b");
        for (const char* name : {"one.ist", "two.ini"}) {
            std::string bytes = RandomProfile(random);
            Put(std::string("a/") + name, bytes);
            Put(std::string("b/") + name, bytes);
        }
        service_->BeginBatch();
        for (int step = 0; step < 25; ++step) {
            const std::string file = files[random() % std::size(files)];
            const std::string section = sections[random() % std::size(sections)];
            const std::string batchFile = PathOf("b/" + file), singleFile = PathOf("a/" + file);
            std::optional<std::string> key = keys[random() % std::size(keys)], value;
            switch (random() % 6) {
                case 0:  // delete the section
                    key.reset();
                    break;
                case 1:  // delete the key
                    break;
                case 2:  // a read in the batch sees what the key-by-key writes left
                    ASSERT_EQ(service_->GetString(batchFile, section, *key, "d", 512).text,
                              single->GetString(singleFile, section, *key, "d", 512).text)
                        << "round " << round << " step " << step;
                    continue;
                default:
                    value = values[random() % std::size(values)];
            }
            single->WriteString(singleFile, section, key, value);
            service_->WriteString(batchFile, section, key, value);
        }
        ASSERT_TRUE(service_->EndBatch());
        ASSERT_EQ(Names("a"), Names("b")) << "round " << round;
        for (const std::string& name : Names("a")) {
            ASSERT_EQ(Bytes("b/" + name), Bytes("a/" + name)) << "round " << round << " " << name;
        }
    }
}

// How often each file of `dir` was replaced or written while `body` ran.
template <typename Body>
std::map<std::string, int> WritesIn(const fs::path& dir, Body body) {
    int watch = ::inotify_init1(IN_NONBLOCK);
    ::inotify_add_watch(watch, dir.c_str(), IN_MOVED_TO | IN_CLOSE_WRITE);
    body();
    std::map<std::string, int> writes;
    alignas(inotify_event) char buffer[8192];
    for (ssize_t got; (got = ::read(watch, buffer, sizeof buffer)) > 0;) {
        for (char* p = buffer; p < buffer + got;) {
            auto* event = reinterpret_cast<inotify_event*>(p);
            if (event->len > 0) ++writes[event->name];
            p += sizeof(inotify_event) + event->len;
        }
    }
    ::close(watch);
    return writes;
}

TEST_F(ProfileServiceTest, BatchWritesEachChangedFileOnce) {
    Put("lumagen.ist", "[WSX]\r\nA=1\r\n");
    Put("runtype.ini", "[R]\r\nX=1\r\n");
    auto writes = WritesIn(dir_, [&] {
        service_->BeginBatch();
        service_->BeginBatch();  // nested: only the outermost end writes
        for (int i = 0; i < 50; ++i) {
            service_->WriteString(PathOf("LUMAGEN.IST"), "WSX", "K" + std::to_string(i), "v");
        }
        service_->WriteString(PathOf("runtype.ini"), "R", "X", "1");  // no change
        EXPECT_EQ(Get("lumagen.ist", "wsx", "k49"), "v");
        EXPECT_TRUE(service_->EndBatch());
        EXPECT_EQ(Bytes("lumagen.ist"), "[WSX]\r\nA=1\r\n");
        EXPECT_TRUE(service_->EndBatch());
    });
    EXPECT_EQ(writes["lumagen.ist"], 1);
    EXPECT_EQ(writes["runtype.ini"], 0);
    EXPECT_EQ(Get("lumagen.ist", "WSX", "K0"), "v");
    EXPECT_EQ(Names(), (std::vector<std::string>{"lumagen.ist", "runtype.ini"}));
}

// A writer killed at any moment leaves the old file or the new one, never a mix.
TEST_F(ProfileServiceTest, KilledWriterLeavesOldOrNewFile) {
    const std::string path = PathOf("big.ist");
    std::string first, second;
    for (int i = 0; i < 60000; ++i) first += "[S" + std::to_string(i) + "]\r\nK=aaaaaaaa\r\n";
    for (int i = 0; i < 40000; ++i) second += "[T" + std::to_string(i) + "]\nK=bbbbbbbbbbbbb\n";
    ASSERT_TRUE(ReplaceFile(path, first).ok);
    std::mt19937 random(99);
    for (int round = 0; round < 30; ++round) {
        pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            for (;;) {
                ReplaceFile(path, second);
                ReplaceFile(path, first);
            }
        }
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 40000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        std::string now = Bytes("big.ist");
        ASSERT_TRUE(now == first || now == second)
            << "round " << round << ": " << now.size() << " bytes";
    }
}

}  // namespace
}  // namespace lumacfg::platform::posix
