// The registry on POSIX: a machine-wide ".reg" text file, LUMACFG_REGISTRY or
// /etc/plasmasuite/registry.reg. Every write re-reads the file and replaces it atomically
// under an advisory lock on its directory.
//
// Failures go to Failures() with the store's path: a store that cannot be read (a directory, a
// FIFO, no permission) or is no registry file (its first line is not the header), and a store
// that may not be written when a key is opened to set values or a value is set. A missing
// store is no failure of its own: it holds no keys, so opening any key fails, as it does on a
// machine where the data system is not installed.
//
// Batches keep the sets in memory and replay them at the outermost EndBatch on the store as it
// is then, re-read under the lock: a value another program wrote meanwhile survives, and the
// lock is never held while the caller works (a save may wait for the user or for a program it
// started). One-by-one sets and a batch of the same sets give the same bytes.
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <map>
#include <vector>

#include "platform/posix/atomic_file.h"
#include "platform/posix/backends.h"
#include "platform/posix/reg_document.h"
#include "platform/services.h"

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

// The store as a document; nothing when it is missing, cannot be read or is no registry file
// (the last two reported).
std::optional<RegDocument> ReadStore(const std::string& store) {
    FileRead read = ReadTextFile(store);
    if (read.status == FileRead::Status::Failed) {
        Failures().Report(FileOperation::Read, store, read.reason);
    }
    if (read.status != FileRead::Status::Read) return std::nullopt;
    RegDocument document(read.bytes);
    if (!document.IsStore()) {
        Failures().Report(
            FileOperation::Read, store,
            "not a registry file (its first line is not \"" + std::string(kRegHeader) + "\")");
        return std::nullopt;
    }
    return document;
}

// True when the store may be written; otherwise the reason is reported, in the words the
// profile files get ("read-only file" for a file without write permission bits, which is refused
// even to the super-user; the operating system's words where it refuses).
bool CheckWritable(const std::string& store) {
    const std::optional<std::string> problem = WriteProblem(store);
    if (problem) Failures().Report(FileOperation::Write, store, *problem);
    return !problem;
}

// One value set: what a batch keeps to replay at its end.
struct ValueSet {
    std::string keyPath;
    std::string name;
    std::optional<std::string> text;  // a string value, or
    std::uint32_t dword = 0;          // a 32-bit value when there is no text

    bool ApplyTo(RegDocument& document) const {
        return text ? document.SetString(keyPath, name, *text)
                    : document.SetDword(keyPath, name, dword);
    }
};

void ReportKeyGone(const std::string& store, const ValueSet& set) {
    Failures().Report(FileOperation::Write, store,
                      "the key \"" + set.keyPath + "\" is no longer in the store (value \"" +
                          set.name + "\" not set)");
}

// A store that went missing since its key was opened: the values set are not stored.
void ReportIfMissing(const std::string& store) {
    if (!HostPathExists(store))
        Failures().Report(FileOperation::Write, store, std::strerror(ENOENT));
}

// Applies the sets to the store as it is now and replaces it when its bytes change; false, with
// the failure reported, when it cannot be read or written or a set's key is gone.
bool WriteSets(const std::string& store, const std::vector<ValueSet>& sets) {
    StoreLock lock(store);
    auto document = ReadStore(store);
    if (!document) {
        ReportIfMissing(store);
        return false;
    }
    const std::string before = document->Bytes();
    bool ok = true;
    for (const ValueSet& set : sets) {
        if (!set.ApplyTo(*document)) {
            ReportKeyGone(store, set);
            ok = false;
        }
    }
    std::string after = document->Bytes();
    if (after == before) return ok;
    FileWrite written = ReplaceFile(store, after);
    if (!written.ok) Failures().Report(FileOperation::Write, store, written.reason);
    return written.ok && ok;
}

// Creates the key in the store (and the store with its first line when it is missing), at
// once and under the lock; false, with the failure reported, when it cannot be read or written.
bool CreateStoreKey(const std::string& store, const std::string& keyPath) {
    StoreLock lock(store);
    std::optional<RegDocument> document;
    if (ReadRegularFile(store).status == FileRead::Status::Missing) {
        document.emplace(std::string(kRegHeader) + "\r\n");
    } else {
        document = ReadStore(store);
    }
    if (!document) return false;
    const std::string before = document->Bytes();
    document->AddKey(keyPath);
    const std::string after = document->Bytes();
    if (after == before) return CheckWritable(store);
    FileWrite written = ReplaceFile(store, after);
    if (!written.ok) Failures().Report(FileOperation::Write, store, written.reason);
    return written.ok;
}

// What the registry object and its keys share: the batch in progress.
class Store {
  public:
    // Calls `use` with the document that queries and opens see (nullptr when there is none):
    // inside a batch the batch's, with its sets; outside one the store read now.
    template <typename Use>
    auto WithDocument(const std::string& store, Use use) {
        if (depth_ > 0) {
            std::optional<RegDocument>& document = Load(store)->document;
            return use(document ? &*document : nullptr);
        }
        std::optional<RegDocument> document = ReadStore(store);
        return use(document ? &*document : nullptr);
    }

    bool Set(const std::string& store, ValueSet set) {
        if (set.name.find_first_of("\r\n") != std::string::npos) {
            Failures().Report(FileOperation::Write, store, "a value name cannot hold a line break");
            return false;
        }
        if (depth_ == 0) return WriteSets(store, {set});
        Pending* pending = Load(store);
        if (!pending->document) {
            ReportIfMissing(store);  // a store that cannot be read was reported when read
            return false;
        }
        if (!set.ApplyTo(*pending->document)) {
            ReportKeyGone(store, set);
            return false;
        }
        pending->sets.push_back(std::move(set));
        return true;
    }

    void Begin() { ++depth_; }

    bool End() {
        if (depth_ == 0 || --depth_ > 0) return true;
        bool ok = true;
        for (auto& [store, pending] : batch_) {
            if (!pending.sets.empty()) ok = WriteSets(store, pending.sets) && ok;
        }
        batch_.clear();
        return ok;
    }

  private:
    struct Pending {
        std::optional<RegDocument> document;  // the store when the batch first used it
        std::vector<ValueSet> sets;
    };

    Pending* Load(const std::string& store) {
        auto found = batch_.find(store);
        if (found != batch_.end()) return &found->second;
        return &batch_.emplace(store, Pending{ReadStore(store), {}}).first->second;
    }

    int depth_ = 0;
    std::map<std::string, Pending> batch_;
};

class FileRegistryKey final : public RegistryKey {
  public:
    FileRegistryKey(std::shared_ptr<Store> shared, std::string store, std::string keyPath,
                    RegistryAccess access)
        : shared_(std::move(shared)),
          store_(std::move(store)),
          keyPath_(std::move(keyPath)),
          access_(access) {}

    // A string saved as hex(1): reads as its text; an expandable string (hex(2):) reads as its
    // text with its %NAME% parts as stored, as a query of the hive gives it.
    std::optional<std::string> QueryString(std::string_view name) override {
        auto value = Query(name);
        if (!value || (value->kind != RegValue::Kind::String &&
                       value->kind != RegValue::Kind::ExpandString)) {
            return std::nullopt;
        }
        return value->text;
    }

    std::optional<std::uint32_t> QueryDword(std::string_view name) override {
        auto value = Query(name);
        if (!value || value->kind != RegValue::Kind::Dword) return std::nullopt;
        return value->dword;
    }

    bool SetString(std::string_view name, std::string_view text) override {
        if (access_ != RegistryAccess::SetValue) return false;
        return shared_->Set(store_, {keyPath_, std::string(name), std::string(text)});
    }

    bool SetDword(std::string_view name, std::uint32_t value) override {
        if (access_ != RegistryAccess::SetValue) return false;
        return shared_->Set(store_, {keyPath_, std::string(name), std::nullopt, value});
    }

  private:
    std::optional<RegValue> Query(std::string_view name) {
        return shared_->WithDocument(store_, [&](const RegDocument* document) {
            return document ? document->Get(keyPath_, name) : std::nullopt;
        });
    }

    std::shared_ptr<Store> shared_;
    std::string store_;
    std::string keyPath_;
    RegistryAccess access_;
};

class FileRegistry final : public Registry {
  public:
    std::unique_ptr<RegistryKey> OpenKey(std::string_view path, RegistryAccess access) override {
        path = path.substr(0, path.find('\0'));  // a NUL after the path is ignored
        std::string store = StorePath();
        std::string keyPath = std::string(kHive) + std::string(path);
        bool found = shared_->WithDocument(store, [&](const RegDocument* document) {
            return document && document->HasKey(keyPath);
        });
        if (!found) return nullptr;
        if (access == RegistryAccess::SetValue && !CheckWritable(store)) return nullptr;
        return std::make_unique<FileRegistryKey>(shared_, std::move(store), std::move(keyPath),
                                                 access);
    }

    // A key is made at once, outside any batch (as the installation makes it).
    std::unique_ptr<RegistryKey> CreateKey(std::string_view path) override {
        path = path.substr(0, path.find('\0'));
        std::string store = StorePath();
        std::string keyPath = std::string(kHive) + std::string(path);
        if (!CreateStoreKey(store, keyPath)) return nullptr;
        return std::make_unique<FileRegistryKey>(shared_, std::move(store), std::move(keyPath),
                                                 RegistryAccess::SetValue);
    }

    std::string Location() const override { return StorePath(); }

    // A missing store holds no keys; one that is there must be a registry file that can be read.
    bool Readable() override {
        const std::string store = StorePath();
        const bool read = shared_->WithDocument(
            store, [](const RegDocument* document) { return document != nullptr; });
        return read || ReadRegularFile(store).status == FileRead::Status::Missing;
    }

    void BeginBatch() override { shared_->Begin(); }
    bool EndBatch() override { return shared_->End(); }

  private:
    std::shared_ptr<Store> shared_ = std::make_shared<Store>();
};

}  // namespace

std::unique_ptr<Registry> MakeRegistry() {
    return std::make_unique<FileRegistry>();
}

}  // namespace lumacfg::platform::posix
