#include "config/config_record.h"

#include "base/numbers.h"
#include "config/configuration_id.h"
#include "config/profile.h"
#include "integration/vlt_settings.h"
#include "platform/services.h"
#include "resources/string_table.h"

namespace lumacfg {
namespace {

constexpr std::string_view kDefaultInhibit = "14 16 17 18 19 32 36 38 40 41";

std::string_view WantedLinkKind(std::string_view device) {
    if (device == "SMARTCARD") return Config().ICPMS_TYPE == 2 ? "lan" : "gx40110";
    if (device == "ASX500" || device == "V-AS") return "RS232";
    return {};
}

// 1-based number of the first link in use of that kind, 0 when none.
Int16 LinkOfKind(std::string_view kind) {
    const ConfigRecord& record = Config();
    for (int i = 0; i < kLinkCount; ++i) {
        if (record.LINK_USED[i] > 0 && record.LINK_TYPE[i] == kind)
            return static_cast<Int16>(i + 1);
    }
    return 0;
}

void SetDefaultLinksAndDevices(ConfigRecord& record) {
    record.LINK_USED.fill(0);
    record.LINK_USED[0] = 1;
    if (record.ICPMS_TYPE == 2) {
        record.LINK_TYPE[0] = "lan";
        record.LINK_PARAM[0] = record.LAN_IPADDR;
    } else {
        record.LINK_TYPE[0] = "gx40110";
        record.LINK_PARAM[0] = IntText(record.GPIB_ADDR);
    }
    ComposeLinkString(0);
    record.LINK_USED[1] = 2;
    record.LINK_TYPE[1] = "RS232";
    ComposeLinkString(1);

    record.DEVICE_USED.fill(0);
    record.DEVICE_USED[0] = 1;
    record.DEVICE_NAME[0] = "SMARTCARD";
    record.DEVICE_LINK[0] = 1;
}

void SetDefaultTimingOptionsAndDepths(ConfigRecord& record) {
    record.DSS_MODE = 0;
    record.DSS_LOAD = 10;
    record.DSS_ACQ = 60;
    record.DSS_STAB = 0;
    record.DSS_SYSRNS = 0;
    record.DSS_NDLRNS = 10;
    record.DSS_INJECT = 60;
    record.DSS_INTRVL = 0;
    record.DSS_REP = 1;
    record.DSS_WAIT = 8;
    record.OPT_SC = 1;
    record.OPT_PMP2 = 0;
    record.MPM = 0;
    record.EnableDTCal = 0;
    record.OPT_ORGANIC = 0;
    record.OPT_IMTPUMP = 0;
    record.OPT_SHUTDOWN = 0;
    record.TRAY_ID = 1;
    record.MAX_BOTTLE = 89;
    record.RINSE_DEPTH = 280;
    record.SAMPLE_DEPTH = 440;
    record.STD_DEPTH = 440;
    record.ONEBOTTLE_DEPTH = 440;
    record.ESC_MODE = 0;
    record.MPMFILE.clear();
}

}  // namespace

ConfigRecord& Config() {
    static ConfigRecord record;
    return record;
}

Int16& RackId(ConfigRecord& record, int position) {
    Int16* racks[kRackCount] = {&record.RACK1_ID, &record.RACK2_ID, &record.RACK3_ID,
                                &record.RACK4_ID, &record.RACK5_ID, &record.RACK6_ID,
                                &record.RACK7_ID, &record.RACK8_ID};
    return *racks[position - 1];
}

Int16 InstrumentModelFromRegistry() {
    auto key = platform::TheRegistry().OpenKey(kDataSystemKey, platform::RegistryAccess::Read);
    if (!key) return 2;
    auto value = key->QueryDword("HardWare");
    if (!value) return 2;
    switch (static_cast<Int32>(*value)) {
        case 1:
            return 1;
        case 2:
            return 2;
        case -1:
            return 0;
        default:
            return 2;
    }
}

void SetDefaultRacks(Int16 alsType) {
    ConfigRecord& record = Config();
    std::array<Int16, kRackCount> racks{};
    switch (alsType) {
        case 1:
        case 4:
        case 5:
            racks = {21, 60, 60, 60, 0, 0, 0, 0};
            break;
        case 6:
            racks = {21, 21, 60, 60, 60, 60, 60, 60};
            break;
        case 2:
            racks = {24, 0, 0, 0, 0, 0, 0, 0};
            break;
        case 3:
            racks = {24, 24, 0, 0, 0, 0, 0, 0};
            break;
        default:
            break;
    }
    for (int position = 1; position <= kRackCount; ++position) {
        RackId(record, position) = racks[position - 1];
    }
}

void ComposeLinkString(int link) {
    ConfigRecord& record = Config();
    const std::string& kind = record.LINK_TYPE[link];
    if (kind == "RS232") {
        record.LINK_STRING[link] = "COM" + IntText(record.COM_PORT) + ",488";
    } else if (kind == "gx40110") {
        record.LINK_STRING[link] = "gx40110," + IntText(record.GPIB_ADDR);
    } else if (kind == "lan") {
        record.LINK_STRING[link] = "lan[" + record.LAN_IPADDR + "]:brenmarkib,0";
    }
}

void ParseInhibitMasses(std::string_view text, ConfigRecord& record) {
    record.INHIBIT_MASS.fill(0);
    if (text.empty() || text.ends_with("error")) return;
    std::size_t position = 0;
    int entry = 0;
    while (position < text.size() && entry < kInhibitCount - 1) {
        std::size_t blank = text.find(' ', position);
        if (blank == std::string_view::npos) blank = text.size();
        if (blank > position) {
            record.INHIBIT_MASS[entry++] = LenientInt16(text.substr(position, blank - position));
        }
        position = blank + 1;
    }
}

std::string InhibitMassesText(const ConfigRecord& record) {
    std::string masses;
    for (int i = 0; i < kInhibitCount - 1; ++i) {
        if (record.INHIBIT_MASS[i] <= 1) continue;
        if (!masses.empty()) masses += ' ';
        masses += IntText(record.INHIBIT_MASS[i]);
    }
    return masses;
}

void AddDevice(std::string_view name) {
    ConfigRecord& record = Config();
    for (int i = 0; i < kDeviceCount; ++i) {
        if (record.DEVICE_USED[i] != 0) continue;
        record.DEVICE_USED[i] = static_cast<Int16>(i + 1);
        record.DEVICE_NAME[i] = std::string(name);
        std::string_view kind = WantedLinkKind(name);
        record.DEVICE_LINK[i] = kind.empty() ? Int16{0} : LinkOfKind(kind);
        return;
    }
    platform::Messages().Show({"Could not add device for " + std::string(name),
                               LoadResString(kResWindowCaption), platform::MessageIcon::Exclamation,
                               platform::MessageButtons::Ok, 0});
}

int FindDevice(std::string_view name) {
    const ConfigRecord& record = Config();
    for (int i = 0; i < kDeviceCount; ++i) {
        if (record.DEVICE_USED[i] > 0 && record.DEVICE_NAME[i] == name) return i + 1;
    }
    return 0;
}

void SetDefaults() {
    ConfigRecord& record = Config();
    record.ICPMS_TYPE = 0;
    record.ICPMS_TYPE = InstrumentModelFromRegistry();
    record.ICPMS_ID = 0;
    record.GPIB_ADDR = 20;
    record.KVD_Remote = 0;
    record.SI_TYPE = 1;
    record.ALS_TYPE = 0;
    record.COM_PORT = 1;
    record.PRO_SCAN = 1;
    record.LAN_IPADDR = "192.168.1.128";
    record.NotRepRemote = 0;
    ParseInhibitMasses(kDefaultInhibit, record);
    SetDefaultLinksAndDevices(record);
    SetDefaultRacks(record.ALS_TYPE);
    record.QCMDPATH = record.ROOT_PATH + "\\1\\QCMODE\\";
    record.QCMDFILE = "GENERAL.QCC";
    SetDefaultTimingOptionsAndDepths(record);
    record.SECURITY = 1;
    record.ALWAYSPRT = -1;
    record.VLT_ENABLED = 0;
    record.VLT_FOLDER.clear();
    record.OPT_AUTOREC = 0;
    record.OPT_STOP_PP = 0;
    record.OPT_CHG_CG = 0;
    record.OPT_CHG_FLW = 0.20F;
    record.OPT_CHG_TIME = 12;
    record.LCCHEM = 0;
    record.ExternalPump = 0;
}

void WriteInitialProfile() {
    const ConfigRecord& record = Config();
    const std::string& root = record.ROOT_PATH;
    const std::string exe = root + "\\LUMAEXE\\";
    const std::string inst = root + "\\1\\";
    struct Row {
        std::string_view section, key;
        std::string value;
    };
    const Row rows[] = {
        {"WSX", "Applications", "ICPMS"},
        {"WSX", "Path", root},
        {"WSX_32", "Links", "1,2"},
        {"WSX_32", "Link1", "gx40110," + IntText(record.GPIB_ADDR)},
        {"WSX_32", "Link2", "COM" + IntText(record.COM_PORT) + ",488"},
        {"WSX_32", "Devices", "1"},
        {"WSX_32", "Device1", "1,SMARTCARD"},
        {"WSX_32", "RS232", "130,13"},
        {"WSX", "Instruments", "1"},
        {"WSX,1", "INSTNAME", "Q40 - Instrument1"},
        {"WSX,1", "start", "no"},
        {"WSX,1", "KVD_Remote", "0"},
        {"WSX,1", "Devices", "1"},
        {"WSX,1", "InstType", "ICPMS"},
        {"WSX,1", "ICPMS_TYPE", "0"},
        {"WSX,1", "ICPMS_ID", "1"},
        {"WSX,1", "ALS_TYPE", ""},
        {"WSX,1", "ALS_ID", ""},
        {"WSX,1", "SI_TYPE", "0"},
        {"WSX,1", "DA_TYPE", "0"},
        {"WSX,1", "MS_TYPE", ""},
        {"WSX,1", "RACK1_ID", "21"},
        {"WSX,1", "RACK2_ID", "60"},
        {"WSX,1", "RACK3_ID", "60"},
        {"WSX,1", "RACK4_ID", "60"},
        {"WSX,1", "RACK5_ID", ""},
        {"WSX,1", "RACK6_ID", ""},
        {"WSX,1", "RACK7_ID", ""},
        {"WSX,1", "RACK8_ID", ""},
        {"WSX,1", "Program", exe + "LUMATOP.EXE"},
        {"WSX,1", "_HELPPATH$", exe},
        {"WSX,1", "_AUTOPATH$", exe},
        {"WSX,1", "_EXEPATH$", exe},
        {"WSX,1", "_INSTPATH$", inst},
        {"WSX,1", "_DATAPATH$", inst + "DATA\\"},
        {"WSX,1", "_METHPATH$", inst + "METHODS\\"},
        {"WSX,1", "_SEQPATH$", inst + "SEQUENCE\\"},
        {"WSX,1", "_TUNEPATH$", inst + "Q40\\"},
        {"WSX,1", "_LIBPATH$", root + "\\DATABASE\\"},
        {"WSX,1", "_HELPFILE$", "LUMA-MS.CHM"},
        {"WSX,1", "_DATAFILE$", "LUMADEMO.D"},
        {"WSX,1", "_METHFILE$", "DEFAULT.M"},
        {"WSX,1", "_SEQFILE$", "DEFAULT.S"},
        {"WSX,1", "DEBackground", "0 0 0"},
        {"WSX,1", "DEChrom0", "0 190 200"},
        {"WSX,1", "DEChrom1", "0 255 0"},
        {"WSX,1", "DEChrom2", "255 255 0"},
        {"WSX,1", "DEChrom3", "255 0 190"},
        {"WSX,1", "DEChrom4", "255 255 255"},
        {"WSX,1", "DEChrom5", "255 0 0"},
        {"WSX,1", "DEAxes", "255 255 255"},
        {"WSX,1", "DETitle", "0 255 255"},
        {"WSX,1", "DERtimes", "0 0 255"},
        {"WSX,1", "DEBaselines", "255 0 0"},
        {"WSX,1", "DECorrectlines", "0 255 0"},
        {"WSX,1", "DEAnnotation", "255 255 255"},
        {"WSX,1", "DEFrame", "0 255 0"},
        {"WSX,1", "_INHIBIT", std::string(kDefaultInhibit)},
        {"WSX,1", "SEMIQFACTOR1", "BKG,BKG,0.03"},
        {"WSX,1", "SEMIQFACTOR2", ",ISOTOPE,0.1"},
        {"WSX,1", "SEMIQFACTOR3", "OXIDE,16,0.01,72"},
        {"WSX,1", "SEMIQFACTOR4", "HYDRIDE,1,0.01"},
        {"WSX,1", "SEMIQFACTOR5", "DCHARGE,DCHARGE,0.01,7"},
        {"WSX,1", "SEMIQFACTOR6", "DIMER,DIMER,0.001,7,24,60,72"},
        {"WSX,1", "SEMIQFACTOR7", "ARGIDE,40,0.001,60,72"},
        {"WSX,1", "PRO_SCAN", "0"},
        {"WSX,1", "PRO_DWELL", "0.0001"},
        {"WSX,1", "_QCMDPATH$", inst + "QCMODE\\"},
        {"WSX,1", "_QCMDFILE$", "GENERAL.QCC"},
        {"WSX,1", "_RPTPATH$", inst + "RPTTMP\\"},
        {"WSX,1", "_CHNSEQPATH$", inst + "CHNSEQ\\"},
        {"WSX,1", "_CHNSEQFILE$", "DEFAULT.CHS"},
        {"WSX,1", "_CALPATH$", inst + "CALIB\\"},
        {"WSX,1", "_CALFILE$", "DEFAULT.C"},
        {"WSX,1", "DSS_MODE", "0"},
        {"WSX,1", "DSS_LOAD", "10"},
        {"WSX,1", "DSS_ACQ", "60"},
        {"WSX,1", "DSS_STAB", "0"},
        {"WSX,1", "DSS_SYSRNS", "0"},
        {"WSX,1", "DSS_NDLRNS", "10"},
        {"WSX,1", "DSS_INJECT", "60"},
        {"WSX,1", "DSS_INTRVL", "0"},
        {"WSX,1", "DSS_REP", "1"},
        {"WSX,1", "DSS_WAIT", "8"},
        {"WSX,1", "OPT_SC", "1"},
        {"WSX,1", "OPT_PMP2", "0"},
        {"WSX,1", "_MPM", "0"},
        {"WSX,1", "_MPMFILE$", ""},
        {"WSX,1", "EnableDTCal", "0"},
    };
    for (const Row& row : rows) ProfileSet(row.section, row.key, row.value);
    ProfileDelete("WSX,1", "_SECURITY");
    WriteConfigurationID(0);
    ProfileSet("WSX,1", "_INTFPATH$", inst + "INTERFER\\");
    ProfileSet("WSX,1", "OPT_AUTOREC", "0");
}

}  // namespace lumacfg
