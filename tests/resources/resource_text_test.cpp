#include "resources/resource_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lumacfg::resources {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(ResourceTextTest, TextsAndEscapes) {
    // One line of a file, without its line end, and the text it gives for number 7.
    const std::pair<std::string_view, std::string> cases[] = {
        {"7\t", ""},
        {"7\t  two  ", "  two  "},
        {"7\tfirst\\nsecond", "first\nsecond"},
        {"7\ta\\r\\tb", "a\r\tb"},
        {"7\tC:\\\\LUMAEXE\\\\", "C:\\LUMAEXE\\"},
        {"7\tRack ID\\x20", "Rack ID "},
        {"7\t\\x4F\\x4b", "OK"},
        {"7\t\\x93Q\\x94 caf\xe9", "\x93Q\x94 caf\xe9"},
        {"7\ta\tb", "a\tb"},
    };
    for (const auto& [line, text] : cases) {
        const auto parsed = ParseResourceText(line);
        EXPECT_THAT(parsed.errors, IsEmpty()) << line;
        ASSERT_THAT(parsed.texts, SizeIs(1)) << line;
        EXPECT_EQ(parsed.texts[0].number, 7) << line;
        EXPECT_EQ(parsed.texts[0].text, text) << line;
    }
}

TEST(ResourceTextTest, CommentsBlankLinesAndLineEnds) {
    const auto parsed =
        ParseResourceText("# header\r\n\r\n   \n\t\n1\tone\r\n2\ttwo\n  # not a comment\n3\tthree");
    EXPECT_THAT(parsed.errors, ElementsAre("line 7: a text line must begin with its number"));
    ASSERT_THAT(parsed.texts, SizeIs(3));
    EXPECT_EQ(parsed.texts[0].text, "one");
    EXPECT_EQ(parsed.texts[1].text, "two");
    EXPECT_EQ(parsed.texts[2].number, 3);
    EXPECT_EQ(parsed.texts[2].text, "three");

    EXPECT_THAT(ParseResourceText("").texts, IsEmpty());
}

// A faulty escape is kept as written; of a repeated number the first text counts.
TEST(ResourceTextTest, FaultyLinesAreReported) {
    // The file, its error, and the text it still gives (nullptr: none).
    const std::tuple<std::string_view, const char*, const char*> cases[] = {
        {"Error", "line 1: a text line must begin with its number", nullptr},
        {"100 Error", "line 1: the number must be followed by one TAB", nullptr},
        {"-1\tx", "line 1: a text line must begin with its number", nullptr},
        {"65536\tx", "line 1: number above 65535", nullptr},
        {"99999999999999999999\tx", "line 1: number above 65535", nullptr},
        {"1\ta\\qb", "line 1: unknown escape at column 2", "a\\qb"},
        {"1\tend\\", "line 1: unknown escape at column 4", "end\\"},
        {"1\t\\x4", "line 1: unknown escape at column 1", "\\x4"},
        {"5\tfirst\n5\tsecond", "line 2: number 5 already given on line 1", "first"},
    };
    for (const auto& [file, error, textKept] : cases) {
        const auto parsed = ParseResourceText(file);
        EXPECT_THAT(parsed.errors, ElementsAre(error)) << file;
        if (textKept == nullptr) {
            EXPECT_THAT(parsed.texts, IsEmpty()) << file;
        } else {
            ASSERT_THAT(parsed.texts, SizeIs(1)) << file;
            EXPECT_EQ(parsed.texts[0].text, textKept) << file;
        }
    }
}

}  // namespace
}  // namespace lumacfg::resources
