#include "config/serial_settings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <string>

#include "config/config_record.h"
#include "support/temp_station.h"

namespace lumacfg {
namespace {

namespace fs = std::filesystem;
using support::ReadBytes;
using support::TempStation;
using support::WriteBytes;

using SerialSettingsTest = TempStation;
using OpalChannelFilesTest = TempStation;

const std::string kHead = "Windows Registry Editor Version 5.00\r\n\r\n";
const std::string kPorts =
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Ports]\r\n"
    "\"COM1:\"=\"x\"\r\n";
const std::string kOther = "\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Other]\r\n\"COM2:\"=\"keep\"\r\n";

TEST_F(SerialSettingsTest, ResetsThePortThenWritesTheAutosamplerPort) {
    // ALS_TYPE, _MPM, COM_PORT, the port to reset, and the Ports key's values after COM1:.
    const std::tuple<Int16, Int16, Int16, Int16, std::string> cases[] = {
        {5, 0, 2, 2, "\"COM2:\"=\"9600,o,7,1\"\r\n"},
        {5, 1, 2, 0, "\"COM2:\"=\"9600,n,8,1\"\r\n"},
        {4, 0, 3, 2, "\"COM2:\"=\"9600,n,8,1\"\r\n\"COM3:\"=\"9600,n,8,1\"\r\n"},
        {0, 0, 3, 4, "\"COM4:\"=\"9600,n,8,1\"\r\n"},
        {0, 0, 3, 0, ""},
    };
    for (const auto& [alsType, mpm, comPort, resetPort, values] : cases) {
        WriteBytes(RegistryPath(), kHead + kPorts + kOther);
        Config().ALS_TYPE = alsType;
        Config().MPM = mpm;
        Config().COM_PORT = comPort;
        Config().RESET_COM_PORT = resetPort;
        EXPECT_EQ(WriteComPortSettings(), 0) << values;
        EXPECT_EQ(ReadBytes(RegistryPath()), kHead + kPorts + values + kOther);
    }
    // Without the Ports key only a configured autosampler is a failure.
    WriteBytes(RegistryPath(), kHead + kOther);
    EXPECT_EQ(WriteComPortSettings(), 0);
    Config().ALS_TYPE = 1;
    EXPECT_EQ(WriteComPortSettings(), -1);
    EXPECT_EQ(ReadBytes(RegistryPath()), kHead + kOther);
}

TEST_F(OpalChannelFilesTest, SettingsLinesOfEveryFileAreOverwrittenFromTheirStart) {
    // A channel file's bytes, the parity asked for, and the bytes afterwards.
    const std::tuple<std::string, bool, std::string> cases[] = {
        {"chn1 x\r\n", true, "Chn1\t9600\tO\t7\t1\r\n"},
        {"CHN1\t19200\tN\t8\t1\t; port A\r\n", true, "Chn1\t9600\tO\t7\t11\t; port A\r\n"},
        {"com:set 1,19200,O,7,1 ;A\r\n", false, "COM:SET 1,9600,N,8,11 ;A\r\n"},
        {"Chn2\t9600\nCOM:SET 2,9600\r\n; chn1", true,
         "Chn2\t9600\nCOM:SET 2,9600\r\nChn1\t9600\tO\t7\t1\n"},
        {"COM:SET 1", false, "COM:SET 1,9600,N,8,1\r\n"},
    };
    const fs::path opal = root_ / "1" / "OPAL";
    WriteBytes(root_ / "1" / "OUTSIDE.CHN", "chn1\r\n");
    WriteBytes(opal / "SUB" / "INSIDE.CHN", "chn1\r\n");
    for (const auto& [before, odd, after] : cases) {
        WriteBytes(opal / "APP.CHN", before);
        WriteBytes(opal / "b.chn", "x\r\ncom:set 1\r\n");
        UpdateOpalChannelFiles(odd);
        EXPECT_EQ(ReadBytes(opal / "APP.CHN"), after) << before;
        EXPECT_EQ(ReadBytes(opal / "b.chn"),
                  odd ? "x\r\nCOM:SET 1,9600,O,7,1\r\n" : "x\r\nCOM:SET 1,9600,N,8,1\r\n");
    }
    EXPECT_EQ(ReadBytes(root_ / "1" / "OUTSIDE.CHN"), "chn1\r\n");
    EXPECT_EQ(ReadBytes(opal / "SUB" / "INSIDE.CHN"), "chn1\r\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(opal), {}), 3);  // no ".tmp" left behind
}

}  // namespace
}  // namespace lumacfg
