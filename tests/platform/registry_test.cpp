// The machine-wide registry store on disk: keys opened on it, failures reported, batches.
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "platform/posix/atomic_file.h"
#include "platform/posix/backends.h"
#include "platform/posix/reg_document.h"
#include "platform/services.h"
#include "support/directory_watch.h"
#include "support/scoped_env.h"
#include "support/temp_dir.h"

namespace lumacfg::platform::posix {
namespace {

namespace fs = std::filesystem;
using support::DirectoryWatch;
using support::ReadBytes;
using support::ScopedEnv;
using support::TempDir;
using support::WriteBytes;

constexpr const char* kKey = "SOFTWARE\\Corvane Instruments\\Plasmasuite\\CurrentVersion";
constexpr const char* kPorts = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Ports";

const std::string kStore =
    "Windows Registry Editor Version 5.00\r\n"
    "\r\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Corvane Instruments\\Plasmasuite\\CurrentVersion]\r\n"
    "\"Path\"=\"C:\\\\Plasmasuite\\\\\"\r\n"
    "\"HardWare\"=dword:00000002\r\n"
    "\"Blob\"=hex:01,02,03,\\\r\n"
    "  04,05\r\n"
    "\r\n"
    "[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Removed]\r\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Ports]\r\n"
    "\"COM1:\"=\"9600,n,8,1\"\r\n";

class RegistryStoreTest : public ::testing::Test {
  protected:
    void SetUp() override {
        ResetServices();
        WriteBytes(store_, kStore);
    }
    void TearDown() override { ResetServices(); }

    std::string Bytes() const { return ReadBytes(store_).value_or("<missing>"); }

    TempDir temp_{"lumacfg-reg"};
    fs::path dir_ = temp_.Path();
    std::string store_ = (dir_ / "registry.reg").string();
    ScopedEnv registryEnv_{"LUMACFG_REGISTRY", store_};
};

TEST_F(RegistryStoreTest, ValuesSurviveReopeningAndTheStoreKeepsItsPermissions) {
    ASSERT_EQ(::chmod(store_.c_str(), 0600), 0);
    {
        auto key = MakeRegistry()->OpenKey(kKey, RegistryAccess::SetValue);
        ASSERT_TRUE(key);
        EXPECT_TRUE(key->SetDword("ConfigurationID", 0x0890F76Fu));
        EXPECT_TRUE(key->SetString("VLT_LCD", "C:\\LCD \"x\"\\"));
        EXPECT_TRUE(key->SetString("Notes", "line 1\r\nline 2"));
        EXPECT_TRUE(key->SetString("path", "E:\\"));
    }
    auto key = MakeRegistry()->OpenKey("software\\corvane instruments\\PLASMASUITE\\currentversion",
                                       RegistryAccess::Read);
    ASSERT_TRUE(key);
    EXPECT_EQ(key->QueryDword("configurationid"), 0x0890F76Fu);
    EXPECT_EQ(key->QueryString("vlt_lcd"), "C:\\LCD \"x\"\\");
    EXPECT_EQ(key->QueryString("notes"), "line 1\r\nline 2");
    EXPECT_EQ(key->QueryString("Path"), "E:\\");
    EXPECT_EQ(key->QueryString("HardWare"), std::nullopt);  // a dword is no string
    EXPECT_EQ(key->QueryString("Blob"), std::nullopt);
    EXPECT_FALSE(key->SetDword("HardWare", 5));  // opened for reading only

    struct stat info {};
    ASSERT_EQ(::stat(store_.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0600u);
    EXPECT_EQ(std::distance(fs::directory_iterator(dir_), fs::directory_iterator()), 1);
    EXPECT_TRUE(Failures().Take().empty());
}

TEST_F(RegistryStoreTest, OpeningFailsWhereTheLocalMachineHiveWould) {
    auto registry = MakeRegistry();
    EXPECT_FALSE(registry->OpenKey("SOFTWARE\\Corvane Instruments", RegistryAccess::Read));
    EXPECT_FALSE(registry->OpenKey("SOFTWARE\\Removed", RegistryAccess::Read));
    EXPECT_TRUE(registry->OpenKey(std::string(kPorts) + '\0', RegistryAccess::SetValue));
    registryEnv_.Set((dir_ / "absent.reg").string());
    EXPECT_FALSE(registry->OpenKey(kKey, RegistryAccess::Read));
    EXPECT_TRUE(Failures().Take().empty());  // a missing key or store is no file failure
}

// The registry values a save sets, each through a key opened for it, as the save opens them.
void SetSaveValues(Registry& registry) {
    auto set = [&](const char* key, std::function<bool(RegistryKey&)> edit) {
        auto opened = registry.OpenKey(key, RegistryAccess::SetValue);
        ASSERT_TRUE(opened);
        EXPECT_TRUE(edit(*opened));
    };
    set(kKey, [](RegistryKey& k) { return k.SetDword("ConfigurationID", 0x0890F76F); });
    set(kKey, [](RegistryKey& k) { return k.SetDword("EnableVLTIntegration", 1); });
    set(kKey, [](RegistryKey& k) { return k.SetString("VLT_LCD", "D:\\VLT"); });
    set(kKey, [](RegistryKey& k) { return k.SetString("VLT_TEMP", "C:\\TEMP"); });
    set(kKey, [](RegistryKey& k) { return k.SetDword("HardWare", 1); });
    set(kPorts,
        [](RegistryKey& k) { return k.SetString("COM1:", std::string("9600,o,7,1\0", 11)); });
}

TEST_F(RegistryStoreTest, BatchWritesOnceWithTheBytesOfOneByOneSets) {
    SetSaveValues(*MakeRegistry());
    const std::string oneByOne = Bytes();
    WriteBytes(store_, kStore);

    auto registry = MakeRegistry();
    DirectoryWatch watch(dir_);
    registry->BeginBatch();
    registry->BeginBatch();  // nested: only the outermost end writes
    SetSaveValues(*registry);
    auto key = registry->OpenKey(kKey, RegistryAccess::Read);
    ASSERT_TRUE(key);
    EXPECT_EQ(key->QueryDword("configurationid"), 0x0890F76Fu);  // the batch's values
    EXPECT_EQ(key->QueryString("VLT_LCD"), "D:\\VLT");
    EXPECT_TRUE(registry->EndBatch());
    EXPECT_EQ(Bytes(), kStore);
    EXPECT_TRUE(registry->EndBatch());
    const std::vector<std::string>& events = watch.Events();
    EXPECT_EQ(std::count(events.begin(), events.end(), "write registry.reg"), 1);
    EXPECT_EQ(Bytes(), oneByOne);
    EXPECT_TRUE(Failures().Take().empty());
}

// A batch's sets go to the store as it is at its end: another writer's value stays, and a store
// that became read-only is reported and kept.
TEST_F(RegistryStoreTest, BatchEndsOnTheStoreAsItIsThen) {
    auto registry = MakeRegistry();
    for (bool readOnly : {false, true}) {
        registry->BeginBatch();
        auto key = registry->OpenKey(kKey, RegistryAccess::SetValue);
        ASSERT_TRUE(key);
        EXPECT_TRUE(key->SetDword("ConfigurationID", readOnly ? 8 : 7));
        EXPECT_TRUE(MakeRegistry()->OpenKey(kKey, RegistryAccess::SetValue)->SetString("O", "x"));
        const std::string before = Bytes();
        ASSERT_EQ(readOnly ? ::chmod(store_.c_str(), 0444) : 0, 0);
        EXPECT_EQ(registry->EndBatch(), !readOnly);
        if (readOnly) {
            EXPECT_EQ(Bytes(), before);
            std::vector<FileFailure> failures = Failures().Take();
            ASSERT_EQ(failures.size(), 1u);
            EXPECT_EQ(failures[0].operation, FileOperation::Write);
            EXPECT_EQ(failures[0].path, store_);
        }
    }
    auto key = MakeRegistry()->OpenKey(kKey, RegistryAccess::Read);
    EXPECT_EQ(key->QueryDword("ConfigurationID"), 7u);
    EXPECT_EQ(key->QueryString("o"), "x");
}

// Writers in several processes at once lose none of each other's values.
TEST_F(RegistryStoreTest, ConcurrentWritersLoseNothing) {
    constexpr int kWriters = 4, kWrites = 25;
    std::vector<pid_t> children;
    for (int writer = 0; writer < kWriters; ++writer) {
        pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            auto key = MakeRegistry()->OpenKey(kKey, RegistryAccess::SetValue);
            bool ok = key != nullptr;
            for (int i = 0; ok && i < kWrites; ++i) {
                ok = key->SetDword("Writer" + std::to_string(writer) + "_" + std::to_string(i),
                                   static_cast<std::uint32_t>(i));
            }
            ::_exit(ok ? 0 : 1);
        }
        children.push_back(child);
    }
    for (pid_t child : children) {
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    auto key = MakeRegistry()->OpenKey(kKey, RegistryAccess::Read);
    ASSERT_TRUE(key);
    for (int writer = 0; writer < kWriters; ++writer) {
        for (int i = 0; i < kWrites; ++i) {
            EXPECT_EQ(key->QueryDword("writer" + std::to_string(writer) + "_" + std::to_string(i)),
                      static_cast<std::uint32_t>(i));
        }
    }
}

}  // namespace
}  // namespace lumacfg::platform::posix
