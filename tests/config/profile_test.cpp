// Profile operations on the station profile and the list helpers.
#include "config/profile.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/services.h"
#include "support/scoped_env.h"
#include "support/temp_dir.h"

namespace lumacfg {
namespace {

namespace fs = std::filesystem;
using support::ReadBytes;
using support::ScopedEnv;
using support::TempDir;
using support::WriteBytes;

class ProfileOperationsTest : public ::testing::Test {
  protected:
    void SetUp() override { platform::SetProfiles(nullptr); }  // the platform's own engine
    void PutStation(const std::string& bytes) { WriteBytes(dir_ / "lumagen.ist", bytes); }
    std::string Station() const { return ReadBytes(dir_ / "lumagen.ist").value_or(""); }

    TempDir temp_{"lumacfg-station"};
    fs::path dir_ = temp_.Path();
    ScopedEnv programDirEnv_{"LUMACFG_PROGRAM_DIR", dir_.string()};
};

TEST_F(ProfileOperationsTest, ProfileGetFillsTheCallersBuffer) {
    PutStation("[WSX]\r\nLONG=abcdefghij\r\nEMPTY=\r\n");
    struct Case {
        std::string key, defaultText;
        std::size_t size;
        std::string buffer;  // the whole buffer afterwards, filled with '*' beforehand
        std::size_t count;
    } cases[] = {
        {"LONG", "", 1, "", 0},
        {"LONG", "", 5, "abcd", 4},
        {"LONG", "", 11, "abcdefghij", 10},
        {"EMPTY", "x", 30, "", 0},  // present but empty: no default
        {"MISSING", " dflt \t ", 30, " dflt", 5},
    };
    for (const Case& c : cases) {
        std::string buffer(c.size, '*');
        EXPECT_EQ(ProfileGet("WSX", c.key, c.defaultText, buffer, c.size), c.count) << c.key;
        std::string expected = c.buffer;
        if (expected.size() < c.size) expected += '\0';
        expected.resize(c.size, '*');
        EXPECT_EQ(buffer, expected) << c.key;
    }
}

TEST_F(ProfileOperationsTest, SingleValuesAndGeneralReads) {
    PutStation("[WSX]\nSAMPLE_DEPTH=120\nEMPTY=\nPATH=\"C:\\DATA\\\"\n");
    EXPECT_EQ(ReadSingleValue("WSX", "sample_depth"), "120");
    EXPECT_EQ(ReadSingleValue("WSX", "EMPTY"), std::nullopt);
    EXPECT_EQ(ReadSingleValue("WSX", "MISSING"), std::nullopt);
    EXPECT_EQ(ReadSingleValue("WSX", "PATH"), "C:\\DATA\\");

    PutStation("[WSX]\nLONG=" + std::string(150, 'x') + "\n");
    EXPECT_EQ(ReadSingleValue("WSX", "LONG"), std::string(99, 'x'));

    WriteBytes(dir_ / "other.ini", "[S]\nK=" + std::string(600, 'y'));
    const std::string other = (dir_ / "OTHER.INI").string();
    std::string value = "stale";
    EXPECT_EQ(ReadProfileValue("S", "K", "", value, other), 511);
    EXPECT_EQ(value, std::string(511, 'y'));
    EXPECT_EQ(ReadProfileValue("S", "MISSING", "", value, other), 0);
    EXPECT_EQ(value, "");
}

TEST_F(ProfileOperationsTest, WritesGoToTheStationProfileAndFailOnAReadOnlyOne) {
    EXPECT_NE(ProfileDelete("WSX", "ALS_TYPE"), 0);
    EXPECT_FALSE(fs::exists(dir_ / "lumagen.ist"));
    EXPECT_NE(ProfileSet("WSX", "ALS_TYPE", "1"), 0);
    EXPECT_EQ(Station(), "[WSX]\r\nALS_TYPE=1\r\n");
    fs::permissions(dir_ / "lumagen.ist", fs::perms::owner_read | fs::perms::group_read);
    EXPECT_EQ(ProfileSet("WSX", "ALS_TYPE", "3"), 0);
    EXPECT_EQ(ProfileDelete("WSX", "ALS_TYPE"), 0);
}

TEST(ListHelpersTest, SplitList) {
    struct Case {
        std::string text, delimiter;
        int capacity;  // U: the list has U + 1 slots
        int count;
        std::vector<std::string> entries;  // the first `count` slots
    } cases[] = {
        {"1,2", ",", 10, 2, {"1", "2"}},
        {"1,2,", ",", 10, 2, {"1", "2"}},
        {",2", ",", 10, 2, {"", "2"}},
        {"a", ",", 10, 1, {"a"}},
        {"a,,b", ",", 10, 3, {"a", "", "b"}},
        {"a,b,c", ",", 2, 2, {"a", "b"}},
        {"1,2,3,4,5,6,7,8,9,10,11",
         ",",
         10,
         10,
         {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}},
        {"a::b::", "::", 10, 2, {"a", "b"}},
        {"abc", ",", 0, 0, {}},
    };
    for (const Case& c : cases) {
        std::vector<std::string> list(c.capacity + 1, "untouched");
        EXPECT_EQ(SplitList(c.text, list, c.delimiter), c.count) << c.text;
        for (int i = 0; i < c.count; ++i) EXPECT_EQ(list[i], c.entries[i]) << c.text << " " << i;
        for (std::size_t i = c.count; i < list.size(); ++i) {
            EXPECT_EQ(list[i], "untouched") << c.text << " " << i;
        }
    }
    std::vector<std::string> list(11, "untouched");
    EXPECT_EQ(SplitList("", list, ","), 0);
    EXPECT_EQ(list[0], "untouched");
}

TEST(ListHelpersTest, ParseIntList) {
    const std::pair<std::string, std::array<std::int16_t, 4>> cases[] = {
        {"1,2,3,4", {1, 2, 3, 4}},
        {"1,,3,4", {1, 0, 0, 0}},
        {",2,3", {0, 0, 0, 0}},
        {"", {0, 0, 0, 0}},
        {std::string(5, '\0'), {0, 0, 0, 0}},
        {" 5, x,2.5,3.5", {5, 0, 2, 4}},
        {"1,2,3,4,5", {1, 2, 3, 4}},
        {"40000,-1", {0, -1, 0, 0}},
    };
    for (const auto& [text, expected] : cases) {
        std::array<std::int16_t, 4> values = {9, 9, 9, 9};
        ParseIntList(text, values);
        EXPECT_EQ(values, expected) << text;
    }
}

TEST(ListHelpersTest, AnsiByteLengthCountsBytes) {
    EXPECT_EQ(AnsiByteLength(""), 0);
    EXPECT_EQ(AnsiByteLength("abc"), 3);
    EXPECT_EQ(AnsiByteLength("\xB5g/l"), 4);  // a Windows-1252 byte is one character
}

}  // namespace
}  // namespace lumacfg
