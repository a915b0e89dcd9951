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

// Texts that the windows compare against or show verbatim, one or more from every dialog.
const NumberedText kTexts[] = {
    {1, "MS Sans Serif"},
    {2, "8"},
    {3, "OK"},
    {100, "Error"},
    {101, "Valid GPIB address is an integral number from 0 to 29."},
    {104,
     "QC configuration changes must be implemented with caution as it affects the other QC "
     "related parameters. Continue?"},
    {110, "Could not get OPAL Application Name. - "},
    {113, "None"},
    {115, "ICP-MS Configuration"},
    {119, "Don't Use"},
    {126, "---"},
    {132, "Setup..."},
    {153, "OPAL"},
    {158, "LC/GC/Laser Ablation"},
    {164, "Instrument#"},
    {167,
     "Invalid rack is specified for the current tray type.\n"
     "Width of the rack might be wrong."},
    {168, "Discrete Sampling"},
    {169,
     "Invalid rack is specified for the current tray type.\n"
     "Length of the rack might be wrong."},
    {173, "En"},
    {206, "Rack ID 1:"},
    {213, "Rack ID 8:"},
    {310, "Corvane LC"},
    {319, "Please connect OPAL External Pump to OPAL COM2 Port."},
    {400, "ASX500 for ETV"},
    {404, "Exit Plasmasuite."},
    {502, "Sampling Depth(0.125mm Step)"},
    {506, "Single Sample"},
    {509, "18 Samples"},
    {512, "Please connect V-AS to OPAL COM1 Port."},
    {631, "Must specify the folder on VLT server."},
};

TEST(StringTableTest, NumbersGiveTheirTexts) {
    for (const auto& [id, text] : kTexts) {
        EXPECT_EQ(LoadResString(id), text) << "string " << id;
    }
}

TEST(StringTableTest, NamedNumbersMatchTheTable) {
    EXPECT_EQ(LoadResString(kResFontName), "MS Sans Serif");
    EXPECT_EQ(LoadResString(kResErrorTitle), "Error");
    EXPECT_EQ(LoadResString(kResWindowCaption), "ICP-MS Configuration");
    EXPECT_EQ(LoadResString(kResExitDataSystem), "Exit Plasmasuite.");
}

TEST(StringTableTest, UnknownNumbersGiveTheEmptyText) {
    for (int id : {0, 6, 99, 135, 163, 214, 999, 65535, 65536, -1, INT_MIN, INT_MAX}) {
        EXPECT_EQ(LoadResString(id), "") << "string " << id;
    }
}

TEST(StringTableTest, Asx500CaptionBlockInOrder) {
    EXPECT_THAT(LoadCaptionBlock(kCaptionsAsx500),
                testing::ElementsAre("ASX500 Configuration", "COM &Port for ALS:", "&Tray Type:",
                                     "&Configure Tray...", "Racks", "Rack ID ",
                                     "C&onfigure Rack...", "OK", "Cancel", "&Help"));
    EXPECT_EQ(LoadCaptionBlock("idres_captions_asx500"), LoadCaptionBlock(kCaptionsAsx500));
}

TEST(StringTableTest, UnknownCaptionBlockIsEmpty) {
    EXPECT_TRUE(LoadCaptionBlock("IDRES_CAPTIONS_ASX100").empty());
    EXPECT_TRUE(LoadCaptionBlock("").empty());
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
