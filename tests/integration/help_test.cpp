#include "integration/help.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "integration/vlt_settings.h"
#include "platform/posix/backends.h"
#include "platform/services.h"
#include "support/temp_station.h"

namespace lumacfg {
namespace {

using support::RegistryText;
using support::ScopedEnv;
using support::TempStation;
using support::WriteBytes;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Each call to the help viewers as "viewer window 'file' command data".
class RecordingHelpViewer final : public platform::HelpViewer {
  public:
    static constexpr std::intptr_t kCookie = 5150;
    explicit RecordingHelpViewer(std::vector<std::string>& calls) : calls_(calls) {}
    std::intptr_t CompiledHelp(std::uintptr_t window, std::string_view file, std::uint32_t command,
                               std::intptr_t data) override {
        Record("chm", window, file, command, data);
        return command == platform::compiled_help::kInitialize ? kCookie : 0;
    }
    bool ClassicHelp(std::uintptr_t window, std::string_view file, std::uint32_t command,
                     std::intptr_t data) override {
        Record("hlp", window, file, command, data);
        return true;
    }

  private:
    void Record(const char* viewer, std::uintptr_t window, std::string_view file,
                std::uint32_t command, std::intptr_t data) {
        calls_.push_back(std::string(viewer) + " " + std::to_string(window) + " '" +
                         std::string(file) + "' " + std::to_string(command) + " " +
                         std::to_string(data));
    }
    std::vector<std::string>& calls_;
};

class HelpTest : public TempStation {
  protected:
    void SetUp() override {
        TempStation::SetUp();
        platform::SetHelp(std::make_unique<RecordingHelpViewer>(calls_));
        Install(Root());
        InitHelp();
        calls_.clear();
        desktop_ = std::to_string(platform::Windows().Desktop());
    }

    // The registry's "Path" as the store spells it (none: the data system is not installed),
    // and lines of section "WSX,1" of the station profile below it.
    void Install(std::optional<std::string> root, const std::string& settings = "") {
        WriteBytes(RegistryPath(), RegistryText(root ? "\"Path\"=\"" + *root + "\"\r\n" : ""));
        WriteBytes(StationProfile(), "[WSX,1]\r\n" + settings);
    }
    void PressHelpButton(std::int32_t topic) { ShowHelp(42, "", kHelpContextCommand, topic); }

    std::vector<std::string> calls_;
    std::string desktop_;
};

TEST_F(HelpTest, TheHelpFileIsNamedByTheDataSystemsStationProfile) {
    const std::tuple<std::optional<std::string>, std::string, std::optional<std::string>> cases[] =
        {
            {Root(), "_HELPPATH$=C:\\Help\r\n", "C:\\Help\\luma-ms.chm"},
            {Root() + "\\\\", "_HELPPATH$=C:\\Help\\\r\n_HELPFILE$=guide.chm\r\n",
             "C:\\Help\\guide.chm"},
            {Root(), "_HELPPATH$=\r\n_HELPFILE$=guide.HLP\r\n", "guide.HLP"},
            {Root(), "_HELPPATH$=ERR\r\n_HELPFILE$=ERR\r\n", "luma-ms.chm"},
            // A station profile holding a NUL byte is not text: it is named and not read.
            {Root(), "_HELPPATH$=D:\\H" + std::string(1, '\0') + "x\r\n_HELPFILE$=a.chm\r\n",
             "luma-ms.chm"},
            // Another installation directory: no settings file there.
            {Root() + "\\\\Other", "_HELPPATH$=C:\\Help\r\n", "luma-ms.chm"},
            {std::nullopt, "_HELPFILE$=guide.chm\r\n", std::nullopt},
        };
    for (const auto& [root, settings, expected] : cases) {
        Install(root, settings);
        EXPECT_EQ(ResolveHelpFile(), expected) << settings;
    }
    PressHelpButton(kHelpTopicConfig);  // not installed: Help buttons do nothing
    EXPECT_THAT(calls_, IsEmpty());
}

TEST_F(HelpTest, ContextHelpClosesOpenHelpThenShowsTheContentsThenTheTopic) {
    Install(Root(), "_HELPPATH$=C:\\Help\r\n");
    PressHelpButton(kHelpTopicMisc);
    EXPECT_THAT(calls_,
                ElementsAre("chm 0 '' 18 0", "chm " + desktop_ + " 'C:\\Help\\luma-ms.chm' 1 1",
                            "chm " + desktop_ + " 'C:\\Help\\luma-ms.chm' 15 15614"));
    EXPECT_TRUE(TheHelpState().HELP_USED);
}

TEST_F(HelpTest, ClassicCommandsAreTranslatedForCompiledHelp) {
    const std::vector<std::pair<std::uint32_t, std::uint32_t>> table = {
        {1, 15}, {2, 18}, {3, 2}, {11, 0}, {0, 0}, {15, 15}, {18, 18}, {7, 7}};
    for (auto [classic, compiled] : table) EXPECT_EQ(CompiledHelpCommand(classic), compiled);

    ShowHelp(42, "C:\\x.CHM", 11, 9);
    ShowHelp(42, "", 2, 9);  // quit: only closes
    EXPECT_THAT(calls_, ElementsAre("chm " + desktop_ + " 'C:\\x.CHM' 0 9", "chm 0 '' 18 0"));
}

TEST_F(HelpTest, ClassicHelpGetsTheCallersRequestUnchangedAndIsQuitAtClose) {
    Install(Root(), "_HELPFILE$=guide.HLP\r\n");
    PressHelpButton(kHelpTopicVas);
    ShowHelp(43, "", 3, 0);
    CloseHelp();
    EXPECT_THAT(calls_, ElementsAre("hlp 42 'guide.HLP' 15 16003", "hlp 43 'guide.HLP' 3 0",
                                    "chm 0 '' 18 0", "chm 0 '' 29 5150", "hlp 0 '' 2 0"));
    EXPECT_FALSE(TheHelpState().HELP_USED);
}

TEST_F(HelpTest, TheFileIsResolvedOnceAndAGivenFileReplacesIt) {
    Install(Root(), "_HELPFILE$=first.chm\r\n");
    PressHelpButton(kHelpTopicConfig);
    Install(Root(), "_HELPFILE$=second.chm\r\n");
    PressHelpButton(kHelpTopicConfig);
    EXPECT_EQ(TheHelpState().HELP_FILE, "first.chm");
    ShowHelp(42, "given.hlp", 1, 5);
    PressHelpButton(kHelpTopicAsx);
    EXPECT_EQ(calls_.back(), "hlp 42 'given.hlp' 15 15612");
}

// The desktop's viewer behind the same calls: the file is handed to xdg-open.
class RecordingProcesses final : public platform::ProcessService {
  public:
    explicit RecordingProcesses(std::vector<std::string>& started) : started_(started) {}
    std::optional<platform::ProcessId> Start(std::string_view commandLine) override {
        started_.emplace_back(commandLine);
        return 4242;
    }
    bool IsRunning(platform::ProcessId) override { return false; }

  private:
    std::vector<std::string>& started_;
};

TEST(DesktopHelpViewer, OneHelpRequestOpensTheFileOnceAndOnlyOnADesktop) {
    namespace chm = platform::compiled_help;
    std::vector<std::string> started;
    platform::SetProcesses(std::make_unique<RecordingProcesses>(started));
    auto viewer = platform::posix::MakeHelpViewer();
    auto helpRequest = [&] {
        viewer->CompiledHelp(0, {}, chm::kCloseAll, 0);
        viewer->CompiledHelp(1, "/opt/help\\it's.chm", chm::kDisplayToc, 1);
        viewer->CompiledHelp(1, "/opt/help\\it's.chm", chm::kHelpContext, 15611);
        viewer->ClassicHelp(0, {}, platform::classic_help::kQuit, 0);
    };
    ScopedEnv wayland("WAYLAND_DISPLAY", std::nullopt);
    ScopedEnv display("DISPLAY", ":99");
    helpRequest();
    display.Set(std::nullopt);
    helpRequest();
    EXPECT_THAT(started, ElementsAre("xdg-open '/opt/help/it'\\''s.chm' >/dev/null 2>&1"));
    platform::ResetServices();
}

}  // namespace
}  // namespace lumacfg
