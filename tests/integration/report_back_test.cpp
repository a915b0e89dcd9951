// The reports of the sibling programs as they travel over the report socket, and where the
// sibling programs are found.
#include "integration/report_back.h"

#include <gtest/gtest.h>

#include "integration/sibling_programs.h"
#include "support/temp_station.h"

namespace lumacfg {
namespace {

TEST(ReportBackTest, ReportsTravelAsOneLine) {
    const SiblingReport qc{SiblingReport::Kind::QcFile, "C:\\QC\\", "GENERAL.QCC"};
    EXPECT_EQ(EncodeReport(qc), "QCFILE\tC:\\QC\\\tGENERAL.QCC\n");
    EXPECT_EQ(EncodeReport(SiblingReport{}), "TOOLBAR\n");
    const std::pair<std::string, std::optional<SiblingReport>> messages[] = {
        {"QCFILE\tC:\\QC\\\tGENERAL.QCC\n", qc},
        {"QCFILE\tC:\\QC\\\tGENERAL.QCC\r\n", qc},
        {"QCFILE\tC:\\QC\\\tGENERAL.QCC", qc},
        {"QCFILE\t\t\n", SiblingReport{SiblingReport::Kind::QcFile, "", ""}},
        {"TOOLBAR\n", SiblingReport{}},
        {"toolbar\n", std::nullopt},
        {"QCFILE\tC:\\QC\\\n", std::nullopt},
        {"QCFILE\ta\tb\tc\n", std::nullopt},
        {"QCFILEX\ta\tb\n", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [message, report] : messages) {
        EXPECT_EQ(DecodeReport(message), report) << message;
    }
}

class SiblingProgramsTest : public support::TempStation {};

TEST_F(SiblingProgramsTest, ProgramsAreFoundWhateverTheCaseOfTheirNames) {
    support::WriteBytes(ProgramDir() / "barset.exe", "#!/bin/sh\n");
    support::WriteBytes(ProgramDir() / "LUMAQCCONFIG", "#!/bin/sh\n");
    const std::string program = ProgramDir().string();
    EXPECT_EQ(FindSiblingProgram({}, "BARSET.EXE"), program + "/barset.exe");
    EXPECT_EQ(FindSiblingProgram("C:\\PLASMA\\bin\\", kQcConfigurationProgram),
              program + "/LUMAQCCONFIG");
    EXPECT_EQ(FindSiblingProgram({}, "OTHER.EXE"), std::nullopt);
    // The folder the data system names comes first.
    support::WriteBytes(root_ / "bin" / "LumaQcConfig.exe", "#!/bin/sh\n");
    EXPECT_EQ(FindSiblingProgram(Root() + "\\bin\\", kQcConfigurationProgram),
              (root_ / "bin" / "LumaQcConfig.exe").string());
}

TEST_F(SiblingProgramsTest, TheQcProgramsFolderComesFromOrbitIniElseTheInstallation) {
    EXPECT_EQ(QcProgramFolder(), "C:\\PLASMA\\bin\\");  // no "orbit.ini"
    support::WriteBytes(ProgramDir() / "orbit.ini", "[Path]\r\nBinPath=\r\n");
    EXPECT_EQ(QcProgramFolder(), "C:\\PLASMA\\bin\\");
    support::WriteBytes(ProgramDir() / "orbit.ini", "[Path]\r\nBinPath=D:\\Orbit\\Bin\r\n");
    EXPECT_EQ(QcProgramFolder(), "D:\\Orbit\\Bin\\");
    support::WriteBytes(ProgramDir() / "orbit.ini", "[Path]\r\nBinPath=D:\\Orbit\\\r\n");
    EXPECT_EQ(QcProgramFolder(), "D:\\Orbit\\");
}

TEST_F(SiblingProgramsTest, TheQcProgramIsStartedOnTheQcModesSettingsFile) {
    EXPECT_EQ(QcConfigurationCommand("C:\\QC\\", "GENERAL.QCC"), std::nullopt);
    support::WriteBytes(ProgramDir() / "LumaQcConfig.exe", "#!/bin/sh\n");
    EXPECT_EQ(
        QcConfigurationCommand("C:\\QC\\", "GEN'S.QCC"),
        "'" + ProgramDir().string() + "/LumaQcConfig.exe' 'C:\\QC\\GEN'\\''S.QCC\\default.qc.xml'");
}

}  // namespace
}  // namespace lumacfg
