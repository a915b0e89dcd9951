// The main window's QC configuration and toolbar programs: what starting them asks and says,
// and what their reports change when the window is active again.
#include "ui/main/sibling_runs.h"

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "resources/string_table.h"
#include "support/message_answers.h"
#include "support/temp_station.h"

namespace lumacfg::ui {
namespace {

using platform::MessageAnswer;

// Records the command lines started; starts nothing, and fails when told to.
class RecordedProcesses final : public platform::ProcessService {
  public:
    explicit RecordedProcesses(std::vector<std::string>* started) : started_(started) {}
    std::optional<platform::ProcessId> Start(std::string_view command) override {
        started_->emplace_back(command);
        return 4242;
    }
    bool IsRunning(platform::ProcessId) override { return false; }

  private:
    std::vector<std::string>* started_;
};

class SiblingRunsTest : public support::TempStation {
  protected:
    void SetUp() override {
        TempStation::SetUp();
        platform::SetMessages(std::make_unique<support::AnsweringMessages>(&messages_, &answers_));
        platform::SetProcesses(std::make_unique<RecordedProcesses>(&started_));
        for (const char* mode : {"GENERAL.QCC", "ENVIRO.QCC"}) {
            support::WriteBytes(root_ / "1" / "QCMODE" / mode / "runtype.ini", "[Keywords]\r\n");
        }
        support::WriteBytes(ProgramDir() / "LumaQcConfig.exe", "#!/bin/sh\n");
        support::WriteBytes(ProgramDir() / "BARSET.EXE", "#!/bin/sh\n");
        record_.ROOT_PATH = Root();
        record_.QCMDPATH = QcFolder();
        window_ = std::make_unique<MainDialog>(record_);
        messages_.clear();
    }

    std::string QcFolder() const { return Root() + "\\1\\QCMODE\\"; }
    const std::string& Label(const char* name) const { return window_->State().at(name).text; }
    std::vector<std::string> Shown() const {
        std::vector<std::string> texts;
        for (const auto& message : messages_) texts.push_back(message.text);
        return texts;
    }

    ConfigRecord record_;
    std::unique_ptr<MainDialog> window_;
    std::deque<MessageAnswer> answers_;
    std::vector<std::string> started_;
};

TEST_F(SiblingRunsTest, TheQcProgramStartsOnlyAfterTheCautionIsAccepted) {
    SiblingRuns runs(*window_);
    runs.Report({SiblingReport::Kind::QcFile, "old\\", "OLD.QCC"});
    answers_ = {MessageAnswer::No};
    EXPECT_EQ(runs.StartQcConfiguration(), std::nullopt);
    EXPECT_TRUE(started_.empty());
    EXPECT_EQ(Label("Lbl_DDEFile"), "OLD.QCC");  // untouched
    ASSERT_EQ(messages_.size(), 1U);
    EXPECT_EQ(messages_[0].icon, platform::MessageIcon::Question);
    EXPECT_EQ(messages_[0].buttons, platform::MessageButtons::YesNo);
    EXPECT_EQ(messages_[0].defaultButton, 1);  // No
    EXPECT_EQ(messages_[0].title, "ICP-MS Configuration");

    answers_ = {MessageAnswer::Yes};
    EXPECT_EQ(runs.StartQcConfiguration(), 4242U);
    EXPECT_EQ(Label("Lbl_DDEFile"), "");
    ASSERT_EQ(started_.size(), 1U);
    EXPECT_EQ(started_[0], "'" + (ProgramDir() / "LumaQcConfig.exe").string() + "' '" + QcFolder() +
                               "GENERAL.QCC\\default.qc.xml'");
}

TEST_F(SiblingRunsTest, AProgramThatCannotBeStartedIsReported) {
    std::filesystem::remove(ProgramDir() / "LumaQcConfig.exe");
    std::filesystem::remove(ProgramDir() / "BARSET.EXE");
    SiblingRuns runs(*window_);
    answers_ = {MessageAnswer::Yes};
    EXPECT_EQ(runs.StartQcConfiguration(), std::nullopt);
    EXPECT_EQ(runs.StartToolbar(), std::nullopt);
    EXPECT_EQ(runs.ToolbarPending(), 0U);
    EXPECT_EQ(Shown(), (std::vector<std::string>{
                           LoadResString(104),
                           "Could not execute QC Configuration. Check the current QC Mode file "
                           "is valid.",
                           "Could not execute Toolbar Configuration."}));
    EXPECT_EQ(messages_[1].title, "Error");
    EXPECT_EQ(messages_[2].icon, platform::MessageIcon::Exclamation);
}

TEST_F(SiblingRunsTest, ThePendingToolbarRunEndsAtItsReport) {
    SiblingRuns runs(*window_);
    ASSERT_EQ(runs.StartToolbar(), 4242U);
    EXPECT_EQ(runs.ToolbarPending(), 4242U);
    runs.Activated();  // no report yet
    EXPECT_EQ(runs.ToolbarPending(), 4242U);
    runs.Report(SiblingReport{});
    EXPECT_EQ(Label("Lbl_DDEFile"), "Toolbar");
    runs.Activated();
    EXPECT_EQ(runs.ToolbarPending(), 0U);
    EXPECT_EQ(Label("Lbl_DDEFile"), "");
    EXPECT_TRUE(messages_.empty());
}

TEST_F(SiblingRunsTest, AReportedQcModeIsOfferedWhenItDiffersAndIsValid) {
    const struct {
        const char* what;
        std::string folder, file;
        std::deque<MessageAnswer> answers;
        bool asked;
        const char* taken;
    } cases[] = {
        {"another mode, Yes", QcFolder(), "ENVIRO.QCC", {MessageAnswer::Yes}, true, "ENVIRO.QCC"},
        {"another mode, No", QcFolder(), "ENVIRO.QCC", {MessageAnswer::No}, true, "GENERAL.QCC"},
        {"the same in other case", QcFolder(), "general.qcc", {}, false, "GENERAL.QCC"},
        {"no RUNTYPE.INI", QcFolder(), "MISSING.QCC", {}, false, "GENERAL.QCC"},
        {"no folder", "", "ENVIRO.QCC", {}, false, "GENERAL.QCC"},
    };
    for (const auto& c : cases) {
        SetUp();
        SiblingRuns runs(*window_);
        runs.Report({SiblingReport::Kind::QcFile, c.folder, c.file});
        answers_ = c.answers;
        runs.Activated();
        EXPECT_EQ(messages_.size(), c.asked ? 1U : 0U) << c.what;
        if (c.asked) {
            EXPECT_EQ(messages_[0].text,
                      "Would you like to select the QC Mode file opened in the QC Configuration?");
            runs.Activated();  // answered once
            EXPECT_EQ(messages_.size(), 1U) << c.what;
        }
        EXPECT_EQ(window_->Record().QCMDFILE, c.taken) << c.what;
        EXPECT_EQ(Label("Lbl_QCFile"), c.taken) << c.what;
        TearDown();
    }
}

}  // namespace
}  // namespace lumacfg::ui
