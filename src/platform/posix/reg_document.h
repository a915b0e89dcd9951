// The registry store's file in memory: a ".reg" text ("Windows Registry Editor Version 5.00",
// "[HKEY_LOCAL_MACHINE\...]" key lines, "Name"="text", "Name"=dword:0000abcd and hex values
// whose lines end in a backslash while the value goes on).
//
// The file is ANSI (Windows-1252 bytes) or UTF-16LE with its byte-order mark FF FE, as the
// registry editor exports it. Inside the document every line is held
// as Windows-1252 text, the core's own bytes; characters outside that code page read as '?'.
// Lines the store does not change keep their bytes in the file's encoding, so a character that
// has no Windows-1252 form survives in every line that is not rewritten.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumacfg::platform::posix {

// The first line of every registry store (after its byte-order mark).
inline constexpr std::string_view kRegHeader = "Windows Registry Editor Version 5.00";

struct RegValue {
    // String: "text" or hex(1): (a string saved as its UTF-16LE bytes).
    // ExpandString: hex(2):, a string whose %NAME% parts the reader may expand.
    // Other: anything else (hex:, hex(7):, a line that cannot be read), kept as it is.
    enum class Kind { String, ExpandString, Dword, Other } kind = Kind::Other;
    std::string text;  // String and ExpandString: up to the first NUL, Windows-1252
    std::uint32_t dword = 0;
};

class RegDocument {
  public:
    enum class Encoding { Ansi, Utf16Le };

    explicit RegDocument(std::string_view bytes);

    // True when the first line (after the UTF-16LE byte-order mark) is kRegHeader. A document that
    // is no store has no keys and refuses every change.
    bool IsStore() const { return isStore_; }
    Encoding FileEncoding() const { return encoding_; }

    // Key paths are full ("HKEY_LOCAL_MACHINE\SOFTWARE\..."), matched without regard to case.
    bool HasKey(std::string_view keyPath) const;
    std::optional<RegValue> Get(std::string_view keyPath, std::string_view name) const;

    // A set replaces the value whatever its kind, all its lines. False when the key does not
    // exist, or the name holds a CR or LF (it would break its line). A text is stored up to its
    // first NUL. A text holding a CR or LF is written as hex(1): with its UTF-16LE bytes and the
    // terminating NUL, over continuation lines, since a "text" value must stay on one line.
    bool SetString(std::string_view keyPath, std::string_view name, std::string_view text);
    bool SetDword(std::string_view keyPath, std::string_view name, std::uint32_t value);

    // Adds an empty key at the end of the document, after a blank line; true when the key is
    // there afterwards (false only for a document that is no store).
    bool AddKey(std::string_view keyPath);

    std::string Bytes() const;

  private:
    struct Line {
        std::string text;    // Windows-1252, without the ending
        std::string ending;  // "\r\n", "\n", or "" for a last line without one
        // The line's bytes in the file, its ending included, while the line is unchanged;
        // empty for a changed or new line, and for every line of an ANSI file, whose bytes are
        // its text.
        std::string raw;
    };
    struct Entry {  // one value: its name and the physical lines it spans
        std::string name;
        std::size_t first, last;
    };
    struct KeySpan {
        std::size_t header, end;
    };

    std::optional<KeySpan> FindKey(std::string_view keyPath) const;
    std::vector<Entry> EntriesOf(const KeySpan& span) const;
    // The whole data of an entry after its "=": its lines joined, continuation marks removed.
    std::string DataOf(const Entry& entry) const;
    // Writes "name"=data in the key, replacing the value's lines or after the key's last
    // value; hex data (`wrap`) is spread over continuation lines of at most 80 characters.
    bool SetData(std::string_view keyPath, std::string_view name, std::string_view data, bool wrap);
    void Terminate(Line& line) const;

    std::string bom_;
    Encoding encoding_ = Encoding::Ansi;
    bool isStore_ = false;
    std::vector<Line> lines_;
    std::string newline_ = "\r\n";  // the ending of the first line; new lines take it
};

// "Name" as written on a value line, with \\ and \" escaped.
std::string RegQuoted(std::string_view text);

}  // namespace lumacfg::platform::posix
