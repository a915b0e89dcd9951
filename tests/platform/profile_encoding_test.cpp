// Profile files in UTF-16: read as Windows-1252, written back in their own byte order, and
// reported when Windows could not have written them.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "platform/posix/profile_document.h"

namespace lumacfg::platform::posix {
namespace {

using namespace std::string_literals;

std::string Utf16File(std::u16string_view text, bool bigEndian) {
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (char16_t unit : text) {
        auto high = static_cast<char>(unit >> 8);
        auto low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? std::string{high, low} : std::string{low, high};
    }
    return bytes;
}

TEST(ProfileEncodingTest, Utf16IsReadAsWindows1252AndWrittenInItsByteOrder) {
    // Every character of Windows-1252 from 0x80 to 0x9F, the five bytes it leaves undefined,
    // and characters it lacks: a Chinese one, one beyond the basic plane, U+0080.
    const std::u16string file =
        u"[S]\r\n"
        u"k=€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ\r\n"
        u"c=\u0081\u008D\u008F\u0090\u009D é\r\n"
        u"q=中\U0001F600\u0080x\r\n";
    const std::pair<std::string, std::string> reads[] = {
        {"k",
         "\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E\x91\x92\x93\x94\x95\x96\x97\x98"
         "\x99\x9A\x9B\x9C\x9E\x9F"},
        {"c", "\x81\x8D\x8F\x90\x9D \xE9"},
        {"q", "???x"},
    };
    for (bool bigEndian : {false, true}) {
        const std::string bytes = Utf16File(file, bigEndian);
        ProfileDocument document(bytes);
        for (const auto& [key, value] : reads) {
            EXPECT_EQ(document.Get("s", key), value) << key << " big-endian " << bigEndian;
            EXPECT_EQ(LookUpProfileValue(bytes, "s", key), value) << key;
        }
        EXPECT_EQ(document.Bytes(), bytes);
        // Changed and new lines are encoded from Windows-1252; the line of characters that
        // Windows-1252 lacks keeps them.
        EXPECT_TRUE(document.Set("S", "k", "\x80\x9F\x81\xE9"));
        EXPECT_TRUE(document.Set("S", "n", "1"));
        EXPECT_TRUE(document.Set("T", "m", "2"));
        EXPECT_EQ(document.Bytes(), Utf16File(u"[S]\r\n"
                                              u"k=€Ÿ\u0081é\r\n"
                                              u"c=\u0081\u008D\u008F\u0090\u009D é\r\n"
                                              u"q=中\U0001F600\u0080x\r\n"
                                              u"n=1\r\n"
                                              u"[T]\r\n"
                                              u"m=2\r\n",
                                              bigEndian));
    }
}

TEST(ProfileEncodingTest, EveryWindows1252ByteSurvivesUtf16) {
    std::string value = "<";
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '\r' && byte != '\n') value += static_cast<char>(byte);
    }
    value += ">";
    for (bool bigEndian : {false, true}) {
        ProfileDocument document(Utf16File(u"", bigEndian));
        document.Set("S", "k", value);
        EXPECT_EQ(document.Get("S", "k"), value);
        EXPECT_EQ(ProfileDocument(document.Bytes()).Get("S", "k"), value);
    }
}

TEST(ProfileEncodingTest, Utf16ThatWindowsCouldNotHaveWrittenIsReportedAndKept) {
    // The bytes, the problem, and the value of [S] k, read by the document and the one-pass read.
    const std::tuple<std::string, std::optional<std::string>, std::optional<std::string>> cases[] =
        {
            {"[S]\r\nk=1", std::nullopt, "1"},
            {"\xEF\xBB\xBF[S]\nk=1", std::nullopt, "1"},
            {"[S]\nk=1\0"s, "not text: a NUL byte at byte 7", "1\0"s},
            {Utf16File(u"[S]\nk=1", false).substr(2), "not text: a NUL byte at byte 1",
             std::nullopt},
            {"\xFF\xFE", std::nullopt, std::nullopt},
            {Utf16File(u"[S]\nk=1", false), std::nullopt, "1"},
            {Utf16File(u"[S]\rk=\U0001F600", true), std::nullopt, "?"},
            {Utf16File(u"[S]\nk=1", false) + "x", "UTF-16 text with an odd number of bytes", "1"},
            {Utf16File(u"[S]\nk=1", false) + "\x00\xD8"s,
             "UTF-16 text with an unpaired surrogate at byte 16", "1?"},
            {Utf16File(u"[S]\nk=", true) + "\xDC\x00\x00x"s,
             "UTF-16 text with an unpaired surrogate at byte 14", "?x"},
        };
    for (const auto& [bytes, problem, value] : cases) {
        EXPECT_EQ(ProfileDocument::Problem(bytes), problem) << bytes;
        ProfileDocument document(bytes);
        EXPECT_EQ(document.Get("S", "k"), value) << bytes;
        EXPECT_EQ(LookUpProfileValue(bytes, "S", "k"), value) << bytes;
        EXPECT_EQ(document.Bytes(), bytes);  // nothing read is lost
    }
}

}  // namespace
}  // namespace lumacfg::platform::posix
