// One profile file in memory: its lines exactly as read, and the edits the profile service
// makes to them. Untouched lines keep their bytes; a new or changed line takes the ending
// of the file's first line (CR LF when the file has none).
//
// Encodings are read as the Windows profile service reads them: a UTF-8 byte-order mark is
// skipped and written again; a file that starts with FF FE (UTF-16 little-endian) or FE FF
// (big-endian) is decoded to Windows-1252 for the core and written back as UTF-16 of the same
// byte order. A line ends at CR LF, at LF or at a CR alone.
//
// The document answers a command that looks up thousands of values in one file: the first
// header of each section name, and the first key of each name in such a section, are found
// through an index built on first use and kept up to date by the edits, so Get and Set of an
// existing key take constant time on average whatever the size of the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace lumacfg::platform::posix {

class ProfileDocument {
  public:
    ProfileDocument() = default;
    explicit ProfileDocument(std::string_view bytes);

    // Why bytes cannot be read as a profile file, or nullopt when they can. UTF-16 text fails
    // on an odd number of bytes or a surrogate without its other half; other text on a NUL
    // byte, which no profile service writes: such a file is binary data (an archive, a
    // program, UTF-16 without its byte-order mark), and a station written into it would be
    // read by nobody. A document built from such bytes never fails: it reads what it can (an
    // unpaired surrogate reads as "?"; the odd last byte is no character and is kept after
    // the last line), and gives the bytes back unchanged while nothing is edited. But a file
    // with a problem must not be replaced by what an edited document writes: what it could
    // not read would be lost or buried.
    static std::optional<std::string> Problem(std::string_view bytes);

    // The value of key in the first section of that name (quotes of a quoted value removed).
    // A read may build the index: one document is never read from two threads at once.
    std::optional<std::string> Get(std::string_view section, std::string_view key) const;
    // Each edit returns true when it changed the document.
    bool Set(std::string_view section, std::string_view key, std::string_view value);
    bool DeleteKey(std::string_view section, std::string_view key);
    bool DeleteSection(std::string_view section);
    // How many sections carry the name; the first is the one every read and edit finds.
    std::size_t SectionCount(std::string_view section) const;

    std::string Bytes() const;

  private:
    enum class Encoding : std::uint8_t { kAnsi, kUtf8, kUtf16Le, kUtf16Be };
    // In the order the line splitter numbers the endings (0 none, 1 LF, 2 CR, 3 CR LF).
    enum class Ending : std::uint8_t { kNone, kLf, kCr, kCrLf };
    static constexpr std::size_t kNoLine = static_cast<std::size_t>(-1);

    // The lines form a list in file order, linked through their numbers, so an insertion or a
    // deletion leaves the number of every other line, and so the index, as it was (a
    // removed line stays in lines_, out of the list).
    // An untouched line is written as it was read: its bytes in source_. Its text (without
    // the ending) is those bytes, or in a UTF-16 file their Windows-1252 decoding; characters
    // that Windows-1252 lacks are so written back as they were. A new or changed line is
    // written from its text.
    struct Line {
        std::string text;  // Windows-1252: UTF-16 files, and lines new or changed
        Ending ending = Ending::kNone;
        bool edited = false;
        std::size_t sourceBegin = 0;
        std::size_t sourceEnd = 0;
        std::size_t prev = kNoLine;
        std::size_t next = kNoLine;
    };

    // Names compared without regard to ASCII case, looked up without copying the name asked for.
    struct CaselessHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const;
    };
    struct CaselessEqual {
        using is_transparent = void;
        bool operator()(std::string_view a, std::string_view b) const;
    };
    // The first line (or section) of a name, and how many carry the name: when the first one
    // is deleted, the next one is looked for only when there is one.
    struct Named {
        std::size_t first;
        std::size_t count;
    };
    using NameIndex = std::unordered_map<std::string, Named, CaselessHash, CaselessEqual>;

    // One header line; the sections form a list in file order, so a section ends where the
    // next header begins.
    struct Section {
        std::size_t header;
        std::size_t prev = kNoLine;
        std::size_t next = kNoLine;
        bool keysIndexed = false;  // keys are indexed for the first section of a name only
        NameIndex keys{};
    };

    std::string_view Text(std::size_t line) const;
    std::size_t Append(Line line);
    std::size_t InsertAfter(std::size_t after, std::string text);
    void Unlink(std::size_t first, std::size_t last);
    void JoinBlankLine(std::size_t line);
    Ending NewLine() const;

    void EnsureIndex() const;
    void DropIndex() const;
    std::size_t FindSection(std::string_view name) const;
    std::size_t SectionEnd(std::size_t section) const;
    NameIndex& KeysOf(std::size_t section) const;
    std::size_t FindKey(std::size_t section, std::string_view key) const;
    void IndexNewKey(std::size_t section, std::size_t line);

    Encoding encoding_ = Encoding::kAnsi;
    std::string source_;   // the bytes after the byte-order mark
    std::string trailer_;  // UTF-16 files: a last byte that makes no character
    std::vector<Line> lines_;
    std::size_t head_ = kNoLine;
    std::size_t tail_ = kNoLine;

    // Built on first use by a read or an edit; an edit that would need more than a local
    // change (a new line that turns out to be a header) drops it, to be built again.
    mutable bool indexed_ = false;
    mutable std::vector<Section> sections_;
    mutable std::size_t lastSection_ = kNoLine;
    mutable NameIndex sectionNames_;
};

// A line of a profile file as the document reads it, met in one pass over the file.
struct ProfileLine {
    std::string_view text;     // the line, without its ending
    std::string_view section;  // the name of the section the line opens or stands in
    bool header = false;       // the line opens the section

    // The key of a line that holds a "=" (not a header), or nullopt.
    std::optional<std::string_view> Key() const;
    // The value of a key line, its quotes removed.
    std::string_view Value() const;
};

// One pass over a profile file's lines, in the file's encoding decoded as the document decodes
// it; the pass ends where visit returns false.
using ProfileLineVisitor = std::function<bool(const ProfileLine& line)>;
void ScanProfile(std::string_view bytes, const ProfileLineVisitor& visit);

// The value ProfileDocument(bytes).Get(section, key) gives, found by one pass over the bytes
// without building the document: the read of a file outside a save.
std::optional<std::string> LookUpProfileValue(std::string_view bytes, std::string_view section,
                                              std::string_view key);

}  // namespace lumacfg::platform::posix
