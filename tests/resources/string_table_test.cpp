// The resource texts: their file format, and the string table and caption blocks compiled in.
#include "resources/string_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <tuple>

#include "resources/embedded_resource.h"
#include "resources/resource_text.h"
#include "support/temp_dir.h"

namespace lumacfg {
namespace {

using resources::ParseResourceText;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

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

// The first and the last text of the table, one with an apostrophe and one with a line break.
const std::pair<int, const char*> kTexts[] = {
    {1, "MS Sans Serif"},
    {119, "Don't Use"},
    {167,
     "Invalid rack is specified for the current tray type.\n"
     "Width of the rack might be wrong."},
    {631, "Must specify the folder on VLT server."},
};

TEST(StringTableTest, NumbersGiveTheirTexts) {
    for (const auto& [id, text] : kTexts) EXPECT_EQ(LoadResString(id), text) << "string " << id;
}

TEST(StringTableTest, UnknownNumbersGiveTheEmptyText) {
    for (int id : {0, 6, 99, 135, 161, 214, 999, 65535, 65536, -1, INT_MIN, INT_MAX}) {
        EXPECT_EQ(LoadResString(id), "") << "string " << id;
    }
}

TEST(StringTableTest, CaptionBlocksByName) {
    EXPECT_THAT(LoadCaptionBlock("idres_captions_asx500"),
                ElementsAre("ASX500 Configuration",
                            "COM &Port for ALS:", "&Tray Type:", "&Configure Tray...", "Racks",
                            "Rack ID ", "C&onfigure Rack...", "OK", "Cancel", "&Help"));
    EXPECT_TRUE(LoadCaptionBlock("IDRES_CAPTIONS_ASX100").empty());
    // The string table is not a caption block.
    EXPECT_TRUE(LoadCaptionBlock(resources::kStringTableName).empty());
}

std::string ReadSourceFile(const std::string& name) {
    return support::ReadBytes(std::string(LUMACFG_SOURCE_DIR) + "/src/resources/" + name)
        .value_or("");
}

// The files as compiled in are the files in the source tree, and they keep to their format;
// a caption block is numbered 1, 2, 3, ... without gaps.
TEST(StringTableTest, ResourceFilesAreCompiledInAndWellFormed) {
    const std::tuple<std::string_view, std::string_view, const char*, bool> files[] = {
        {resources::kStringTableType, resources::kStringTableName, "strings.txt", false},
        {resources::kCaptionBlockType, kCaptionsAsx500, "captions_asx500.txt", true},
    };
    for (const auto& [type, name, file, block] : files) {
        SCOPED_TRACE(file);
        const auto bytes = resources::FindEmbeddedResource(type, name);
        ASSERT_TRUE(bytes.has_value());
        EXPECT_EQ(*bytes, ReadSourceFile(file));
        const auto parsed = ParseResourceText(*bytes);
        EXPECT_THAT(parsed.errors, IsEmpty());
        EXPECT_FALSE(parsed.texts.empty());
        if (block) {
            for (std::size_t i = 0; i < parsed.texts.size(); ++i) {
                EXPECT_EQ(parsed.texts[i].number, static_cast<int>(i) + 1);
            }
        }
    }
}

}  // namespace
}  // namespace lumacfg
