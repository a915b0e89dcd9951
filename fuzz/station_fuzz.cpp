// A whole station through the headless front end's "save": a program directory built from the
// input, then the command as an administrator runs it. Properties: it ends with success or with
// the file failures it names; every file it could not read is left as it was; a dry run of
// "set" through the windows' checks writes nothing; a station it saved is saved again without a
// byte changing and shows the same record before and after (when its registry store can keep the
// security state, no file repeats a section or a key, and the link and device lists are in
// their usual order).
//
// Input: the station's files, separated by lines "#part", in the order of kStationFiles; a
// missing part is a missing file. "@ROOT@" in a file stands for the station's root on the disk,
// so a seed can be a station that names its own directories.
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <sstream>

#include "app/cli/commands.h"
#include "base/text.h"
#include "config/config_record.h"
#include "config/configuration_id.h"
#include "fuzz_support.h"
#include "platform/posix/profile_document.h"
#include "platform/services.h"

namespace lumacfg::fuzz {
namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 9> kStationFiles = {
    "LUMAEXE/lumagen.ist",
    "registry.reg",
    "LUMAEXE/custrack.ini",
    "LUMAEXE/lumacfg.ini",
    "1/QCMODE/GENERAL.QCC/runtype.ini",
    "LUMAEXE/runtype.ini",
    "LUMAEXE/MPM.TBL",
    "1/OPAL/DISCRETE.CHN",
    "1/OPAL/INLINE.CHN",
};

class FixedClock final : public platform::Clock {
  public:
    platform::LocalTime Now() override { return {2008, 12, 31, 23, 59, 59}; }
};

// Messages are answered as a user pressing Enter would, and kept out of the output.
class QuietMessages final : public platform::MessageBoxService {
  public:
    platform::MessageAnswer Show(const platform::MessageRequest& request) override {
        return platform::DefaultAnswer(request);
    }
};

const fs::path& Root() {
    static const fs::path root = WorkDirectory("station");
    return root;
}

// The working directory of the commands: a station's profile may name relative paths, and what
// is written there must not land among the fuzzer's own files.
const fs::path& Scratch() {
    static const fs::path scratch = WorkDirectory("station-cwd");
    return scratch;
}

using Files = std::map<std::string, std::string>;  // path under the root -> bytes

Files Snapshot() {
    Files files;
    for (const auto& entry : fs::recursive_directory_iterator(Root())) {
        if (!entry.is_regular_file() || entry.path().filename() == "audit.log") continue;
        std::ifstream in(entry.path(), std::ios::binary);
        std::ostringstream bytes;
        bytes << in.rdbuf();
        files[fs::relative(entry.path(), Root()).string()] = bytes.str();
    }
    return files;
}

std::string WithRoot(std::string_view part) {
    constexpr std::string_view kPlaceholder = "@ROOT@";
    std::string bytes(part);
    for (std::size_t at = bytes.find(kPlaceholder); at != std::string::npos;
         at = bytes.find(kPlaceholder, at)) {
        bytes.replace(at, kPlaceholder.size(), Root().string());
    }
    return bytes;
}

void BuildStation(const std::vector<std::string_view>& parts) {
    fs::remove_all(Root());
    fs::create_directories(Root() / "LUMAEXE");
    for (std::size_t i = 0; i < parts.size() && i < kStationFiles.size(); ++i) {
        const fs::path path = Root() / kStationFiles[i];
        fs::create_directories(path.parent_path());
        const std::string bytes = WithRoot(parts[i]);
        std::ofstream(path, std::ios::binary).write(bytes.data(), bytes.size());
    }
}

// The files that differ between two snapshots, one per line.
std::string ChangedFiles(const Files& a, const Files& b) {
    std::string changed;
    for (const auto& [path, bytes] : a) {
        const auto other = b.find(path);
        if (other == b.end() || other->second != bytes) changed += path + "\n";
    }
    for (const auto& [path, bytes] : b) {
        if (!a.contains(path)) changed += path + "\n";
    }
    return changed;
}

// True when a section name, or a key name within a section, stands twice in a file (names as
// the profile document reads them). Deleting such a key removes its first line only, as the
// data system's own profile service does, so every save of such a station may remove one more
// copy and the next load may read another.
bool HasRepeatedNames(std::string_view bytes) {
    std::set<std::string> sections, keys;
    bool repeated = false;
    platform::posix::ScanProfile(bytes, [&](const platform::posix::ProfileLine& line) {
        if (line.header) {
            keys.clear();
            repeated = !sections.insert(AnsiUpper(line.section)).second;
        } else if (const std::optional<std::string_view> key = line.Key()) {
            repeated = !keys.insert(AnsiUpper(*key)).second;
        }
        return !repeated;
    });
    return repeated;
}

// True when the link and device tables that `show` prints hold each number in its own entry
// (entry i holds i + 1 or 0), as every table this program writes. A list edited out of that
// order ("Links=x,x,x,7,24") is written back joined ("7,24"), and the entries, which give each
// link its kind, move: such a station settles only at its second save.
bool TablesInOrder(const std::string& shown) {
    for (const char* name : {"\nLINK_USED=", "\nDEVICE_USED="}) {
        const std::size_t at = shown.find(name);
        if (at == std::string::npos) continue;
        const std::size_t begin = at + std::strlen(name);
        std::istringstream entries(shown.substr(begin, shown.find('\n', begin) - begin));
        int index = 1;
        for (int entry = 0; entries >> entry; ++index) {
            if (entry != 0 && entry != index) return false;
        }
    }
    return true;
}

struct Outcome {
    int exit;
    std::string out, err;
};

Outcome RunCommand(const std::vector<std::string>& command) {
    platform::ResetServices();
    platform::SetClock(std::make_unique<FixedClock>());
    platform::SetMessages(std::make_unique<QuietMessages>());
    Config() = ConfigRecord{};
    const fs::path cwd = fs::current_path();
    fs::current_path(Scratch());
    std::ostringstream out, err;
    const int exit = cli::Run(command, out, err);
    fs::current_path(cwd);
    return {exit, out.str(), err.str()};
}

// The station's files a run names as not readable, relative to the root. Every line of its
// standard error must name a file that could not be read or written, with the reason (a
// station's profile may name files outside the station).
std::vector<std::string> UnreadableFiles(const std::string& err) {
    const std::string stationFile = "lumacfg-cli: cannot read " + Root().string() + "/";
    std::vector<std::string> unreadable;
    std::istringstream lines(err);
    for (std::string line; std::getline(lines, line);) {
        const bool named = (line.rfind("lumacfg-cli: cannot read ", 0) == 0 ||
                            line.rfind("lumacfg-cli: cannot write ", 0) == 0) &&
                           line.find(": ", 14) != std::string::npos;
        Require(named, "every failure names a file and the reason", line);
        if (line.rfind(stationFile, 0) == 0) {
            const std::string rest = line.substr(stationFile.size());
            unreadable.push_back(rest.substr(0, rest.find(": ")));
        }
    }
    return unreadable;
}

void Run(const std::vector<std::string_view>& parts) {
    BuildStation(parts);
    const Files before = Snapshot();
    const Outcome saved = RunCommand({"save"});
    Require(saved.exit == cli::kExitOk || saved.exit == cli::kExitFileFailed,
            "save succeeds or names what failed", saved.err);
    Require((saved.exit == cli::kExitOk) == saved.err.empty(), "a failed save says why", saved.err);
    const Files after = Snapshot();
    for (const std::string& unreadable : UnreadableFiles(saved.err)) {
        const auto was = before.find(unreadable);
        if (was == before.end()) continue;
        const auto now = after.find(unreadable);
        Require(now != after.end() && now->second == was->second,
                "a file that could not be read is left as it was");
    }
    // The security state lives in the registry store's configuration identifier; a store
    // without the data system's key cannot keep it (and by rule nobody is told), so the next
    // load reads security off.
    const bool securityKept = ReadConfigurationID() != kConfigurationIdFailed;
    if (saved.exit != cli::kExitOk || !securityKept) return;
    const bool repeatedNames = std::any_of(parts.begin(), parts.end(), HasRepeatedNames);

    // A dry run through the main window's and the ASX500 dialog's checks (their readers: the
    // method table, the OPAL and QC mode folders, custrack.ini) writes nothing.
    const Outcome dryRun = RunCommand({"set", "--dry-run", "ALS_TYPE=1", "RACK1_ID=60"});
    Require(dryRun.exit == cli::kExitOk || dryRun.exit == cli::kExitRefused ||
                dryRun.exit == cli::kExitFileFailed,
            "a dry run succeeds, is refused or names what failed", dryRun.err);
    Require(Snapshot() == after, "a dry run writes nothing");

    const Outcome shown = RunCommand({"show"});
    Require(shown.exit == cli::kExitOk, "a saved station shows", shown.err);
    const Outcome savedAgain = RunCommand({"save"});
    Require(savedAgain.exit == cli::kExitOk, "a saved station saves again", savedAgain.err);
    if (repeatedNames || !TablesInOrder(shown.out)) return;
    const Files again = Snapshot();
    Require(again == after, "a saved station is saved again without a byte changing",
            ChangedFiles(after, again));
    Require(RunCommand({"show"}).out == shown.out, "a saved station shows the same record");
}

}  // namespace
}  // namespace lumacfg::fuzz

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    using lumacfg::fuzz::Root;
    ::setenv("LUMACFG_PROGRAM_DIR", (Root() / "LUMAEXE").c_str(), 1);
    ::setenv("LUMACFG_REGISTRY", (Root() / "registry.reg").c_str(), 1);
    ::setenv("LUMACFG_AUDIT_LOG", (Root() / "audit.log").c_str(), 1);
    ::setenv("LUMACFG_LOCK_DIR", Root().c_str(), 1);
    ::unsetenv("DISPLAY");
    std::atexit([] {
        std::filesystem::remove_all(Root());
        std::filesystem::remove_all(lumacfg::fuzz::Scratch());
    });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    lumacfg::fuzz::Run(lumacfg::fuzz::SplitParts({reinterpret_cast<const char*>(data), size}));
    return 0;
}
