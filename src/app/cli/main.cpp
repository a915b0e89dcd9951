// lumacfg-cli: the headless front end. The same station rules as the window, for scripted
// set-up of many stations and for tests that look at the files only.
#include <iostream>
#include <string>
#include <vector>

#include "app/cli/commands.h"
#include "platform/services.h"

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    lumacfg::platform::Identity().program = "lumacfg-cli";
    return lumacfg::cli::Run(args, std::cout, std::cerr);
}
