// The registry on POSIX: a machine-wide ".reg" text file, LUMACFG_REGISTRY or
// /etc/plasmasuite/registry.reg. Every write re-reads the file and replaces it atomically
// under an advisory lock on its directory.
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/posix/atomic_file.h"
#include "platform/posix/backends.h"
#include "platform/posix/reg_document.h"

namespace lumacfg::platform::posix {
namespace {

constexpr std::string_view kHive = "HKEY_LOCAL_MACHINE\\";

std::string StorePath() {
    const char* configured = std::getenv("LUMACFG_REGISTRY");
    return configured && *configured ? configured : "/etc/plasmasuite/registry.reg";
}

// Holds an exclusive lock on the store's directory for the life of the object.
class StoreLock {
  public:
    explicit StoreLock(const std::string& store) {
        std::size_t slash = store.rfind('/');
        std::string dir = slash == std::string::npos ? "." : store.substr(0, slash ? slash : 1);
        fd_ = ::open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (fd_ >= 0) ::flock(fd_, LOCK_EX);
    }
    ~StoreLock() {
        if (fd_ >= 0) ::close(fd_);  // closing releases the lock
    }
    StoreLock(const StoreLock&) = delete;
    StoreLock& operator=(const StoreLock&) = delete;

  private:
    int fd_ = -1;
};

class FileRegistryKey final : public RegistryKey {
  public:
    FileRegistryKey(std::string store, std::string keyPath, RegistryAccess access)
        : store_(std::move(store)), keyPath_(std::move(keyPath)), access_(access) {}

    std::optional<std::string> QueryString(std::string_view name) override {
        auto value = Query(name);
        if (!value || value->kind != RegValue::Kind::String) return std::nullopt;
        return value->text;
    }

    std::optional<std::uint32_t> QueryDword(std::string_view name) override {
        auto value = Query(name);
        if (!value || value->kind != RegValue::Kind::Dword) return std::nullopt;
        return value->dword;
    }

    bool SetString(std::string_view name, std::string_view text) override {
        return Update([&](RegDocument& doc) { return doc.SetString(keyPath_, name, text); });
    }

    bool SetDword(std::string_view name, std::uint32_t value) override {
        return Update([&](RegDocument& doc) { return doc.SetDword(keyPath_, name, value); });
    }

  private:
    std::optional<RegValue> Query(std::string_view name) {
        FileRead read = ReadRegularFile(store_);
        if (read.status != FileRead::Status::Read) return std::nullopt;
        return RegDocument(read.bytes).Get(keyPath_, name);
    }

    template <typename Edit>
    bool Update(Edit edit) {
        if (access_ != RegistryAccess::SetValue) return false;
        StoreLock lock(store_);
        FileRead read = ReadRegularFile(store_);
        if (read.status != FileRead::Status::Read) return false;
        RegDocument doc(read.bytes);
        return edit(doc) && ReplaceFile(store_, doc.Bytes()).ok;
    }

    std::string store_;
    std::string keyPath_;
    RegistryAccess access_;
};

class FileRegistry final : public Registry {
  public:
    std::unique_ptr<RegistryKey> OpenKey(std::string_view path, RegistryAccess access) override {
        path = path.substr(0, path.find('\0'));  // a NUL after the path is ignored
        std::string store = StorePath();
        FileRead read = ReadRegularFile(store);
        std::string keyPath = std::string(kHive) + std::string(path);
        if (read.status != FileRead::Status::Read || !RegDocument(read.bytes).HasKey(keyPath)) {
            return nullptr;
        }
        if (access == RegistryAccess::SetValue && !MayWrite(store)) return nullptr;
        return std::make_unique<FileRegistryKey>(std::move(store), std::move(keyPath), access);
    }

    void BeginBatch() override {}
    bool EndBatch() override { return true; }
};

}  // namespace

std::unique_ptr<Registry> MakeRegistry() {
    return std::make_unique<FileRegistry>();
}

}  // namespace lumacfg::platform::posix
