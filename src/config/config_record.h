// The configuration record: the settings of the one ICP-MS station this program edits, as
// one process-wide record. Fields are named after the profile keys that store them (a key's
// leading "_" and trailing "$" dropped: "_QCMDPATH$" is QCMDPATH).
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace lumacfg {

using Int16 = std::int16_t;  // "Integer" of the data system
using Int32 = std::int32_t;  // "long"

inline constexpr int kLinkCount = 5;
inline constexpr int kDeviceCount = 20;
inline constexpr int kInhibitCount = 11;
inline constexpr int kRackCount = 8;
inline constexpr int kAddonCount = 4;

struct ConfigRecord {
    // Instrument and connection.
    Int16 ICPMS_TYPE = 0;  // 0 model Q40; 1, 2 model Q70 (2: LAN link)
    Int16 ICPMS_ID = 0;
    Int16 GPIB_ADDR = 20;
    Int16 KVD_Remote = 0;
    Int16 NotRepRemote = 0;
    Int16 SI_TYPE = 1;
    Int16 ALS_TYPE = 0;
    Int16 COM_PORT = 1;
    std::array<Int16, kInhibitCount> INHIBIT_MASS{};
    std::string LAN_IPADDR = "192.168.1.128";

    // Links and devices of section "WSX_32".
    std::array<Int16, kLinkCount> LINK_USED{};
    std::array<std::string, kLinkCount> LINK_TYPE;
    std::array<std::string, kLinkCount> LINK_STRING;
    std::array<std::string, kLinkCount> LINK_PARAM;
    std::array<Int16, kDeviceCount> DEVICE_USED{};
    std::array<Int16, kDeviceCount> DEVICE_LINK{};
    std::array<std::string, kDeviceCount> DEVICE_NAME;

    // Racks at positions 1..8 of the autosampler.
    Int16 RACK1_ID = 0, RACK2_ID = 0, RACK3_ID = 0, RACK4_ID = 0;
    Int16 RACK5_ID = 0, RACK6_ID = 0, RACK7_ID = 0, RACK8_ID = 0;

    Int16 PRO_SCAN = 1;  // the inverse of the stored number
    std::string QCMDPATH;
    std::string QCMDFILE = "GENERAL.QCC";

    // Sample-introduction timing.
    Int16 DSS_MODE = 0;
    double DSS_LOAD = 10, DSS_ACQ = 60, DSS_STAB = 0, DSS_SYSRNS = 0;
    double DSS_NDLRNS = 10, DSS_INJECT = 60, DSS_INTRVL = 0;
    Int16 DSS_REP = 1;
    Int16 DSS_WAIT = 8;

    // Options.
    Int16 OPT_SC = 1;
    Int16 OPT_PMP2 = 0;
    Int16 MPM = 0;  // OPAL use: 0 none, 1 standard application, 2 user-defined
    std::string MPMFILE;
    Int16 EnableDTCal = 0;
    Int16 OPT_ORGANIC = 0;
    Int16 OPT_IMTPUMP = 0;
    Int16 OPT_SHUTDOWN = 0;

    // V-AS tray and probe depths (0.125 mm steps).
    Int16 TRAY_ID = 1;
    Int16 MAX_BOTTLE = 89;
    Int16 RINSE_DEPTH = 280;
    Int16 SAMPLE_DEPTH = 440;
    Int16 STD_DEPTH = 440;
    Int16 ONEBOTTLE_DEPTH = 440;
    Int16 ESC_MODE = 0;

    // Security, printing, analysis options.
    Int16 SECURITY = 1;    // kept in the configuration identifier, never in the profile
    Int16 ALWAYSPRT = -1;  // -1 true, 0 false
    Int16 OPT_AUTOREC = 0;
    Int16 OPT_STOP_PP = 0;
    Int16 OPT_CHG_CG = 0;
    float OPT_CHG_FLW = 0.20F;
    Int16 OPT_CHG_TIME = 12;
    Int16 LCCHEM = 0;
    Int16 ExternalPump = 0;
    Int32 VLT_ENABLED = 0;
    std::string VLT_FOLDER;
    Int16 MPMATDIL = 0;  // -1 true, 0 false

    // Fields without a profile key.
    std::string ROOT_PATH;
    std::array<Int16, kAddonCount> ADDON_FLAGS{};
    Int16 AUTOMATE = 0;
    Int16 CAN_EDIT = 1;
    Int16 SAVE_REQ = 0;
    Int16 REG_DIRTY = 0;
    Int16 RESET_COM_PORT = 0;
};

// The one record of the process.
ConfigRecord& Config();

// Rack field of position 1..8.
Int16& RackId(ConfigRecord& record, int position);

// Every field to its default, in the order the data system has always set them.
void SetDefaults();

// Instrument model from the registry value "HardWare": 1 and 2 as they are, -1 gives 0,
// anything else (or no value) gives 2.
Int16 InstrumentModelFromRegistry();

// All eight racks from the autosampler type.
void SetDefaultRacks(Int16 alsType);

// The stored text of link i (0-based) composed from its kind; other kinds keep their text.
void ComposeLinkString(int link);

// Parses the text of "_INHIBIT" into the record's INHIBIT_MASS.
void ParseInhibitMasses(std::string_view text, ConfigRecord& record);

// The text of "_INHIBIT" that stores the record's INHIBIT_MASS: the masses above 1 among all
// but the last entry, in the order held, separated by blanks.
std::string InhibitMassesText(const ConfigRecord& record);

// Adds a device of that name to the first free entry, with the link it needs.
void AddDevice(std::string_view name);

// 1-based number of the device entry with the name, 0 when there is none.
int FindDevice(std::string_view name);

// The device entry that stands for the autosampler, whatever its model.
inline constexpr std::string_view kAutosamplerDevice = "ASX500";

// The rows of a new station profile, then nothing else (the save that follows completes it).
void WriteInitialProfile();

}  // namespace lumacfg
