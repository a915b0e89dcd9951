#include "integration/vlt_settings.h"

#include <gtest/gtest.h>

#include "support/temp_station.h"

namespace lumacfg {
namespace {

using support::RegistryText;
using support::TempStation;
using support::WriteBytes;

class VltSettingsTest : public TempStation {
  protected:
    void Registry(const std::string& values) { WriteBytes(RegistryPath(), RegistryText(values)); }
    static std::optional<std::string> TemporaryFolder() {
        auto key = platform::TheRegistry().OpenKey(kDataSystemKey, platform::RegistryAccess::Read);
        return key->QueryString("VLT_TEMP");
    }
};

// The temporary folder is made from the installation's drive; a network path or none leaves
// the folder as it was.
TEST_F(VltSettingsTest, TemporaryFolderFromTheInstallationDrive) {
    const std::pair<std::string, std::string> cases[] = {
        {"\"Path\"=\"C:\\\\Program Files\\\\Suite\"\r\n", "C:\\Corvane.ICP-MS.VLT\\"},
        {"\"Path\"=\"D:\"\r\n", "D:\\Corvane.ICP-MS.VLT\\"},
        {"\"Path\"=\"AB:\\\\x:\\\\y\"\r\n", "AB:\\Corvane.ICP-MS.VLT\\"},
        {"\"Path\"=\"\\\\\\\\server\\\\suite\"\r\n", "kept"},
        {"", "kept"},
    };
    for (const auto& [path, temp] : cases) {
        Registry(path + "\"VLT_TEMP\"=\"kept\"\r\n");
        SetVltTempFolder();
        EXPECT_EQ(TemporaryFolder(), temp) << path;
    }
}

TEST_F(VltSettingsTest, ValuesReadBackAndMissingOnesAreEmpty) {
    Registry("");
    EXPECT_EQ(GetVltEnabled(), 0);
    EXPECT_EQ(GetVltFolder(), "");
    EXPECT_EQ(GetDataSystemPath(), "");
    SetVltEnabled(1);
    SetVltFolder("\\\\vlt\\lab \"A\"");
    EXPECT_EQ(GetVltEnabled(), 1);
    EXPECT_EQ(GetVltFolder(), "\\\\vlt\\lab \"A\"");

    SetVltFolder(std::string(300, 'f'));
    EXPECT_EQ(GetVltFolder(), std::string(254, 'f'));  // the reader's buffer holds 254 bytes
}

TEST_F(VltSettingsTest, WithoutTheKeyNothingIsReadOrWritten) {
    WriteBytes(RegistryPath(), "Windows Registry Editor Version 5.00\r\n");
    SetVltEnabled(1);
    SetVltFolder("x");
    SetVltTempFolder();
    EXPECT_EQ(RegistryFileText(), "Windows Registry Editor Version 5.00\r\n");
    EXPECT_EQ(GetVltEnabled(), 0);
}

}  // namespace
}  // namespace lumacfg
