// The file selection form: what it hands the chooser (kind, caption, pattern, buffers), and what
// the caller gets back (result code, target text) for every outcome of the chooser.
#include "ui/file/file_selection.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/temp_dir.h"

namespace lumacfg::ui {
namespace {

// Records each request and answers with the outcome and the choice the test gives.
class ScriptedChooser final : public FileChooser {
  public:
    std::int16_t outcome = 1;
    std::string chosenDirectory;
    std::string chosenName;
    std::vector<SelectKind> kinds;
    std::vector<FileRequest> requests;

    std::int16_t SelectFile(platform::WindowHandle, SelectKind kind,
                            FileRequest& request) override {
        kinds.push_back(kind);
        requests.push_back(request);
        request.directory = chosenDirectory;
        request.fileName = chosenName;
        return outcome;
    }
};

TEST(FileSelectionTest, PatternsThatMeanEveryFileBecomeStarDotStar) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "*.*"},  {".*", "*.*"},      {"*.", "*.*"},      {"*.*", "*.*"},
        {"*", "*.*"}, {"*.QCC", "*.QCC"}, {"*.txt", "*.txt"}, {"**", "**"},
    };
    for (const auto& [given, passed] : cases) EXPECT_EQ(NormalisePattern(given), passed) << given;
}

TEST(FileSelectionTest, TheKindFollowsTheEntryPointAndTheMode) {
    ScriptedChooser chooser;
    FileSelection selection(chooser);
    std::string target;
    selection.NbFileSelect_Save(target, "2", "a.txt", "", "", "*");
    selection.NbFileSelect(target, 1, "a.txt", "", "", "*");  // the save flag is cleared
    selection.NbFileSelect(target, 2, "a.txt", "", "", "*");
    selection.NbFileSelect_Save(target, "1.2", "a.txt", "", "", "*");
    EXPECT_EQ(chooser.kinds,
              (std::vector<SelectKind>{SelectKind::SaveFolder, SelectKind::OpenFile,
                                       SelectKind::OpenFolder, SelectKind::SaveFile}));
    EXPECT_EQ(chooser.requests[0].caption, "Save File");
    EXPECT_EQ(chooser.requests[1].caption, "Open File");
    EXPECT_EQ(chooser.requests[1].pattern, "*.*");
    EXPECT_EQ(chooser.requests[1].options, 0);
}

TEST(FileSelectionTest, TheResultAndTheTargetFollowTheOutcome) {
    const struct {
        std::int16_t mode;
        std::int16_t outcome;
        std::int16_t result;
        const char* target;
    } cases[] = {
        {1, 1, kFileChosen, "/srv/qc\\ENVIRO.QCC"}, {2, 2, kFileChosen, "/srv/qc\\ENVIRO.QCC"},
        {1, 0, kFileCancelled, "before"},           {1, 3, kFileUnknownOutcome, "before"},
        {3, 1, kFileCancelled, "before"},  // no dialog for a mode other than 1 or 2
        {0, 1, kFileCancelled, "before"},
    };
    for (const auto& c : cases) {
        ScriptedChooser chooser;
        chooser.outcome = c.outcome;
        chooser.chosenDirectory = "/srv/qc";
        chooser.chosenName = "ENVIRO.QCC";
        FileSelection selection(chooser);
        std::string target = "before";
        EXPECT_EQ(selection.NbFileSelect(target, c.mode, "GENERAL.QCC", "", "QC", "*.QCC"),
                  c.result)
            << c.mode << " " << c.outcome;
        EXPECT_EQ(target, c.target) << c.mode << " " << c.outcome;
        EXPECT_EQ(chooser.kinds.size(), c.mode == 1 || c.mode == 2 ? 1U : 0U);
    }
}

TEST(FileSelectionTest, TheCallersDirectoryIsKeptWhenTheUserStaysInIt) {
    support::TempDir temp("lumacfg-file");
    const std::string root = temp.Path().string();
    std::filesystem::create_directories(temp.Path() / "1" / "QCMODE");
    const std::string systemDirectory = root + "\\1\\QCMODE\\";
    ScriptedChooser chooser;
    chooser.chosenDirectory = root + "/1/QCMODE";
    chooser.chosenName = "ENVIRO.QCC";
    FileSelection selection(chooser);
    std::string target;
    ASSERT_EQ(selection.NbFileSelect(target, 2, "GENERAL.QCC", systemDirectory, "", "*.QCC"),
              kFileChosen);
    EXPECT_EQ(chooser.requests[0].directory, root + "/1/QCMODE/");  // the host's form
    EXPECT_EQ(target, systemDirectory + "ENVIRO.QCC");
    chooser.chosenDirectory = root;
    selection.NbFileSelect(target, 2, "GENERAL.QCC", systemDirectory, "", "*.QCC");
    EXPECT_EQ(target, root + "\\ENVIRO.QCC");
}

TEST(FileSelectionTest, TheBuffersHoldTheirTextUpToTheFirstNulAndTheirSize) {
    ScriptedChooser chooser;
    chooser.chosenDirectory = "dir\\";
    chooser.chosenName = std::string("name\0rest", 9);
    FileSelection selection(chooser);
    std::string target;
    const std::string longName(300, 'n');
    selection.NbFileSelect(target, 1, longName, "", "", "");
    EXPECT_EQ(chooser.requests[0].fileName.size(), kFileBufferCharacters);
    EXPECT_EQ(target, "dir\\name");
}

}  // namespace
}  // namespace lumacfg::ui
