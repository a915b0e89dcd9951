#include "ui/main/opal_applications.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace lumacfg::ui {
namespace {

using Standard = std::vector<OpalStandardApplication>;

TEST(MainOpalTableTest, ReadsTheStandardBlock) {
    const std::tuple<std::string, std::optional<Standard>> cases[] = {
        {"#STD_BEG\r\nA\ta.chn\ta.mpa\r\nB\tb.chn\r\n#STD_END\r\n",
         Standard{{"A", "a.chn", "a.mpa"}, {"B", "b.chn", ""}}},
        // Lines before the block, an empty line and a single field are skipped; fields after
        // the third are dropped; a block without its end runs to the end of the file.
        {"#PMP_BEG\nP\tp\n#PMP_END\n#STD_BEG\n\n; comment\nA\ta\tb\tc\td\n",
         Standard{{"A", "a", "b"}}},
        {"#STD_BEG\r\n#STD_END\r\nA\ta\r\n", Standard{}},
    };
    for (const auto& [text, applications] : cases) {
        EXPECT_EQ(ParseMethodTable(text), applications) << text;
    }
}

TEST(MainOpalTableTest, ReadsTheNameOfAnApplicationFile) {
    const std::tuple<std::string, std::optional<std::string>> cases[] = {
        {"; x\r\n#APP_BEG\r\nDilution\t10\r\n\r\nAppName\tSeawater 1+9\r\n#APP_END\r\n",
         "Seawater 1+9"},
        {"AppName\tOutside\r\n#APP_BEG\r\n#APP_END\r\nAppName\tAfter\r\n", std::nullopt},
        {"#APP_BEG\r\nappname\tLower\r\nAppName\r\n", std::nullopt},
        {"#APP_BEG\nAppName\t\n", std::nullopt},  // an empty name is none
    };
    for (const auto& [text, name] : cases) EXPECT_EQ(ParseApplicationName(text), name) << text;
}

}  // namespace
}  // namespace lumacfg::ui
