// Data-system paths on the host: separators, case-insensitive lookup, program directory.
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/file_system.h"
#include "platform/posix/backends.h"
#include "platform/services.h"
#include "support/scoped_env.h"
#include "support/temp_dir.h"

namespace lumacfg::platform {
namespace {

namespace fs = std::filesystem;
using support::ScopedEnv;
using support::TempDir;
using support::WriteBytes;

class FileSystemTest : public ::testing::Test {
  protected:
    void SetUp() override {
        for (const char* name : {"lumagen.ist", "RunType.ini", "runtype.INI"}) {
            WriteBytes(root_ + "/Luma/LUMAEXE/" + name, "x");
        }
    }

    TempDir temp_{"lumacfg-path"};
    std::string root_ = temp_.Path().string();
};

TEST_F(FileSystemTest, BackslashesAndCaseAreResolved) {
    const std::pair<std::string, std::string> cases[] = {
        {"\\Luma\\LUMAEXE\\lumagen.ist", "/Luma/LUMAEXE/lumagen.ist"},
        {"\\luma\\lumaexe\\LUMAGEN.IST", "/Luma/LUMAEXE/lumagen.ist"},
        {"/LUMA/LumaExe/Lumagen.Ist", "/Luma/LUMAEXE/lumagen.ist"},
        // Exact name first; among names that differ only in case, the smallest.
        {"\\Luma\\LUMAEXE\\runtype.INI", "/Luma/LUMAEXE/runtype.INI"},
        {"\\Luma\\LUMAEXE\\RUNTYPE.ini", "/Luma/LUMAEXE/RunType.ini"},
        // Missing components keep the spelling asked for, after the last one found.
        {"\\LUMA\\new\\File.INI", "/Luma/new/File.INI"},
        {"\\luma\\LUMAEXE\\\\QCMODE\\", "/Luma/LUMAEXE/QCMODE/"},
    };
    for (const auto& [system, host] : cases) {
        EXPECT_EQ(HostPath(root_ + system), root_ + host) << system;
    }

    // Relative paths are looked up from the working directory.
    std::string cwd = fs::current_path();
    ASSERT_EQ(::chdir(root_.c_str()), 0);
    EXPECT_EQ(HostPath("luma\\lumaexe\\LUMAGEN.IST"), "Luma/LUMAEXE/lumagen.ist");
    EXPECT_EQ(HostPath("absent.ini"), "absent.ini");
    ASSERT_EQ(::chdir(cwd.c_str()), 0);
}

// The variable overrides the directory the station lookup chose; without either there is none
// (the programs' own directory is never taken for a station).
TEST(ProgramDirectoryTest, EnvironmentOverridesTheLocatedDirectory) {
    ScopedEnv programDir("LUMACFG_PROGRAM_DIR");
    const std::pair<std::string, std::string> cases[] = {
        {"/opt/luma/LUMAEXE/", "/opt/luma/LUMAEXE"},
        {"/opt/luma/LUMAEXE\\", "/opt/luma/LUMAEXE"},
        {"/", "/"},
    };
    UseProgramDirectory("/srv/plasma/LUMAEXE/");
    for (const auto& [configured, directory] : cases) {
        programDir.Set(configured);
        EXPECT_EQ(ProgramDirectory(), directory) << configured;  // asked anew each call
    }
    programDir.Set(std::nullopt);
    EXPECT_EQ(ProgramDirectory(), "/srv/plasma/LUMAEXE");
    programDir.Set("");  // empty counts as not set
    EXPECT_EQ(ProgramDirectory(), "/srv/plasma/LUMAEXE");
    UseProgramDirectory({});
    EXPECT_EQ(ProgramDirectory(), "");
}

}  // namespace
}  // namespace lumacfg::platform
