// What lumacfg-cli does when a file cannot be read or written: it names the file and the
// reason, exits 4, writes the other files in their order and loses nothing already stored.
// The damage is real: read-only and full file systems are mounted, not simulated by chmod (the
// tests run as root, who ignores permission bits).
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "support/cli_runner.h"
#include "support/scoped_mount.h"
#include "support/temp_station.h"

namespace lumacfg {
namespace {

namespace fs = std::filesystem;
using support::ReadBytes;
using support::ScopedMount;
using support::WriteBytes;

class CliFailureTest : public support::TempStation {
  protected:
    // A station as the first start made it, with two things a save must write: a key the load
    // completes in "lumagen.ist" and a value the save sets in the registry store.
    void SetUp() override {
        TempStation::SetUp();
        const support::CliResult created = support::RunCli({"show"}, root_);
        ASSERT_EQ(created.exit, 0) << created.err;
        std::string station = StationText();
        station.erase(station.find("OPT_CHG_TIME=12\r\n"), 17);
        WriteBytes(StationProfile(), station);
        WriteBytes(RegistryPath(), support::RegistryText("\"Path\"=\"C:\\\\PLASMA\"\r\n"));
    }

    std::string Lumagen() const { return StationProfile().string(); }
    std::string Store() const { return RegistryPath().string(); }
};

struct FailureCase {
    const char* what;
    std::vector<std::string> args;
    // Damages the station; a mount it makes is kept until the case is checked.
    std::function<std::optional<ScopedMount>()> damage;
    int exit;
    std::string message;          // a line the standard error must hold ("" for nothing at all)
    bool stationKept, storeKept;  // byte-identical afterwards
};

TEST_F(CliFailureTest, EveryFileThatCannotBeReadOrWrittenIsNamedAndTheRestIsWritten) {
    const std::string lumagen = Lumagen(), store = Store(), programDir = ProgramDir().string();
    auto readOnly = [](fs::path path) {
        return [path] { return std::optional(ScopedMount::ReadOnly(path)); };
    };
    auto replaceStation = [this](std::function<void(const fs::path&)> make) {
        return [this, make] {
            fs::remove(StationProfile());
            make(StationProfile());
            return std::optional<ScopedMount>();
        };
    };
    // The station moved onto a tmpfs made with these options.
    auto onTmpfs = [this](std::string options, std::size_t filler) {
        return [this, options, filler] {
            const std::string kept = StationText();
            std::optional mount(ScopedMount::Tmpfs(ProgramDir(), options));
            WriteBytes(StationProfile(), kept);
            if (filler > 0) WriteBytes(ProgramDir() / "filler", std::string(filler, 'x'));
            return mount;
        };
    };
    const FailureCase cases[] = {
        {"read-only station directory",
         {"save"},
         readOnly(ProgramDir()),
         4,
         "lumacfg-cli: cannot write " + lumagen + ": Read-only file system",
         true,
         false},
        {"read-only registry store",
         {"save"},
         readOnly(RegistryPath()),
         4,
         "lumacfg-cli: cannot write " + store + ": Read-only file system",
         false,
         true},
        {"full disk",
         {"save"},
         onTmpfs("size=16k", 16 * 1024),
         4,
         "lumacfg-cli: cannot write " + lumagen + ": No space left on device",
         true,
         false},
        {"no free inode",
         {"save"},
         onTmpfs("nr_inodes=2", 0),
         4,
         "lumacfg-cli: cannot write " + lumagen + ": No space left on device",
         true,
         false},
        {"registry store that is no .reg file",
         {"save"},
         [this] {
             WriteBytes(RegistryPath(), "HardWare=2\n");
             return std::optional<ScopedMount>();
         },
         4,
         "lumacfg-cli: cannot read " + store,
         false,
         true},
        {"FIFO as station profile",
         {"show"},
         replaceStation([](const fs::path& p) { ::mkfifo(p.c_str(), 0644); }),
         4,
         "lumacfg-cli: cannot read " + lumagen + ": not a regular file",
         true,
         true},
        {"directory as station profile",
         {"save"},
         replaceStation([](const fs::path& p) { fs::create_directory(p); }),
         4,
         "lumacfg-cli: cannot read " + lumagen + ": not a regular file",
         true,
         true},
        {"missing program directory",
         {"show"},
         [this] {
             fs::remove_all(ProgramDir());
             return std::optional<ScopedMount>();
         },
         4,
         "lumacfg-cli: cannot read " + programDir + ": No such file or directory",
         true,
         true},
        {"profile set on a read-only station",
         {"profile", "set", lumagen, "WSX,1", "K", "1"},
         readOnly(ProgramDir()),
         4,
         "lumacfg-cli: cannot write " + lumagen + ": Read-only file system",
         true,
         true},
        {"profile delete of what is not there",
         {"profile", "delete", lumagen, "WSX,1", "NONE"},
         readOnly(ProgramDir()),
         0,
         "",
         true,
         true},
        {"profile get of a FIFO",
         {"profile", "get", (root_ / "fifo").string(), "S", "K"},
         [this] {
             ::mkfifo((root_ / "fifo").c_str(), 0644);
             return std::optional<ScopedMount>();
         },
         4,
         "lumacfg-cli: cannot read " + (root_ / "fifo").string() + ": not a regular file",
         true,
         true},
    };
    for (const FailureCase& c : cases) {
        SCOPED_TRACE(c.what);
        TearDown();
        fs::remove_all(root_);
        SetUp();
        const std::optional<std::string> station = ReadBytes(StationProfile());
        std::optional<ScopedMount> mount = c.damage();
        const std::string storeBefore = RegistryFileText();
        if (mount && !mount->Ok()) GTEST_SKIP() << mount->Error();
        const support::CliResult result = support::RunCli(c.args, root_);
        EXPECT_EQ(result.exit, c.exit) << result.err;
        if (c.message.empty()) {
            EXPECT_EQ(result.err, "");
        } else {
            EXPECT_NE(result.err.find(c.message), std::string::npos) << result.err;
        }
        if (c.stationKept && fs::is_regular_file(StationProfile())) {
            EXPECT_EQ(ReadBytes(StationProfile()), station);
        } else if (!c.stationKept) {
            EXPECT_NE(StationText().find("OPT_CHG_TIME=12\r\n"), std::string::npos);
        }
        EXPECT_EQ(RegistryFileText() == storeBefore, c.storeKept);
        mount.reset();
        if (fs::exists(ProgramDir())) {
            for (const auto& entry : fs::directory_iterator(ProgramDir())) {
                EXPECT_NE(entry.path().filename().string().front(), '.')
                    << "temporary file left: " << entry.path();
            }
        }
    }
}

}  // namespace
}  // namespace lumacfg
