// The autosampler dialogs' models without a window: recorded messages, custom trays and racks
// put straight into the tables, and helpers to read and choose the controls by text.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "platform/services.h"
#include "racks/custom_racks.h"
#include "support/temp_station.h"
#include "ui/dialog/dialog_model.h"

namespace lumacfg::ui {

class AutosamplerTest : public ::testing::Test {
  protected:
    void SetUp() override {
        platform::ResetServices();
        platform::SetMessages(std::make_unique<support::MessageRecorder>(&messages_));
        ResetCustomDefs();
    }
    void TearDown() override {
        ResetCustomDefs();
        platform::ResetServices();
    }

    static CustomTrayDef& Tray(std::int16_t id, std::string name, std::int16_t positions,
                               std::int16_t pitchX, std::int16_t pitchY) {
        CustomTrayDef& tray = RackTrays().CustomTrays[static_cast<std::size_t>(id - 1000)];
        tray = CustomTrayDef{};
        tray.id = id;
        tray.name = std::move(name);
        tray.rackXNum = positions;
        tray.rackXDist = pitchX;
        tray.rackYDist = pitchY;
        return tray;
    }
    // A rack of `columns` × `rows` vials, its first vial at (orgX, orgY), with the pitch `pitch`.
    static CustomRackDef& Rack(std::int16_t id, std::string name, std::int16_t columns,
                               std::int16_t rows, std::int16_t orgX, std::int16_t orgY,
                               std::int16_t pitch) {
        CustomRackDef& rack = RackTrays().CustomRacks[static_cast<std::size_t>(id - 1000)];
        rack = CustomRackDef{id, std::move(name), columns, rows, orgX, orgY, pitch, pitch, 50};
        return rack;
    }

    static const ControlState& Of(const DialogModel& dialog, const std::string& name) {
        auto found = dialog.State().find(name);
        EXPECT_NE(found, dialog.State().end()) << name;
        static const ControlState kNone;
        return found == dialog.State().end() ? kNone : found->second;
    }
    static std::string Chosen(const DialogModel& dialog, const std::string& list) {
        const ControlState& state = Of(dialog, list);
        return state.chosen < 0 ? "" : state.items.at(static_cast<std::size_t>(state.chosen));
    }
    static void ChooseText(DialogModel& dialog, const std::string& list, const std::string& text) {
        const std::vector<std::string>& items = Of(dialog, list).items;
        auto found = std::find(items.begin(), items.end(), text);
        ASSERT_NE(found, items.end()) << list << " offers no " << text;
        dialog.Choose(list, static_cast<int>(found - items.begin()));
    }
    static std::string Element(const std::string& array, int index) {
        return array + "(" + std::to_string(index) + ")";
    }

    std::vector<std::string> Shown() const {
        std::vector<std::string> texts;
        for (const platform::MessageRequest& m : messages_) texts.push_back(m.text);
        return texts;
    }

    std::vector<platform::MessageRequest> messages_;
};

}  // namespace lumacfg::ui
