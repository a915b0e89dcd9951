// The profile service on POSIX: our own engine over ProfileDocument, with whole-save batches.
#include <map>
#include <unordered_map>
#include <vector>

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

// Reads a file as a profile; a file that is there but cannot be read, or whose text cannot be
// decoded (so that writing it back would lose what could not be read), is reported.
FileRead ReadProfile(const std::string& host) {
    FileRead read = ReadTextFile(host);
    if (read.status == FileRead::Status::Failed) {
        Failures().Report(FileOperation::Read, host, read.reason);
    }
    return read;
}

bool Written(const std::string& host, std::string_view bytes) {
    FileWrite written = ReplaceFile(host, bytes);
    if (!written.ok) Failures().Report(FileOperation::Write, host, written.reason);
    return written.ok;
}

// Makes one change; true when the document changed. A deletion of what is not there
// changes nothing, so it never creates a file.
bool Apply(ProfileDocument& document, std::string_view section, std::optional<std::string_view> key,
           std::optional<std::string_view> value) {
    if (!key) return document.DeleteSection(section);
    if (!value) return document.DeleteKey(section, *key);
    return document.Set(section, *key, *value);
}

class PosixProfileService final : public ProfileService {
  public:
    ProfileRead GetString(std::string_view file, std::string_view section, std::string_view key,
                          std::string_view defaultText, std::size_t size) override {
        std::optional<std::string> value;
        if (depth_ > 0) {
            value = Load(file).document.Get(section, key);
        } else {
            FileRead read = ReadProfile(HostPath(file));
            if (read.status == FileRead::Status::Read) {
                value = LookUpProfileValue(read.bytes, section, key);
            }
        }
        return Truncated(value ? std::move(*value) : WithoutTrailingBlanks(defaultText), size);
    }

    bool WriteString(std::string_view file, std::string_view section,
                     std::optional<std::string_view> key,
                     std::optional<std::string_view> value) override {
        if (depth_ > 0) {
            Entry& entry = Load(file);
            if (Refusal(entry)) {
                // A file that may not be written keeps its content, in memory too, so reads in
                // the batch see what reads after failed key-by-key writes would see; a change
                // that would change nothing still succeeds.
                ProfileDocument trial = entry.document;
                if (!Apply(trial, section, key, value)) return true;
                Refuse(entry);
                return false;
            }
            if (Apply(entry.document, section, key, value)) Changed(entry);
            return true;
        }
        std::string host = HostPath(file);
        FileRead read = ReadProfile(host);
        // A file that is there but cannot be read is never replaced by one made from nothing.
        if (read.status == FileRead::Status::Failed) return false;
        ProfileDocument document(read.bytes);
        if (!Apply(document, section, key, value)) return true;
        return Written(host, document.Bytes());
    }

    bool CopyFile(std::string_view source, std::string_view target) override {
        if (depth_ == 0) {
            FileRead read = ReadProfile(HostPath(source));
            return read.status == FileRead::Status::Read && Written(HostPath(target), read.bytes);
        }
        // In a batch the source is what it is now, changes of the batch included, and the copy
        // is one more change of the target: later edits apply on top of it and the target is
        // written once, with its other changes.
        Entry& from = Load(source);
        // A missing source is the caller's business; an unreadable one was reported.
        if ((!from.onDisk && !from.dirty) || from.readFailed) return false;
        std::string bytes = from.document.Bytes();
        Entry& to = Load(target);
        const bool there = (to.onDisk && !to.readFailed) || to.dirty;
        if (there && to.document.Bytes() == bytes) return true;  // changes nothing
        if (Refusal(to)) {
            Refuse(to);
            return false;
        }
        to.document = ProfileDocument(bytes);
        Changed(to);
        return true;
    }

    bool Readable(std::string_view file) override {
        if (depth_ > 0) return !Load(file).readFailed;
        return ReadProfile(HostPath(file)).status != FileRead::Status::Failed;
    }

    std::size_t SectionCount(std::string_view file, std::string_view section) override {
        if (depth_ > 0) return Load(file).document.SectionCount(section);
        FileRead read = ReadProfile(HostPath(file));
        if (read.status != FileRead::Status::Read) return 0;
        return ProfileDocument(read.bytes).SectionCount(section);
    }

    void BeginBatch() override { ++depth_; }

    bool EndBatch() override {
        if (depth_ == 0 || --depth_ > 0) return true;
        // Each changed file once, in the order it was first changed; a file whose changes
        // brought it back to the bytes read is left as it is; a file that cannot be written does
        // not keep the others from being written.
        bool ok = !refused_;
        for (const std::string& host : changed_) {
            const Entry& entry = entries_.at(host);
            std::string bytes = entry.document.Bytes();
            if (entry.onDisk && bytes == entry.bytesRead) continue;
            ok = Written(host, bytes) && ok;
        }
        entries_.clear();
        hosts_.clear();
        changed_.clear();
        refused_ = false;
        return ok;
    }

  private:
    // A file as the batch sees it.
    struct Entry {
        std::string host;
        ProfileDocument document;
        std::string bytesRead;    // as the batch first read them
        bool onDisk = false;      // there when the batch first looked
        bool readFailed = false;  // there but not readable as a profile (reported)
        bool dirty = false;       // changed by the batch
        // Why the file may not be written, asked when the batch first changes it.
        std::optional<std::optional<std::string>> refusal;
    };

    // Why the file may not be written, or nullopt. A file that could not be read is never
    // written (so never replaced by one made from nothing).
    static const std::optional<std::string>& Refusal(Entry& entry) {
        if (!entry.refusal) entry.refusal = WriteProblem(entry.host);
        return *entry.refusal;
    }

    // The file's entry in the batch, read and parsed on first use. Each data-system path is
    // resolved on the disk once per batch.
    Entry& Load(std::string_view file) {
        auto known = hosts_.find(std::string(file));
        const std::string& host =
            known != hosts_.end() ? known->second
                                  : hosts_.emplace(std::string(file), HostPath(file)).first->second;
        auto found = entries_.find(host);
        if (found != entries_.end() && found->second.onDisk) return found->second;
        // A file that is not on disk may have been made earlier in this batch under another
        // spelling; on disk, the path lookup would find it whatever the case of its name
        // ("RUNTYPE.INI", "runtype.ini").
        for (const std::string& made : changed_) {
            Entry& entry = entries_.at(made);
            if (!entry.onDisk && SameTextIgnoringCase(made, host)) return entry;
        }
        if (found != entries_.end()) return found->second;

        Entry entry;
        entry.host = host;
        FileRead read = ReadProfile(host);
        entry.onDisk = read.status != FileRead::Status::Missing;
        entry.readFailed = read.status == FileRead::Status::Failed;
        if (entry.readFailed) {
            entry.refusal = std::optional<std::string>(read.reason);
        } else {
            entry.document = ProfileDocument(read.bytes);
            entry.bytesRead = std::move(read.bytes);
        }
        return entries_.emplace(host, std::move(entry)).first->second;
    }

    void Changed(Entry& entry) {
        if (!entry.dirty) changed_.push_back(entry.host);
        entry.dirty = true;
    }

    // A change the file cannot take; a file that could not be read was reported as such.
    void Refuse(Entry& entry) {
        if (!entry.readFailed) Failures().Report(FileOperation::Write, entry.host, *Refusal(entry));
        refused_ = true;
    }

    int depth_ = 0;
    std::map<std::string, Entry> entries_;                // by host path
    std::unordered_map<std::string, std::string> hosts_;  // data-system path -> host path
    std::vector<std::string> changed_;                    // host paths, in order of change
    bool refused_ = false;                                // a change in the batch was refused
};

}  // namespace

std::unique_ptr<ProfileService> MakeProfileService() {
    return std::make_unique<PosixProfileService>();
}

}  // namespace lumacfg::platform::posix
