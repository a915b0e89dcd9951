// The JSON reader and writer of the documents exchanged with other tools, and the conversion of
// the core's Windows-1252 text to and from UTF-8.
#include "base/json.h"

#include <gtest/gtest.h>

#include <string>

#include "base/windows1252.h"

namespace lumacfg {
namespace {

const JsonValue& Parsed(const std::variant<JsonValue, JsonError>& result) {
    if (const auto* error = std::get_if<JsonError>(&result)) {
        ADD_FAILURE() << error->line << ":" << error->column << " " << error->what;
        static const JsonValue none;
        return none;
    }
    return std::get<JsonValue>(result);
}

TEST(JsonTest, ReadsEveryKindWithMembersInOrderAndDuplicatesKept) {
    const auto result =
        ParseJson(" {\"b\": [1, -0.5e+3, true, false, null], \"a\": {}, \"b\": \"x\"}\r\n");
    const JsonValue& document = Parsed(result);
    ASSERT_EQ(document.kind, JsonValue::Kind::Object);
    ASSERT_EQ(document.members.size(), 3u);
    EXPECT_EQ(document.members[0].name, "b");
    EXPECT_EQ(document.members[1].name, "a");
    EXPECT_EQ(document.members[2].value.text, "x");
    const JsonValue& list = document.members[0].value;
    ASSERT_EQ(list.items.size(), 5u);
    EXPECT_EQ(list.items[0].text, "1");
    EXPECT_EQ(list.items[1].text, "-0.5e+3");
    EXPECT_TRUE(list.items[2].boolean);
    EXPECT_EQ(list.items[3].kind, JsonValue::Kind::Boolean);
    EXPECT_EQ(list.items[4].kind, JsonValue::Kind::Null);
}

TEST(JsonTest, StringsDecodeTheirEscapesToUtf8) {
    const struct {
        std::string json, text;
    } cases[] = {
        {R"("a\"b\\c\/d")", "a\"b\\c/d"},
        {R"("\b\f\n\r\t")", "\b\f\n\r\t"},
        {R"("\u00e9\u20AC")", "\xC3\xA9\xE2\x82\xAC"},
        {R"("\ud83d\ude00")", "\xF0\x9F\x98\x80"},  // a pair beyond U+FFFF
        {"\"\xC3\xA9 as is\"", "\xC3\xA9 as is"},
        {R"("\u0000")", std::string(1, '\0')},
    };
    for (const auto& c : cases) EXPECT_EQ(Parsed(ParseJson(c.json)).text, c.text) << c.json;
}

TEST(JsonTest, NamesWhereAndWhyATextIsNoDocument) {
    const struct {
        std::string json;
        std::size_t line, column;
        std::string what;
    } cases[] = {
        {"", 1, 1, "the document ends early (expected a value)"},
        {"{\"a\": 1,\n}", 2, 1, "expected a member's name in quotes"},
        {"{\"a\" 1}", 1, 6, "expected ':' after a member's name"},
        {"{\"a\": 1", 1, 8, "the document ends early (expected ',' or '}' after a member)"},
        {"[1 2]", 1, 4, "expected ',' or ']' after an entry"},
        {"{} {}", 1, 4, "unexpected text after the document"},
        {"\"open", 1, 1, "a string without its closing quote"},
        {"\"a\nb\"", 1, 3, "a control character in a string (write it escaped)"},
        {R"("\x")", 1, 3, "an unknown escape in a string"},
        {R"("\u12")", 1, 4, "expected four hexadecimal digits after \\u"},
        {R"("\udc00")", 1, 8, "a lone low surrogate"},
        {R"("\ud800x")", 1, 8, "a high surrogate without its pair"},
        {"\"\xE9t\xE9\"", 1, 1, "a string that is no valid UTF-8"},
        {"01", 1, 2, "unexpected text after the document"},
        {"-", 1, 2, "the document ends early (expected a digit)"},
        {"1.", 1, 3, "the document ends early (expected a digit)"},
        {"tru", 1, 1, "unexpected character"},
        {"'a'", 1, 1, "unexpected character"},
        {std::string(65, '[') + std::string(65, ']'), 1, 65, "nested too deeply"},
    };
    for (const auto& c : cases) {
        const auto result = ParseJson(c.json);
        const auto* error = std::get_if<JsonError>(&result);
        ASSERT_NE(error, nullptr) << c.json;
        EXPECT_EQ(error->what, c.what) << c.json;
        EXPECT_EQ(error->line, c.line) << c.json;
        EXPECT_EQ(error->column, c.column) << c.json;
    }
    EXPECT_TRUE(
        std::holds_alternative<JsonValue>(ParseJson(std::string(64, '[') + std::string(64, ']'))));
    EXPECT_EQ(Parsed(ParseJson("\xEF\xBB\xBF\"after a byte-order mark\"")).text,
              "after a byte-order mark");
}

TEST(JsonTest, AQuotedTextReadsBackAsItself) {
    std::string every;
    for (int c = 1; c < 0x80; ++c) every.push_back(static_cast<char>(c));
    every += "\xC3\xA9\xE2\x82\xAC";
    const std::string quoted = JsonQuoted(every);
    EXPECT_EQ(quoted.find('\n'), std::string::npos);
    EXPECT_EQ(Parsed(ParseJson(quoted)).text, every);
}

TEST(Windows1252Test, EveryByteComesBackThroughUtf8) {
    std::string bytes;
    for (int b = 0; b < 256; ++b) bytes.push_back(static_cast<char>(b));
    const std::string utf8 = Utf8FromWindows1252(bytes);
    EXPECT_TRUE(IsValidUtf8(utf8));
    EXPECT_EQ(Windows1252FromUtf8(utf8), bytes);
    EXPECT_EQ(Utf8FromWindows1252("\x80\x93\xE9"), "\xE2\x82\xAC\xE2\x80\x9C\xC3\xA9");
}

TEST(Windows1252Test, TextsTheCodePageCannotHoldAreRefused) {
    for (const std::string utf8 :
         {"\xCE\xA9", "\xF0\x9F\x98\x80", "\xC2\x80", "\xE9", "\xC0\xAF", "\xED\xA0\x80"}) {
        EXPECT_EQ(Windows1252FromUtf8(utf8), std::nullopt) << utf8;
    }
    EXPECT_EQ(Utf8ForDisplay("/tmp/\xC3\xA9"), "/tmp/\xC3\xA9");
    EXPECT_EQ(Utf8ForDisplay("C:\\\xE9"), "C:\\\xC3\xA9");
}

}  // namespace
}  // namespace lumacfg
