#include "app/cli/held_changes.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <map>

#include "base/text.h"
#include "platform/posix/backends.h"
#include "platform/posix/profile_document.h"
#include "platform/posix/reg_document.h"
#include "platform/services.h"

namespace lumacfg::cli {

namespace {

constexpr std::string_view kHive = "HKEY_LOCAL_MACHINE\\";

std::string Lowered(std::string_view text) {
    std::string lowered(text);
    for (char& c : lowered) c = AsciiLower(c);
    return lowered;
}

std::string_view SingleLine(std::string_view text) {
    return text.substr(0, text.find_first_of("\r\n"));
}

bool SameName(std::string_view a, std::string_view b) {
    return SameTextIgnoringCase(TrimBlanks(SingleLine(a)), TrimBlanks(SingleLine(b)));
}

// A written value as a read gives it back: on one line, without its outer blanks, without a
// matching pair of quotes around it.
std::string ReadBack(std::string_view written) {
    std::string_view value = TrimBlanks(SingleLine(written));
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
        value.back() == value.front()) {
        value = value.substr(1, value.size() - 2);
    }
    return std::string(value);
}

platform::ProfileRead Truncated(std::string text, std::size_t size) {
    const std::size_t room = size == 0 ? 0 : size - 1;
    if (text.size() > room) text.resize(room);
    const std::size_t count = text.size();
    return {std::move(text), count};
}

std::string WithoutTrailingBlanks(std::string_view text) {
    const std::size_t end = text.find_last_not_of(" \t");
    return std::string(end == std::string_view::npos ? std::string_view{}
                                                     : text.substr(0, end + 1));
}

// The registry store the platform's registry works on.
std::string RegistryStorePath() {
    const char* configured = std::getenv("LUMACFG_REGISTRY");
    return configured && *configured ? configured : "/etc/plasmasuite/registry.reg";
}

}  // namespace

struct HeldChanges::Log {
    struct ProfileChange {
        std::string file, fileKey;
        std::string section;
        std::optional<std::string> key, value;  // no key: the section deleted; no value: the key
        std::optional<std::string> source;      // a copy of this file over `file`
        std::string sourceKey;
    };
    struct RegistryChange {
        std::string keyPath;  // as opened, without the hive
        std::string name;
        std::optional<std::string> text;  // a string value, or
        std::uint32_t dword = 0;          // a 32-bit value
    };
    struct FileChange {
        enum class Kind { Write, Copy, Delete } kind;
        std::string path, source, bytes;
    };
    struct HeldFile {
        std::string path;                  // the first spelling met
        std::optional<std::string> bytes;  // nothing: deleted
    };

    // Where a profile value comes from as the held changes stand after `end` of them.
    struct Found {
        enum class State { Value, Missing, Disk } state;
        std::string text;
        std::string diskFile;
    };
    Found Lookup(const std::string& file, const std::string& fileKey, std::string_view section,
                 std::string_view key, std::size_t end) const {
        for (std::size_t i = end; i-- > 0;) {
            const ProfileChange& change = profileChanges[i];
            if (change.fileKey != fileKey) continue;
            if (change.source) return Lookup(*change.source, change.sourceKey, section, key, i);
            if (!SameName(change.section, section)) continue;
            if (!change.key) return {Found::State::Missing, {}, {}};
            if (!SameName(*change.key, key)) continue;
            if (!change.value) return {Found::State::Missing, {}, {}};
            return {Found::State::Value, ReadBack(*change.value), {}};
        }
        return {Found::State::Disk, {}, file};
    }

    // One file as the held changes name it: a key under which every spelling of the same file
    // meets (the file system finds a name whatever its case). Nothing on the disk changes while
    // changes are held, so each spelling is resolved once.
    const std::string& FileKey(std::string_view file) {
        auto found = fileKeys.find(file);
        if (found == fileKeys.end()) {
            found = fileKeys.emplace(std::string(file), Lowered(platform::HostPath(file))).first;
        }
        return found->second;
    }

    bool ProfileHeld(const std::string& fileKey) const {
        return std::any_of(profileChanges.begin(), profileChanges.end(),
                           [&](const ProfileChange& change) { return change.fileKey == fileKey; });
    }

    // The platform's own services.
    std::unique_ptr<platform::ProfileService> profiles = platform::posix::MakeProfileService();
    std::unique_ptr<platform::Registry> registry = platform::posix::MakeRegistry();
    std::unique_ptr<platform::FileSystem> files = platform::posix::MakeFileSystem();
    std::unique_ptr<platform::SecurityLibrary> security = platform::posix::MakeSecurityLibrary();
    std::unique_ptr<platform::AuditLog> audit = platform::posix::MakeAuditLog();

    std::vector<ProfileChange> profileChanges;
    std::vector<RegistryChange> registryChanges;
    std::vector<FileChange> fileChanges;
    std::map<std::string, std::string, std::less<>> fileKeys;  // by the spelling used
    std::map<std::string, HeldFile> heldFiles;                 // by FileKey
    std::vector<std::string> heldFileOrder;                    // keys, in the order first changed
    // The audit log's records and the security library's calls, in order, as calls of the
    // platform's own services; each true when recorded.
    std::vector<std::function<bool()>> auditCalls;
    bool open = true;
};

namespace {

using Log = HeldChanges::Log;

class HeldProfiles final : public platform::ProfileService {
  public:
    explicit HeldProfiles(std::shared_ptr<Log> log) : log_(std::move(log)) {}

    platform::ProfileRead GetString(std::string_view file, std::string_view section,
                                    std::string_view key, std::string_view defaultText,
                                    std::size_t size) override {
        const std::string path(file);
        Log::Found found =
            log_->Lookup(path, log_->FileKey(file), section, key, log_->profileChanges.size());
        switch (found.state) {
            case Log::Found::State::Value:
                return Truncated(std::move(found.text), size);
            case Log::Found::State::Missing:
                return Truncated(WithoutTrailingBlanks(defaultText), size);
            case Log::Found::State::Disk:
                break;
        }
        return log_->profiles->GetString(found.diskFile, section, key, defaultText, size);
    }

    bool WriteString(std::string_view file, std::string_view section,
                     std::optional<std::string_view> key,
                     std::optional<std::string_view> value) override {
        Log::ProfileChange change{
            std::string(file), log_->FileKey(file), std::string(section), {}, {}, {}, {}};
        if (key) change.key = std::string(*key);
        if (value) change.value = std::string(*value);
        log_->profileChanges.push_back(std::move(change));
        return true;
    }

    bool CopyFile(std::string_view source, std::string_view target) override {
        const std::string sourceKey = log_->FileKey(source);
        const bool there = log_->ProfileHeld(sourceKey) || log_->files->Exists(source);
        if (!there || !log_->profiles->Readable(source)) return false;
        log_->profileChanges.push_back({std::string(target),
                                        log_->FileKey(target),
                                        {},
                                        {},
                                        {},
                                        std::string(source),
                                        sourceKey});
        return true;
    }

    bool Readable(std::string_view file) override { return log_->profiles->Readable(file); }
    // As the file stands on the disk: the sections asked about are changed only by the caller,
    // after it has asked.
    std::size_t SectionCount(std::string_view file, std::string_view section) override {
        return log_->profiles->SectionCount(file, section);
    }
    void BeginBatch() override {}
    bool EndBatch() override { return true; }

  private:
    std::shared_ptr<Log> log_;
};

class HeldRegistryKey final : public platform::RegistryKey {
  public:
    HeldRegistryKey(std::shared_ptr<Log> log, std::string keyPath, platform::RegistryAccess access,
                    std::unique_ptr<platform::RegistryKey> key)
        : log_(std::move(log)),
          keyPath_(std::move(keyPath)),
          access_(access),
          key_(std::move(key)) {}

    std::optional<std::string> QueryString(std::string_view name) override {
        if (const Log::RegistryChange* change = Latest(name)) {
            if (!change->text) return std::nullopt;
            return std::string(CutAtNul(*change->text));
        }
        return key_->QueryString(name);
    }

    std::optional<std::uint32_t> QueryDword(std::string_view name) override {
        if (const Log::RegistryChange* change = Latest(name)) {
            if (change->text) return std::nullopt;
            return change->dword;
        }
        return key_->QueryDword(name);
    }

    bool SetString(std::string_view name, std::string_view text) override {
        if (access_ != platform::RegistryAccess::SetValue) return false;
        log_->registryChanges.push_back({keyPath_, std::string(name), std::string(text), 0});
        return true;
    }

    bool SetDword(std::string_view name, std::uint32_t value) override {
        if (access_ != platform::RegistryAccess::SetValue) return false;
        log_->registryChanges.push_back({keyPath_, std::string(name), std::nullopt, value});
        return true;
    }

  private:
    const Log::RegistryChange* Latest(std::string_view name) const {
        const auto& changes = log_->registryChanges;
        for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
            if (SameTextIgnoringCase(change->keyPath, keyPath_) &&
                SameTextIgnoringCase(change->name, name)) {
                return &*change;
            }
        }
        return nullptr;
    }

    std::shared_ptr<Log> log_;
    std::string keyPath_;
    platform::RegistryAccess access_;
    std::unique_ptr<platform::RegistryKey> key_;
};

class HeldRegistry final : public platform::Registry {
  public:
    explicit HeldRegistry(std::shared_ptr<Log> log) : log_(std::move(log)) {}

    std::unique_ptr<platform::RegistryKey> OpenKey(std::string_view path,
                                                   platform::RegistryAccess access) override {
        auto key = log_->registry->OpenKey(path, access);
        if (!key) return nullptr;
        return std::make_unique<HeldRegistryKey>(log_, std::string(CutAtNul(path)), access,
                                                 std::move(key));
    }
    // A dry run creates no key: it is held like a value set on a key that exists.
    std::unique_ptr<platform::RegistryKey> CreateKey(std::string_view path) override {
        return OpenKey(path, platform::RegistryAccess::SetValue);
    }
    std::string Location() const override { return log_->registry->Location(); }
    bool Readable() override { return log_->registry->Readable(); }
    void BeginBatch() override {}
    bool EndBatch() override { return true; }

  private:
    std::shared_ptr<Log> log_;
};

class HeldFiles final : public platform::FileSystem {
  public:
    explicit HeldFiles(std::shared_ptr<Log> log) : log_(std::move(log)) {}

    std::optional<std::uint64_t> FileLength(std::string_view path) override {
        if (const Log::HeldFile* held = Held(path)) {
            if (!held->bytes) return std::nullopt;
            return held->bytes->size();
        }
        return log_->files->FileLength(path);
    }

    bool Exists(std::string_view path) override {
        if (const Log::HeldFile* held = Held(path)) return held->bytes.has_value();
        return log_->files->Exists(path);
    }

    bool CopyFile(std::string_view source, std::string_view target) override {
        std::optional<std::string> bytes = ReadFile(source);
        if (!bytes) return false;
        Hold(target, *bytes);
        log_->fileChanges.push_back(
            {Log::FileChange::Kind::Copy, std::string(target), std::string(source), {}});
        return true;
    }

    bool DeleteFile(std::string_view path) override {
        if (!Exists(path)) return false;
        Hold(path, std::nullopt);
        log_->fileChanges.push_back({Log::FileChange::Kind::Delete, std::string(path), {}, {}});
        return true;
    }

    std::vector<std::string> ListFiles(std::string_view directory) override {
        std::vector<std::string> names = log_->files->ListFiles(directory);
        std::string folder = Lowered(platform::HostPath(directory));
        while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
        for (const auto& [key, held] : log_->heldFiles) {
            const std::size_t slash = key.rfind('/');
            if (slash == std::string::npos || key.substr(0, slash) != folder) continue;
            const std::string host = platform::HostPath(held.path);
            const std::string name = host.substr(host.rfind('/') + 1);
            auto found = std::find_if(names.begin(), names.end(), [&](const std::string& n) {
                return SameTextIgnoringCase(n, name);
            });
            if (held.bytes && found == names.end()) names.push_back(name);
            if (!held.bytes && found != names.end()) names.erase(found);
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    std::optional<std::string> ReadFile(std::string_view path) override {
        if (const Log::HeldFile* held = Held(path)) return held->bytes;
        return log_->files->ReadFile(path);
    }

    bool WriteFile(std::string_view path, std::string_view bytes) override {
        Hold(path, std::string(bytes));
        log_->fileChanges.push_back(
            {Log::FileChange::Kind::Write, std::string(path), {}, std::string(bytes)});
        return true;
    }

  private:
    const Log::HeldFile* Held(std::string_view path) const {
        auto found = log_->heldFiles.find(log_->FileKey(path));
        return found == log_->heldFiles.end() ? nullptr : &found->second;
    }

    void Hold(std::string_view path, std::optional<std::string> bytes) {
        const std::string key = log_->FileKey(path);
        auto [held, added] = log_->heldFiles.try_emplace(key, Log::HeldFile{std::string(path), {}});
        if (added) log_->heldFileOrder.push_back(key);
        held->second.bytes = std::move(bytes);
    }

    std::shared_ptr<Log> log_;
};

class HeldSecurity final : public platform::SecurityLibrary {
  public:
    explicit HeldSecurity(std::shared_ptr<Log> log) : log_(std::move(log)) {}
    bool SetConfigSecurity() override {
        return Hold([security = log_->security.get()] { return security->SetConfigSecurity(); });
    }
    bool ResetConfigSecurity() override {
        return Hold([security = log_->security.get()] { return security->ResetConfigSecurity(); });
    }
    bool LogSecurityFlagChange(std::string_view text) override {
        return Hold([security = log_->security.get(), text = std::string(text)] {
            return security->LogSecurityFlagChange(text);
        });
    }

  private:
    bool Hold(std::function<bool()> call) {
        log_->auditCalls.push_back(std::move(call));
        return true;
    }
    std::shared_ptr<Log> log_;
};

class HeldAudit final : public platform::AuditLog {
  public:
    explicit HeldAudit(std::shared_ptr<Log> log) : log_(std::move(log)) {}
    bool Append(const std::vector<platform::AuditEvent>& events) override {
        if (events.empty()) return true;
        log_->auditCalls.push_back(
            [audit = log_->audit.get(), events] { return audit->Append(events); });
        return true;
    }

  private:
    std::shared_ptr<Log> log_;
};

}  // namespace

HeldChanges::HeldChanges() : log_(std::make_shared<Log>()) {
    // Reads of the command are made in one batch of the platform's services: each file is read
    // once. Nothing is changed in that batch until the commit.
    log_->profiles->BeginBatch();
    log_->registry->BeginBatch();
    platform::SetProfiles(std::make_unique<HeldProfiles>(log_));
    platform::SetRegistry(std::make_unique<HeldRegistry>(log_));
    platform::SetFiles(std::make_unique<HeldFiles>(log_));
    platform::SetSecurity(std::make_unique<HeldSecurity>(log_));
    platform::SetAudit(std::make_unique<HeldAudit>(log_));
}

HeldChanges::~HeldChanges() {
    if (log_->open) {
        // Nothing was changed in the batch: ending it writes nothing.
        log_->profiles->EndBatch();
        log_->registry->EndBatch();
    }
    platform::SetProfiles(nullptr);
    platform::SetRegistry(nullptr);
    platform::SetFiles(nullptr);
    platform::SetSecurity(nullptr);
    platform::SetAudit(nullptr);
}

bool HeldChanges::Commit() {
    if (!log_->open) return false;
    // The audit log first: a change it cannot record is not made (the failure is reported).
    for (const std::function<bool()>& call : log_->auditCalls) {
        if (!call()) return false;  // the batch is ended, unchanged, when the changes are dropped
    }
    log_->open = false;
    for (const Log::ProfileChange& change : log_->profileChanges) {
        if (change.source) {
            log_->profiles->CopyFile(*change.source, change.file);
        } else {
            log_->profiles->WriteString(change.file, change.section, change.key, change.value);
        }
    }
    for (const Log::RegistryChange& change : log_->registryChanges) {
        auto key = log_->registry->OpenKey(change.keyPath, platform::RegistryAccess::SetValue);
        if (!key) continue;  // reported by the registry
        if (change.text) {
            key->SetString(change.name, *change.text);
        } else {
            key->SetDword(change.name, change.dword);
        }
    }
    for (const Log::FileChange& change : log_->fileChanges) {
        switch (change.kind) {
            case Log::FileChange::Kind::Write:
                log_->files->WriteFile(change.path, change.bytes);
                break;
            case Log::FileChange::Kind::Copy:
                log_->files->CopyFile(change.source, change.path);
                break;
            case Log::FileChange::Kind::Delete:
                log_->files->DeleteFile(change.path);
                break;
        }
    }
    // The profiles first: the station profile is the first file a save changes.
    log_->profiles->EndBatch();
    log_->registry->EndBatch();
    return true;
}

std::vector<FilePreview> HeldChanges::Preview() {
    std::vector<FilePreview> previews;

    // Profiles: each file's document from its bytes now, with the changes made in order; a copy
    // replaces the target's document with the source's as it then stands.
    struct Profile {
        std::string path;
        std::optional<std::string> before;
        platform::posix::ProfileDocument document;
        bool changed = false;
    };
    std::map<std::string, Profile> profiles;
    std::vector<std::string> order;
    auto profile = [&](const std::string& file, const std::string& key) -> Profile& {
        auto found = profiles.find(key);
        if (found != profiles.end()) return found->second;
        Profile loaded{platform::HostPath(file), log_->files->ReadFile(file), {}, false};
        loaded.document = platform::posix::ProfileDocument(loaded.before.value_or(""));
        return profiles.emplace(key, std::move(loaded)).first->second;
    };
    for (const Log::ProfileChange& change : log_->profileChanges) {
        Profile& target = profile(change.file, change.fileKey);
        if (!target.changed) order.push_back(change.fileKey);
        target.changed = true;
        if (change.source) {
            target.document = platform::posix::ProfileDocument(
                profile(*change.source, change.sourceKey).document.Bytes());
        } else if (!change.key) {
            target.document.DeleteSection(change.section);
        } else if (!change.value) {
            target.document.DeleteKey(change.section, *change.key);
        } else {
            target.document.Set(change.section, *change.key, *change.value);
        }
    }
    for (const std::string& key : order) {
        Profile& changed = profiles.at(key);
        std::string after = changed.document.Bytes();
        const bool created = !changed.before && !after.empty();
        if (created || (changed.before && *changed.before != after)) {
            previews.push_back({changed.path, changed.before, std::move(after)});
        }
    }

    // The registry store, as its documents replays the values set.
    if (!log_->registryChanges.empty()) {
        const std::string store = RegistryStorePath();
        std::optional<std::string> before = log_->files->ReadFile(store);
        platform::posix::RegDocument document(before.value_or(""));
        for (const Log::RegistryChange& change : log_->registryChanges) {
            const std::string keyPath = std::string(kHive) + change.keyPath;
            if (change.text) {
                document.SetString(keyPath, change.name, *change.text);
            } else {
                document.SetDword(keyPath, change.name, change.dword);
            }
        }
        std::string after = document.Bytes();
        if (before && *before != after) previews.push_back({store, before, std::move(after)});
    }

    // Other files: their bytes as the changes leave them.
    for (const std::string& key : log_->heldFileOrder) {
        const Log::HeldFile& held = log_->heldFiles.at(key);
        std::optional<std::string> before = log_->files->ReadFile(held.path);
        if (before == held.bytes) continue;
        previews.push_back({platform::HostPath(held.path), std::move(before), held.bytes});
    }
    return previews;
}

}  // namespace lumacfg::cli
