// The line model of profile files: what a read finds and the exact bytes each edit leaves.
#include "platform/posix/profile_document.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace lumacfg::platform::posix {
namespace {

// One file with every kind of line the rules distinguish; read with LF, CR LF or CR endings,
// the answers must be the same.
constexpr const char* kMixedLines[] = {
    "; comment=not a key",
    "orphan=before any header",
    "[ Alpha ]",
    "Key1 = value one \t",
    "key2=\"quoted\"",
    "key3='single'",
    "key4=\"mismatch'",
    "key5=\"",
    "key6= \" padded \" ",
    "key7=a=b=c",
    "key8=",
    "\tkey9\t=\ttabbed\t",
    "noequals",
    "KEY1=second of the same name",
    "",
    "[alpha]",
    "only=in the second alpha",
    "  [Beta] trailing ] here",
    "k=v",
    "[Gamma",
    "g=belongs to the section before",
    "[Delta]",
    "last=unterminated",
};

std::string Join(const char* const* lines, std::size_t count, const std::string& ending,
                 bool terminateLast) {
    std::string bytes;
    for (std::size_t i = 0; i < count; ++i) {
        bytes += lines[i];
        if (i + 1 < count || terminateLast) bytes += ending;
    }
    return bytes;
}

TEST(ProfileDocumentTest, ReadsTheRulesOfSectionsKeysAndValues) {
    // Section, key, and the value read.
    const std::tuple<std::string, std::string, std::optional<std::string>> cases[] = {
        {"Alpha", "orphan", std::nullopt},
        {"ALPHA", "key1", "value one"},
        {"alpha", "KEY2", "quoted"},
        {"Alpha", "key3", "single"},
        {"Alpha", "key4", "\"mismatch'"},
        {"Alpha", "key5", "\""},
        {"Alpha", "key6", " padded "},
        {"Alpha", "key7", "a=b=c"},
        {"Alpha", "key8", ""},
        {"Alpha", "key9", "tabbed"},
        {"Alpha", "noequals", std::nullopt},
        {"Alpha", "only", std::nullopt},  // the first "alpha" section wins
        {"Beta", "k", std::nullopt},
        {"Beta] trailing", "k", "v"},
        {"beta] TRAILING", "g", "belongs to the section before"},
        {"Gamma", "g", std::nullopt},
        {"Delta", "last", "unterminated"},
        {" Alpha ", " key1 ", "value one"},  // names asked for are trimmed too
        {"Missing", "key1", std::nullopt},
    };
    const std::size_t count = std::size(kMixedLines);
    for (const std::string ending : {"\n", "\r\n", "\r"}) {
        for (bool terminated : {false, true}) {
            ProfileDocument document(Join(kMixedLines, count, ending, terminated));
            for (const auto& [section, key, expected] : cases) {
                EXPECT_EQ(document.Get(section, key), expected)
                    << "[" << section << "] " << key << " ending " << ending.size();
            }
        }
    }
}

// A Set or a delete reports a change exactly when the bytes change.
TEST(ProfileDocumentTest, EditsGiveTheExactBytes) {
    // Before, section, key, value, after.
    const std::tuple<std::string, std::string, std::string, std::string, std::string> sets[] = {
        {"", "S", "K", "V", "[S]\r\nK=V\r\n"},  // a new file is CR LF
        {"[S]\na=1\n", "S", "b", "2", "[S]\na=1\nb=2\n"},
        // New keys go after the last non-blank line of their section.
        {"[S]\r\na=1\r\n\r\n[T]\r\nx=1\r\n", "S", "b", "2",
         "[S]\r\na=1\r\nb=2\r\n\r\n[T]\r\nx=1\r\n"},
        {"[S]\n\n\n[T]\n", "S", "a", "1", "[S]\na=1\n\n\n[T]\n"},
        {"[S]\na=1\n \n\t\n", "s", "b", "2", "[S]\na=1\nb=2\n \n\t\n"},
        {"[S]\n  Key = old \n", "s", "KEY", "new", "[S]\nKey=new\n"},  // the file's spelling
        {"[S]\na=1", "S", "b", "2", "[S]\na=1\nb=2\n"},
        {"[S]\r\na=1", "S", "a", "2", "[S]\r\na=2\r\n"},
        {"[S]", "S", "a", "1", "[S]\r\na=1\r\n"},
        {"[S]\na=1\n\n", "T", "b", "2", "[S]\na=1\n\n[T]\nb=2\n"},
        {"x", "T", "b", "2", "x\r\n[T]\r\nb=2\r\n"},
        // A changed line takes the first line's ending.
        {"[S]\nx=1\r\ny=2\r\n", "S", "x", "9", "[S]\nx=9\ny=2\r\n"},
        {"[S]\r\nK=v\r\n", "S", "k", "v", "[S]\r\nK=v\r\n"},
        {"[S]\r\nK=v\n", "S", "k", "v", "[S]\r\nK=v\r\n"},
        {"[S]\nK=\"v\"\n", "S", "K", "v", "[S]\nK=v\n"},
        // A value ends at its first CR or LF.
        {"[S]\n", "S", "a", "one\r\ntwo", "[S]\na=one\n"},
        {"[S]\n", "S", "a", "x\ry", "[S]\na=x\n"},
        {"k=0\n[S]\nk=1\n", "S", "k", "2", "k=0\n[S]\nk=2\n"},
        {"[S]\na=1\n[T]\n[s]\nb=2\n", "S", "b", "3", "[S]\na=1\nb=3\n[T]\n[s]\nb=2\n"},
        {"[S]\n[T\n", "T", "a", "1", "[S]\n[T\n[T]\na=1\n"},  // "[T" is no header
        {"", " S ", " K ", " v", "[S]\r\nK= v\r\n"},
        // A CR alone ends a line, the file's first one included.
        {"[S]\ra=1\r", "S", "b", "2", "[S]\ra=1\rb=2\r"},
        {"[S]\r\na=1\r", "S", "b", "2", "[S]\r\na=1\rb=2\r\n"},
        {"[S]\ra=1\rb=2\r\n", "S", "a", "3", "[S]\ra=3\rb=2\r\n"},
        // A UTF-8 byte-order mark is no part of the first line, and stays.
        {"\xEF\xBB\xBF[S]\na=1\n", "s", "A", "2", "\xEF\xBB\xBF[S]\na=2\n"},
        {"\xEF\xBB\xBF", "S", "K", "V", "\xEF\xBB\xBF[S]\r\nK=V\r\n"},
    };
    for (const auto& [before, section, key, value, after] : sets) {
        ProfileDocument document(before);
        EXPECT_EQ(document.Set(section, key, value), after != before) << before;
        EXPECT_EQ(document.Bytes(), after) << before;
    }
    // Before, section, key (none: the whole section), after.
    const std::tuple<std::string, std::string, std::optional<std::string>, std::string> deletes[] =
        {
            {"[S]\r\na=1\r\nb=2\r\n", "s", "A", "[S]\r\nb=2\r\n"},
            {"[S]\na=1\n[S]\na=2\n", "S", "a", "[S]\n[S]\na=2\n"},
            {"[S]\na=1\n", "S", "b", "[S]\na=1\n"},
            {"[S]\na=1\n", "T", "a", "[S]\na=1\n"},
            {"x\n[S]\na=1\n\n[T]\nb=2\n[S]\nc=3\n", "s", std::nullopt, "x\n[T]\nb=2\n[S]\nc=3\n"},
            {"[T]\r\nb=2\r\n[S]\r\na=1", "S", std::nullopt, "[T]\r\nb=2\r\n"},
            {"[S]\na=1\n", "T", std::nullopt, "[S]\na=1\n"},
        };
    for (const auto& [before, section, key, after] : deletes) {
        ProfileDocument document(before);
        bool changed = key ? document.DeleteKey(section, *key) : document.DeleteSection(section);
        EXPECT_EQ(changed, after != before) << before;
        EXPECT_EQ(document.Bytes(), after) << before;
    }
}

// A line that an edit leaves ending in a CR alone before an empty line ending in LF reads
// back as one line ending in CR LF. The bytes show it only once a key is added behind it.
TEST(ProfileDocumentTest, ACrAloneBeforeAnEmptyLineReadsAsOneEnding) {
    // Before, an edit of section S (a value, or none to delete the key), and the bytes after
    // it and after key "n" is set to 3.
    const std::tuple<std::string, std::string, std::optional<std::string>, std::string> cases[] = {
        {"[S]\rk=1\r\n\n[T]\r", "k", "2", "[S]\rk=2\r\nn=3\r[T]\r"},
        {"[S]\rk=1\r\n\n[T]\r", "m", "2", "[S]\rk=1\r\nm=2\r\nn=3\r[T]\r"},
        {"[S]\ra=1\rk=1\r\n\n[T]\r", "k", std::nullopt, "[S]\ra=1\r\nn=3\r[T]\r"},
    };
    for (const auto& [before, key, value, after] : cases) {
        ProfileDocument document(before);
        EXPECT_TRUE(value ? document.Set("S", key, *value) : document.DeleteKey("S", key));
        EXPECT_TRUE(document.Set("S", "n", "3"));
        EXPECT_EQ(document.Bytes(), after) << before;
    }
}

}  // namespace
}  // namespace lumacfg::platform::posix
