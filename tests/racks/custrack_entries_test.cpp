// Editing the custom trays and racks of custrack.ini: the values an editor takes, the ids of new
// entries, the deletions refused, and what writing changes in the file (and keeps).
#include "racks/custrack_entries.h"

#include <array>
#include <sstream>

#include "base/json_line.h"
#include "racks/custrack_fixture.h"

namespace lumacfg {
namespace {

using support::Ini;
using support::Rack;
using support::Tray;

// Trays 1000 and 1001 (their default racks name racks 1001 and 1002, not 1000) and racks 1000,
// 1001, 1002, with a comment, an unknown key and an unknown section that must survive every
// write.
std::string Tables() {
    return "; site trays\r\n" +
           Ini("[INDEX];Tray_Num=2;Tray1_ID=1000;Tray2_ID=1001;Rack_Num=3;"
               "Rack1_ID=1000;Rack2_ID=1001;Rack3_ID=1002;OWNER=lab 4") +
           Tray(1000, "DEFRACK1=1002;DEFRACK2=0;DEFRACK3=21") + Tray(1001, "DEFRACK1=1002") +
           Rack(1000) + Rack(1001, "NOTE=keep me") + Rack(1002) + Ini("[OTHER];X= 1");
}

class CustrackEntriesTest : public support::CustrackTest {
  protected:
    CustrackEntries Entries() {
        auto entries = CustrackEntries::Read();
        EXPECT_TRUE(entries.has_value());
        return entries ? std::move(*entries) : CustrackEntries{};
    }

    // The tables as the loader reads the file now.
    RackTrayState Loaded() {
        ResetCustomDefs();
        EXPECT_FALSE(LoadCustomTrays());
        EXPECT_FALSE(LoadCustomRacks());
        return RackTrays();
    }
};

TEST_F(CustrackEntriesTest, ValuesAreCheckedAgainstTheLoadersRanges) {
    Write(Tables());
    const struct {
        std::string section, key, text;
        std::string refusal;  // "" when taken
        std::string stored;
    } cases[] = {
        {"RACK_1000", "VIAL_X_NUM", "12.4", "", "12"},
        {"RACK_1000", "VIAL_X_NUM", "1000",
         "VIAL_X_NUM: 1000 is outside the accepted range 1..999.", ""},
        {"RACK_1000", "VIAL_X_NUM", "200",
         "VIAL_X_NUM: 200 with VIAL_Y_NUM 5 makes 1000 vials; the accepted range is VIAL_X_NUM "
         "times VIAL_Y_NUM at most 999.",
         ""},
        {"RACK_1000", "VIAL_Y_NUM", "99", "", "99"},
        {"RACK_1000", "VIAL_DEPTH", "161", "VIAL_DEPTH: 161 is outside the accepted range 0..160.",
         ""},
        {"RACK_1000", "vial_depth", "160", "", "160"},
        {"RACK_1000", "RACK_X_NUM", "1", "A rack has no key RACK_X_NUM.", ""},
        {"RACK_1000", "ID_STR", "  Deep rack ", "", "Deep rack"},
        {"RACK_1000", "ID_STR", "",
         "ID_STR: \"\" is outside the accepted range 1 to 15 characters.", ""},
        {"RACK_1000", "ID_STR", "Sixteen chars xx",
         "ID_STR: \"Sixteen chars xx\" is outside the accepted range 1 to 15 characters.", ""},
        {"RACK_1000", "ID_STR", "rack 1001",
         "ID_STR: \"rack 1001\" is already the name of RACK_1001.", ""},
        {"RACK_1000", "ID_STR", "60", "ID_STR: \"60\" is the name of a standard rack.", ""},
        {"TRAY_1000", "ID_STR", "standard 4/10",
         "ID_STR: \"standard 4/10\" is the name of a standard tray.", ""},
        {"TRAY_1000", "RACK_X_ORG", "-300", "", "-300"},
        {"TRAY_1000", "RACK_X_ORG", "-301",
         "RACK_X_ORG: -301 is outside the accepted range -300..4100.", ""},
        {"TRAY_1000", "RACK_Y_DIST", "-5", "", "-5"},
        {"TRAY_1000", "RACK_Y_DIST", "32767",
         "RACK_Y_DIST: 32767 is outside the accepted range any number but 32767.", ""},
        {"TRAY_1000", "RACK_X_NUM", "10", "RACK_X_NUM: 10 is outside the accepted range 1..9.", ""},
        {"TRAY_1000", "BOTTLE_X_NUM", "10", "", "10"},
        {"TRAY_1000", "DEFRACK2", "1002", "", "1002"},
        {"TRAY_1000", "DEFRACK2", "90", "", "90"},
        {"TRAY_1000", "DEFRACK2", "1005",
         "DEFRACK2: 1005 is not a rack; accepted are 0 (none), 21, 24, 40, 60, 90 and the custom "
         "racks.",
         ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.section + " " + c.key + "=" + c.text);
        CustrackEntries entries = Entries();
        CustrackEntry& entry = *entries.Find(c.section);
        const std::string before = entry.Text(c.key);
        EXPECT_EQ(entries.SetValue(entry, c.key, c.text), c.refusal);
        EXPECT_EQ(entry.Text(c.key), c.refusal.empty() ? c.stored : before);
        EXPECT_EQ(entry.touched, c.refusal.empty());
    }
}

TEST_F(CustrackEntriesTest, AVialCountOutOfRangeInTheFileIsItsOwnFaultAndNoProduct) {
    Write(Ini("[INDEX];Rack_Num=1;Rack1_ID=1000") + Rack(1000, "VIAL_Y_NUM=2000000000"));
    CustrackEntries entries = Entries();
    CustrackEntry& rack = *entries.Find("RACK_1000");
    EXPECT_EQ(entries.SetValue(rack, "VIAL_X_NUM", "999"), "");
    EXPECT_EQ(entries.Verdict(rack), "VIAL_Y_NUM=\"2000000000\" (accepted: 1..999)");
}

TEST_F(CustrackEntriesTest, VerdictsAreTheLoadersAndAFaultyEntryCanBeRepaired) {
    // Rack 1001 with 20 x 50 vials and a depth that is not a number: the loader stops there,
    // and 1002 after it is not loaded.
    std::string file = Tables();
    const std::string damaged = "VIAL_X_NUM=20\r\nVIAL_Y_NUM=50";
    file.replace(file.find("VIAL_X_NUM=10\r\nVIAL_Y_NUM=5", file.find("[RACK_1001]")), 27, damaged);
    file.replace(file.find("VIAL_DEPTH=50", file.find("[RACK_1001]")), 13, "VIAL_DEPTH=deep");
    Write(file);
    CustrackEntries entries = Entries();
    const std::pair<std::string, std::string> verdicts[] = {
        {"RACK_1000", "ok"},
        {"RACK_1001", "VIAL_Y_NUM=\"50\" (accepted: VIAL_X_NUM times VIAL_Y_NUM at most 999)"},
        {"RACK_1002", "not loaded: RACK_1001 before it fails"},
        {"TRAY_1001", "ok"},
    };
    for (const auto& [section, verdict] : verdicts)
        EXPECT_EQ(entries.Verdict(*entries.Find(section)), verdict) << section;

    CustrackEntry& faulty = *entries.Find("RACK_1001");
    EXPECT_EQ(entries.SetValue(faulty, "VIAL_X_NUM", "19"), "");  // 19 x 50 = 950
    std::string message;
    EXPECT_EQ(entries.FirstFaultyEdit(&message), &faulty);
    EXPECT_EQ(message,
              "RACK_1001 \"Rack 1001\" does not load: VIAL_DEPTH=\"deep\" (accepted: 0..160).");
    EXPECT_EQ(entries.SetValue(faulty, "VIAL_DEPTH", "40"), "");
    EXPECT_EQ(entries.FirstFaultyEdit(nullptr), nullptr);
    ASSERT_TRUE(entries.Write());
    file.replace(file.find(damaged), damaged.size(), "VIAL_X_NUM=19\r\nVIAL_Y_NUM=50");
    EXPECT_EQ(Read(), file.replace(file.find("VIAL_DEPTH=deep"), 15, "VIAL_DEPTH=40"));
    EXPECT_EQ(Loaded().CustomRacks[2].name, "Rack 1002");
}

TEST_F(CustrackEntriesTest, NewAndCopyTakeTheLowestFreeIdAndValuesThatLoad) {
    // 1001 is free in the list but its section is someone's; 1000 and 1002 are taken.
    Write(Ini("[INDEX];Tray_Num=0;Rack_Num=2;Rack1_ID=1000;Rack2_ID=1002") + Rack(1000) +
          Rack(1001) + Rack(1002));
    CustrackEntries entries = Entries();
    const EditResult rack = entries.New(EntryKind::Rack);
    ASSERT_NE(rack.entry, nullptr);
    EXPECT_EQ(rack.entry->Section(), "RACK_1003");
    EXPECT_EQ(rack.entry->Name(), "Rack 1003");
    EXPECT_FALSE(CheckEntry(*rack.entry));
    const EditResult tray = entries.New(EntryKind::Tray);
    ASSERT_NE(tray.entry, nullptr);
    EXPECT_EQ(tray.entry->Section(), "TRAY_1000");
    EXPECT_FALSE(CheckEntry(*tray.entry));

    ASSERT_EQ(entries.SetValue(*entries.Find("RACK_1000"), "ID_STR", "A long rack nam"), "");
    const char* const copies[] = {"A long r (copy)", "A long (copy 2)"};
    for (const char* name : copies) {
        const EditResult copy = entries.Copy(*entries.Find("RACK_1000"));
        ASSERT_NE(copy.entry, nullptr);
        EXPECT_EQ(copy.entry->Name(), name);
        EXPECT_EQ(copy.entry->Text("VIAL_X_DIST"), "30");
    }
    // A deleted entry's id is free again, its old section replaced.
    ASSERT_EQ(entries.Delete(*entries.Find("RACK_1002")), "");
    EXPECT_EQ(entries.New(EntryKind::Rack).entry->Section(), "RACK_1002");
    for (int i = 0; i < 94; ++i) ASSERT_NE(entries.New(EntryKind::Rack).entry, nullptr);
    EXPECT_EQ(entries.New(EntryKind::Rack).refusal,
              "No id is free: custom racks take the ids 1000 to 1099.");
}

TEST_F(CustrackEntriesTest, AnEntryInUseIsNotDeleted) {
    const std::string current =
        Ini("[CURRENT];CUSTOMTRAY=1000;TRAY_ID=1001;Rack1_ID=1002;RACK_X_NUM=1");
    Write(Tables() + current);
    const std::pair<std::string, std::string> cases[] = {
        {"TRAY_1001", "TRAY_1001 \"Tray 1001\" is in use: [CURRENT] TRAY_ID holds it."},
        {"RACK_1002", "RACK_1002 \"Rack 1002\" is in use: [CURRENT] RACK1_ID holds it."},
        {"RACK_1001", "RACK_1001 \"Rack 1001\" is in use: [TRAY_1001] DEFRACK2 holds it."},
        {"TRAY_1000", ""},
    };
    for (const auto& [section, refusal] : cases) {
        CustrackEntries entries = Entries();
        EXPECT_EQ(entries.Delete(*entries.Find(section)), refusal) << section;
    }
    // Once no tray names it as a default rack, it may go.
    CustrackEntries entries = Entries();
    ASSERT_EQ(entries.SetValue(*entries.Find("TRAY_1001"), "DEFRACK2", "0"), "");
    EXPECT_EQ(entries.Delete(*entries.Find("RACK_1001")), "");
}

TEST_F(CustrackEntriesTest, WritingChangesOnlyTheEditedKeysAndKeepsTheListDense) {
    // A comment in "[RACK_1001]" is that section's: it stays when 1000 goes.
    std::string original = Tables() + Ini("[CURRENT];CUSTOMTRAY=0;TRAY_ID=0");
    original.insert(original.find("[RACK_1002]"), "; rack 1001's note\r\n\r\n");
    const struct {
        std::string name;
        void (*edit)(CustrackEntries&);
        std::vector<std::pair<std::string, std::string>> replaced;  // from, to
    } cases[] = {
        {"nothing touched", [](CustrackEntries&) {}, {}},
        {"a value set to what it was",
         [](CustrackEntries& e) { (void)e.SetValue(*e.Find("RACK_1001"), "VIAL_X_NUM", "10"); },
         {}},
        {"one value",
         [](CustrackEntries& e) { (void)e.SetValue(*e.Find("RACK_1001"), "VIAL_X_NUM", "11"); },
         {{"[RACK_1001]\r\nID=1001\r\nID_STR=Rack 1001\r\nVIAL_X_NUM=10",
           "[RACK_1001]\r\nID=1001\r\nID_STR=Rack 1001\r\nVIAL_X_NUM=11"}}},
        {"the first rack deleted: the list closes the gap",
         [](CustrackEntries& e) { (void)e.Delete(*e.Find("RACK_1000")); },
         {{"Rack_Num=3\r\nRack1_ID=1000\r\nRack2_ID=1001\r\nRack3_ID=1002\r\n",
           "Rack_Num=2\r\nRack1_ID=1001\r\nRack2_ID=1002\r\n"},
          {Rack(1000), ""}}},
        {"a rack deleted and its id taken anew: every key written again",
         [](CustrackEntries& e) {
             (void)e.Delete(*e.Find("RACK_1000"));
             (void)e.SetValue(*e.Copy(*e.Find("RACK_1001")).entry, "ID_STR", "Rack 1000");
         },
         {{"Rack1_ID=1000\r\nRack2_ID=1001\r\nRack3_ID=1002",
           "Rack1_ID=1001\r\nRack2_ID=1002\r\nRack3_ID=1000"},
          {Rack(1000), ""},
          {"TRAY_ID=0\r\n", "TRAY_ID=0\r\n" + Rack(1000)}}},
        {"a tray copied",
         [](CustrackEntries& e) { (void)e.Copy(*e.Find("TRAY_1001")); },
         {{"Tray_Num=2\r\nTray1_ID=1000\r\nTray2_ID=1001\r\n",
           "Tray_Num=3\r\nTray1_ID=1000\r\nTray2_ID=1001\r\n"},
          // A key new to "[INDEX]" goes to the end of the section.
          {"OWNER=lab 4\r\n", "OWNER=lab 4\r\nTray3_ID=1002\r\n"},
          {"[CURRENT]\r\nCUSTOMTRAY=0\r\nTRAY_ID=0\r\n",
           "[CURRENT]\r\nCUSTOMTRAY=0\r\nTRAY_ID=0\r\n" +
               support::Patched(Tray(1001, "DEFRACK1=1002"), "ID_STR=Tray 100 (copy)")
                   .replace(0, 11, "[TRAY_1002]")}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Write(original);
        CustrackEntries entries = Entries();
        c.edit(entries);
        ASSERT_TRUE(entries.Write());
        std::string expected = original;
        for (const auto& [from, to] : c.replaced) {
            const std::size_t at = expected.find(from);
            ASSERT_NE(at, std::string::npos) << from;
            expected.replace(at, from.size(), to);
        }
        EXPECT_EQ(Read(), expected);
    }
}

// A list of "[INDEX]" with a damaged key is named, its entries still shown; no change rewrites
// it, so no entry it names is dropped from it.
TEST_F(CustrackEntriesTest, ADamagedListIsNamedAndNeverRewritten) {
    const std::vector<std::string> afterSlot2 = {
        "RACK_1000: ok", "RACK_1002: not loaded: [INDEX] Rack2_ID before it fails"};
    const struct {
        std::string from, to;  // in the file
        std::string damage;
        std::vector<std::string> verdicts;  // of the racks listed
    } cases[] = {
        {"Rack_Num=3", "Rack_Num=abc", "Rack_Num=\"abc\" (accepted: a number up to 1000)", {}},
        {"Rack2_ID=1001", "Rack2_ID=x2", "Rack2_ID=\"x2\" (accepted: 1000..1099)", afterSlot2},
        {"Rack2_ID=1001", "Rack2_ID=5", "Rack2_ID=\"5\" (accepted: 1000..1099)", afterSlot2},
        {"Rack2_ID=1001\r\n", "", "Rack2_ID missing (accepted: 1000..1099)", afterSlot2},
        // Beyond the keys read: the loader reads the first three, then misses Rack4_ID.
        {"Rack_Num=3",
         "Rack_Num=1001",
         "Rack4_ID missing (accepted: 1000..1099)",
         {"RACK_1000: ok", "RACK_1001: ok", "RACK_1002: ok"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.to);
        std::string file = Tables();
        file.replace(file.find(c.from), c.from.size(), c.to);
        Write(file);
        CustrackEntries entries = Entries();
        EXPECT_EQ(entries.IndexDamage(EntryKind::Rack), "[INDEX] " + c.damage);
        EXPECT_EQ(entries.IndexDamage(EntryKind::Tray), "");
        std::vector<std::string> verdicts;
        for (const CustrackEntry* rack : entries.Listed(EntryKind::Rack))
            verdicts.push_back(rack->Section() + ": " + entries.Verdict(*rack));
        EXPECT_EQ(verdicts, c.verdicts);

        const std::string refusal = "The rack list of custrack.ini is damaged: [INDEX] " +
                                    c.damage +
                                    ". Entries it names may be missing; New, Copy and Delete of "
                                    "racks are refused until it is repaired in the file.";
        EXPECT_EQ(entries.New(EntryKind::Rack).refusal, refusal);
        if (!c.verdicts.empty()) {
            CustrackEntry& first = *entries.Listed(EntryKind::Rack).front();
            EXPECT_EQ(entries.Copy(first).refusal, refusal);
            EXPECT_EQ(entries.Delete(first), refusal);
            // A value of a listed rack is written in its own section; the list stays.
            ASSERT_EQ(entries.SetValue(first, "VIAL_DEPTH", "60"), "");
        }
        // The trays' list is whole: a new tray is written, the racks' keys as they stand.
        ASSERT_NE(entries.New(EntryKind::Tray).entry, nullptr);
        ASSERT_TRUE(entries.Write());
        const std::size_t racks = file.find("Rack_Num");
        EXPECT_NE(Read().find(file.substr(racks, file.find("OWNER") - racks)), std::string::npos);
        EXPECT_EQ(Read().find("VIAL_DEPTH=60") != std::string::npos, !c.verdicts.empty());
    }

    // A rack a hidden tray may name is not deleted either.
    std::string file = Tables();
    file.replace(file.find("Tray2_ID=1001"), 13, "Tray2_ID=x");
    Write(file);
    CustrackEntries entries = Entries();
    EXPECT_EQ(entries.Delete(*entries.Find("RACK_1000")),
              "RACK_1000 \"Rack 1000\" may be in use by a tray the damaged list hides: [INDEX] "
              "Tray2_ID=\"x\" (accepted: 1000..1099).");
}

TEST_F(CustrackEntriesTest, EveryChangedKeyIsRecordedInTheAuditLogFirst) {
    const std::string log = (dir_ / "audit.log").string();
    support::ScopedEnv logEnv("LUMACFG_AUDIT_LOG", log);
    Write(Tables());
    CustrackEntries entries = Entries();
    ASSERT_EQ(entries.SetValue(*entries.Find("RACK_1001"), "VIAL_X_NUM", "11"), "");
    ASSERT_EQ(entries.Delete(*entries.Find("RACK_1000")), "");
    ASSERT_TRUE(entries.Write());
    // Field, old, new.
    const std::vector<std::array<std::string, 3>> expected = {
        {"RACK_1000 ID", "1000", ""},        {"RACK_1000 ID_STR", "Rack 1000", ""},
        {"RACK_1000 VIAL_X_NUM", "10", ""},  {"RACK_1000 VIAL_Y_NUM", "5", ""},
        {"RACK_1000 VIAL_X_ORG", "100", ""}, {"RACK_1000 VIAL_Y_ORG", "200", ""},
        {"RACK_1000 VIAL_X_DIST", "30", ""}, {"RACK_1000 VIAL_Y_DIST", "40", ""},
        {"RACK_1000 VIAL_DEPTH", "50", ""},  {"RACK_1001 VIAL_X_NUM", "10", "11"},
        {"INDEX Rack_Num", "3", "2"},        {"INDEX Rack1_ID", "1000", "1001"},
        {"INDEX Rack2_ID", "1001", "1002"},  {"INDEX Rack3_ID", "1002", ""},
    };
    std::vector<std::array<std::string, 3>> recorded;
    std::istringstream lines(support::ReadBytes(log).value_or(""));
    for (std::string line; std::getline(lines, line);) {
        const auto members = ParseJsonObjectLine(line);
        ASSERT_TRUE(members.has_value()) << line;
        EXPECT_EQ(MemberValue(*members, "event"), "field-changed");
        recorded.push_back({MemberValue(*members, "field").value_or(""),
                            MemberValue(*members, "old").value_or(""),
                            MemberValue(*members, "new").value_or("")});
    }
    EXPECT_EQ(recorded, expected);

    // A log that cannot be written: nothing is saved.
    support::ScopedEnv unwritable("LUMACFG_AUDIT_LOG", (dir_ / "none" / "audit.log").string());
    const std::string before = Read();
    CustrackEntries again = Entries();
    ASSERT_NE(again.New(EntryKind::Rack).entry, nullptr);
    EXPECT_FALSE(again.Write());
    EXPECT_EQ(Read(), before);
    EXPECT_FALSE(platform::Failures().Take().empty());
}

TEST_F(CustrackEntriesTest, WhatTheEditorWritesTheLoaderReads) {
    Write(Ini("[INDEX];Rack_Num=1;Rack1_ID=1000") + Rack(1000) + Ini("[OTHER];X=1"));
    CustrackEntries entries = Entries();
    CustrackEntry& tray = *entries.New(EntryKind::Tray).entry;
    const std::pair<std::string, std::string> trayValues[] = {
        {"ID_STR", "Wide"},      {"RACK_X_NUM", "3"},      {"RACK_X_ORG", "-300"},
        {"RACK_Y_ORG", "2700"},  {"RACK_X_DIST", "1400"},  {"RACK_Y_DIST", "-7"},
        {"DEFRACK1", "1000"},    {"DEFRACK2", "0"},        {"DEFRACK3", "90"},
        {"BOTTLE_X_NUM", "10"},  {"BOTTLE_X_ORG", "4100"}, {"BOTTLE_Y_ORG", "1"},
        {"BOTTLE_X_DIST", "33"}, {"BOTTLE_DEPTH", "160"},
    };
    for (const auto& [key, text] : trayValues) ASSERT_EQ(entries.SetValue(tray, key, text), "");
    CustrackEntry& rack = *entries.Copy(*entries.Find("RACK_1000")).entry;
    ASSERT_EQ(entries.SetValue(rack, "VIAL_Y_NUM", "99"), "");
    ASSERT_EQ(entries.SetValue(rack, "VIAL_Y_DIST", "2700"), "");
    const RackTrayState shown = entries.Tables();
    ASSERT_TRUE(entries.Write());

    const RackTrayState loaded = Loaded();
    EXPECT_EQ(loaded.CustomTrays[0], shown.CustomTrays[0]);
    EXPECT_EQ(loaded.CustomTrays[0].defRack[2], 90);
    EXPECT_EQ(loaded.CustomRacks[1], shown.CustomRacks[1]);
    // " (copy)" leaves room for 8 characters of the name.
    EXPECT_EQ(loaded.CustomRacks[1].name, "Rack 100 (copy)");
    EXPECT_EQ(loaded.CustomRacks[1].vialYNum, 99);
    // A written rack stands on a custom tray, which asks for its "ID" too.
    EXPECT_TRUE(IsRackValidForTray(1000, 1001));
    EXPECT_NE(Read().find("[OTHER]\r\nX=1\r\n[TRAY_1000]"), std::string::npos);
}

TEST_F(CustrackEntriesTest, ANewFileHasNoCurrentSection) {
    CustrackEntries entries = Entries();
    ASSERT_NE(entries.New(EntryKind::Rack).entry, nullptr);
    ASSERT_TRUE(entries.Write());
    EXPECT_EQ(Read(), Ini("[RACK_1000];ID=1000;ID_STR=Rack 1000;VIAL_X_NUM=5;VIAL_Y_NUM=10;"
                          "VIAL_X_ORG=100;VIAL_Y_ORG=100;VIAL_X_DIST=180;VIAL_Y_DIST=180;"
                          "VIAL_DEPTH=100;[INDEX];Rack_Num=1;Rack1_ID=1000"));
}

}  // namespace
}  // namespace lumacfg
