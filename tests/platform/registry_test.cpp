// The machine-wide registry store: its ".reg" text and the keys opened on it.
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "platform/posix/atomic_file.h"
#include "platform/posix/backends.h"
#include "platform/posix/reg_document.h"
#include "support/scoped_env.h"
#include "support/temp_dir.h"

namespace lumacfg::platform::posix {
namespace {

namespace fs = std::filesystem;
using support::ScopedEnv;
using support::TempDir;
using support::WriteBytes;

constexpr const char* kKey = "SOFTWARE\\Corvane Instruments\\Plasmasuite\\CurrentVersion";

// A store with one key of ours, lines of kinds the store does not write, and a second key.
const std::string kStore =
    "Windows Registry Editor Version 5.00\r\n"
    "\r\n"
    "; exported by the installation\r\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Corvane Instruments\\Plasmasuite\\CurrentVersion]\r\n"
    "\"Path\"=\"C:\\\\Plasmasuite\\\\\"\r\n"
    "\"HardWare\"=dword:00000002\r\n"
    "\"Blob\"=hex:01,02,03,\\\r\n"
    "  04,05\r\n"
    "@=\"default\"\r\n"
    "\r\n"
    "[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Removed]\r\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Other]\r\n"
    "\"Path\"=\"elsewhere\"\r\n";

TEST(RegDocumentTest, ReadsValuesOfEveryKind) {
    RegDocument document(kStore);
    const std::string key = std::string("hkey_local_machine\\") + kKey;
    EXPECT_EQ(document.Get(key, "path").value().text, "C:\\Plasmasuite\\");
    EXPECT_EQ(document.Get(key, "HARDWARE").value().dword, 2u);
    EXPECT_EQ(document.Get(key, "Blob").value().kind, RegValue::Kind::Other);
    EXPECT_EQ(document.Get(key, "").value().text, "default");
    EXPECT_FALSE(document.Get(key, "Missing"));
    EXPECT_FALSE(document.HasKey("HKEY_LOCAL_MACHINE\\SOFTWARE\\Removed"));
    EXPECT_EQ(document.Get("HKEY_LOCAL_MACHINE\\SOFTWARE\\OTHER", "Path").value().text,
              "elsewhere");
}

TEST(RegDocumentTest, WritesChangeOnlyTheirLine) {
    const std::string key = std::string("HKEY_LOCAL_MACHINE\\") + kKey;
    RegDocument document(kStore);
    EXPECT_FALSE(document.SetDword("HKEY_LOCAL_MACHINE\\SOFTWARE\\Nowhere", "X", 1));
    EXPECT_EQ(document.Bytes(), kStore);
    EXPECT_TRUE(document.SetDword(key, "hardware", 0x0890F76Fu));         // the store's spelling
    EXPECT_TRUE(document.SetDword(key, "ConfigurationID", 0xFFFFFFFFu));  // after the last value
    EXPECT_TRUE(document.SetString(key, "PATH", "D:\\Data \"x\""));
    EXPECT_TRUE(document.SetString(key, "VLT_TEMP", std::string("C:\\T\0junk", 9)));  // to NUL
    EXPECT_TRUE(document.SetString(key, "blob", "text"));  // a continued value replaced whole
    EXPECT_EQ(document.Bytes(),
              "Windows Registry Editor Version 5.00\r\n"
              "\r\n"
              "; exported by the installation\r\n"
              "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Corvane Instruments\\Plasmasuite\\CurrentVersion]\r\n"
              "\"Path\"=\"D:\\\\Data \\\"x\\\"\"\r\n"
              "\"HardWare\"=dword:0890f76f\r\n"
              "\"Blob\"=\"text\"\r\n"
              "@=\"default\"\r\n"
              "\"ConfigurationID\"=dword:ffffffff\r\n"
              "\"VLT_TEMP\"=\"C:\\\\T\"\r\n"
              "\r\n"
              "[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Removed]\r\n"
              "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Other]\r\n"
              "\"Path\"=\"elsewhere\"\r\n");
}

class RegistryStoreTest : public ::testing::Test {
  protected:
    void SetUp() override { WriteBytes(store_, kStore); }

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
        EXPECT_TRUE(key->SetString("path", "E:\\"));
    }
    auto key = MakeRegistry()->OpenKey("software\\corvane instruments\\PLASMASUITE\\currentversion",
                                       RegistryAccess::Read);
    ASSERT_TRUE(key);
    EXPECT_EQ(key->QueryDword("configurationid"), 0x0890F76Fu);
    EXPECT_EQ(key->QueryString("vlt_lcd"), "C:\\LCD \"x\"\\");
    EXPECT_EQ(key->QueryString("Path"), "E:\\");
    EXPECT_EQ(key->QueryString("HardWare"), std::nullopt);  // a dword is no string
    EXPECT_EQ(key->QueryDword("Path"), std::nullopt);
    EXPECT_EQ(key->QueryDword("Missing"), std::nullopt);
    EXPECT_FALSE(key->SetDword("HardWare", 5));  // opened for reading only

    struct stat info {};
    ASSERT_EQ(::stat(store_.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0600u);
    EXPECT_EQ(std::distance(fs::directory_iterator(dir_), fs::directory_iterator()), 1);
}

TEST_F(RegistryStoreTest, OpeningFailsWhereTheLocalMachineHiveWould) {
    auto registry = MakeRegistry();
    EXPECT_FALSE(registry->OpenKey("SOFTWARE\\Corvane Instruments", RegistryAccess::Read));
    EXPECT_FALSE(registry->OpenKey("SOFTWARE\\Removed", RegistryAccess::Read));
    EXPECT_TRUE(registry->OpenKey("SOFTWARE\\Other", RegistryAccess::SetValue));

    ASSERT_EQ(::chmod(store_.c_str(), 0444), 0);  // refused even to the super-user
    EXPECT_FALSE(registry->OpenKey(kKey, RegistryAccess::SetValue));
    auto key = registry->OpenKey(kKey, RegistryAccess::Read);
    ASSERT_TRUE(key);
    EXPECT_EQ(key->QueryDword("HardWare"), 2u);

    registryEnv_.Set((dir_ / "absent.reg").string());
    EXPECT_FALSE(registry->OpenKey(kKey, RegistryAccess::Read));
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
