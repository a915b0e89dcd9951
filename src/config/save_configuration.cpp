#include "config/save_configuration.h"

#include <algorithm>
#include <limits>
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

void Write(std::string_view key, std::string_view text) {
    ProfileSet(kSection, key, text);
}
void WriteInt(std::string_view key, long long value) {
    Write(key, IntText(value));
}
void WriteWhole(std::string_view key, double value) {
    Write(key, FormatNumber(value, NumberFormat::Integer));
}
// A text field the load reads with the single-value read. A stored text longer than that read
// returns, of which the field still holds all that came back, is kept as it stands: writing
// the field would cut it short, losing what the load could not read.
void WriteReadText(std::string_view key, const std::string& text) {
    if (text.size() == kSingleValueSize - 1) {
        const std::string stored = platform::Profiles()
                                       .GetString(StationProfilePath(), kSection, key, "",
                                                  std::numeric_limits<std::size_t>::max())
                                       .text;
        if (stored.size() > text.size() && stored.starts_with(text)) return;
    }
    Write(key, text);
}
// A field that is stored only while it is non-zero.
void WriteNonZero(std::string_view key, long long value) {
    Write(key, value != 0 ? IntText(value) : std::string{});
}

template <std::size_t N>
std::string JoinUsed(const std::array<Int16, N>& used) {
    std::string joined;
    for (Int16 number : used) {
        if (number < 1) continue;
        if (!joined.empty()) joined += ',';
        joined += IntText(number);
    }
    return joined;
}

// Entry i of a link or device table: its key "<prefix>" + (i + 1) goes when no entry holds
// that number. In a table whose entry i holds i + 1 or 0, as every table this program writes,
// that is the key of each empty entry. A list edited by hand puts numbers in other entries
// ("Links=2": link 2 in entry 0; "Links=x,1": link 1 in entry 1); then the keys of the numbers
// listed stay, those of the numbers not listed go, and the next save finds nothing to change.
template <std::size_t N>
void DeleteIfUnlisted(const std::array<Int16, N>& used, int i, std::string_view prefix) {
    if (std::find(used.begin(), used.end(), i + 1) == used.end()) {
        ProfileDelete(kLinks, std::string(prefix) + IntText(i + 1));
    }
}

void SaveIdentityAndAutosampler(const ConfigRecord& record) {
    Write("ICPMS_ID", record.ICPMS_ID != 1 ? IntText(FindDevice("SMARTCARD")) : std::string{});
    WriteInt("KVD_Remote", record.KVD_Remote);
    WriteInt("NotRepRemote", record.NotRepRemote);
    WriteNonZero("SI_TYPE", record.SI_TYPE);
    WriteNonZero("ALS_TYPE", record.ALS_TYPE);
    Write("ALS_ID", record.ALS_TYPE != 0 ? IntText(FindDevice(kAutosamplerDevice)) : std::string{});
}

void SaveLinks() {
    ConfigRecord& record = Config();
    for (int i = 0; i < kLinkCount; ++i) {
        DeleteIfUnlisted(record.LINK_USED, i, "Link");
        if (record.LINK_USED[i] < 1) continue;
        ComposeLinkString(i);
        ProfileSet(kLinks, "Link" + IntText(record.LINK_USED[i]), record.LINK_STRING[i]);
    }
    ProfileSet(kLinks, "Links", JoinUsed(record.LINK_USED));
}

void SaveDevices(const ConfigRecord& record) {
    for (int i = 0; i < kDeviceCount; ++i) {
        DeleteIfUnlisted(record.DEVICE_USED, i, "Device");
        if (record.DEVICE_USED[i] < 1) continue;
        ProfileSet(kLinks, "Device" + IntText(record.DEVICE_USED[i]),
                   IntText(record.DEVICE_LINK[i]) + "," + record.DEVICE_NAME[i]);
    }
    std::string devices = JoinUsed(record.DEVICE_USED);
    ProfileSet(kLinks, "Devices", devices);
    Write("Devices", devices);
}

// Number of rack positions an autosampler type stores; the others are written empty.
int StoredRackCount(Int16 alsType) {
    switch (alsType) {
        case 2:
            return 1;
        case 3:
            return 2;
        case 6:
            return 8;
        default:
            return 4;
    }
}

// The V-AS tray: bottles by tray type, then the probe depths.
void SaveVasTray(const ConfigRecord& record) {
    WriteInt("TRAY_ID", record.TRAY_ID);
    constexpr std::string_view kBottles[] = {"3", "89", "53", "18"};
    if (record.TRAY_ID >= 0 && record.TRAY_ID <= 3) Write("MAX_BOTTLE", kBottles[record.TRAY_ID]);
    WriteInt("RINSE_DEPTH", record.RINSE_DEPTH);
    WriteInt("SAMPLE_DEPTH", record.SAMPLE_DEPTH);
    WriteInt("STD_DEPTH", record.STD_DEPTH);
    WriteInt("ONEBOTTLE_DEPTH", record.ONEBOTTLE_DEPTH);
    WriteInt("ESC_MODE", record.ESC_MODE);
}

void SaveRacks(ConfigRecord& record) {
    const int stored = StoredRackCount(record.ALS_TYPE);
    for (int position = 1; position <= kRackCount; ++position) {
        std::string key = "RACK" + IntText(position) + "_ID";
        Write(key, position <= stored ? IntText(RackId(record, position)) : std::string{});
    }
    if (record.ALS_TYPE == 5) SaveVasTray(record);
}

void SaveQcModeAndTiming(const ConfigRecord& record) {
    Write("PRO_SCAN", record.PRO_SCAN == 1 ? "0" : "1");
    WriteReadText("_QCMDPATH$", record.QCMDPATH);
    WriteReadText("_QCMDFILE$", record.QCMDFILE);
    WriteInt("DSS_MODE", record.DSS_MODE);
    WriteWhole("DSS_LOAD", record.DSS_LOAD);
    WriteWhole("DSS_ACQ", record.DSS_ACQ);
    WriteWhole("DSS_STAB", record.DSS_STAB);
    WriteWhole("DSS_SYSRNS", record.DSS_SYSRNS);
    WriteWhole("DSS_NDLRNS", record.DSS_NDLRNS);
    WriteWhole("DSS_INJECT", record.DSS_INJECT);
    WriteWhole("DSS_INTRVL", record.DSS_INTRVL);
    WriteInt("DSS_REP", record.DSS_REP);
    WriteInt("DSS_WAIT", record.DSS_WAIT);
}

void SaveModel(const ConfigRecord& record) {
    WriteInt("ICPMS_TYPE", record.ICPMS_TYPE);
    bool q70 = record.ICPMS_TYPE == 1 || record.ICPMS_TYPE == 2;
    Write("_TUNEPATH$", record.ROOT_PATH + (q70 ? "\\1\\Q70\\" : "\\1\\Q40\\"));
    Write("INSTNAME", q70 ? "CRVQ70 - Instrument1" : "Q40 - Instrument1");
}

void SaveOptions(const ConfigRecord& record) {
    WriteInt("OPT_SC", record.OPT_SC);
    WriteInt("OPT_PMP2", record.OPT_PMP2);
    WriteInt("OPT_ORGANIC", record.OPT_ORGANIC);
    WriteInt("OPT_IMTPUMP", record.OPT_IMTPUMP);
    WriteInt("OPT_SHUTDOWN", record.OPT_SHUTDOWN);
    WriteInt("_MPM", record.MPM);
    WriteReadText("_MPMFILE$", record.MPMFILE);
    Write("_MPMATDIL", record.MPMATDIL != 0 ? "1" : "0");
    WriteInt("EnableDTCal", record.EnableDTCal);
}

void SaveSecurityAndVlt(const ConfigRecord& record) {
    ProfileDelete(kSection, "_SECURITY");
    WriteConfigurationID(record.SECURITY);
    Write("_ALWAYSPRT", record.ALWAYSPRT != 0 ? "1" : "0");
    SetVltEnabled(record.SECURITY == 1 ? record.VLT_ENABLED : 0);
    SetVltFolder(record.VLT_FOLDER);
    SetVltTempFolder();
}

void SaveAnalysisOptions(const ConfigRecord& record) {
    WriteInt("OPT_AUTOREC", record.OPT_AUTOREC);
    WriteInt("OPT_STOP_PP", record.OPT_STOP_PP);
    WriteInt("OPT_CHG_CG", record.OPT_CHG_CG);
    Write("OPT_CHG_FLW", FormatNumber(record.OPT_CHG_FLW, NumberFormat::TwoDecimals));
    WriteInt("OPT_CHG_TIME", record.OPT_CHG_TIME);
    WriteInt("_LCCHEM", record.LCCHEM);
    WriteInt("ExternalPump", record.ExternalPump);
}

}  // namespace

void SaveConfiguration() {
    StationBatch batch;  // "lumagen.ist" and the registry store written once each
    ConfigRecord& record = Config();
    SaveIdentityAndAutosampler(record);
    Write("_INHIBIT", InhibitMassesText(record));
    SaveLinks();
    SaveDevices(record);
    SaveRacks(record);
    SaveQcModeAndTiming(record);
    SaveModel(record);
    SaveOptions(record);
    SaveSecurityAndVlt(record);
    SaveAnalysisOptions(record);
}

}  // namespace lumacfg
