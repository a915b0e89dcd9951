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
    // Returns false when the file cannot be written.
    virtual bool WriteString(std::string_view file, std::string_view section,
                             std::optional<std::string_view> key,
                             std::optional<std::string_view> value) = 0;

    // Between BeginBatch and EndBatch, changes are made in memory and every changed file
    // is written once at EndBatch (with the same bytes key-by-key writes would give).
    // Reads in between see the changes. EndBatch returns false when a file could not be
    // written. Batches nest; the outermost EndBatch writes.
    virtual void BeginBatch() = 0;
    virtual bool EndBatch() = 0;
};

}  // namespace lumacfg::platform
