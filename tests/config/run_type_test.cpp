#include "config/run_type.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "config/config_record.h"
#include "platform/services.h"

namespace lumacfg {
namespace {

namespace fs = std::filesystem;

void WriteBytes(const fs::path& path, const std::string& bytes) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string ReadBytes(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return in ? std::string(std::istreambuf_iterator<char>(in), {}) : "<missing>";
}

// A data-system root in a temporary directory with the QC mode "GENERAL.QCC".
class RunTypeTest : public testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "lumacfg-runtype-XXXXXX").string();
        root_ = ::mkdtemp(pattern.data());
        ::setenv("LUMACFG_PROGRAM_DIR", (root_ / "LUMAEXE").c_str(), 1);
        platform::ResetServices();
        Config() = ConfigRecord{};
        Config().ROOT_PATH = root_.string();
        Config().QCMDPATH = root_.string() + "\\1\\QCMODE\\";
        active_ = root_ / "LUMAEXE" / "runtype.ini";
        fs::create_directories(active_.parent_path());
    }
    void TearDown() override {
        ::unsetenv("LUMACFG_PROGRAM_DIR");
        fs::remove_all(root_);
    }

    fs::path root_;
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
    ::setenv("LUMACFG_PROGRAM_DIR", (root_ / "STATION").c_str(), 1);
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
