#include "resources/string_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "resources/embedded_resource.h"
#include "resources/resource_text.h"
#include "support/temp_dir.h"

namespace lumacfg {
namespace {

struct NumberedText {
    int id;
    const char* text;
};

// Texts of every kind the table holds: the first and last numbers, texts the windows compare
// against, a line break, an apostrophe and a trailing blank.
const std::pair<int, const char*> kTexts[] = {
    {1, "MS Sans Serif"},
    {110, "Could not get OPAL Application Name. - "},
    {119, "Don't Use"},
    {167,
     "Invalid rack is specified for the current tray type.\n"
     "Width of the rack might be wrong."},
    {400, "ASX500 for ETV"},
    {502, "Sampling Depth(0.125mm Step)"},
    {631, "Must specify the folder on VLT server."},
};

TEST(StringTableTest, NumbersGiveTheirTexts) {
    for (const auto& [id, text] : kTexts) EXPECT_EQ(LoadResString(id), text) << "string " << id;
}

TEST(StringTableTest, UnknownNumbersGiveTheEmptyText) {
    for (int id : {0, 6, 99, 135, 163, 214, 999, 65535, 65536, -1, INT_MIN, INT_MAX}) {
        EXPECT_EQ(LoadResString(id), "") << "string " << id;
    }
}

TEST(StringTableTest, CaptionBlocksByName) {
    EXPECT_THAT(LoadCaptionBlock("idres_captions_asx500"),
                testing::ElementsAre("ASX500 Configuration", "COM &Port for ALS:", "&Tray Type:",
                                     "&Configure Tray...", "Racks", "Rack ID ",
                                     "C&onfigure Rack...", "OK", "Cancel", "&Help"));
    EXPECT_TRUE(LoadCaptionBlock("IDRES_CAPTIONS_ASX100").empty());
    // The string table is not a caption block.
    EXPECT_TRUE(LoadCaptionBlock(resources::kStringTableName).empty());
}

std::string ReadSourceFile(const std::string& name) {
    return testing_support::ReadBytes(std::string(LUMACFG_SOURCE_DIR) + "/src/resources/" + name)
        .value_or("");
}

// The files as compiled in are the files in the source tree, and they keep to their format;
// a caption block is numbered 1, 2, 3, ... without gaps.
TEST(StringTableTest, ResourceFilesAreCompiledInAndWellFormed) {
    struct File {
        std::string_view type, name;
        const char* file;
        bool block;
    };
    const File kFiles[] = {
        {resources::kStringTableType, resources::kStringTableName, "strings.txt", false},
        {resources::kCaptionBlockType, kCaptionsAsx500, "captions_asx500.txt", true},
    };
    for (const auto& file : kFiles) {
        SCOPED_TRACE(file.file);
        const auto bytes = resources::FindEmbeddedResource(file.type, file.name);
        ASSERT_TRUE(bytes.has_value());
        EXPECT_EQ(*bytes, ReadSourceFile(file.file));
        const auto parsed = resources::ParseResourceText(*bytes);
        EXPECT_THAT(parsed.errors, testing::IsEmpty());
        EXPECT_FALSE(parsed.texts.empty());
        if (file.block) {
            for (std::size_t i = 0; i < parsed.texts.size(); ++i) {
                EXPECT_EQ(parsed.texts[i].number, static_cast<int>(i) + 1);
            }
        }
    }
}

}  // namespace
}  // namespace lumacfg
