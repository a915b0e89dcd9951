// A catalogue of damaged stations, each run through `lumacfg-cli show` and then `save` on the
// same damage. Whatever the damage, nothing crashes, a file that cannot be read as its format
// requires or cannot be written is named with the reason and the command exits 4, nothing
// already stored is lost, a damaged file is never replaced by one that drops what could not be
// read, and no temporary file is left behind. See "Damaged stations" in
// docs/failures-and-writes.md for how to add a row.
//
// The damage is real: read-only and full file systems are mounted, not simulated (the tests run
// as root, who ignores permission bits; a file without any write bit is refused by the program
// itself, even for root).
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <iostream>
#include <optional>
#include <random>
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

// The station files a row speaks of, as bits.
enum StationFile : unsigned {
    kStation = 1,      // LUMAEXE/lumagen.ist
    kStore = 2,        // registry.reg
    kCustrack = 4,     // LUMAEXE/custrack.ini
    kRunType = 8,      // LUMAEXE/runtype.ini, the active copy of the QC mode's run type
    kQcRunType = 16,   // the QC mode's own runtype.ini
    kMpm = 32,         // LUMAEXE/MPM.TBL
    kAutomation = 64,  // LUMAEXE/lumacfg.ini
    kAll = 127,        // every file above, each compared after every row
    // Named in messages only.
    kProgramDir = 128,
    kRunTypeElsewhere = 256,  // gone/runtype.ini in the data-system root
};

// A custom tray with two rack positions and its racks, the tray fitted to the autosampler.
constexpr const char* kCustrackText =
    "[INDEX]\r\nTray_Num=1\r\nTray1_ID=1000\r\nRack_Num=2\r\nRack1_ID=1000\r\nRack2_ID=1001\r\n"
    "\r\n[TRAY_1000]\r\nID_STR=Bench 2-rack\r\nRACK_X_NUM=2\r\nRACK_X_ORG=200\r\n"
    "RACK_Y_ORG=100\r\nRACK_X_DIST=2000\r\nRACK_Y_DIST=2300\r\nDEFRACK1=1000\r\n"
    "\r\n[RACK_1000]\r\nID=1000\r\nID_STR=50 mL 5x8\r\nVIAL_X_NUM=5\r\nVIAL_Y_NUM=8\r\n"
    "VIAL_X_ORG=160\r\nVIAL_Y_ORG=140\r\nVIAL_X_DIST=260\r\nVIAL_Y_DIST=260\r\nVIAL_DEPTH=120\r\n"
    "\r\n[RACK_1001]\r\nID=1001\r\nID_STR=15 mL 7x12\r\nVIAL_X_NUM=7\r\nVIAL_Y_NUM=12\r\n"
    "VIAL_X_ORG=90\r\nVIAL_Y_ORG=80\r\nVIAL_X_DIST=170\r\nVIAL_Y_DIST=170\r\nVIAL_DEPTH=110\r\n"
    "\r\n[CURRENT]\r\nCUSTOMTRAY=1000\r\nTRAY_ID=1000\r\nRACK1_ID=1000\r\nRACK2_ID=1001\r\n"
    "RACK_X_NUM=2\r\n";

constexpr const char* kQcRunTypeText =
    "; Run type of the QC mode GENERAL\r\n[WSX,1]\r\nRunType=General\r\nQCCheck=1\r\n"
    "[ERRORACTION]\r\nError1=1,Continue\r\nError2=5,Rerun-SameSmpl\r\n"
    "[Keywords]\r\nKeywords=SampleID,MethPath,DataFile\r\n";

constexpr const char* kMpmTable =
    "; OPAL method table\r\n#PMP_BEG\r\nPump1\tPeristaltic\t4\r\n"
    "#PMP_END\r\n";

// A station line every start completes when it is missing, so a command must write the profile.
constexpr const char* kCompletedLine = "OPT_CHG_TIME=12\r\n";

using Damage = std::function<std::optional<ScopedMount>()>;

// How a command must name a file: "lumacfg-cli: cannot <op> <path of file>: <reason>".
struct Named {
    const char* op = nullptr;  // "read" or "write"; nullptr: nothing on the standard error
    unsigned file = 0;
    const char* reason = "";
};

struct DamagedStation {
    const char* name;
    Damage damage;
    int show, save;  // exit statuses
    Named named;     // what both commands print when they exit 4
    unsigned same;   // files byte-identical afterwards (a FIFO, directory or link stays one)
    // Files that keep every byte they had when damaged, anything written coming after them.
    unsigned appended = 0;
    // Text a file must still hold afterwards.
    unsigned holder = 0;
    std::string_view holds = {};
    // show prints the same record as for the undamaged station.
    bool sameRecord = false;
};

class DamagedStationTest : public support::TempStation {
  protected:
    fs::path PathOf(unsigned file) const {
        switch (file) {
            case kStation:
                return StationProfile();
            case kStore:
                return RegistryPath();
            case kCustrack:
                return ProgramDir() / "custrack.ini";
            case kRunType:
                return ProgramDir() / "runtype.ini";
            case kQcRunType:
                return root_ / "1" / "QCMODE" / "GENERAL.QCC" / "runtype.ini";
            case kMpm:
                return ProgramDir() / "MPM.TBL";
            case kAutomation:
                return ProgramDir() / "lumacfg.ini";
            case kRunTypeElsewhere:
                return root_ / "gone" / "runtype.ini";
            default:
                return ProgramDir();
        }
    }

    // What a file is, for comparing before and after: its bytes, or its kind.
    static std::string Snapshot(const fs::path& path) {
        std::error_code error;
        const fs::file_status status = fs::symlink_status(path, error);
        if (fs::is_symlink(status)) return "link to " + fs::read_symlink(path).string();
        if (fs::is_directory(status)) return "directory";
        if (fs::is_fifo(status)) return "FIFO";
        if (!fs::exists(status)) return "missing";
        std::string bytes = ReadBytes(path).value_or("unreadable");
        // The configuration identifier is a clock stamp that every save publishes anew.
        const std::string stamp = "\"ConfigurationID\"=dword:";
        if (const std::size_t at = bytes.find(stamp); at != std::string::npos) {
            bytes.replace(at + stamp.size(), 8, "(stamp)");
        }
        return bytes;
    }

    // A station made by the program: created by show, its autosampler the custom tray's
    // model, so that save writes every kind of file. Kept in `pristine_` to start each row.
    void MakePristineStation() {
        WriteBytes(PathOf(kCustrack), kCustrackText);
        WriteBytes(PathOf(kQcRunType), kQcRunTypeText);
        WriteBytes(PathOf(kMpm), kMpmTable);
        for (const auto& args : {std::vector<std::string>{"show"}, {"set", "ALS_TYPE=1"}}) {
            const support::CliResult made = support::RunCli(args, root_);
            ASSERT_EQ(made.exit, 0) << made.err;
        }
        ASSERT_NE(StationText().find(kCompletedLine), std::string::npos);
        fs::remove(root_ / "cli-stderr.txt");
        fs::copy(root_, pristine_.Path(), fs::copy_options::recursive);
    }

    void RestorePristineStation() {
        fs::remove_all(root_);
        fs::create_directories(root_);
        fs::copy(pristine_.Path(), root_, fs::copy_options::recursive);
    }

    // Damage that needs no mount.
    static Damage Just(std::function<void()> change) {
        return [change] {
            change();
            return std::optional<ScopedMount>();
        };
    }

    Damage Edit(unsigned file, std::function<void(std::string&)> change) {
        return Just([this, file, change] {
            std::string text = ReadBytes(PathOf(file)).value_or("");
            change(text);
            WriteBytes(PathOf(file), text);
        });
    }

    Damage Replace(unsigned file, std::string bytes) {
        return Edit(file, [bytes](std::string& text) { text = bytes; });
    }

    // The file taken away and something else put in its place.
    Damage Swap(unsigned file, std::function<void(const fs::path&)> make) {
        return Just([this, file, make] {
            fs::remove_all(PathOf(file));
            make(PathOf(file));
        });
    }

    static void Fifo(const fs::path& path) { ::mkfifo(path.c_str(), 0644); }
    static void Directory(const fs::path& path) { fs::create_directory(path); }
    static void LinkToItself(const fs::path& path) { fs::create_symlink(path.filename(), path); }
    static void LinkToNothing(const fs::path& path) {
        fs::create_symlink(path.filename().string() + ".gone", path);
    }

    // The station line the start completes taken out, then the rest of the damage.
    Damage Incomplete(Damage then) {
        return [this, then] {
            std::string text = StationText();
            text.erase(text.find(kCompletedLine), std::string(kCompletedLine).size());
            WriteBytes(StationProfile(), text);
            return then();
        };
    }

    Damage ReadOnlyFile(unsigned file) {
        return Just([this, file] {
            fs::permissions(
                PathOf(file),
                fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                fs::perm_options::remove);
        });
    }

    static Damage ReadOnlyMount(fs::path path) {
        return [path] { return std::optional(ScopedMount::ReadOnly(path)); };
    }

    // The program directory moved onto a tmpfs made with these options, its files kept, then
    // filled up: its last byte taken, or its last inode.
    enum class Fill { kBytes, kInodes };
    Damage OnTmpfs(std::string options, Fill fill) {
        return [this, options, fill] {
            const fs::path saved = root_ / "saved";
            fs::copy(ProgramDir(), saved, fs::copy_options::recursive);
            std::optional mount(ScopedMount::Tmpfs(ProgramDir(), options));
            if (!mount->Ok()) return mount;
            fs::copy(saved, ProgramDir(), fs::copy_options::recursive);
            fs::remove_all(saved);
            if (fill == Fill::kBytes) {
                std::ofstream filler(ProgramDir() / "filler", std::ios::binary);
                const std::string block(4096, 'x');
                for (int i = 0; i < 4096 && filler.write(block.data(), block.size()); ++i) {
                }
            } else {
                for (int i = 0; i < 1000 && std::ofstream(ProgramDir() / std::to_string(i)); ++i) {
                }
            }
            return mount;
        };
    }

    support::TempDir pristine_{"lumacfg-pristine"};
};

// Text of the form the profile service reads as UTF-16: every byte a code unit.
std::string Utf16(std::string_view text, bool bigEndian, bool mark) {
    std::string out;
    if (mark) out = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (char c : text) {
        out += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
    }
    return out;
}

std::string RandomBytes(std::size_t count, unsigned seed) {
    std::mt19937 generator(seed);
    std::string bytes(count, '\0');
    for (char& byte : bytes) byte = static_cast<char>(generator() & 0xFF);
    bytes[0] = 'R';  // not a byte-order mark
    return bytes;
}

TEST_F(DamagedStationTest, EveryDamageIsNamedOrReadAndNothingStoredIsLost) {
    MakePristineStation();
    if (HasFatalFailure()) return;
    const std::string pristineRecord = support::RunCli({"show"}, root_).out;
    const std::string station = StationText();
    const std::string store = RegistryFileText();
    auto cut = [](std::size_t size) { return [size](std::string& text) { text.resize(size); }; };
    auto cutAt = [](std::string marker, std::size_t extra) {
        return [marker, extra](std::string& text) { text.resize(text.find(marker) + extra); };
    };
    auto append = [](std::string more) { return [more](std::string& text) { text += more; }; };
    auto replaceLine = [](std::string key, std::string line) {
        return [key, line](std::string& text) {
            const std::size_t at = text.find("\n" + key) + 1;
            text.replace(at, text.find('\n', at) + 1 - at, line);
        };
    };
    // A tray selection for the save to write ("1000.0" reads as 1000 and is written back as
    // "1000"), then the damage that must stop the write.
    auto withSelectionToWrite = [&](Damage damage) -> Damage {
        return [&, damage] {
            Edit(kCustrack, replaceLine("RACK1_ID=", "RACK1_ID=1000.0\r\n"))();
            return damage();
        };
    };
    auto insertAfter = [](std::string key, std::string lines) {
        return [key, lines](std::string& text) {
            const std::size_t at = text.find("\n" + key) + 1;
            text.insert(text.find('\n', at) + 1, lines);
        };
    };
    const std::string completedInUtf16 = Utf16(std::string("\r\n") + kCompletedLine, false, false);
    const std::string rack1InUtf16 = Utf16("\r\nRACK1_ID=1000\r\n", false, false);
    const char* const noSpace = "No space left on device";
    const char* const notRegistry = "not a registry file";
    const char* const notText = "not text: a NUL byte at byte";

    const DamagedStation rows[] = {
        // The station profile cut short: what is missing is completed after what is there. Bytes
        // that are not text (a NUL byte, which no profile service writes) are named and kept.
        {"lumagen.ist cut in the middle of a line", Edit(kStation, cutAt("DEAxes=", 8)), 0, 0,
         {}, kAll & ~kStation & ~kStore, kStation},
        {"lumagen.ist cut in a section header", Edit(kStation, cutAt("[WSX,1]", 4)), 0, 0, {},
         kAll & ~kStation & ~kStore, kStation},
        {"lumagen.ist of 0 bytes (a new station)", Replace(kStation, ""), 0, 0, {},
         kAll & ~kStation & ~kStore, kStation},
        {"lumagen.ist of random bytes", Replace(kStation, RandomBytes(4096, 7)), 4, 4,
         {"read", kStation, notText}, kAll},
        {"lumagen.ist with NULs inside its lines",
         Edit(kStation, replaceLine("DETitle=", std::string("DETitle=0\0 255\0 255\r\n", 22))), 4,
         4, {"read", kStation, notText}, kAll},
        {"lumagen.ist that is a ZIP archive",
         Replace(kStation, "PK\x03\x04\x14\0\0\0" + RandomBytes(200, 3)), 4, 4,
         {"read", kStation, notText}, kAll},
        {"lumagen.ist that is an ELF program",
         Replace(kStation, std::string("\x7F" "ELF\x02\x01\x01\0\0\0\0\0\0\0\0\0", 16) +
                               RandomBytes(300, 5)),
         4, 4, {"read", kStation, notText}, kAll},

        // Encodings and line ends: read as the profile service reads them.
        {"lumagen.ist in UTF-16LE with its mark", Replace(kStation, Utf16(station, false, true)),
         0, 0, {}, kAll, 0, 0, "", true},
        {"lumagen.ist in UTF-16BE with its mark", Replace(kStation, Utf16(station, true, true)), 0,
         0, {}, kAll, 0, 0, "", true},
        {"lumagen.ist in UTF-16LE without a mark",
         Replace(kStation, Utf16(station, false, false)), 4, 4, {"read", kStation, notText}, kAll},
        {"lumagen.ist in UTF-16BE without a mark",
         Replace(kStation, Utf16(station, true, false)), 4, 4, {"read", kStation, notText}, kAll},
        {"lumagen.ist in UTF-16 with an odd number of bytes",
         Replace(kStation, Utf16(station, false, true) + "A"), 4, 4,
         {"read", kStation, "UTF-16 text with an odd number of bytes"}, kAll},
        {"lumagen.ist in UTF-16 with an unpaired surrogate",
         Replace(kStation, Utf16(station, false, true) + std::string("\x00\xD8", 2)), 4, 4,
         {"read", kStation, "UTF-16 text with an unpaired surrogate"}, kAll},
        {"lumagen.ist in UTF-16LE that the start completes",
         Incomplete(Edit(kStation, [](std::string& text) { text = Utf16(text, false, true); })), 0,
         0, {}, kAll & ~kStation, 0, kStation, completedInUtf16, true},
        {"lumagen.ist with a UTF-8 mark that the start completes",
         Incomplete(Edit(kStation, [](std::string& text) { text = "\xEF\xBB\xBF" + text; })), 0,
         0, {}, kAll & ~kStation, 0, kStation, "\xEF\xBB\xBF[WSX]\r\n", true},
        {"lumagen.ist with a UTF-8 mark", Replace(kStation, "\xEF\xBB\xBF" + station), 0, 0, {},
         kAll, 0, 0, "", true},
        {"lumagen.ist with Windows-1252 letters",
         Edit(kStation, append("[Lab]\r\nOwner=M\xFCller \x80\x99\r\n")), 0, 0, {}, kAll, 0, 0, {},
         true},
        {"lumagen.ist with CR, LF and CR LF line ends mixed",
         Edit(kStation,
              [](std::string& text) {
                  std::string mixed;
                  int line = 0;
                  for (std::size_t at = 0, end; at < text.size(); at = end + 2, ++line) {
                      end = text.find("\r\n", at);
                      mixed += text.substr(at, end - at) + (line % 3 == 0   ? "\r"
                                                            : line % 3 == 1 ? "\n"
                                                                            : "\r\n");
                  }
                  text = mixed;
              }),
         0, 0, {}, kAll & ~kStation, 0, 0, "", true},

        // Lines the format does not expect: the first match wins, the rest is kept as it stands.
        {"lumagen.ist with its instrument section twice",
         Edit(kStation, append("[WSX,1]\r\nINSTNAME=Second\r\nALS_TYPE=7\r\n")), 0, 0, {}, kAll, 0,
         0, {}, true},
        {"lumagen.ist with its instrument section twice, the first completed",
         Incomplete(Edit(kStation, append("[WSX,1]\r\nINSTNAME=Second\r\nOPT_CHG_TIME=7\r\n"))),
         0, 0, {}, kAll & ~kStation, 0, kStation,
         "ExternalPump=0\r\nOPT_CHG_TIME=12\r\n[WSX,1]\r\nINSTNAME=Second\r\nOPT_CHG_TIME=7\r\n",
         true},
        {"lumagen.ist with a key twice",
         Edit(kStation, insertAfter("ALS_TYPE=", "ALS_TYPE=7\r\nINSTNAME=Second\r\n")), 0, 0, {},
         kAll, 0, 0, "", true},
        {"lumagen.ist with a line without '=' and a key without value",
         Edit(kStation, insertAfter("INSTNAME=", "JUST SOME WORDS\r\nNOVALUE=\r\n=\r\n")), 0, 0,
         {}, kAll, 0, 0, "", true},
        {"lumagen.ist with a section header without ']'",
         Edit(kStation, replaceLine("[WSX_32]", "[WSX_32\r\n")), 0, 0, {}, kAll & ~kStation & ~kStore,
         0, kStation, "[WSX_32\r\nLinks=1"},
        {"lumagen.ist with texts longer than the load reads",
         Edit(kStation,
              [replaceLine](std::string& text) {
                  const std::string folder = "\\\\labserver\\" + std::string(120, 'q') + "\\";
                  replaceLine("_QCMDPATH$=", "_QCMDPATH$=" + folder + "\r\n")(text);
                  replaceLine("_MPMFILE$=", "_MPMFILE$=" + std::string(150, 'm') + ".MPA\r\n")(text);
              }),
         0, 0, {}, kAll},
        {"lumagen.ist with a value of 1 MB",
         Edit(kStation, append("[Big]\r\nValue=" + std::string(1 << 20, 'v') + "\r\n")), 0, 0, {},
         kAll, 0, 0, "", true},
        {"lumagen.ist with a line of 10 MB", Edit(kStation, append(std::string(10 << 20, 'w'))), 0,
         0, {}, kAll, 0, 0, "", true},
        {"lumagen.ist with 100000 sections",
         Edit(kStation,
              [](std::string& text) {
                  for (int i = 0; i < 100000; ++i) text += "[S" + std::to_string(i) + "]\r\nK=1\r\n";
              }),
         0, 0, {}, kAll, 0, 0, "", true},
        {"lumagen.ist with numbers out of range",
         Edit(kStation, [replaceLine](std::string& text) {
             replaceLine("ICPMS_TYPE=", "ICPMS_TYPE=99999\r\n")(text);
             replaceLine("RACK1_ID=", "RACK1_ID=-70000\r\n")(text);
             replaceLine("OPT_SC=", "OPT_SC=4294967296\r\n")(text);
         }),
         0, 0, {}, kAll & ~kStation & ~kStore},

        // Something else where the station profile should be; the station is not created anew.
        {"lumagen.ist is a directory", Swap(kStation, Directory), 4, 4,
         {"read", kStation, "not a regular file (a directory)"}, kAll},
        {"lumagen.ist is a FIFO", Swap(kStation, Fifo), 4, 4,
         {"read", kStation, "not a regular file (a FIFO)"}, kAll},
        {"lumagen.ist is a link to the station kept elsewhere, which the start completes",
         Incomplete(Just([this] {
             fs::rename(StationProfile(), root_ / "elsewhere.ist");
             fs::create_symlink("../elsewhere.ist", StationProfile());
         })),
         0, 0, {}, kAll, 0, 0, {}, true},
        {"lumagen.ist is a link to itself", Swap(kStation, LinkToItself), 4, 4,
         {"read", kStation, "Too many levels of symbolic links"}, kAll},
        {"lumagen.ist is a link to nothing", Swap(kStation, LinkToNothing), 4, 4,
         {"write", kStation, "a symbolic link to a missing file"}, kAll},
        {"lumagen.ist without write permission", Incomplete(ReadOnlyFile(kStation)), 4, 4,
         {"write", kStation, "read-only file"}, kAll},
        {"lumagen.ist without any permission bit (read by root, a write refused)",
         Incomplete(Just([this] { fs::permissions(StationProfile(), fs::perms::none); })), 4, 4,
         {"write", kStation, "read-only file"}, kAll},
        {"program directory without write permission bits (root still writes in it)",
         Incomplete(Just([this] {
             fs::permissions(ProgramDir(), fs::perms::owner_write | fs::perms::group_write |
                                               fs::perms::others_write,
                             fs::perm_options::remove);
         })),
         0, 0, {}, kAll & ~kStation, 0, kStation, kCompletedLine, true},
        {"program directory on a read-only mount", Incomplete(ReadOnlyMount(ProgramDir())), 4, 4,
         {"write", kStation, "Read-only file system"}, kAll},
        {"program directory on a full disk", Incomplete(OnTmpfs("size=64k", Fill::kBytes)), 4, 4,
         {"write", kStation, noSpace}, kAll},
        {"program directory without a free inode", Incomplete(OnTmpfs("nr_inodes=64", Fill::kInodes)), 4,
         4, {"write", kStation, noSpace}, kAll},
        {"program directory missing", Just([this] { fs::remove_all(ProgramDir()); }), 4, 4,
         {"read", kProgramDir, "No such file or directory"}, kStore | kQcRunType},
        {"program directory is a file", Swap(kProgramDir, [](const fs::path& p) {
             WriteBytes(p, "not a directory\n");
         }),
         4, 4, {"read", kProgramDir, "Not a directory"}, kStore | kQcRunType},
        {"program directory is a link to nothing", Swap(kProgramDir, LinkToNothing), 4, 4,
         {"read", kProgramDir, "No such file or directory"}, kStore | kQcRunType},
        {"program directory is a link to itself", Swap(kProgramDir, LinkToItself), 4, 4,
         {"read", kProgramDir, "Too many levels of symbolic links"}, kStore | kQcRunType},

        // The registry store.
        // A store cut before the configuration identifier reads as security off, as one
        // without the data system's key does: always-print is saved off.
        {"registry store cut in the middle of a value",
         Edit(kStore, cutAt("\"HardWare\"=dword", 16)), 0, 0, {}, kAll & ~kStation & ~kStore,
         kStore},
        {"registry store cut in its header line", Edit(kStore, cut(20)), 4, 4,
         {"read", kStore, notRegistry}, kAll},
        {"registry store that is no .reg file", Replace(kStore, "HardWare=2\n"), 4, 4,
         {"read", kStore, notRegistry}, kAll},
        {"registry store of 0 bytes", Replace(kStore, ""), 4, 4, {"read", kStore, notRegistry},
         kAll},
        {"registry store of random bytes", Replace(kStore, RandomBytes(2048, 11)), 4, 4,
         {"read", kStore, notText}, kAll},
        {"registry store without the data system's key",
         Replace(kStore, "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_LOCAL_MACHINE\\"
                         "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Ports]\r\n"
                         "\"COM1:\"=\"9600,n,8,1\"\r\n"),
         0, 0, {}, kAll & ~kStation, 0, kStation, "\r\n_ALWAYSPRT=0\r\n"},
        {"registry store with \"HardWare\" as a string",
         Edit(kStore, replaceLine("\"HardWare\"", "\"HardWare\"=\"1\"\r\n")), 0, 0, {}, kAll, 0,
         kStore, "\"HardWare\"=\"1\"\r\n"},
        {"registry store with \"HardWare\" as hex",
         Edit(kStore, replaceLine("\"HardWare\"", "\"HardWare\"=hex:01,00,00,00\r\n")), 0, 0, {},
         kAll, 0, kStore, "\"HardWare\"=hex:01,00,00,00\r\n"},
        {"registry store with a dword of bad hex",
         Edit(kStore, replaceLine("\"HardWare\"", "\"HardWare\"=dword:0000zz01\r\n")), 0, 0, {},
         kAll, 0, kStore, "\"HardWare\"=dword:0000zz01\r\n"},
        {"registry store in UTF-16 with an odd number of bytes",
         Replace(kStore, Utf16(store, false, true) + "A"), 4, 4,
         {"read", kStore, "UTF-16 text with an odd number of bytes"}, kAll},
        {"registry store in UTF-16 with an unpaired surrogate",
         Replace(kStore, Utf16(store, false, true) + std::string("\x00\xD8", 2)), 4, 4,
         {"read", kStore, "UTF-16 text with an unpaired surrogate"}, kAll},
        {"registry store with the data system's key twice",
         Edit(kStore, append(std::string("\r\n") + support::kDataSystemKeyLine +
                             "\"HardWare\"=dword:00000002\r\n\"ConfigurationID\"=dword:00000000\r\n")),
         0, 0, {}, kAll & ~kStore, 0, kStore,
         "\"HardWare\"=dword:00000002\r\n\"ConfigurationID\"=dword:00000000\r\n", true},
        {"registry store with a value twice",
         Edit(kStore, insertAfter("\"HardWare\"", "\"HardWare\"=dword:00000002\r\n")), 0, 0, {},
         kAll, 0, kStore, "\"HardWare\"=dword:00000001\r\n\"HardWare\"=dword:00000002\r\n", true},
        {"new station with \"HardWare\" beyond its range",
         [&] {
             Replace(kStation, "")();
             return Edit(kStore, replaceLine("\"HardWare\"", "\"HardWare\"=dword:ffffffff\r\n"))();
         },
         0, 0, {}, kAll & ~kStation & ~kStore, kStation},
        {"registry store with LF line ends", Edit(kStore, [](std::string& text) {
             std::erase(text, '\r');
         }),
         0, 0, {}, kAll, 0, 0, {}, true},
        {"registry store with CR line ends",
         Edit(kStore, [](std::string& text) { std::replace(text.begin(), text.end(), '\n', '\r'); }),
         4, 4, {"read", kStore, notRegistry}, kAll},
        {"registry store with the data system's key line without ']'",
         Edit(kStore, replaceLine("[HKEY_LOCAL_MACHINE\\SOFTWARE\\Corvane",
                                  "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Corvane Instruments\r\n")),
         0, 0, {}, kAll & ~kStation, 0, kStation, "\r\n_ALWAYSPRT=0\r\n"},
        {"registry store is a FIFO", Swap(kStore, Fifo), 4, 4,
         {"read", kStore, "not a regular file (a FIFO)"}, kAll},
        {"registry store is a directory", Swap(kStore, Directory), 4, 4,
         {"read", kStore, "not a regular file (a directory)"}, kAll},
        {"registry store missing", Just([this] { fs::remove(RegistryPath()); }), 0, 0, {},
         kAll & ~kStation, 0, kStation, "\r\n_ALWAYSPRT=0\r\n"},
        {"registry store is a link to nothing (a missing store)", Swap(kStore, LinkToNothing), 0,
         0, {}, kAll & ~kStation, 0, kStation, "\r\n_ALWAYSPRT=0\r\n"},
        {"registry store is a link to itself", Swap(kStore, LinkToItself), 4, 4,
         {"read", kStore, "Too many levels of symbolic links"}, kAll},
        {"registry store without write permission", ReadOnlyFile(kStore), 0, 4,
         {"write", kStore, "read-only file"}, kAll},
        {"registry store on a read-only mount", ReadOnlyMount(RegistryPath()), 0, 4,
         {"write", kStore, "Read-only file system"}, kAll},

        // custrack.ini: a value that should be a number and is not keeps the tray selection
        // as it stands; impossible geometry is not loaded, and nothing of it is lost either.
        {"custrack.ini with \"abc\" for a count",
         Edit(kCustrack, replaceLine("Tray_Num=", "Tray_Num=abc\r\n")), 0, 4,
         {"read", kCustrack, "[INDEX] Tray_Num: \"abc\" is not a number"}, kAll},
        {"custrack.ini with \"1e999\" for a count",
         Edit(kCustrack, replaceLine("RACK_X_NUM=", "RACK_X_NUM=1e999\r\n")), 0, 4,
         {"read", kCustrack, "[TRAY_1000] RACK_X_NUM: \"1e999\" is not a number"}, kAll},
        {"custrack.ini with a number beyond 32 bits",
         Edit(kCustrack, replaceLine("VIAL_X_NUM=", "VIAL_X_NUM=99999999999\r\n")), 0, 4,
         {"read", kCustrack, "[RACK_1000] VIAL_X_NUM: \"99999999999\" is not a number"}, kAll},
        {"custrack.ini with blanks for a count",
         Edit(kCustrack, replaceLine("Rack_Num=", "Rack_Num=   \r\n")), 0, 0, {}, kAll},
        {"custrack.ini with a rack of no vials",
         Edit(kCustrack, replaceLine("VIAL_X_NUM=", "VIAL_X_NUM=0\r\n")), 0, 0, {}, kAll},
        {"custrack.ini with a negative vial count",
         Edit(kCustrack, replaceLine("VIAL_Y_NUM=", "VIAL_Y_NUM=-8\r\n")), 0, 0, {}, kAll},
        {"custrack.ini with a rack wider than its tray position",
         Edit(kCustrack, replaceLine("VIAL_X_DIST=", "VIAL_X_DIST=9000\r\n")), 0, 0, {}, kAll},
        {"custrack.ini with more racks selected than the tray holds",
         Edit(kCustrack, [](std::string& text) {
             text.replace(text.rfind("RACK_X_NUM=2"), 12, "RACK_X_NUM=12");
         }),
         0, 0, {}, kAll},
        {"custrack.ini with a tray id out of range",
         Edit(kCustrack, replaceLine("Tray1_ID=", "Tray1_ID=5000\r\n")), 0, 0, {}, kAll},
        {"custrack.ini with a rack id twice",
         Edit(kCustrack, replaceLine("Rack2_ID=", "Rack2_ID=1000\r\n")), 0, 0, {}, kAll},
        {"custrack.ini with its tray selection twice",
         Edit(kCustrack, append("[CURRENT]\r\nTRAY_ID=1000\r\nRACK1_ID=1001\r\nSTALE=1\r\n")), 0,
         4, {"write", kCustrack, "section [CURRENT] stands 2 times"}, kAll},
        {"custrack.ini in UTF-16 with an odd number of bytes",
         Edit(kCustrack, [](std::string& text) { text = Utf16(text, false, true) + "A"; }), 0, 4,
         {"read", kCustrack, "UTF-16 text with an odd number of bytes"}, kAll},
        {"custrack.ini in UTF-16BE", Edit(kCustrack, [](std::string& text) { text = Utf16(text, true, true); }), 0, 0,
         {}, kAll},
        {"custrack.ini in UTF-16LE with a selection to write",
         Edit(kCustrack,
              [replaceLine](std::string& text) {
                  replaceLine("RACK1_ID=", "RACK1_ID=1000.0\r\n")(text);
                  text = Utf16(text, false, true);
              }),
         0, 0, {}, kAll & ~kCustrack, 0, kCustrack, rack1InUtf16},
        {"custrack.ini with 100000 sections after the tray selection",
         Edit(kCustrack,
              [](std::string& text) {
                  for (int i = 0; i < 100000; ++i) text += "[S" + std::to_string(i) + "]\r\nK=1\r\n";
              }),
         0, 0, {}, kAll & ~kCustrack, 0, kCustrack, "[S99999]\r\nK=1\r\n[CURRENT]\r\n"},
        {"custrack.ini is a FIFO", Swap(kCustrack, Fifo), 0, 4,
         {"read", kCustrack, "not a regular file (a FIFO)"}, kAll},
        {"custrack.ini is a directory", Swap(kCustrack, Directory), 0, 4,
         {"read", kCustrack, "not a regular file (a directory)"}, kAll},
        {"custrack.ini is a link to itself", Swap(kCustrack, LinkToItself), 0, 4,
         {"read", kCustrack, "Too many levels of symbolic links"}, kAll},
        {"custrack.ini is a link to nothing (no tray selection to keep)",
         Swap(kCustrack, LinkToNothing), 0, 0, {}, kAll},
        {"custrack.ini on a full disk with a selection to write",
         withSelectionToWrite(OnTmpfs("size=64k", Fill::kBytes)),
         0, 4, {"write", kCustrack, noSpace}, kAll},
        {"custrack.ini on a read-only mount with a selection to write",
         withSelectionToWrite(ReadOnlyMount(PathOf(kCustrack))),
         0, 4, {"write", kCustrack, "Read-only file system"}, kAll},
        {"custrack.ini without write permission and a selection to write",
         withSelectionToWrite(ReadOnlyFile(kCustrack)),
         0, 4, {"write", kCustrack, "read-only file"}, kAll},

        // The run type: the QC mode's file copied over the program directory's.
        {"lumagen.ist naming a program folder that is not there",
         Edit(kStation, replaceLine("_EXEPATH$=", "_EXEPATH$=" + (root_ / "gone").string() + "/\r\n")),
         0, 4, {"write", kRunTypeElsewhere, "No such file or directory"}, kAll},
        {"lumagen.ist naming a program folder that is a file",
         [&] {
             WriteBytes(root_ / "gone", "a file\r\n");
             return Edit(kStation, replaceLine("_EXEPATH$=", "_EXEPATH$=" + (root_ / "gone").string() + "/\r\n"))();
         },
         0, 4, {"read", kRunTypeElsewhere, "Not a directory"}, kAll},
        {"runtype.ini is a FIFO", Swap(kRunType, Fifo), 0, 4,
         {"read", kRunType, "not a regular file (a FIFO)"}, kAll},
        {"runtype.ini is a directory", Swap(kRunType, Directory), 0, 4,
         {"read", kRunType, "not a regular file (a directory)"}, kAll},
        {"runtype.ini is a link to nothing", Swap(kRunType, LinkToNothing), 0, 4,
         {"write", kRunType, "a symbolic link to a missing file"}, kAll},
        {"runtype.ini is a link to itself", Swap(kRunType, LinkToItself), 0, 4,
         {"read", kRunType, "Too many levels of symbolic links"}, kAll},
        {"runtype.ini without write permission", ReadOnlyFile(kRunType), 0, 4,
         {"write", kRunType, "read-only file"}, kAll},
        {"runtype.ini in UTF-16 with an odd number of bytes",
         Replace(kRunType, Utf16(kQcRunTypeText, false, true) + "A"), 0, 4,
         {"read", kRunType, "UTF-16 text with an odd number of bytes"}, kAll},
        {"the QC mode's runtype.ini is a FIFO", Swap(kQcRunType, Fifo), 0, 4,
         {"read", kQcRunType, "not a regular file (a FIFO)"}, kAll},
        {"the QC mode's runtype.ini in UTF-16 with an odd number of bytes",
         Edit(kQcRunType, [](std::string& text) { text = Utf16(text, false, true) + "A"; }), 0, 4,
         {"read", kQcRunType, "UTF-16 text with an odd number of bytes"}, kAll},
        {"the QC mode's runtype.ini of random bytes", Replace(kQcRunType, RandomBytes(1000, 13)),
         0, 4, {"read", kQcRunType, notText}, kAll},
        {"the QC mode's runtype.ini missing (its copy is kept)",
         Just([this] { fs::remove(PathOf(kQcRunType)); }), 0, 0, {}, kAll},

        // Other files of the program directory.
        {"lumacfg.ini is a FIFO", Swap(kAutomation, Fifo), 4, 4,
         {"read", kAutomation, "not a regular file (a FIFO)"}, kAll},
        {"lumacfg.ini is a directory", Swap(kAutomation, Directory), 4, 4,
         {"read", kAutomation, "not a regular file (a directory)"}, kAll},
        {"ACSLVL.IST is a FIFO", Just([this] { Fifo(ProgramDir() / "ACSLVL.IST"); }), 0, 0, {},
         kAll},
        // The OPAL method table: neither show nor save reads it.
        {"MPM.TBL is a FIFO", Swap(kMpm, Fifo), 0, 0, {}, kAll},
    };

    for (const DamagedStation& row : rows) {
        SCOPED_TRACE(row.name);
        RestorePristineStation();
        std::optional<ScopedMount> mount = row.damage();
        if (mount && !mount->Ok()) {
            std::cout << "[ SKIPPED  ] " << row.name << ": " << mount->Error() << '\n';
            continue;
        }
        std::vector<std::string> damaged;
        for (unsigned file = 1; file < kAll; file <<= 1) {
            damaged.push_back(Snapshot(PathOf(file)));
        }
        const std::string expected = row.named.op
                                         ? "lumacfg-cli: cannot " + std::string(row.named.op) +
                                               " " + PathOf(row.named.file).string() + ": " +
                                               std::string(row.named.reason)
                                         : "";
        const std::pair<const char*, int> commands[] = {{"show", row.show}, {"save", row.save}};
        for (const auto& [command, exit] : commands) {
            const support::CliResult result = support::RunCli({command}, root_);
            SCOPED_TRACE(command);
            EXPECT_EQ(result.exit, exit) << result.err;
            if (exit == 0) {
                EXPECT_EQ(result.err, "");
            } else {
                EXPECT_NE(expected, "");
                EXPECT_NE(result.err.find(expected), std::string::npos) << result.err;
                EXPECT_EQ(result.err.find("runtime error"), std::string::npos) << result.err;
            }
            if (row.sameRecord && command == std::string("show")) {
                EXPECT_EQ(result.out, pristineRecord);
            }
        }
        std::size_t index = 0;
        for (unsigned file = 1; file < kAll; file <<= 1, ++index) {
            SCOPED_TRACE(PathOf(file).string());
            const std::string now = Snapshot(PathOf(file));
            if (row.same & file) {
                EXPECT_EQ(now, damaged[index]);
            }
            if (row.appended & file) {
                EXPECT_EQ(now.substr(0, damaged[index].size()), damaged[index]);
            }
            if (row.holder & file) {
                EXPECT_NE(now.find(row.holds), std::string::npos)
                    << testing::PrintToString(std::string(row.holds));
            }
        }
        for (const fs::path& dir : {ProgramDir(), root_}) {
            std::error_code error;
            if (!fs::is_directory(dir, error)) continue;
            for (const auto& entry : fs::directory_iterator(dir)) {
                EXPECT_NE(entry.path().filename().string().front(), '.')
                    << "temporary file left: " << entry.path();
            }
        }
        mount.reset();
    }
    std::cout << "[ CATALOGUE] " << std::size(rows) << " damaged stations\n";
}

}  // namespace
}  // namespace lumacfg
