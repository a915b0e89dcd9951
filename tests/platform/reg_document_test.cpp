// The registry store's text: values read from it, and the exact bytes each edit gives.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/posix/reg_document.h"

namespace lumacfg::platform::posix {
namespace {

constexpr const char* kKey = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Corvane Instruments\\Plasmasuite";
constexpr const char* kHead =
    "Windows Registry Editor Version 5.00\r\n"
    "\r\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Corvane Instruments\\Plasmasuite]\r\n";

// A value as one comparable text: "S:text", "E:text" (expandable), "D:2", "O" or "-" (none).
std::string Show(const std::optional<RegValue>& value) {
    if (!value) return "-";
    switch (value->kind) {
        case RegValue::Kind::String:
            return "S:" + value->text;
        case RegValue::Kind::ExpandString:
            return "E:" + value->text;
        case RegValue::Kind::Dword:
            return "D:" + std::to_string(value->dword);
        case RegValue::Kind::Other:
            return "O";
    }
    return "?";
}

// The text as UTF-16LE with its byte-order mark.
std::string Utf16(std::u16string_view text) {
    std::string bytes = "\xFF\xFE";
    for (char16_t unit : text) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

TEST(RegDocumentTest, ReadsEveryKindOfValue) {
    const RegDocument document(
        std::string(kHead) +
        "\"Path\"=\"C:\\\\Plasma \\\"x\\\"\\\\\"\r\n"  // ends in an escaped backslash
        "\"HardWare\"=dword:0890F76F\r\n"
        "\"Bad\"=dword:123456789\r\n"
        "\"Note\"=hex(1):41,00,0d,00,0a,00,\\\r\n"  // "A\r\nB" with its NUL, over two lines
        "  42,00,00,00\r\n"
        "\"Tail\"=hex(1):43,00,00,00,44,00\r\n"  // text ends at its NUL
        "\"Expand\"=hex(2):25,00,54,00,25,00,00,00\r\n"
        "\"Multi\"=hex(7):41,00,00,00,00,00\r\n"
        "\"Broken\"=hex(1):4g,00\r\n"
        "; a comment that ends in a backslash does not go on \\\r\n"
        "\"After\"=dword:00000001\r\n"
        "\"Cut\"=hex:01,\\\r\n"
        "\r\n"  // a blank line ends a value that goes on
        "\"Kept\"=dword:00000003\r\n"
        "\"Dangling\"=hex:02,\\\r\n"
        "\"Swallowed\"=dword:00000004\r\n"  // read as part of the value before it
        "@=\"default\"\r\n"
        "[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Removed]\r\n"
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Other]\n"
        "\"Path\"=\"elsewhere\"");
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"path", "S:C:\\Plasma \"x\"\\"},
        {"HARDWARE", "D:143718255"},
        {"Bad", "O"},
        {"Note", "S:A\r\nB"},
        {"Tail", "S:C"},
        {"Expand", "E:%T%"},
        {"Multi", "O"},
        {"Broken", "O"},
        {"After", "D:1"},
        {"Cut", "O"},
        {"Kept", "D:3"},
        {"Dangling", "O"},
        {"Swallowed", "-"},
        {"", "S:default"},
        {"Missing", "-"},
    };
    for (const auto& [name, expected] : cases) {
        EXPECT_EQ(Show(document.Get(std::string(kKey), name)), expected) << name;
    }
    EXPECT_EQ(Show(document.Get("hkey_local_machine\\software\\other", "PATH")), "S:elsewhere");
    EXPECT_FALSE(document.HasKey("HKEY_LOCAL_MACHINE\\SOFTWARE\\Removed"));
}

// A text whose first line is not the header holds no keys and takes no change.
TEST(RegDocumentTest, OnlyATextUnderTheHeaderIsAStore) {
    const std::string key = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\X]\r\n\"V\"=dword:00000002\r\n";
    const std::vector<std::pair<std::string, bool>> cases = {
        {"Windows Registry Editor Version 5.00\n" + key, true},
        {Utf16(u"Windows Registry Editor Version 5.00\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\X]\r\n"
               u"\"V\"=dword:00000002\r\n"),
         true},
        {"REGEDIT4\r\n" + key, false},
        {"\xEF\xBB\xBFWindows Registry Editor Version 5.00\r\n" + key, false},
        {"\r\nWindows Registry Editor Version 5.00\r\n" + key, false},
        {"", false},
    };
    for (const auto& [bytes, store] : cases) {
        RegDocument document(bytes);
        EXPECT_EQ(Show(document.Get("HKEY_LOCAL_MACHINE\\SOFTWARE\\X", "V")), store ? "D:2" : "-");
        EXPECT_EQ(document.SetDword("HKEY_LOCAL_MACHINE\\SOFTWARE\\X", "V", 1), store);
        EXPECT_EQ(document.Bytes() == bytes, !store);
    }
}

using Edit = std::function<bool(RegDocument&)>;

Edit Dword(std::string name, std::uint32_t value) {
    return [=](RegDocument& d) { return d.SetDword(kKey, name, value); };
}
Edit String(std::string name, std::string text) {
    return [=](RegDocument& d) { return d.SetString(kKey, name, text); };
}

TEST(RegDocumentTest, EditsGiveExactBytes) {
    struct Case {
        const char* what;
        std::string before;
        std::vector<Edit> edits;
        std::string after;
        bool ok = true;  // what each edit returns
    };
    const std::string lfHead =
        "Windows Registry Editor Version 5.00\n\n"
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Corvane Instruments\\Plasmasuite]\n";
    const Case cases[] = {
        {"changed and new values, CR LF",
         std::string(kHead) + "\"HardWare\"=dword:00000002\r\n\r\n[HKEY_LOCAL_MACHINE\\X]\r\n",
         {Dword("hardware", 0x0890F76F), Dword("ConfigurationID", 0xFFFFFFFF),
          String("VLT_LCD", "D:\\Data \"x\""), String("VLT_TEMP", std::string("C:\\T\0junk", 9))},
         std::string(kHead) +
             "\"HardWare\"=dword:0890f76f\r\n\"ConfigurationID\"=dword:ffffffff\r\n"
             "\"VLT_LCD\"=\"D:\\\\Data \\\"x\\\"\"\r\n\"VLT_TEMP\"=\"C:\\\\T\"\r\n"
             "\r\n[HKEY_LOCAL_MACHINE\\X]\r\n"},
        {"new lines take the first line's LF",
         lfHead + "\"A\"=\"1\"",
         {Dword("B", 2), String("a", "x")},
         lfHead + "\"A\"=\"x\"\n\"B\"=dword:00000002\n"},
        {"a key line without values or ending",
         "Windows Registry Editor Version 5.00\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Corvane "
         "Instruments\\Plasmasuite]",
         {Dword("B", 2)},
         std::string(kHead).erase(38, 2) + "\"B\"=dword:00000002\r\n"},
        {"a last line that ends in a CR of its own keeps it",
         lfHead + "\"A\"=\"1\"\n[HKEY_LOCAL_MACHINE\\X]\r",
         {Dword("B", 2)},
         lfHead + "\"A\"=\"1\"\n[HKEY_LOCAL_MACHINE\\X]\r\r\n\"B\"=dword:00000002\n"},
        {"a value over several lines is replaced whole",
         std::string(kHead) + "\"Blob\"=hex:01,02,\\\r\n  03,\\\r\n  04\r\n@=\"d\"\r\n",
         {String("BLOB", "text")},
         std::string(kHead) + "\"Blob\"=\"text\"\r\n@=\"d\"\r\n"},
        {"a new value never continues a line that ends in a backslash",
         std::string(kHead) + "\"A\"=dword:00000001\r\n\"Cut\"=hex:01,\\\r\n\r\n",
         {Dword("ConfigurationID", 7), Dword("Next", 8)},
         std::string(kHead) + "\"A\"=dword:00000001\r\n\"ConfigurationID\"=dword:00000007\r\n"
                              "\"Next\"=dword:00000008\r\n\"Cut\"=hex:01,\\\r\n\r\n"},
        {"a text with a line break goes as hex(1)",
         std::string(kHead),
         {String("VLT_LCD", "A\r\nB"), String("T", "0123456789\n0123456789")},
         std::string(kHead) +
             "\"VLT_LCD\"=hex(1):41,00,0d,00,0a,00,42,00,00,00\r\n"
             "\"T\"=hex(1):30,00,31,00,32,00,33,00,34,00,35,00,36,00,37,00,38,00,39,00,0a,00,\\\r\n"
             "  30,00,31,00,32,00,33,00,34,00,35,00,36,00,37,00,38,00,39,00,00,00\r\n"},
        {"a hex(1) text back to one line",
         std::string(kHead) + "\"N\"=hex(1):41,00,\\\r\n  00,00\r\n",
         {String("N", "B")},
         std::string(kHead) + "\"N\"=\"B\"\r\n"},
        {"refused: a missing key, a name with a line break",
         std::string(kHead),
         {[](RegDocument& d) { return d.SetDword("HKEY_LOCAL_MACHINE\\SOFTWARE\\No", "A", 1); },
          String("A\r\n[HKEY_LOCAL_MACHINE\\Evil]", "x"), Dword("B\n", 1)},
         std::string(kHead),
         false},
    };
    for (const Case& c : cases) {
        RegDocument document(c.before);
        for (const Edit& edit : c.edits) EXPECT_EQ(edit(document), c.ok) << c.what;
        EXPECT_EQ(document.Bytes(), c.after) << c.what;
    }
}

// A store exported in UTF-16LE is read as the core's Windows-1252 text and written back in
// UTF-16LE, every line not changed keeping its bytes (characters outside the code page too).
TEST(RegDocumentTest, Utf16StoreRoundTrip) {
    const std::u16string head =
        u"Windows Registry Editor Version 5.00\r\n\r\n"
        u"; \u03A9 \u20AC\r\n"
        u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Corvane Instruments\\Plasmasuite]\r\n"
        u"\"Path\"=\"C:\\\\\u00C4\u20AC\u03A9\U0001F600\"\r\n"
        u"\"HardWare\"=dword:00000002\r\n";
    const std::u16string tail = u"\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\\u03A9]\n\"V\"=\"1\"";
    RegDocument document(Utf16(head + tail));
    EXPECT_EQ(document.FileEncoding(), RegDocument::Encoding::Utf16Le);
    EXPECT_EQ(Show(document.Get(kKey, "Path")), "S:C:\\\xC4\x80??");
    EXPECT_EQ(Show(document.Get(kKey, "HardWare")), "D:2");
    EXPECT_EQ(Show(document.Get("HKEY_LOCAL_MACHINE\\SOFTWARE\\?", "V")), "S:1");

    EXPECT_EQ(document.Bytes(), Utf16(head + tail));
    ASSERT_TRUE(document.SetDword(kKey, "ConfigurationID", 0x0890F76F));
    ASSERT_TRUE(document.SetString(kKey, "VLT_LCD", "D:\\\x80\xC4"));
    ASSERT_TRUE(document.SetDword("HKEY_LOCAL_MACHINE\\SOFTWARE\\?", "W", 1));
    EXPECT_EQ(
        document.Bytes(),
        Utf16(head +
              u"\"ConfigurationID\"=dword:0890f76f\r\n\"VLT_LCD\"=\"D:\\\\\u20AC\u00C4\"\r\n" +
              tail + u"\r\n\"W\"=dword:00000001\r\n"));
}

}  // namespace
}  // namespace lumacfg::platform::posix
