// A program directory of its own for each test (LUMACFG_PROGRAM_DIR) with its custrack.ini,
// and well-formed tray and rack sections that tests change key by key.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <sstream>
#include <string>

#include "platform/services.h"
#include "racks/custom_racks.h"
#include "support/scoped_env.h"
#include "support/temp_dir.h"

namespace lumacfg::support {

// The ";"-separated lines, each ended with CR LF.
inline std::string Ini(std::string lines) {
    for (std::size_t at = lines.find(';'); at != lines.npos; at = lines.find(';', at)) {
        lines.replace(at, 1, "\r\n");
    }
    return lines.empty() ? lines : lines + "\r\n";
}

// The section with each ";"-separated change made: "KEY=VALUE" sets the key, "KEY" removes it.
inline std::string Patched(std::string section, std::string changes) {
    std::istringstream list(changes);
    for (std::string change; std::getline(list, change, ';');) {
        const std::size_t equals = change.find('=');
        const std::size_t found = section.find("\r\n" + change.substr(0, equals) + "=");
        if (found != section.npos)
            section.erase(found + 2, section.find("\r\n", found + 2) - found);
        if (equals != change.npos) {
            section.insert(found != section.npos ? found + 2 : section.size(), change + "\r\n");
        }
    }
    return section;
}

// A rack of 10 x 5 vials and a tray of 3 positions that every check accepts.
inline std::string Rack(int id, std::string changes = "") {
    const std::string n = std::to_string(id);
    return Patched(Ini("[RACK_" + n + "];ID=" + n + ";ID_STR=Rack " + n +
                       ";VIAL_X_NUM=10;VIAL_Y_NUM=5;VIAL_X_ORG=100;VIAL_Y_ORG=200;VIAL_X_DIST=30;"
                       "VIAL_Y_DIST=40;VIAL_DEPTH=50"),
                   changes);
}
inline std::string Tray(int id, std::string changes = "") {
    const std::string n = std::to_string(id);
    return Patched(Ini("[TRAY_" + n + "];ID_STR=Tray " + n +
                       ";RACK_X_NUM=3;RACK_X_ORG=10;RACK_Y_ORG=20;RACK_X_DIST=300;RACK_Y_DIST=0;"
                       "DEFRACK1=1000;DEFRACK2=1001;DEFRACK3=21;BOTTLE_X_NUM=2;BOTTLE_X_ORG=5;"
                       "BOTTLE_Y_ORG=6;BOTTLE_X_DIST=7;BOTTLE_DEPTH=8"),
                   changes);
}

// The tray id, then the racks of positions 1, 2, ...
inline TraySelection Selection(std::initializer_list<std::int16_t> trayAndRacks) {
    TraySelection selection;
    selection.tray = *trayAndRacks.begin();
    std::copy(trayAndRacks.begin() + 1, trayAndRacks.end(), selection.rack.begin());
    return selection;
}

class CustrackTest : public ::testing::Test {
  protected:
    void SetUp() override {
        platform::SetProfiles(nullptr);
        ResetCustomDefs();
    }
    void TearDown() override { ResetCustomDefs(); }

    std::filesystem::path File() const { return dir_ / "custrack.ini"; }
    void Write(const std::string& bytes) const { support::WriteBytes(File(), bytes); }
    std::string Read() const { return support::ReadBytes(File()).value_or(""); }

    support::TempDir temp_{"lumacfg-custrack"};
    std::filesystem::path dir_ = temp_.Path();
    support::ScopedEnv programDirEnv_{"LUMACFG_PROGRAM_DIR", dir_.string()};
};

}  // namespace lumacfg::support
