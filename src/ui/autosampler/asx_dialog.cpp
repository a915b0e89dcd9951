#include "ui/autosampler/asx_dialog.h"

#include <array>

#include "base/numbers.h"
#include "integration/help.h"
#include "resources/string_table.h"
#include "ui/dialog/refusal.h"

namespace lumacfg::ui {
namespace {

constexpr int kTextEtvAutosampler = 400;
constexpr int kTextComLabel = 204;
constexpr int kTextRacksFrame = 205;
constexpr int kTextFirstRackLabel = 206;

struct Variant {
    int title;               // string of the dialog's title
    std::string_view racks;  // the rack choices, each followed by a blank
    int positions;           // the positions shown
};

constexpr Variant kEtv{202, "24 ", 4};
constexpr Variant kAsx100{201, "24 48 96 ", 4};
constexpr Variant kKlr8{203, "21 24 40 60 90 ", 8};
constexpr Variant kAsx500{200, "21 24 40 60 90 ", 4};

const Variant& VariantOf(std::string_view autosampler) {
    if (autosampler == LoadResString(kTextEtvAutosampler)) return kEtv;
    if (autosampler == "ASX100") return kAsx100;
    if (autosampler == "KLR-8") return kKlr8;
    return kAsx500;
}

std::vector<std::string> RackChoices(std::string_view spaced) {
    std::vector<std::string> choices;
    std::size_t start = 0;
    for (std::size_t blank = spaced.find(' '); blank != std::string_view::npos;
         start = blank + 1, blank = spaced.find(' ', start)) {
        choices.emplace_back(spaced.substr(start, blank - start));
    }
    return choices;
}

template <class Record>
auto Racks(Record& record) {
    return std::array{&record.RACK1_ID, &record.RACK2_ID, &record.RACK3_ID, &record.RACK4_ID,
                      &record.RACK5_ID, &record.RACK6_ID, &record.RACK7_ID, &record.RACK8_ID};
}

// The first entry, then the one equal to `text` if the list holds it.
void Preselect(ControlTable& controls, std::string_view list, std::string_view text) {
    controls[list].chosen = 0;
    controls.ChooseText(list, text);
}

}  // namespace

AsxDialog::AsxDialog(const ConfigRecord& record, std::string_view autosampler,
                     bool opalApplicationInUse) {
    const Variant& variant = VariantOf(autosampler);
    controls_["OK"].text = LoadResString(3);
    controls_["Cancel"].text = LoadResString(4);
    controls_["Help"].text = LoadResString(5);
    controls_["Lbl_COM"].text = LoadResString(kTextComLabel);
    controls_["Gb_Rack"].text = LoadResString(kTextRacksFrame);
    controls_.Fill("Cb_COM", ComPortEntries());
    controls_.TitleAfterLabel("Cb_COM", "Lbl_COM");
    Preselect(controls_, "Cb_COM", "COM" + IntText(record.COM_PORT));
    controls_["Fm_ASX"].text = LoadResString(variant.title);

    const auto racks = Racks(record);
    for (int i = 0; i < kAsxRackPositions; ++i) {
        const bool shown = i < variant.positions;
        for (const std::string& name : {Indexed("Lbl_ID", i), Indexed("Cb_ID", i)}) {
            controls_[name].visible = shown;
            controls_[name].enabled = shown;
        }
        controls_[Indexed("Lbl_ID", i)].text = LoadResString(kTextFirstRackLabel + i);
        controls_.Fill(Indexed("Cb_ID", i), RackChoices(variant.racks));
        controls_.TitleAfterLabel(Indexed("Cb_ID", i), Indexed("Lbl_ID", i));
        Preselect(controls_, Indexed("Cb_ID", i), IntText(*racks[static_cast<std::size_t>(i)]));
    }
    if (opalApplicationInUse) {
        controls_["Cb_COM"].enabled = false;
        controls_["Lbl_COM"].enabled = false;
    }
}

std::string AsxDialog::WhyUnusable(std::string_view control) const {
    if (control == "Cb_COM") return std::string(kPortHeldByOpal);
    if (!controls_[control].visible) {
        int shown = 0;
        while (shown < kAsxRackPositions && controls_[Indexed("Cb_ID", shown)].visible) ++shown;
        return "because the " + Quoted(controls_["Fm_ASX"].text) + " dialog has " + IntText(shown) +
               " rack positions";
    }
    return {};
}

void AsxDialog::SetText(std::string_view control, std::string text) {
    controls_[control].text = std::move(text);
}

void AsxDialog::Choose(std::string_view control, int index) {
    controls_.UserChoice(control, index);
}

void AsxDialog::Click(std::string_view control) {
    if (control == "OK") {
        Ok();
    } else if (control == "Cancel") {
        end_ = DialogEnd::Cancelled;
    } else if (control == "Help") {
        ShowAutosamplerHelp(kHelpTopicAsx);
    }
}

void AsxDialog::Ok() {
    comPort_ = PortOfEntry(controls_.ChosenText("Cb_COM"));
    for (int i = 0; i < kAsxRackPositions; ++i) {
        racks_[static_cast<std::size_t>(i)] =
            LenientInt16(controls_.ChosenText(Indexed("Cb_ID", i)));
    }
    end_ = DialogEnd::Accepted;
}

void AsxDialog::Accept(ConfigRecord& record) const {
    if (end_ != DialogEnd::Accepted) return;
    record.COM_PORT = comPort_;
    const auto racks = Racks(record);
    for (std::size_t i = 0; i < racks.size(); ++i) *racks[i] = racks_[i];
}

}  // namespace lumacfg::ui
