// The registry store's file in memory: a ".reg" text ("Windows Registry Editor Version 5.00",
// "[HKEY_LOCAL_MACHINE\...]" key lines, "Name"="text" and "Name"=dword:0000abcd values).
// Lines the store does not change keep their bytes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace lumacfg::platform::posix {

struct RegValue {
    enum class Kind { String, Dword, Other } kind = Kind::Other;
    std::string text;
    std::uint32_t dword = 0;
};

class RegDocument {
  public:
    explicit RegDocument(std::string_view bytes);

    // Key paths are full ("HKEY_LOCAL_MACHINE\SOFTWARE\..."), matched without regard to case.
    bool HasKey(std::string_view keyPath) const;
    std::optional<RegValue> Get(std::string_view keyPath, std::string_view name) const;
    // False when the key does not exist.
    bool SetString(std::string_view keyPath, std::string_view name, std::string_view text);
    bool SetDword(std::string_view keyPath, std::string_view name, std::uint32_t value);

    std::string Bytes() const;

  private:
    struct Entry {  // one value: its name and the physical lines it spans
        std::string name;
        std::size_t first, last;
    };
    struct KeySpan {
        std::size_t header, end;
    };

    std::optional<KeySpan> FindKey(std::string_view keyPath) const;
    std::vector<Entry> EntriesOf(const KeySpan& span) const;
    bool SetLine(std::string_view keyPath, std::string_view name, const std::string& valueText);

    std::vector<TextLine> lines_;
    std::string newline_ = "\r\n";
};

// "Name" or @ as written on a value line, with \\ and \" escaped.
std::string RegQuoted(std::string_view text);

}  // namespace lumacfg::platform::posix
