#include "ui/autosampler/custrack_file.h"

#include "ui/autosampler/custrack_fixture.h"

namespace lumacfg {
namespace {

using TrayFileTest = testing::CustrackTest;

TEST_F(TrayFileTest, NumbersMustBeWholeDecimalNumbers) {
    const std::pair<std::string, std::optional<std::int32_t>> cases[] = {
        {"N=+7", 7},     {"N='-42'", -42}, {"N=12.5", 12}, {"N=13.5", 14},
        {"N=1e3", 1000}, {"N=", 77},       {"M=1", 77},    {"N=abc", {}},
        {"N=12abc", {}}, {"N=0x10", {}},   {"N=inf", {}},  {"N=2147483648", {}}};
    for (const auto& [line, expected] : cases) {
        Write(testing::Ini("[S];" + line));
        const CustrackInt read = ReadCustrackInt("S", "N", 77);
        EXPECT_EQ(read.error ? std::nullopt : std::optional(read.value), expected) << line;
        if (read.error) {
            EXPECT_EQ(DescribeNumberError(*read.error), "[S] " + line);
        }
    }
}

TEST_F(TrayFileTest, TextReadsAndRefusedWrites) {
    Write(testing::Ini("[S];K=ABCDEFG"));
    EXPECT_EQ(ReadCustrackString("s", "k", "", 4).text, "ABC");
    EXPECT_EQ(ReadCustrackString("S", "K", "d", 0).text, "");
    EXPECT_EQ(ReadCustrackString("", "K", "d", 16).text, "d");
    EXPECT_FALSE(WriteCustrackString("S", "", "1") || WriteCustrackString("", "K", "1"));
    EXPECT_FALSE(DeleteCustrackSection(""));
    EXPECT_TRUE(DeleteCustrackSection("S"));
    EXPECT_EQ(Read(), "");
}

}  // namespace
}  // namespace lumacfg
