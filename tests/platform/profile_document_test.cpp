// The line model of profile files: what a read finds and the exact bytes each edit leaves.
#include "platform/posix/profile_document.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace lumacfg::platform::posix {
namespace {

struct GetCase {
    std::string section, key;
    std::optional<std::string> expected;
};

// One file with every kind of line the rules distinguish; read once with LF endings and once
// with CR LF endings, the answers must be the same.
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
    const std::vector<GetCase> cases = {
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
        {"Alpha", "; comment", std::nullopt},
        {"Beta", "k", std::nullopt},
        {"Beta] trailing", "k", "v"},
        {"beta] TRAILING", "g", "belongs to the section before"},
        {"Gamma", "g", std::nullopt},
        {"Delta", "last", "unterminated"},
        {" Alpha ", " key1 ", "value one"},  // names asked for are trimmed too
        {"Missing", "key1", std::nullopt},
    };
    const std::size_t count = std::size(kMixedLines);
    for (const std::string ending : {"\n", "\r\n"}) {
        for (bool terminated : {false, true}) {
            ProfileDocument document(Join(kMixedLines, count, ending, terminated));
            for (const GetCase& c : cases) {
                EXPECT_EQ(document.Get(c.section, c.key), c.expected)
                    << "[" << c.section << "] " << c.key << " ending " << ending.size();
            }
        }
    }
}

TEST(ProfileDocumentTest, UnchangedDocumentKeepsItsBytes) {
    for (const std::string bytes : {"", "\n", "x", "[S]\r\na=1\n\r\n b = 2 ", "\r\n\r\n[S]"}) {
        EXPECT_EQ(ProfileDocument(bytes).Bytes(), bytes);
    }
}

enum class Op { Set, DeleteKey, DeleteSection };

struct EditCase {
    const char* what;
    std::string before;
    Op op;
    std::string section, key, value;
    std::string after;
    bool changed;
};

TEST(ProfileDocumentTest, EditsGiveTheExactBytes) {
    const std::vector<EditCase> cases = {
        {"new file is CR LF", "", Op::Set, "S", "K", "V", "[S]\r\nK=V\r\n", true},
        {"LF file stays LF", "[S]\na=1\n", Op::Set, "S", "b", "2", "[S]\na=1\nb=2\n", true},
        {"after the last non-blank line", "[S]\r\na=1\r\n\r\n[T]\r\nx=1\r\n", Op::Set, "S", "b",
         "2", "[S]\r\na=1\r\nb=2\r\n\r\n[T]\r\nx=1\r\n", true},
        {"section of blank lines", "[S]\n\n\n[T]\n", Op::Set, "S", "a", "1", "[S]\na=1\n\n\n[T]\n",
         true},
        {"last section with trailing blanks", "[S]\na=1\n \n\t\n", Op::Set, "s", "b", "2",
         "[S]\na=1\nb=2\n \n\t\n", true},
        {"existing key keeps its spelling", "[S]\n  Key = old \n", Op::Set, "s", "KEY", "new",
         "[S]\nKey=new\n", true},
        {"unterminated last line", "[S]\na=1", Op::Set, "S", "b", "2", "[S]\na=1\nb=2\n", true},
        {"unterminated changed line", "[S]\r\na=1", Op::Set, "S", "a", "2", "[S]\r\na=2\r\n", true},
        {"first line without ending", "[S]", Op::Set, "S", "a", "1", "[S]\r\na=1\r\n", true},
        {"missing section at the end", "[S]\na=1\n\n", Op::Set, "T", "b", "2",
         "[S]\na=1\n\n[T]\nb=2\n", true},
        {"missing section after unterminated line", "x", Op::Set, "T", "b", "2",
         "x\r\n[T]\r\nb=2\r\n", true},
        {"changed line takes the first line's ending", "[S]\nx=1\r\ny=2\r\n", Op::Set, "S", "x",
         "9", "[S]\nx=9\ny=2\r\n", true},
        {"same value, same ending: no change", "[S]\r\nK=v\r\n", Op::Set, "S", "k", "v",
         "[S]\r\nK=v\r\n", false},
        {"same value, other ending: rewritten", "[S]\r\nK=v\n", Op::Set, "S", "k", "v",
         "[S]\r\nK=v\r\n", true},
        {"quoted value replaced", "[S]\nK=\"v\"\n", Op::Set, "S", "K", "v", "[S]\nK=v\n", true},
        {"CR LF in a value dropped", "[S]\n", Op::Set, "S", "a", "one\r\ntwo", "[S]\na=one\n",
         true},
        {"lone CR in a value", "[S]\n", Op::Set, "S", "a", "x\ry", "[S]\na=x\n", true},
        {"key before the first header is no section's", "k=0\n[S]\nk=1\n", Op::Set, "S", "k", "2",
         "k=0\n[S]\nk=2\n", true},
        {"first section of the name", "[S]\na=1\n[T]\n[s]\nb=2\n", Op::Set, "S", "b", "3",
         "[S]\na=1\nb=3\n[T]\n[s]\nb=2\n", true},
        {"header without ] is no header", "[S]\n[T\n", Op::Set, "T", "a", "1",
         "[S]\n[T\n[T]\na=1\n", true},
        {"names written trimmed", "", Op::Set, " S ", " K ", " v", "[S]\r\nK= v\r\n", true},
        {"delete key", "[S]\r\na=1\r\nb=2\r\n", Op::DeleteKey, "s", "A", "", "[S]\r\nb=2\r\n",
         true},
        {"delete key of the first section only", "[S]\na=1\n[S]\na=2\n", Op::DeleteKey, "S", "a",
         "", "[S]\n[S]\na=2\n", true},
        {"delete absent key", "[S]\na=1\n", Op::DeleteKey, "S", "b", "", "[S]\na=1\n", false},
        {"delete key of absent section", "[S]\na=1\n", Op::DeleteKey, "T", "a", "", "[S]\na=1\n",
         false},
        {"delete section up to the next header", "x\n[S]\na=1\n\n[T]\nb=2\n[S]\nc=3\n",
         Op::DeleteSection, "s", "", "", "x\n[T]\nb=2\n[S]\nc=3\n", true},
        {"delete last section", "[T]\r\nb=2\r\n[S]\r\na=1", Op::DeleteSection, "S", "", "",
         "[T]\r\nb=2\r\n", true},
        {"delete absent section", "[S]\na=1\n", Op::DeleteSection, "T", "", "", "[S]\na=1\n",
         false},
    };
    for (const EditCase& c : cases) {
        ProfileDocument document(c.before);
        bool changed = false;
        switch (c.op) {
            case Op::Set:
                changed = document.Set(c.section, c.key, c.value);
                break;
            case Op::DeleteKey:
                changed = document.DeleteKey(c.section, c.key);
                break;
            case Op::DeleteSection:
                changed = document.DeleteSection(c.section);
                break;
        }
        EXPECT_EQ(document.Bytes(), c.after) << c.what;
        EXPECT_EQ(changed, c.changed) << c.what;
    }
}

}  // namespace
}  // namespace lumacfg::platform::posix
