#include "base/path_utils.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/services.h"
#include "support/temp_dir.h"

namespace lumacfg {
namespace {

using namespace std::literals;
using Texts = std::pair<std::string_view, std::string_view>;

FileFormSettings Form(std::int16_t mode = 0, std::string pattern = "") {
    return {{"C:\\", "D:\\DATA\\"}, std::move(pattern), mode};
}

// clang-format off
TEST(PathUtilsTest, TextRoutines) {
    for (const auto& [path, parent] : {Texts{"", ""}, {"C:\\", "C:\\"}, {"c:\\", "c:\\"},
             {"D:\\", ""}, {"C:\\A\\B\\", "C:\\A\\"}, {"C:\\A\\B", "C:\\A\\"}, {"name", ""},
             {"\\", ""}, {"\\\\", "\\"}, {"a/b/c", ""}}) {
        EXPECT_EQ(UpperDir(path, Form()), parent) << path;
    }
    for (const auto& [rel, path] : {Texts{"..\\x.txt", "C:\\A\\x.txt"}, {".\\x", "C:\\A\\B\\x"},
             {"x.txt", ""}, {"C:\\x", ""}, {"..\\..\\x", "C:\\A\\..\\x"}, {"../x", ""}}) {
        EXPECT_EQ(AbsPath("C:\\A\\B\\", rel, Form()), path) << rel;
    }
    EXPECT_EQ(AbsPath("C:\\", "..\\x", Form()), "C:\\x");  // a root has no parent
    EXPECT_EQ(AbsPath("C:\\A", ".\\x", Form()), "C:\\Ax");  // no separator inserted
    for (const auto& [path, bottom] : {Texts{"C:\\A\\b.txt", "b.txt"}, {"C:\\A\\", ""}, {"a/b", "a/b"}}) {
        EXPECT_EQ(BottomDir(path), bottom) << path;
    }
    for (const auto& [path, single] : {Texts{"C:\\\\\\A\\\\B", "C:\\A\\B"}, {"\\\\srv\\x", "\\srv\\x"},
             {"", ""}, {"a//b\\\\", "a//b\\"}}) {
        EXPECT_EQ(DelDupBs(path), single) << path;
    }
    EXPECT_EQ(JoinNulTerminated("C:\\D\\\0junk"sv, "f.txt\0\0"sv), "C:\\D\\f.txt");
    EXPECT_EQ(JoinNulTerminated("C:\\D", "f"), "C:\\Df");
}

TEST(PathUtilsTest, LimitDirTxtAndLongFileName) {
    const std::tuple<std::string_view, std::int16_t, std::string_view> limits[] = {
        {"C:\\Data\\Methods\\run1.m", 10, "C:\\...\\run1.m"}, {"abcdef", 6, "abcdef"},
        {"abcdefg", 6, "abc...efg"}, {"abcdef", 2, "abc..."}, {"ab", 1, "ab..."}};
    for (const auto& [text, max, shown] : limits) EXPECT_EQ(LimitDirTxt(text, max), shown) << text;

    const std::pair<std::string_view, bool> names[] = {
        {"ABCDEFGH.TXT", false}, {"ABCDEFGHI.TXT", true}, {"README", false}, {"READMEFILE", true},
        {"ABCDEFGH", false}, {"a.html", true}, {"a.htm", false}, {"a.b.c", false},
        {".profile", true}, {"C:\\LONGDIRECTORY\\A.TXT", false}};
    for (const auto& [path, isLong] : names) EXPECT_EQ(LongFileName(path), isLong) << path;
}

TEST(PathUtilsTest, SameExt) {
    const std::tuple<std::int16_t, std::string_view, std::string_view, bool> cases[] = {
        {0, "a.txt", "*.TXT", true}, {0, "a.txt", "*.csv", false}, {0, "a", "*.*", true},
        {0, "a", "*", true}, {0, "a.b.c", "*.B.C", true}, {0, ".txt", "*.txt", false},
        {0, "a.txt", ".txt", false}, {0, "C:\\D.X\\a.txt", "*.txt", true},
        {0, "C:\\A\\B.TXT\\", "*.TXT", false}, {1, "a", "*.*", true}, {2, "a", "*.*", false},
        {2, "a.txt", "*.*", true}, {2, "a", "b", true}, {3, "a.txt", "*.txt", false}};
    for (const auto& [mode, file, pattern, same] : cases) {
        EXPECT_EQ(SameExt(file, pattern, Form(mode)), same) << mode << ": " << file << " " << pattern;
    }
}

TEST(PathUtilsTest, MakePath) {
    const support::TempDir temp("lumacfg-make-path");
    const std::filesystem::path& root = temp.Path();
    std::filesystem::create_directories(root / "sub");
    support::WriteBytes(root / "run1.txt", "x");
    platform::SetFiles(nullptr);
    const PathProbe exists = [](std::string_view path) { return platform::Files().Exists(path); };
    const std::string dir = root.string() + "/";
    const std::tuple<std::string_view, std::string_view, PathStatus, std::string_view> cases[] = {
        {"run1", "*.txt", PathStatus::Exists, "run1.TXT"},
        {"RUN1.TXT", "*.TXT", PathStatus::Exists, "RUN1.TXT"},
        {"run2", "*.txt", PathStatus::Missing, "run2.TXT"},
        {"run1.txt", "*.", PathStatus::Exists, "run1.txt"},
        {"run1.txt", "*.qcc", PathStatus::Missing, "run1.txt.QCC"},
        {"sub", "", PathStatus::Exists, "sub"},
        {"sub\\run1.txt", "*.txt", PathStatus::Missing, "sub\\run1.txt"},
        {"run?", "*.txt", PathStatus::Invalid, ""}, {"run1", "*.*", PathStatus::Invalid, ""},
        {"run1", "*.t?t", PathStatus::Invalid, ""}, {"sub\\run1", "*.txt", PathStatus::Invalid, ""}};
    for (const auto& [name, pattern, status, added] : cases) {
        const MakePathResult made = MakePath(name, dir, exists, Form(0, std::string(pattern)));
        EXPECT_EQ(made.status, status) << name << " " << pattern;
        EXPECT_EQ(made.fullPath, status == PathStatus::Invalid ? "" : dir + std::string(added));
    }
    EXPECT_EQ(MakePath("run1", root.string() + "*/", exists, Form()).status, PathStatus::Invalid);
    const MakePathResult drive = MakePath("X:\\none", dir, exists, Form(0, "*.txt"));
    EXPECT_EQ(std::pair(drive.status, drive.fullPath), std::pair(PathStatus::Missing, "X:\\none"s));
}
// clang-format on

}  // namespace
}  // namespace lumacfg
