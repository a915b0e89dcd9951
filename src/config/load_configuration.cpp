#include "config/load_configuration.h"

#include <cstdlib>
#include <string>

#include "base/numbers.h"
#include "config/config_record.h"
#include "config/configuration_id.h"
#include "config/profile.h"
#include "config/station_batch.h"
#include "integration/vlt_settings.h"
#include "platform/services.h"

namespace lumacfg {
namespace {

constexpr std::string_view kSection = "WSX,1";
constexpr std::string_view kLinks = "WSX_32";

// A number that came back is narrowed into the field; one that does not fit leaves the field
// as it is, as a failed read does.
void Narrow(std::string_view text, Int16& field) {
    if (auto value = RoundToInt16(LenientNumber(text))) field = *value;
}

// Key present: its number; missing or empty: the field keeps its value.
void ReadInto(std::string_view key, Int16& field, std::string_view section = kSection) {
    if (auto text = ReadSingleValue(section, key)) Narrow(*text, field);
}

void ReadInto(std::string_view key, double& field) {
    if (auto text = ReadSingleValue(kSection, key)) field = LenientNumber(*text);
}

void ReadInto(std::string_view key, std::string& field) {
    if (auto text = ReadSingleValue(kSection, key)) field = *text;
}

// Key present: its number; missing or empty: `fallback`.
void ReadOr(std::string_view key, Int16& field, Int16 fallback) {
    field = fallback;
    ReadInto(key, field);
}

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

// One stored link ("gx40110,20", "COM1,488", "lan[10.0.0.5]:brenmarkib,0") into entry i.
void LoadLink(ConfigRecord& record, int i, const std::string& stored) {
    record.LINK_STRING[i] = stored;
    std::size_t comma = stored.find(',');
    std::string kind = stored.substr(0, comma);
    record.LINK_PARAM[i] = comma == std::string::npos ? std::string{} : stored.substr(comma + 1);
    if (!Contains(kind, "lan") && Contains(kind, "COM")) {
        record.LINK_PARAM[i] = kind.substr(kind.find("COM") + 3);
        kind = "RS232";
    }
    if (Contains(kind, "lan")) kind = "lan";
    record.LINK_TYPE[i] = kind;

    const std::string& param = record.LINK_PARAM[i];
    if (kind == "gx40110") {
        Narrow(param, record.GPIB_ADDR);
    } else if (kind == "RS232") {
        // Only the last character counts: COM12 gives port 2, as the data system always read it.
        record.COM_PORT = param.empty() ? Int16{0} : LenientInt16(param.substr(param.size() - 1));
    } else if (kind == "lan") {
        std::size_t open = stored.find('[');
        std::size_t close = open == std::string::npos ? open : stored.find(']', open + 1);
        if (close != std::string::npos)
            record.LAN_IPADDR = stored.substr(open + 1, close - open - 1);
    }
}

void LoadLinks(ConfigRecord& record) {
    ParseIntList(ReadSingleValue(kLinks, "Links").value_or(""), record.LINK_USED);
    for (int i = 0; i < kLinkCount; ++i) {
        if (record.LINK_USED[i] <= 0) continue;
        if (auto stored = ReadSingleValue(kLinks, "Link" + IntText(record.LINK_USED[i]))) {
            LoadLink(record, i, *stored);
        }
    }
}

void LoadDevices(ConfigRecord& record) {
    ParseIntList(ReadSingleValue(kLinks, "Devices").value_or(""), record.DEVICE_USED);
    for (int i = 0; i < kDeviceCount; ++i) {
        if (record.DEVICE_USED[i] <= 0) continue;
        auto stored = ReadSingleValue(kLinks, "Device" + IntText(record.DEVICE_USED[i]));
        if (!stored) continue;
        std::size_t comma = stored->find(',');
        if (comma == 0) continue;
        Narrow(stored->substr(0, comma), record.DEVICE_LINK[i]);
        if (comma != std::string::npos && comma + 1 < stored->size()) {
            record.DEVICE_NAME[i] = stored->substr(comma + 1);
        }
    }
}

// Racks 1 and 2 keep their value when missing; racks 3 to 8 read "error" then, which is 0.
void LoadRacks(ConfigRecord& record) {
    for (int position = 1; position <= kRackCount; ++position) {
        std::string key = "RACK" + IntText(position) + "_ID";
        if (auto text = ReadSingleValue(kSection, key, position <= 2 ? "" : "error")) {
            Narrow(*text, RackId(record, position));
        }
    }
}

// The stored number is the inverse of the field: stored 1 gives 0, anything else 1.
void LoadProScan(ConfigRecord& record) {
    auto text = ReadSingleValue(kSection, "PRO_SCAN", "error");
    record.PRO_SCAN = text && LenientNumber(*text) == 1.0 ? 0 : 1;
}

void LoadSecurity(ConfigRecord& record) {
    switch (ReadConfigurationID()) {
        case -1:
            record.SECURITY = -1;
            break;
        case 1:
            record.SECURITY = 1;
            break;
        default:
            record.SECURITY = 0;
            break;
    }
}

bool IsNumericText(std::string_view text) {
    std::size_t start = text.find_first_not_of(" \t");
    std::size_t end = text.find_last_not_of(" \t");
    if (start == std::string_view::npos) return false;
    std::string trimmed(text.substr(start, end - start + 1));
    char* stop = nullptr;
    std::strtod(trimmed.c_str(), &stop);
    return stop == trimmed.c_str() + trimmed.size() &&
           trimmed.find_first_of("xXpPnNiI") == std::string::npos;  // decimal numbers only
}

void LoadAlwaysPrint(ConfigRecord& record) {
    std::string profile = platform::JoinPath(platform::ProgramDirectory(), kStationProfile);
    auto read = platform::Profiles().GetString(profile, kSection, "_ALWAYSPRT", "NO_PARAM", 128);
    std::string text = read.text.substr(0, read.text.find('\0'));
    if (!IsNumericText(text)) {
        record.ALWAYSPRT = record.SECURITY == 1 ? -1 : 0;
    } else if (LenientNumber(text) == 1.0) {
        record.ALWAYSPRT = record.SECURITY == 0 ? 0 : -1;
    } else {
        record.ALWAYSPRT = 0;
    }
}

void LoadVlt(ConfigRecord& record) {
    record.VLT_FOLDER = GetVltFolder();
    record.VLT_ENABLED = GetVltEnabled();
    if (record.SECURITY == 0) record.VLT_ENABLED = 0;
}

// The two option keys that the load completes in the file when they are missing.
void LoadCarrierGasChange(ConfigRecord& record) {
    if (auto flow = ReadSingleValue(kSection, "OPT_CHG_FLW")) {
        record.OPT_CHG_FLW = static_cast<float>(LenientNumber(*flow));
    } else {
        record.OPT_CHG_FLW = 0.20F;
        ProfileSet(kSection, "OPT_CHG_FLW",
                   FormatNumber(record.OPT_CHG_FLW, NumberFormat::TwoDecimals));
    }
    if (auto time = ReadSingleValue(kSection, "OPT_CHG_TIME")) {
        Narrow(*time, record.OPT_CHG_TIME);
    } else {
        record.OPT_CHG_TIME = 12;
        ProfileSet(kSection, "OPT_CHG_TIME",
                   FormatNumber(record.OPT_CHG_TIME, NumberFormat::Integer));
    }
}

void LoadLcLink(ConfigRecord& record) {
    record.LCCHEM = 0;
    if (auto text = ReadSingleValue(kSection, "_LCCHEM", "0")) Narrow(*text, record.LCCHEM);
    if (record.LCCHEM < 0 || record.LCCHEM > 4 || record.KVD_Remote == 0) record.LCCHEM = 0;
}

}  // namespace

void LoadQcMode() {
    ConfigRecord& record = Config();
    ReadInto("_QCMDPATH$", record.QCMDPATH);
    ReadInto("_QCMDFILE$", record.QCMDFILE);
}

void LoadSampleTiming() {
    ConfigRecord& record = Config();
    ReadInto("DSS_MODE", record.DSS_MODE);
    ReadInto("DSS_LOAD", record.DSS_LOAD);
    ReadInto("DSS_ACQ", record.DSS_ACQ);
    ReadInto("DSS_STAB", record.DSS_STAB);
    ReadInto("DSS_SYSRNS", record.DSS_SYSRNS);
    ReadInto("DSS_NDLRNS", record.DSS_NDLRNS);
    ReadInto("DSS_INJECT", record.DSS_INJECT);
    ReadInto("DSS_INTRVL", record.DSS_INTRVL);
    ReadInto("DSS_REP", record.DSS_REP);
    ReadInto("DSS_WAIT", record.DSS_WAIT);
}

void LoadOpalApplication() {
    ConfigRecord& record = Config();
    ReadOr("_MPM", record.MPM, 0);
    ReadInto("_MPMFILE$", record.MPMFILE);
}

std::int16_t ReadPumpKind() {
    Int16 kind = 0;
    ReadInto("_PPUMP", kind);
    return kind;
}

void LoadConfiguration() {
    StationBatch batch;  // one reading of the file, and the two completed keys written once
    SetDefaults();
    ConfigRecord& record = Config();
    record.ICPMS_ID = ReadSingleValue(kSection, "ICPMS_ID") ? 0 : 1;
    ReadInto("KVD_Remote", record.KVD_Remote);
    ReadInto("NotRepRemote", record.NotRepRemote);
    ReadOr("SI_TYPE", record.SI_TYPE, 0);
    ReadOr("ALS_TYPE", record.ALS_TYPE, 0);
    ParseInhibitMasses(ReadSingleValue(kSection, "_INHIBIT").value_or(""), record);
    LoadLinks(record);
    LoadDevices(record);
    LoadRacks(record);
    LoadProScan(record);
    LoadQcMode();
    LoadSampleTiming();
    ReadOr("ICPMS_TYPE", record.ICPMS_TYPE, 0);
    ReadOr("OPT_SC", record.OPT_SC, 0);
    ReadOr("OPT_PMP2", record.OPT_PMP2, 0);
    LoadOpalApplication();
    ReadOr("EnableDTCal", record.EnableDTCal, 0);
    ReadOr("OPT_ORGANIC", record.OPT_ORGANIC, 0);
    ReadOr("OPT_IMTPUMP", record.OPT_IMTPUMP, 0);
    ReadOr("OPT_SHUTDOWN", record.OPT_SHUTDOWN, 0);
    ReadOr("TRAY_ID", record.TRAY_ID, 1);
    ReadOr("MAX_BOTTLE", record.MAX_BOTTLE, 89);
    ReadOr("RINSE_DEPTH", record.RINSE_DEPTH, 280);
    ReadOr("SAMPLE_DEPTH", record.SAMPLE_DEPTH, 440);
    ReadOr("STD_DEPTH", record.STD_DEPTH, 440);
    ReadOr("ONEBOTTLE_DEPTH", record.ONEBOTTLE_DEPTH, 440);
    ReadOr("ESC_MODE", record.ESC_MODE, 0);
    LoadSecurity(record);
    LoadAlwaysPrint(record);
    LoadVlt(record);
    ReadOr("OPT_AUTOREC", record.OPT_AUTOREC, 0);
    ReadOr("OPT_STOP_PP", record.OPT_STOP_PP, 0);
    ReadOr("OPT_CHG_CG", record.OPT_CHG_CG, 0);
    LoadCarrierGasChange(record);
    LoadLcLink(record);
    ReadOr("ExternalPump", record.ExternalPump, 0);
}

}  // namespace lumacfg
