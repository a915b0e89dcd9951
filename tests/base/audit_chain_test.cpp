// The audit log's building blocks: SHA-256 against the published test vectors, the JSON
// records, and the chain that shows a line removed, changed or moved.
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "base/audit_chain.h"
#include "base/json_line.h"
#include "base/sha256.h"

namespace lumacfg {
namespace {

TEST(Sha256Test, PublishedTestVectors) {
    // Lengths around the one- and two-block padding, and many blocks.
    const std::tuple<std::string, std::string> vectors[] = {
        {"", "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
        {"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
        {"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq",
         "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"},
        {"abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmnhijklmnoijklmnopjklmnopqklmnopqrl"
         "m"
         "nopqrsmnopqrstnopqrstu",
         "cf5b16a778af8380036ce59e7b0492370b249b11e8f07a51afac45037afee9d1"},
        {std::string(1000000, 'a'),
         "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"},
    };
    for (const auto& [message, digest] : vectors) {
        EXPECT_EQ(Sha256Hex(message), digest) << message.size();
    }
}

TEST(JsonLineTest, WritesWindows1252AsEscapedUtf8AndReadsItBack) {
    const JsonMembers members = {{"field", "DEVICE_NAME"},
                                 {"old", "a \"quoted\" \\ path\tand\x01"},
                                 {"new", "\x80 caf\xE9 \x81"}};
    const std::string line = JsonObjectLine(members);
    EXPECT_EQ(line,
              "{\"field\":\"DEVICE_NAME\",\"old\":\"a \\\"quoted\\\" \\\\ path\\u0009and\\u0001\","
              "\"new\":\"\u20AC caf\u00E9 \u0081\"}");
    const auto parsed = ParseJsonObjectLine(line);
    ASSERT_TRUE(parsed);
    EXPECT_EQ(MemberValue(*parsed, "old"), "a \"quoted\" \\ path\tand\x01");
    EXPECT_EQ(MemberValue(*parsed, "new"), "\u20AC caf\u00E9 \u0081");
    EXPECT_EQ(MemberValue(*parsed, "time"), std::nullopt);
}

TEST(JsonLineTest, OnlyOneFlatObjectOfStringsIsARecord) {
    const std::tuple<std::string, bool> lines[] = {
        {"{}", true},
        {" { \"a\" : \"b\" , \"c\":\"\\n\" } ", true},
        {"", false},
        {"{\"a\":1}", false},
        {"{\"a\":\"b\"", false},
        {"{\"a\":\"b\"}x", false},
        {"{\"a\":\"b\",}", false},
        {"{\"a\":\"\\q\"}", false},
        {"{\"a\":\"\\u00zz\"}", false},
        {"{\"a\":\"raw\ttab\"}", false},
        {"[\"a\"]", false},
    };
    for (const auto& [line, isRecord] : lines) {
        EXPECT_EQ(ParseJsonObjectLine(line).has_value(), isRecord) << line;
    }
}

// A log of four chained records, each line ended.
std::vector<std::string> FourRecords() {
    std::vector<std::string> lines;
    std::string previous;
    for (const char* field : {"GPIB_ADDR", "ALS_TYPE", "_SECURITY", "PRO_SCAN"}) {
        previous = ChainedLine({{"event", "field-changed"}, {"field", field}}, previous);
        lines.push_back(previous);
    }
    return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string log;
    for (const std::string& line : lines) log += line + '\n';
    return log;
}

TEST(AuditChainTest, ARemovedChangedOrMovedLineBreaksTheChainWhereItShows) {
    const std::vector<std::string> lines = FourRecords();
    std::string edited = lines[1];
    edited.replace(edited.find("ALS_TYPE"), 8, "ALS_TYPF");
    // The log, the first line that breaks the chain (0: intact), the records before it.
    const std::tuple<std::string, std::vector<std::string>, std::size_t, std::size_t> logs[] = {
        {"intact", lines, 0, 4},
        {"empty", {}, 0, 0},
        {"first removed", {lines[1], lines[2], lines[3]}, 1, 0},
        {"second removed", {lines[0], lines[2], lines[3]}, 2, 1},
        {"second edited", {lines[0], edited, lines[2], lines[3]}, 3, 2},
        {"second and third swapped", {lines[0], lines[2], lines[1], lines[3]}, 2, 1},
        {"a line inserted", {lines[0], lines[1], "{\"event\":\"logon\"}", lines[2]}, 3, 2},
        {"not a record", {lines[0], "garbage", lines[2]}, 2, 1},
        {"a blank line", {lines[0], "", lines[1]}, 2, 1},
    };
    for (const auto& [what, log, brokenLine, records] : logs) {
        const ChainCheck check = CheckChain(Joined(log));
        EXPECT_EQ(check.brokenLine, brokenLine) << what;
        EXPECT_EQ(check.records, records) << what;
        EXPECT_EQ(check.reason.empty(), brokenLine == 0) << what;
    }
}

TEST(AuditChainTest, TheNextRecordChainsToTheLastLineEvenWithoutItsLineEnd) {
    const std::vector<std::string> lines = FourRecords();
    const std::string log = Joined(lines);
    EXPECT_EQ(LastLine(log), lines[3]);
    EXPECT_EQ(LastLine(log.substr(0, log.size() - 1)), lines[3]);
    EXPECT_EQ(LastLine(""), "");
    EXPECT_EQ(CheckChain(log + ChainedLine({{"event", "logon"}}, LastLine(log))).records, 5);
    EXPECT_EQ(AuditRecords(log + "garbage\n").size(), 4);
}

}  // namespace
}  // namespace lumacfg
