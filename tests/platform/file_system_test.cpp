// Data-system paths on the host: separators, case-insensitive lookup, program directory.
#include <stdlib.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/file_system.h"

namespace lumacfg::platform {
namespace {

namespace fs = std::filesystem;

class HostPathTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "lumacfg-path-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        root_ = pattern;
        fs::create_directories(root_ + "/Luma/LUMAEXE");
        std::ofstream(root_ + "/Luma/LUMAEXE/lumagen.ist") << "x";
        std::ofstream(root_ + "/Luma/LUMAEXE/RunType.ini") << "x";
        std::ofstream(root_ + "/Luma/LUMAEXE/runtype.INI") << "x";
    }
    void TearDown() override { fs::remove_all(root_); }

    std::string root_;
};

TEST_F(HostPathTest, BackslashesAndCaseAreResolved) {
    struct Case {
        std::string system, host;
    } cases[] = {
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
    for (const Case& c : cases) EXPECT_EQ(HostPath(root_ + c.system), root_ + c.host) << c.system;

    // Relative paths are looked up from the working directory.
    std::string cwd = fs::current_path();
    ASSERT_EQ(::chdir(root_.c_str()), 0);
    EXPECT_EQ(HostPath("luma\\lumaexe\\LUMAGEN.IST"), "Luma/LUMAEXE/lumagen.ist");
    EXPECT_EQ(HostPath("absent.ini"), "absent.ini");
    ASSERT_EQ(::chdir(cwd.c_str()), 0);
}

TEST(JoinPathTest, ExactlyOneBackslash) {
    struct Case {
        std::string directory, name, joined;
    } cases[] = {
        {"C:\\Luma\\LUMAEXE", "lumagen.ist", "C:\\Luma\\LUMAEXE\\lumagen.ist"},
        {"C:\\Luma\\LUMAEXE\\", "lumagen.ist", "C:\\Luma\\LUMAEXE\\lumagen.ist"},
        {"/opt/luma/", "lumagen.ist", "/opt/luma/lumagen.ist"},
        {"/opt/luma", "custrack.ini", "/opt/luma\\custrack.ini"},
    };
    for (const Case& c : cases) EXPECT_EQ(JoinPath(c.directory, c.name), c.joined);
}

TEST(ProgramDirectoryTest, EnvironmentOverridesTheExecutable) {
    std::optional<std::string> saved;
    if (const char* old = std::getenv("LUMACFG_PROGRAM_DIR")) saved = old;

    struct Case {
        std::string configured, directory;
    } cases[] = {
        {"/opt/luma/LUMAEXE", "/opt/luma/LUMAEXE"},
        {"/opt/luma/LUMAEXE/", "/opt/luma/LUMAEXE"},
        {"/opt/luma/LUMAEXE\\", "/opt/luma/LUMAEXE"},
        {"/", "/"},
    };
    for (const Case& c : cases) {
        ::setenv("LUMACFG_PROGRAM_DIR", c.configured.c_str(), 1);
        EXPECT_EQ(ProgramDirectory(), c.directory) << c.configured;  // asked anew each call
    }
    ::unsetenv("LUMACFG_PROGRAM_DIR");
    EXPECT_EQ(ProgramDirectory(), fs::read_symlink("/proc/self/exe").parent_path().string());
    ::setenv("LUMACFG_PROGRAM_DIR", "", 1);  // empty counts as not set
    EXPECT_EQ(ProgramDirectory(), fs::read_symlink("/proc/self/exe").parent_path().string());

    if (saved) {
        ::setenv("LUMACFG_PROGRAM_DIR", saved->c_str(), 1);
    } else {
        ::unsetenv("LUMACFG_PROGRAM_DIR");
    }
}

}  // namespace
}  // namespace lumacfg::platform
