// A station with an OPAL system (method table and application files) for the main window's
// model, and helpers to read the window's controls.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "config/config_record.h"
#include "resources/string_table.h"
#include "support/temp_station.h"
#include "ui/main/main_dialog.h"

namespace lumacfg::ui {

inline const std::string kMethodTable =
    "; OPAL method table\r\n"
    "#STD_BEG\r\n"
    "Auto Dilution\tAUTODIL.CHN\tAUTODIL.MPA\r\n"
    "Inline Spike\tINLINE.CHN\r\n"
    "#STD_END\r\n";

inline const std::string kChannelFile = "Chn1\t9600\tN\t8\t1\r\nCOM:SET 1,9600,N,8,1\r\n";

class MainDialogTest : public support::TempStation {
  protected:
    void SetUp() override {
        TempStation::SetUp();
        support::WriteBytes(ProgramDir() / "MPM.TBL", kMethodTable);
        support::WriteBytes(OpalDir() / "AUTODIL.CHN", kChannelFile);
        support::WriteBytes(OpalDir() / "SEA.MPU", "#APP_BEG\r\nAppName\tSeawater\r\n#APP_END\r\n");
        SetDefaults();
        record_ = Config();
    }

    std::filesystem::path OpalDir() const { return root_ / "1" / "OPAL"; }

    // The window built from record_, with the messages of its load forgotten.
    MainDialog Window() {
        MainDialog window(record_);
        messages_.clear();
        return window;
    }

    static const ControlState& Of(const MainDialog& window, const std::string& name) {
        auto found = window.State().find(name);
        EXPECT_NE(found, window.State().end()) << name;
        static const ControlState kNone;
        return found == window.State().end() ? kNone : found->second;
    }
    static std::string Chosen(const MainDialog& window, const std::string& list) {
        const ControlState& state = Of(window, list);
        return state.chosen < 0 ? "" : state.items.at(static_cast<std::size_t>(state.chosen));
    }
    // Chooses the entry of a list by its text.
    static void ChooseText(MainDialog& window, const std::string& list, const std::string& text) {
        const std::vector<std::string>& items = Of(window, list).items;
        auto found = std::find(items.begin(), items.end(), text);
        ASSERT_NE(found, items.end()) << list << " offers no " << text;
        window.Choose(list, static_cast<int>(found - items.begin()));
    }

    // The texts of the messages shown, in order.
    std::vector<std::string> Shown() const {
        std::vector<std::string> texts;
        for (const platform::MessageRequest& m : messages_) texts.push_back(m.text);
        return texts;
    }

    ConfigRecord record_;
};

}  // namespace lumacfg::ui
