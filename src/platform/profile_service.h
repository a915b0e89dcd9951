// Sectioned profile files ("lumagen.ist", "custrack.ini", "runtype.ini", ...): the
// platform's profile service. Paths are the data system's own texts (backslashes allowed).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lumacfg::platform {

struct ProfileRead {
    std::string text;   // at most size - 1 characters
    std::size_t count;  // characters stored (text.size())
};

class ProfileService {
  public:
    virtual ~ProfileService() = default;

    // Reads a value as the profile service does: at most size - 1 characters; a missing file,
    // section or key gives the default with its trailing blanks removed.
    virtual ProfileRead GetString(std::string_view file, std::string_view section,
                                  std::string_view key, std::string_view defaultText,
                                  std::size_t size) = 0;

    // Writes a value. No key: the whole section is deleted. No value: the key is deleted.
    // Returns false when the file cannot be written (the failure is reported to Failures());
    // a change that changes nothing (deleting what is not there) succeeds without a write.
    virtual bool WriteString(std::string_view file, std::string_view section,
                             std::optional<std::string_view> key,
                             std::optional<std::string_view> value) = 0;

    // Between BeginBatch and EndBatch, changes are made in memory and every changed file
    // is written once at EndBatch (with the same bytes key-by-key writes would give).
    // Reads in between see the changes. EndBatch returns false when a file could not be
    // written. Batches nest; the outermost EndBatch writes.
    virtual void BeginBatch() = 0;
    virtual bool EndBatch() = 0;

    // Replaces target with the bytes of source, as a file copy does; in a batch the copy is one
    // more change of target, written with its others. False when source cannot be read (not
    // reported: a missing source is the caller's business) or target cannot be written
    // (reported).
    virtual bool CopyFile(std::string_view source, std::string_view target) = 0;

    // True when the file is missing or can be read as a profile. False when something is there
    // that cannot be (a directory, a FIFO, a file the process may not read, an encoding that
    // cannot be decoded): the failure is reported to Failures().
    virtual bool Readable(std::string_view file) = 0;

    // How many sections of the name the file holds (reads and writes find the first); a file
    // that is missing or cannot be read holds none.
    virtual std::size_t SectionCount(std::string_view file, std::string_view section) = 0;
};

}  // namespace lumacfg::platform
