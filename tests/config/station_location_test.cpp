// Finding the station: the variable, the registry store's "Path", and recording a folder chosen
// at the first start.
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "config/station_location.h"
#include "integration/vlt_settings.h"
#include "platform/file_system.h"
#include "platform/services.h"
#include "support/scoped_env.h"
#include "support/scoped_mount.h"
#include "support/temp_dir.h"
#include "support/temp_station.h"

namespace lumacfg {
namespace {

namespace fs = std::filesystem;
using Outcome = StationLookup::Outcome;
using support::ReadBytes;
using support::RegistryText;
using support::ScopedEnv;
using support::TempDir;
using support::WriteBytes;

// "@" in a text stands for the test's root directory.
std::string Rooted(std::string text, const std::string& root) {
    for (std::size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at)) {
        text.replace(at, 1, root);
        at += root.size();
    }
    return text;
}

class StationLocationTest : public ::testing::Test {
  protected:
    void SetUp() override { platform::ResetServices(); }
    void TearDown() override { platform::ResetServices(); }

    std::string Root() const { return temp_.Path().string(); }
    std::string Store() const { return Root() + "/registry.reg"; }

    TempDir temp_{"lumacfg-location"};
    ScopedEnv programDir_{"LUMACFG_PROGRAM_DIR", std::nullopt};
    ScopedEnv registry_{"LUMACFG_REGISTRY", Store()};
};

struct LookupCase {
    const char* name;
    std::optional<std::string> variable;  // LUMACFG_PROGRAM_DIR
    std::optional<std::string> store;     // the registry store's bytes; nullopt: no store
    std::vector<std::string> folders;     // made below the root
    Outcome outcome;
    std::string directoryOrMissingPath;  // Found: the directory; NotNamed: the path named
    std::string reasonPart;              // NotNamed: part of the reason
};

TEST_F(StationLocationTest, LookUpStationTakesTheFirstThatNamesOne) {
    const std::string pathIs = "\"Path\"=\"@/plasma\"\r\n";
    const LookupCase cases[] = {
        {"variable wins over the store",
         "@/elsewhere",
         RegistryText(pathIs),
         {"plasma/LUMAEXE"},
         Outcome::Found,
         "@/elsewhere",
         ""},
        {"variable wins over a damaged store",
         "@/elsewhere",
         "not a registry",
         {},
         Outcome::Found,
         "@/elsewhere",
         ""},
        {"empty variable counts as not set",
         "",
         RegistryText(pathIs),
         {"plasma/LUMAEXE"},
         Outcome::Found,
         "@/plasma/LUMAEXE",
         ""},
        {"store's Path",
         std::nullopt,
         RegistryText(pathIs),
         {"plasma/LUMAEXE"},
         Outcome::Found,
         "@/plasma/LUMAEXE",
         ""},
        {"Path with a trailing backslash",
         std::nullopt,
         RegistryText("\"Path\"=\"@/plasma\\\\\"\r\n"),
         {"plasma/LUMAEXE"},
         Outcome::Found,
         "@/plasma/LUMAEXE",
         ""},
        {"letter case of LUMAEXE ignored",
         std::nullopt,
         RegistryText(pathIs),
         {"plasma/lumaexe"},
         Outcome::Found,
         "@/plasma/lumaexe",
         ""},
        {"letter case of the folder ignored",
         std::nullopt,
         RegistryText("\"Path\"=\"@/PLASMA\"\r\n"),
         {"plasma/LumaExe"},
         Outcome::Found,
         "@/plasma/LumaExe",
         ""},
        {"no store",
         std::nullopt,
         std::nullopt,
         {"plasma/LUMAEXE"},
         Outcome::NotNamed,
         "@/registry.reg",
         "No such file or directory"},
        {"store without the data system's key",
         std::nullopt,
         "Windows Registry Editor Version 5.00\r\n",
         {},
         Outcome::NotNamed,
         "@/registry.reg",
         "names no data system folder"},
        {"key without Path",
         std::nullopt,
         RegistryText("\"HardWare\"=dword:00000001\r\n"),
         {},
         Outcome::NotNamed,
         "@/registry.reg",
         "names no data system folder"},
        {"Path's folder missing",
         std::nullopt,
         RegistryText(pathIs),
         {},
         Outcome::NotNamed,
         "@/plasma/LUMAEXE",
         "No such file or directory"},
        {"Path's folder without LUMAEXE",
         std::nullopt,
         RegistryText(pathIs),
         {"plasma"},
         Outcome::NotNamed,
         "@/plasma/LUMAEXE",
         "No such file or directory"},
        {"Path of another computer",
         std::nullopt,
         RegistryText("\"Path\"=\"C:\\\\PLASMA\"\r\n"),
         {},
         Outcome::NotNamed,
         "@/registry.reg",
         "\"C:\\PLASMA\" is not a full path"},
        {"Path relative to the working directory",
         std::nullopt,
         RegistryText("\"Path\"=\"plasma\"\r\n"),
         {"plasma/LUMAEXE"},
         Outcome::NotNamed,
         "@/registry.reg",
         "\"plasma\" is not a full path"},
        {"damaged store", std::nullopt, "not a registry", {}, Outcome::Unreadable, "", ""},
    };
    for (const LookupCase& c : cases) {
        SCOPED_TRACE(c.name);
        fs::remove_all(temp_.Path());
        fs::create_directories(temp_.Path());
        platform::ResetServices();
        programDir_.Set(c.variable ? std::optional(Rooted(*c.variable, Root())) : std::nullopt);
        if (c.store) WriteBytes(Store(), Rooted(*c.store, Root()));
        for (const std::string& folder : c.folders) fs::create_directories(temp_.Path() / folder);

        const StationLookup lookup = LookUpStation();
        EXPECT_EQ(lookup.outcome, c.outcome);
        const std::string expected = Rooted(c.directoryOrMissingPath, Root());
        if (c.outcome == Outcome::Found) {
            EXPECT_EQ(lookup.directory, expected);
        }
        if (c.outcome == Outcome::NotNamed) {
            EXPECT_EQ(lookup.missing.path, expected);
            EXPECT_NE(lookup.missing.reason.find(c.reasonPart), std::string::npos)
                << lookup.missing.reason;
        }
        // Only a store that cannot be read is reported by the lookup itself.
        EXPECT_EQ(platform::Failures().Take().size(), c.outcome == Outcome::Unreadable ? 1u : 0u);
    }
}

TEST_F(StationLocationTest, LocateStationMakesTheFoundDirectoryTheProgramDirectory) {
    fs::create_directories(temp_.Path() / "plasma" / "LUMAEXE");
    WriteBytes(Store(), RegistryText(Rooted("\"Path\"=\"@/plasma\"\r\n", Root())));
    EXPECT_EQ(platform::ProgramDirectory(), "");
    ASSERT_TRUE(LocateStation());
    EXPECT_EQ(platform::ProgramDirectory(), Root() + "/plasma/LUMAEXE");
    programDir_.Set(Root() + "/other/");  // the variable still overrides, asked anew
    EXPECT_EQ(platform::ProgramDirectory(), Root() + "/other");
}

TEST_F(StationLocationTest, LocateStationReportsWhatIsMissing) {
    EXPECT_FALSE(LocateStation());
    const auto failures = platform::Failures().Take();
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_EQ(failures[0].path, Store());
    EXPECT_EQ(platform::ProgramDirectory(), "");
}

struct RecordCase {
    const char* name;
    std::optional<std::string> store;  // nullopt: no store yet
    std::vector<std::string> folders;
    bool recorded;
    std::string expectedStore;  // the store's bytes afterwards ("" : as before)
};

TEST_F(StationLocationTest, RecordDataSystemFolderWritesPathAndMakesLumaexe) {
    const std::string header = "Windows Registry Editor Version 5.00\r\n";
    const std::string key = support::kDataSystemKeyLine;
    const std::string kept =
        RegistryText("\"Path\"=\"C:\\\\OLD\"\r\n\"HardWare\"=dword:00000002\r\n");
    const RecordCase cases[] = {
        {"no store: made with its header",
         std::nullopt,
         {"plasma"},
         true,
         header + "\r\n" + key + "\"Path\"=\"@/plasma\"\r\n"},
        {"store without the key",
         header + "\r\n; kept\r\n",
         {"plasma/LUMAEXE"},
         true,
         header + "\r\n; kept\r\n\r\n" + key + "\"Path\"=\"@/plasma\"\r\n"},
        {"Path replaced, every other byte kept",
         kept,
         {"plasma"},
         true,
         RegistryText("\"Path\"=\"@/plasma\"\r\n\"HardWare\"=dword:00000002\r\n")},
        {"folder missing: nothing written", kept, {}, false, ""},
        {"damaged store: nothing written", "not a registry", {"plasma"}, false, ""},
    };
    for (const RecordCase& c : cases) {
        SCOPED_TRACE(c.name);
        fs::remove_all(temp_.Path());
        fs::create_directories(temp_.Path());
        platform::ResetServices();
        if (c.store) WriteBytes(Store(), *c.store);
        for (const std::string& folder : c.folders) fs::create_directories(temp_.Path() / folder);

        EXPECT_EQ(RecordDataSystemFolder(Root() + "/plasma"), c.recorded);
        const std::string expected = c.expectedStore.empty() ? c.store.value_or("<missing>")
                                                             : Rooted(c.expectedStore, Root());
        EXPECT_EQ(ReadBytes(Store()).value_or("<missing>"), expected);
        EXPECT_EQ(fs::is_directory(temp_.Path() / "plasma" / "LUMAEXE") ||
                      fs::is_directory(temp_.Path() / "plasma" / "lumaexe"),
                  c.recorded);
        EXPECT_EQ(platform::Failures().Take().empty(), c.recorded);
        if (c.recorded) {
            EXPECT_EQ(LookUpStation().outcome, Outcome::Found);
        }
    }
}

TEST_F(StationLocationTest, RecordDataSystemFolderRefusesAFolderThatIsNoFullPath) {
    for (const char* folder : {"plasma", "C:\\PLASMA"}) {
        EXPECT_FALSE(RecordDataSystemFolder(folder));
        const auto failures = platform::Failures().Take();
        ASSERT_EQ(failures.size(), 1u);
        EXPECT_EQ(failures[0].path, folder);
        EXPECT_EQ(failures[0].reason, "not a full path (one that starts with \"/\")");
    }
    EXPECT_FALSE(fs::exists(Store()));
}

TEST_F(StationLocationTest, RecordDataSystemFolderLeavesTheFolderWhenTheStoreCannotBeWritten) {
    fs::create_directories(temp_.Path() / "plasma");
    const std::string before = RegistryText("\"HardWare\"=dword:00000002\r\n");
    WriteBytes(Store(), before);
    {
        const auto readOnly = support::ScopedMount::ReadOnly(temp_.Path());
        if (!readOnly.Ok()) GTEST_SKIP() << "no right to mount";
        EXPECT_FALSE(RecordDataSystemFolder(Root() + "/plasma"));
    }
    EXPECT_EQ(ReadBytes(Store()), before);
    EXPECT_FALSE(fs::exists(temp_.Path() / "plasma" / "LUMAEXE"));
    const auto failures = platform::Failures().Take();
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_EQ(failures[0].path, Store());
    EXPECT_EQ(failures[0].reason, "Read-only file system");
}

}  // namespace
}  // namespace lumacfg
