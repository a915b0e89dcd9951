#include "integration/help.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "integration/vlt_settings.h"
#include "platform/posix/backends.h"
#include "platform/services.h"
#include "support/scoped_env.h"

namespace lumacfg {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing_support::ScopedEnv;

// The data system's registry key, holding "Path" when the data system is installed.
class FakeRegistry final : public platform::Registry, public platform::RegistryKey {
  public:
    explicit FakeRegistry(std::optional<std::string> path) : path_(std::move(path)) {}
    std::unique_ptr<platform::RegistryKey> OpenKey(std::string_view key,
                                                   platform::RegistryAccess) override {
        if (!path_ || key != kDataSystemKey) return nullptr;
        return std::make_unique<FakeRegistry>(path_);
    }
    std::optional<std::string> QueryString(std::string_view name) override {
        return name == "Path" ? path_ : std::nullopt;
    }
    std::optional<std::uint32_t> QueryDword(std::string_view) override { return {}; }
    bool SetString(std::string_view, std::string_view) override { return false; }
    bool SetDword(std::string_view, std::uint32_t) override { return false; }

  private:
    std::optional<std::string> path_;
};

// Values of section "WSX,1" of the data system's "lumagen.ist" by key; other files are empty.
constexpr const char* kSettingsFile = "C:\\PS\\lumaexe\\lumagen.ist";

class FakeProfiles final : public platform::ProfileService {
  public:
    explicit FakeProfiles(const std::map<std::string, std::string>& values) : values_(values) {}
    platform::ProfileRead GetString(std::string_view file, std::string_view section,
                                    std::string_view key, std::string_view defaultText,
                                    std::size_t) override {
        auto found = values_.find(std::string(key));
        bool present = file == kSettingsFile && section == "WSX,1" && found != values_.end();
        std::string text = present ? found->second : std::string(defaultText);
        return {text, text.size()};
    }
    bool WriteString(std::string_view, std::string_view, std::optional<std::string_view>,
                     std::optional<std::string_view>) override {
        return false;
    }
    void BeginBatch() override {}
    bool EndBatch() override { return true; }

  private:
    const std::map<std::string, std::string>& values_;
};

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

class HelpTest : public ::testing::Test {
  protected:
    void SetUp() override {
        platform::SetProfiles(std::make_unique<FakeProfiles>(settings_));
        platform::SetHelp(std::make_unique<RecordingHelpViewer>(calls_));
        Install("C:\\PS");
        InitHelp();
        calls_.clear();
        desktop_ = std::to_string(platform::Windows().Desktop());
    }
    void TearDown() override { platform::ResetServices(); }

    void Install(std::optional<std::string> root) {
        platform::SetRegistry(std::make_unique<FakeRegistry>(std::move(root)));
    }
    void PressHelpButton(std::int32_t topic) { ShowHelp(42, "", kHelpContextCommand, topic); }

    std::map<std::string, std::string> settings_;
    std::vector<std::string> calls_;
    std::string desktop_;
};

struct ResolveCase {
    const char* what;
    std::optional<std::string> root;
    std::map<std::string, std::string> settings;
    std::optional<std::string> expected;
};

void PrintTo(const ResolveCase& c, std::ostream* os) {
    *os << c.what;
}

class HelpFileTest : public HelpTest, public ::testing::WithParamInterface<ResolveCase> {};

TEST_P(HelpFileTest, IsNamedByTheDataSystemsStationProfile) {
    Install(GetParam().root);
    settings_ = GetParam().settings;
    EXPECT_EQ(ResolveHelpFile(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, HelpFileTest,
    ::testing::Values(
        ResolveCase{"path without separator, no file name",
                    "C:\\PS",
                    {{"_HELPPATH$", "C:\\Help"}},
                    "C:\\Help\\luma-ms.chm"},
        ResolveCase{"path with separator",
                    "C:\\PS\\",
                    {{"_HELPPATH$", "C:\\Help\\"}, {"_HELPFILE$", "guide.chm"}},
                    "C:\\Help\\guide.chm"},
        ResolveCase{
            "empty path", "C:\\PS", {{"_HELPPATH$", ""}, {"_HELPFILE$", "guide.HLP"}}, "guide.HLP"},
        ResolveCase{"ERR is absent",
                    "C:\\PS",
                    {{"_HELPPATH$", "ERR"}, {"_HELPFILE$", "ERR"}},
                    "luma-ms.chm"},
        ResolveCase{"cut at NUL",
                    "C:\\PS",
                    {{"_HELPPATH$", std::string("D:\\H\0x", 6)}, {"_HELPFILE$", "a.chm"}},
                    "D:\\H\\a.chm"},
        // Another installation directory: its settings file has no help keys.
        ResolveCase{"other installation", "C:\\Other", {{"_HELPPATH$", "C:\\Help"}}, "luma-ms.chm"},
        ResolveCase{"not installed", std::nullopt, {{"_HELPFILE$", "guide.chm"}}, std::nullopt}));

TEST_F(HelpTest, WithoutTheDataSystemHelpButtonsDoNothing) {
    Install(std::nullopt);
    PressHelpButton(kHelpTopicConfig);
    EXPECT_THAT(calls_, IsEmpty());
    EXPECT_EQ(TheHelpState().HELP_FILE, "");
}

TEST_F(HelpTest, ContextHelpClosesOpenHelpThenShowsTheContentsThenTheTopic) {
    settings_["_HELPPATH$"] = "C:\\Help";
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
    settings_["_HELPFILE$"] = "guide.HLP";
    PressHelpButton(kHelpTopicVas);
    ShowHelp(43, "", 3, 0);
    CloseHelp();
    EXPECT_THAT(calls_, ElementsAre("hlp 42 'guide.HLP' 15 16003", "hlp 43 'guide.HLP' 3 0",
                                    "chm 0 '' 18 0", "chm 0 '' 29 5150", "hlp 0 '' 2 0"));
    EXPECT_FALSE(TheHelpState().HELP_USED);
}

TEST_F(HelpTest, TheFileIsResolvedOnceAndAGivenFileReplacesIt) {
    settings_["_HELPFILE$"] = "first.chm";
    PressHelpButton(kHelpTopicConfig);
    settings_["_HELPFILE$"] = "second.chm";
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
    {
        ScopedEnv display("DISPLAY", ":99");
        helpRequest();
    }
    {
        ScopedEnv display("DISPLAY", std::nullopt);
        helpRequest();
    }
    EXPECT_THAT(started, ElementsAre("xdg-open '/opt/help/it'\\''s.chm' >/dev/null 2>&1"));
    platform::ResetServices();
}

}  // namespace
}  // namespace lumacfg
