// Start-up of the program and the closing steps of the station: whether this run may go on,
// the data-system root, the add-on programs, the station loaded or created, the edit right;
// and everything the program writes when its main window closes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_failures.h"

namespace lumacfg {

struct StartUpOptions {
    bool commandLineEmpty = true;   // only an interactive start logs on
    std::uintptr_t mainWindow = 0;  // handed to the logon
};

enum class StartUpResult {
    Continue,  // the program goes on
    Refused,   // another copy runs, the data system runs, or the logon failed: close at once
    Failed,    // the station cannot be read (platform::Failures() says why): close, write nothing
};

// The whole start-up sequence. Its writes (a new station, a completed key) are made in one
// batch: each file once.
StartUpResult StartUp(const StartUpOptions& options);

// ROOT_PATH of a program directory: the directory without as many trailing characters as
// "\LUMAEXE" has (the characters themselves are not compared).
std::string RootPathOf(std::string_view programDirectory);

// 1 when the logged-on user's group may change the configuration, else 0.
std::int16_t UserMayEdit();

// Set-up mode: the program was started by the data system's set-up ("automate" in
// "lumacfg.ini"), which removes that key when the program closes.
bool InSetUpMode();

// What closing the main window writes, whatever closed it, each file once: after a Save
// (SAVE_REQ 1) the rows of a new station's profile when REG_DIRTY is 1 (Reset to Default), the
// configuration (a change of the security state reported to the security library), the tray
// selection for the ASX500, the serial port settings; then the set-up mode's steps or the
// run-type preparation. Returns the files that could not be read or written (the other files are
// written all the same).
std::vector<platform::FileFailure> CloseStation();

}  // namespace lumacfg
