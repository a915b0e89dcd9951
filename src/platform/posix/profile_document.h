// One profile file in memory: its lines exactly as read, and the edits the profile service
// makes to them. Untouched lines keep their bytes; a new or changed line takes the ending
// of the file's first line (CR LF when the file has none).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace lumacfg::platform::posix {

class ProfileDocument {
  public:
    ProfileDocument() = default;
    explicit ProfileDocument(std::string_view bytes);

    // The value of key in the first section of that name (quotes of a quoted value removed).
    std::optional<std::string> Get(std::string_view section, std::string_view key) const;
    // Each edit returns true when it changed the document.
    bool Set(std::string_view section, std::string_view key, std::string_view value);
    bool DeleteKey(std::string_view section, std::string_view key);
    bool DeleteSection(std::string_view section);

    std::string Bytes() const;

  private:
    struct SectionSpan {
        std::size_t header;  // index of the header line
        std::size_t end;     // index one past the section's last line
    };

    std::optional<SectionSpan> FindSection(std::string_view section) const;
    std::optional<std::size_t> FindKey(const SectionSpan& span, std::string_view key) const;
    void InsertLine(std::size_t index, std::string content);
    // The ending of the file's first line as it stands now (CR LF when it has none), so an
    // edit after the first line was deleted gives what re-reading the file would give.
    std::string NewLine() const;

    std::vector<TextLine> lines_;
};

// The value ProfileDocument(bytes).Get(section, key) gives, found by one pass over the bytes
// without building the document: the read of a file outside a save.
std::optional<std::string> LookUpProfileValue(std::string_view bytes, std::string_view section,
                                              std::string_view key);

}  // namespace lumacfg::platform::posix
