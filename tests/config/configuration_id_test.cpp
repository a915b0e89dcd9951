#include "config/configuration_id.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/temp_station.h"

namespace lumacfg {
namespace {

using support::TempStation;
using support::WriteBytes;

constexpr platform::LocalTime kNewYearsEve{2008, 12, 31, 23, 59, 59};

TEST(ConfigurationIdValue, ComposedFromStampAndMode) {
    const std::tuple<std::int16_t, platform::LocalTime, std::uint32_t> cases[] = {
        {1, kNewYearsEve, 0x0890F76F},
        {0, kNewYearsEve, 0x0890F76E},
        {-1, kNewYearsEve, 0x0890F76D},
        {-2, kNewYearsEve, 0x0890F76D},
        {7, kNewYearsEve, 0x0890F76E},
        // A stamp whose complement has fewer than four digits is padded with "F", not "0".
        {1, {65520, 0, 0, 0, 0, 0}, 0xFFF0FFFF},
        {0, {65520, 0, 0, 0, 0, 0}, 0xFFF0FFFE},
        // The stamp wraps at 16 bits rather than overflowing into the check.
        {1, {65536 + 100, 0, 0, 0, 0, 0}, 0x0064FF9B},
    };
    for (const auto& [mode, time, value] : cases) {
        EXPECT_EQ(ComposeConfigurationID(mode, time), value) << mode << " " << time.year;
    }
}

TEST(ConfigurationIdValue, DecodedState) {
    const std::pair<std::uint32_t, std::int32_t> cases[] = {
        {0x0890F76F, 1}, {0x0890F76E, 0}, {0x0890F76D, -1}, {0x00000000, 0}, {0xFFFF0000, 0},
        {0xFFFFF76F, 0}, {0x0890F76C, 0}, {0x12345678, 0},  {0x0000FFFF, 0},
    };
    for (const auto& [value, state] : cases) {
        EXPECT_EQ(DecodeConfigurationID(value), state) << std::hex << value;
    }
}

class ConfigurationIdTest : public TempStation {};

TEST_F(ConfigurationIdTest, RegistryFailuresGiveMinus100) {
    EXPECT_EQ(ReadConfigurationID(), kConfigurationIdFailed);  // no value yet
    EXPECT_EQ(WriteConfigurationID(0), 1);
    EXPECT_EQ(ReadConfigurationID(), 0);

    ::chmod(RegistryPath().c_str(), 0444);  // read-only store: the write cannot open the key
    EXPECT_EQ(WriteConfigurationID(1), kConfigurationIdFailed);

    WriteBytes(RegistryPath(), "Windows Registry Editor Version 5.00\r\n");  // key missing
    EXPECT_EQ(WriteConfigurationID(1), kConfigurationIdFailed);
    EXPECT_EQ(ReadConfigurationID(), kConfigurationIdFailed);
}

}  // namespace
}  // namespace lumacfg
