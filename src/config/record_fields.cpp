#include "config/record_fields.h"

#include <cstdio>

#include "base/numbers.h"

namespace lumacfg {
namespace {

// Shortest text that reads back as the same number.
std::string RealText(double value, int digits) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*g", digits, value);
    return text;
}

template <typename Entry>
std::string Joined(std::span<Entry> entries) {
    std::string text;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (i > 0) text += ' ';
        if constexpr (std::is_same_v<Entry, std::string>) {
            text += entries[i];
        } else {
            text += IntText(entries[i]);
        }
    }
    return text;
}

struct TextOf {
    std::string operator()(Int16* v) const { return IntText(*v); }
    std::string operator()(Int32* v) const { return IntText(*v); }
    std::string operator()(double* v) const { return RealText(*v, 15); }
    std::string operator()(float* v) const { return RealText(*v, 7); }
    std::string operator()(std::string* v) const { return *v; }
    std::string operator()(std::span<Int16> v) const { return Joined(v); }
    std::string operator()(std::span<std::string> v) const { return Joined(v); }
};

}  // namespace

std::vector<RecordField> RecordFields(ConfigRecord& r) {
    return {
        {"ICPMS_TYPE", &r.ICPMS_TYPE},
        {"ICPMS_ID", &r.ICPMS_ID},
        {"GPIB_ADDR", &r.GPIB_ADDR},
        {"KVD_Remote", &r.KVD_Remote},
        {"NotRepRemote", &r.NotRepRemote},
        {"SI_TYPE", &r.SI_TYPE},
        {"ALS_TYPE", &r.ALS_TYPE},
        {"COM_PORT", &r.COM_PORT},
        {"INHIBIT_MASS", std::span<Int16>(r.INHIBIT_MASS)},
        {"LAN_IPADDR", &r.LAN_IPADDR},
        {"LINK_USED", std::span<Int16>(r.LINK_USED)},
        {"LINK_TYPE", std::span<std::string>(r.LINK_TYPE)},
        {"LINK_STRING", std::span<std::string>(r.LINK_STRING)},
        {"LINK_PARAM", std::span<std::string>(r.LINK_PARAM)},
        {"DEVICE_USED", std::span<Int16>(r.DEVICE_USED)},
        {"DEVICE_LINK", std::span<Int16>(r.DEVICE_LINK)},
        {"DEVICE_NAME", std::span<std::string>(r.DEVICE_NAME)},
        {"RACK1_ID", &r.RACK1_ID},
        {"RACK2_ID", &r.RACK2_ID},
        {"RACK3_ID", &r.RACK3_ID},
        {"RACK4_ID", &r.RACK4_ID},
        {"RACK5_ID", &r.RACK5_ID},
        {"RACK6_ID", &r.RACK6_ID},
        {"RACK7_ID", &r.RACK7_ID},
        {"RACK8_ID", &r.RACK8_ID},
        {"PRO_SCAN", &r.PRO_SCAN},
        {"_QCMDPATH$", &r.QCMDPATH},
        {"_QCMDFILE$", &r.QCMDFILE},
        {"DSS_MODE", &r.DSS_MODE},
        {"DSS_LOAD", &r.DSS_LOAD},
        {"DSS_ACQ", &r.DSS_ACQ},
        {"DSS_STAB", &r.DSS_STAB},
        {"DSS_SYSRNS", &r.DSS_SYSRNS},
        {"DSS_NDLRNS", &r.DSS_NDLRNS},
        {"DSS_INJECT", &r.DSS_INJECT},
        {"DSS_INTRVL", &r.DSS_INTRVL},
        {"DSS_REP", &r.DSS_REP},
        {"DSS_WAIT", &r.DSS_WAIT},
        {"OPT_SC", &r.OPT_SC},
        {"OPT_PMP2", &r.OPT_PMP2},
        {"_MPM", &r.MPM},
        {"_MPMFILE$", &r.MPMFILE},
        {"EnableDTCal", &r.EnableDTCal},
        {"OPT_ORGANIC", &r.OPT_ORGANIC},
        {"OPT_IMTPUMP", &r.OPT_IMTPUMP},
        {"OPT_SHUTDOWN", &r.OPT_SHUTDOWN},
        {"TRAY_ID", &r.TRAY_ID},
        {"MAX_BOTTLE", &r.MAX_BOTTLE},
        {"RINSE_DEPTH", &r.RINSE_DEPTH},
        {"SAMPLE_DEPTH", &r.SAMPLE_DEPTH},
        {"STD_DEPTH", &r.STD_DEPTH},
        {"ONEBOTTLE_DEPTH", &r.ONEBOTTLE_DEPTH},
        {"ESC_MODE", &r.ESC_MODE},
        {"_SECURITY", &r.SECURITY},
        {"_ALWAYSPRT", &r.ALWAYSPRT},
        {"OPT_AUTOREC", &r.OPT_AUTOREC},
        {"OPT_STOP_PP", &r.OPT_STOP_PP},
        {"OPT_CHG_CG", &r.OPT_CHG_CG},
        {"OPT_CHG_FLW", &r.OPT_CHG_FLW},
        {"OPT_CHG_TIME", &r.OPT_CHG_TIME},
        {"_LCCHEM", &r.LCCHEM},
        {"ExternalPump", &r.ExternalPump},
        {"VLT_ENABLED", &r.VLT_ENABLED},
        {"VLT_FOLDER", &r.VLT_FOLDER},
        {"_MPMATDIL", &r.MPMATDIL},
        {"ROOT_PATH", &r.ROOT_PATH},
        {"ADDON_FLAGS", std::span<Int16>(r.ADDON_FLAGS)},
        {"AUTOMATE", &r.AUTOMATE},
        {"CAN_EDIT", &r.CAN_EDIT},
        {"SAVE_REQ", &r.SAVE_REQ},
        {"REG_DIRTY", &r.REG_DIRTY},
        {"RESET_COM_PORT", &r.RESET_COM_PORT},
    };
}

std::string FieldText(const FieldRef& ref) {
    return std::visit(TextOf{}, ref);
}

void PrintRecord(std::ostream& out, ConfigRecord& record) {
    for (const RecordField& field : RecordFields(record)) {
        out << field.name << '=' << FieldText(field.ref) << '\n';
    }
}

}  // namespace lumacfg
