#include "resources/resource_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lumacfg::resources {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct TextCase {
    const char* name;
    std::string_view line;  // one line of a file, without its line end
    std::string text;       // the text it gives for number 7
};

TEST(ResourceTextTest, TextsAndEscapes) {
    const TextCase kCases[] = {
        {"plain", "7\tRemote Start", "Remote Start"},
        {"empty text", "7\t", ""},
        {"blanks kept", "7\t  two  ", "  two  "},
        {"line break", "7\tfirst\\nsecond", "first\nsecond"},
        {"cr and tab", "7\ta\\r\\tb", "a\r\tb"},
        {"backslash", "7\tC:\\\\LUMAEXE\\\\", "C:\\LUMAEXE\\"},
        {"hex", "7\tRack ID\\x20", "Rack ID "},
        {"hex upper case", "7\t\\x4F\\x4b", "OK"},
        {"code page byte", "7\t\\x93Q\\x94 caf\xe9", "\x93Q\x94 caf\xe9"},
        {"literal tab", "7\ta\tb", "a\tb"},
        {"hash inside", "7\t#1", "#1"},
        {"leading zeros", "007\tx", "x"},
    };
    for (const auto& c : kCases) {
        const auto parsed = ParseResourceText(c.line);
        EXPECT_THAT(parsed.errors, IsEmpty()) << c.name;
        ASSERT_THAT(parsed.texts, SizeIs(1)) << c.name;
        EXPECT_EQ(parsed.texts[0].number, 7) << c.name;
        EXPECT_EQ(parsed.texts[0].text, c.text) << c.name;
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

struct FaultCase {
    std::string_view file;
    const char* error;
    const char* textKept;  // nullptr: the line gives no text
};

// A faulty escape is kept as written; of a repeated number the first text counts.
TEST(ResourceTextTest, FaultyLinesAreReported) {
    const FaultCase kCases[] = {
        {"Error", "line 1: a text line must begin with its number", nullptr},
        {"100 Error", "line 1: the number must be followed by one TAB", nullptr},
        {"100", "line 1: the number must be followed by one TAB", nullptr},
        {"-1\tx", "line 1: a text line must begin with its number", nullptr},
        {"65536\tx", "line 1: number above 65535", nullptr},
        {"99999999999999999999\tx", "line 1: number above 65535", nullptr},
        {"1\ta\\qb", "line 1: unknown escape at column 2", "a\\qb"},
        {"1\tend\\", "line 1: unknown escape at column 4", "end\\"},
        {"1\t\\x4", "line 1: unknown escape at column 1", "\\x4"},
        {"1\t\\xZZ", "line 1: unknown escape at column 1", "\\xZZ"},
        {"5\tfirst\n5\tsecond", "line 2: number 5 already given on line 1", "first"},
    };
    for (const auto& c : kCases) {
        const auto parsed = ParseResourceText(c.file);
        EXPECT_THAT(parsed.errors, ElementsAre(c.error)) << c.file;
        if (c.textKept == nullptr) {
            EXPECT_THAT(parsed.texts, IsEmpty()) << c.file;
        } else {
            ASSERT_THAT(parsed.texts, SizeIs(1)) << c.file;
            EXPECT_EQ(parsed.texts[0].text, c.textKept) << c.file;
        }
    }
}

}  // namespace
}  // namespace lumacfg::resources
