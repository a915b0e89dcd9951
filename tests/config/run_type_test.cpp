#include "config/run_type.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "config/config_record.h"
#include "support/temp_station.h"

namespace lumacfg {
namespace {

namespace fs = std::filesystem;
using support::ReadBytes;
using support::TempStation;
using support::WriteBytes;

// A station whose QC mode is "GENERAL.QCC".
class RunTypeTest : public TempStation {
  protected:
    void SetUp() override {
        TempStation::SetUp();
        Config().QCMDPATH = Root() + "\\1\\QCMODE\\";
        active_ = ProgramDir() / "runtype.ini";
    }

    fs::path active_;  // the active run-type file in the program directory
};

TEST_F(RunTypeTest, CopiesTheQcModeFileWhereExePathSaysAndFitsIt) {
    const std::string qcMode =
        "[ERRORACTION]\r\nError1=1,Stop\r\n[Keywords]\r\nKeywords=A,MethPath,B\r\n";
    const std::string fitted =
        "[ERRORACTION]\r\nError1=1,Stop\r\nError2=11,Dilute-SameSmpl\r\n"
        "Error3=13,Reslope-NextSmpl\r\n[Keywords]\r\nKeywords=A,B\r\n";
    WriteBytes(root_ / "1/QCMODE/GENERAL.QCC/runtype.ini", qcMode);
    Config().MPMATDIL = -1;
    // The station profile is read from the running program's directory; the fallback
    // directory is built from the root. A stored path is used as it is, backslash or not.
    programDirEnv_.Set((root_ / "STATION").string());
    const std::pair<std::string, fs::path> cases[] = {
        {"", root_ / "LUMAEXE/runtype.ini"},
        {"_EXEPATH$=" + root_.string() + "\\ALT\\\r\n", root_ / "ALT/runtype.ini"},
        {"_EXEPATH$=" + root_.string() + "\\ALT\r\n", root_ / "ALTruntype.ini"},
    };
    fs::create_directories(root_ / "ALT");
    for (const auto& [exePath, target] : cases) {
        WriteBytes(root_ / "STATION/lumagen.ist", "[WSX,1]\r\n_DOQCCHECK=1\r\n" + exePath);
        PrepareRunType();
        EXPECT_EQ(ReadBytes(target), fitted) << exePath;
        EXPECT_EQ(ReadBytes(root_ / "STATION/lumagen.ist"), "[WSX,1]\r\n" + exePath);
    }
    EXPECT_EQ(ReadBytes(root_ / "1/QCMODE/GENERAL.QCC/runtype.ini"), qcMode);
}

TEST_F(RunTypeTest, WithoutAQcModeFileTheActiveFileIsStillAdjusted) {
    PrepareRunType();
    EXPECT_EQ(ReadBytes(active_), "[ERRORACTION]\r\nError1=13,Reslope-NextSmpl\r\n");
}

TEST_F(RunTypeTest, ErrorActionsAreNumberedDenselyAndNeverDoubled) {
    const std::pair<std::string, std::string> cases[] = {
        {"Error1=1,Stop\nError2=5,Rerun\n",
         "Error1=1,Stop\nError2=5,Rerun\nError3=13,Reslope-NextSmpl\n"},
        // A gap ends the search: the entry after it is never looked at.
        {"Error1=1,Stop\nError3=13,Reslope-NextSmpl\n",
         "Error1=1,Stop\nError3=13,Reslope-NextSmpl\nError2=13,Reslope-NextSmpl\n"},
        {"Error1=7,Reslope-NextSmpl,x\n", "Error1=7,Reslope-NextSmpl,x\n"},
        {"Error1=13,reslope-nextsmpl\n",
         "Error1=13,reslope-nextsmpl\nError2=13,Reslope-NextSmpl\n"},
        {"Error1=\nError2=1,Stop\n", "Error1=13,Reslope-NextSmpl\nError2=1,Stop\n"},
    };
    for (const auto& [before, after] : cases) {
        WriteBytes(active_, "[ERRORACTION]\n" + before + "[Keywords]\nKeywords=A\n");
        for (int run = 0; run < 2; ++run) {
            EnsureErrorAction(active_.string(), 13, "Reslope-NextSmpl");
            EXPECT_EQ(ReadBytes(active_), "[ERRORACTION]\n" + after + "[Keywords]\nKeywords=A\n")
                << before << " run " << run;
        }
    }
}

TEST_F(RunTypeTest, RemovingAKeywordKeepsTheLastEntryAndAtMostThirty) {
    auto keys = [](int count) {  // "K1,K2,...,K<count>"
        std::string text = "K1";
        for (int i = 2; i <= count; ++i) text += ",K" + std::to_string(i);
        return text;
    };
    const std::pair<std::string, std::string> cases[] = {
        {"Keywords=A,MethPath,B,\n", "Keywords=A,B\n"},
        {"Keywords=MethPath,A,MethPath\n", "Keywords=A,MethPath\n"},
        {"Keywords=A,B,MethPath\n", "Keywords=A,B,MethPath\n"},
        {"Keywords=MethPath\n", "Keywords=MethPath\n"},
        {"Keywords=methpath,B\n", "Keywords=methpath,B\n"},
        {"Other=MethPath,B\n", "Other=MethPath,B\n"},
        {"Keywords=MethPath," + keys(31) + "\n", "Keywords=" + keys(29) + "\n"},
    };
    for (const auto& [before, after] : cases) {
        WriteBytes(active_, "[Keywords]\n" + before + "[X]\nY=1\n");
        RemoveKeyword(active_.string(), "MethPath");
        EXPECT_EQ(ReadBytes(active_), "[Keywords]\n" + after + "[X]\nY=1\n") << before;
    }
}

}  // namespace
}  // namespace lumacfg
