// What the two programs say about themselves: --help prints the SYNOPSIS of the program's
// manual page, line for line, and --version the version the build was made with. Both answer
// without a display and without a station; with anything more on the line they are usage errors.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "support/cli_runner.h"
#include "support/scoped_env.h"
#include "support/temp_dir.h"

namespace lumacfg {
namespace {

namespace fs = std::filesystem;
using support::CliResult;
using support::RunProgram;

struct Program {
    std::string name, path, page;
};

const Program kPrograms[] = {{"lumacfg", LUMACFG_GUI_PATH, "lumacfg.1.in"},
                             {"lumacfg-cli", LUMACFG_CLI_PATH, "lumacfg-cli.1.in"}};

void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
        text.replace(at, from.size(), to);
        at += to.size();
    }
}

// The text lines of the page's SYNOPSIS as a reader sees them: no font changes, "\-" a hyphen.
std::vector<std::string> SynopsisLines(const std::string& page) {
    std::istringstream lines(page);
    std::vector<std::string> synopsis;
    bool inside = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind(".SH", 0) == 0) {
            inside = line == ".SH SYNOPSIS";
        } else if (inside && line.rfind('.', 0) != 0) {
            for (const char* font : {"\\fB", "\\fI", "\\fR", "\\fP"}) ReplaceAll(line, font, "");
            ReplaceAll(line, "\\-", "-");
            synopsis.push_back(line);
        }
    }
    return synopsis;
}

// The usage's lines without "usage: " and the indentation that aligns the others with it.
std::vector<std::string> UsageLines(const std::string& usage) {
    std::istringstream lines(usage);
    std::vector<std::string> forms;
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("usage: ", 0) == 0) line.erase(0, 7);
        forms.push_back(line.substr(line.find_first_not_of(' ')));
    }
    return forms;
}

class ManualPagesTest : public testing::Test {
  protected:
    CliResult Run(const Program& program, const std::vector<std::string>& args) {
        return RunProgram(program.path, args, scratch_.Path());
    }

    support::TempDir scratch_;
    // No display: the answers must not need one.
    support::ScopedEnv display_{"DISPLAY", std::nullopt};
    support::ScopedEnv wayland_{"WAYLAND_DISPLAY", std::nullopt};
};

TEST_F(ManualPagesTest, HelpPrintsTheSynopsisOfTheManualPage) {
    for (const Program& program : kPrograms) {
        const CliResult help = Run(program, {"--help"});
        EXPECT_EQ(help.exit, 0) << program.name;
        EXPECT_EQ(help.err, "") << program.name;
        const auto page =
            support::ReadBytes(fs::path(LUMACFG_SOURCE_DIR) / "packaging/man" / program.page);
        ASSERT_TRUE(page) << program.page;
        EXPECT_EQ(UsageLines(help.out), SynopsisLines(*page)) << program.name;
    }
}

TEST_F(ManualPagesTest, VersionPrintsTheNameAndTheBuildsVersion) {
    for (const Program& program : kPrograms) {
        const CliResult version = Run(program, {"--version"});
        EXPECT_EQ(version.exit, 0) << program.name;
        EXPECT_EQ(version.out, program.name + " " LUMACFG_VERSION "\n");
        EXPECT_EQ(version.err, "") << program.name;
    }
}

TEST_F(ManualPagesTest, HelpOrVersionWithMoreArgumentsIsAUsageError) {
    // The window's usage error is found after Qt has started: on its offscreen platform here.
    support::ScopedEnv platform("QT_QPA_PLATFORM", "offscreen");
    const std::vector<std::string> lines[] = {
        {"--help", "--version"}, {"--version", "show"}, {"show", "--help"}};
    for (const Program& program : kPrograms) {
        const std::string usage = Run(program, {"--help"}).out;
        for (const auto& args : lines) {
            const CliResult refused = Run(program, args);
            EXPECT_EQ(refused.exit, 2) << program.name << testing::PrintToString(args);
            EXPECT_EQ(refused.out, "") << program.name << testing::PrintToString(args);
            // Qt may warn about the session before the window's usage is printed.
            EXPECT_TRUE(refused.err.ends_with(usage)) << program.name << ": " << refused.err;
        }
    }
}

}  // namespace
}  // namespace lumacfg
