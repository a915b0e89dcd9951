// A data-system root in a temporary directory for tests: the program directory "LUMAEXE", a
// registry store as the installation leaves it, a fixed clock and recorded message boxes. The
// single-instance lock lives in the root, and no desktop is reached.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "config/config_record.h"
#include "platform/services.h"
#include "support/scoped_env.h"
#include "support/temp_dir.h"

namespace lumacfg::support {

namespace fs = std::filesystem;

class FixedClock final : public platform::Clock {
  public:
    explicit FixedClock(platform::LocalTime time) : time_(time) {}
    platform::LocalTime Now() override { return time_; }

  private:
    platform::LocalTime time_;
};

// Records every message and answers with the given answer.
class MessageRecorder final : public platform::MessageBoxService {
  public:
    explicit MessageRecorder(std::vector<platform::MessageRequest>* shown) : shown_(shown) {}
    platform::MessageAnswer Show(const platform::MessageRequest& request) override {
        shown_->push_back(request);
        return platform::MessageAnswer::Ok;
    }

  private:
    std::vector<platform::MessageRequest>* shown_;
};

inline constexpr const char* kDataSystemKeyLine =
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Corvane Instruments\\Plasmasuite\\CurrentVersion]\r\n";

// The registry as the installation leaves it, with the given lines under the data system's key.
inline std::string RegistryText(const std::string& dataSystemValues) {
    return std::string("Windows Registry Editor Version 5.00\r\n\r\n") + kDataSystemKeyLine +
           dataSystemValues +
           "\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Ports]\r\n"
           "\"COM1:\"=\"9600,n,8,1\"\r\n";
}

class TempStation : public ::testing::Test {
  protected:
    void SetUp() override {
        fs::create_directories(ProgramDir());
        WriteBytes(RegistryPath(), RegistryText("\"Path\"=\"C:\\\\PLASMA\"\r\n"
                                                "\"HardWare\"=dword:00000001\r\n"));
        platform::ResetServices();
        platform::SetClock(
            std::make_unique<FixedClock>(platform::LocalTime{2008, 12, 31, 23, 59, 59}));
        platform::SetMessages(std::make_unique<MessageRecorder>(&messages_));
        Config() = ConfigRecord{};
        Config().ROOT_PATH = Root();
    }

    void TearDown() override {
        platform::ResetServices();
        Config() = ConfigRecord{};
    }

    std::string Root() const { return root_.string(); }
    fs::path ProgramDir() const { return root_ / "LUMAEXE"; }
    fs::path RegistryPath() const { return root_ / "registry.reg"; }
    fs::path StationProfile() const { return ProgramDir() / "lumagen.ist"; }
    std::string StationText() const { return ReadBytes(StationProfile()).value_or(""); }
    std::string RegistryFileText() const { return ReadBytes(RegistryPath()).value_or(""); }

    // Made in this order and undone in the reverse one: the variables are restored before the
    // directory they name goes.
    TempDir temp_{"lumacfg-station"};
    fs::path root_ = temp_.Path();
    ScopedEnv programDirEnv_{"LUMACFG_PROGRAM_DIR", ProgramDir().string()};
    ScopedEnv registryEnv_{"LUMACFG_REGISTRY", RegistryPath().string()};
    ScopedEnv auditLogEnv_{"LUMACFG_AUDIT_LOG", (root_ / "audit.log").string()};
    ScopedEnv lockDirEnv_{"LUMACFG_LOCK_DIR", root_.string()};
    ScopedEnv displayEnv_{"DISPLAY", std::nullopt};
    std::vector<platform::MessageRequest> messages_;
};

}  // namespace lumacfg::support
