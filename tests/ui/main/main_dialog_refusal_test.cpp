// Why the main window's greyed and hidden controls cannot be changed, as every refusal says it.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "ui/dialog/refusal.h"
#include "ui/main/main_dialog_fixture.h"

namespace lumacfg::ui {
namespace {

TEST(QuotedTest, ACaptionIsQuotedWithoutMarkerOrColon) {
    const std::pair<std::string, std::string> cases[] = {
        {"&Security", "\"Security\""},    {"Type:", "\"Type\""},
        {"Rack ID &1:", "\"Rack ID 1\""}, {"Salt && Pepper", "\"Salt & Pepper\""},
        {"Browse...", "\"Browse...\""},   {"", "\"\""},
    };
    for (const auto& [caption, quoted] : cases) EXPECT_EQ(Quoted(caption), quoted) << caption;
}

using MainDialogRefusalTest = MainDialogTest;

TEST_F(MainDialogRefusalTest, EachGreyedOrHiddenControlSaysWhy) {
    const struct {
        std::function<void(ConfigRecord&)> station;
        const char* control;
        const char* said;
    } cases[] = {
        {[](ConfigRecord& r) { r.ICPMS_TYPE = 2; }, "Ed_Address",
         "the GPIB address box is not shown for a LAN instrument"},
        {[](ConfigRecord& r) { r.ICPMS_TYPE = 1; }, "Ed_IP(3)",
         "the IP address box 4 of 4 is not shown for a GPIB instrument"},
        {[](ConfigRecord& r) { r.ICPMS_ID = 1; }, "Ed_Address",
         "the GPIB address box is greyed while \"Offline Instrument\" is checked"},
        {[](ConfigRecord& r) { r.ALS_TYPE = 0; }, "Cd_AutoSet",
         "\"Setup...\" is greyed while no autosampler is chosen"},
        {[](ConfigRecord& r) { r.SI_TYPE = 1; }, "Cb_MPMApp",
         "the \"OPAL Application\" list is greyed unless the sample introduction is \"OPAL\""},
        {[](ConfigRecord& r) { r.SI_TYPE = 1; }, "Ck_NotRepRem",
         "\"Not Wait in 2nd or Later Replicate\" is not shown unless the sample introduction is "
         "\"LC/GC/Laser Ablation\""},
        {[](ConfigRecord& r) { r.SI_TYPE = 6; }, "Cb_LCInst",
         "the \"Instrument#\" list is greyed while \"Control from LC/GC Data System\" is not "
         "checked"},
        {[](ConfigRecord& r) { r.CAN_EDIT = 0; }, "Ck_Security",
         "\"Security\" is greyed because the user logged on may not change the security settings"},
        {[](ConfigRecord& r) { r.SECURITY = 0; }, "Ck_VLT",
         "\"VLT Integration\" is greyed while \"Security\" is not checked"},
        {[](ConfigRecord& r) { r.SECURITY = 0; }, "Lb_VLTFolder",
         "the \"VLT Path\" folder is greyed while \"Security\" is not checked"},
        {[](ConfigRecord& r) { r.SECURITY = 1, r.VLT_ENABLED = 0; }, "Cd_SelVLTFolder",
         "\"...\" is greyed while \"VLT Integration\" is not checked"},
    };
    const ConfigRecord defaults = record_;
    for (const auto& c : cases) {
        record_ = defaults;
        c.station(record_);
        const MainDialog window = Window();
        const ControlState& state = Of(window, c.control);
        EXPECT_FALSE(state.enabled && state.visible) << c.control;
        EXPECT_EQ(WhyNotChangeable(window, c.control), c.said);
    }
}

}  // namespace
}  // namespace lumacfg::ui
