// The profile service on POSIX: our own engine over ProfileDocument, with whole-save batches.
#include <algorithm>
#include <map>

#include "base/text.h"
#include "platform/posix/atomic_file.h"
#include "platform/posix/backends.h"
#include "platform/posix/profile_document.h"
#include "platform/services.h"

namespace lumacfg::platform::posix {
namespace {

std::string WithoutTrailingBlanks(std::string_view text) {
    std::size_t end = text.find_last_not_of(" \t");
    return std::string(end == std::string_view::npos ? std::string_view{}
                                                     : text.substr(0, end + 1));
}

ProfileRead Truncated(std::string text, std::size_t size) {
    std::size_t room = size == 0 ? 0 : size - 1;
    if (text.size() > room) text.resize(room);
    std::size_t count = text.size();
    return {std::move(text), count};
}

class PosixProfileService final : public ProfileService {
  public:
    ProfileRead GetString(std::string_view file, std::string_view section, std::string_view key,
                          std::string_view defaultText, std::size_t size) override {
        std::string host = HostPath(file);
        std::optional<std::string> value;
        if (depth_ > 0) {
            if (Cached* cached = Load(host)) value = cached->document.Get(section, key);
        } else if (auto bytes = ReadProfileBytes(host)) {
            value = LookUpProfileValue(*bytes, section, key);
        }
        return Truncated(value ? std::move(*value) : WithoutTrailingBlanks(defaultText), size);
    }

    bool WriteString(std::string_view file, std::string_view section,
                     std::optional<std::string_view> key,
                     std::optional<std::string_view> value) override {
        std::string host = HostPath(file);
        if (depth_ > 0) {
            Cached* cached = Load(host);
            // A file that may not be written keeps its content, in memory too, so reads in
            // the batch see what reads after failed key-by-key writes would see.
            if (!cached->writable) return false;
            if (Apply(cached->document, section, key, value)) cached->dirty = true;
            return true;
        }
        FileRead read = ReadRegularFile(host);
        // A file that is there but cannot be read is never replaced by one made from nothing.
        if (read.status == FileRead::Status::Failed) {
            Failures().Report(FileOperation::Read, host, read.reason);
            return false;
        }
        ProfileDocument document(read.bytes);
        if (!Apply(document, section, key, value)) return true;
        return Written(host, document.Bytes());
    }

    void BeginBatch() override { ++depth_; }

    bool CopyFile(std::string_view source, std::string_view target) override {
        FileRead read = ReadRegularFile(HostPath(source));
        if (read.status != FileRead::Status::Read) return false;
        return Written(HostPath(target), read.bytes);
    }

    bool Readable(std::string_view file) override {
        std::string host = HostPath(file);
        FileRead read = ReadRegularFile(host);
        if (read.status != FileRead::Status::Failed) return true;
        Failures().Report(FileOperation::Read, host, read.reason);
        return false;
    }

    bool EndBatch() override {
        if (depth_ == 0 || --depth_ > 0) return true;
        bool ok = true;
        for (auto& [host, cached] : batch_) {
            if (cached.dirty) ok = Written(host, cached.document.Bytes()) && ok;
        }
        batch_.clear();
        return ok;
    }

  private:
    static std::optional<std::string> ReadProfileBytes(const std::string& host) {
        FileRead read = ReadRegularFile(host);
        if (read.status == FileRead::Status::Read) return std::move(read.bytes);
        if (read.status == FileRead::Status::Failed) {
            Failures().Report(FileOperation::Read, host, read.reason);
        }
        return std::nullopt;
    }

    static bool Written(const std::string& host, std::string_view bytes) {
        FileWrite written = ReplaceFile(host, bytes);
        if (!written.ok) Failures().Report(FileOperation::Write, host, written.reason);
        return written.ok;
    }

    struct Cached {
        ProfileDocument document;
        bool writable = false;
        bool existed = false;  // on disk when the batch first touched it
        bool dirty = false;
    };

    Cached* Load(const std::string& host) {
        bool exists = HostPathExists(host);
        if (!exists) {
            // A file made earlier in this batch is not on disk yet; on disk, the path lookup
            // would find it whatever the case of its name ("RUNTYPE.INI", "runtype.ini").
            for (auto& [path, cached] : batch_) {
                if (!cached.existed && cached.dirty && SameTextIgnoringCase(path, host)) {
                    return &cached;
                }
            }
        }
        auto found = batch_.find(host);
        if (found != batch_.end()) return &found->second;
        FileRead read = ReadRegularFile(host);
        if (read.status == FileRead::Status::Failed) {
            Failures().Report(FileOperation::Read, host, read.reason);
        }
        bool writable = MayWrite(host) && read.status != FileRead::Status::Failed;
        Cached cached{ProfileDocument(read.bytes), writable, exists, false};
        return &batch_.emplace(host, std::move(cached)).first->second;
    }

    // Makes one change; true when the document changed. A deletion of what is not there
    // changes nothing, so it never creates a file.
    static bool Apply(ProfileDocument& document, std::string_view section,
                      std::optional<std::string_view> key, std::optional<std::string_view> value) {
        if (!key) return document.DeleteSection(section);
        if (!value) return document.DeleteKey(section, *key);
        return document.Set(section, *key, *value);
    }

    int depth_ = 0;
    std::map<std::string, Cached> batch_;
};

}  // namespace

std::unique_ptr<ProfileService> MakeProfileService() {
    return std::make_unique<PosixProfileService>();
}

}  // namespace lumacfg::platform::posix
