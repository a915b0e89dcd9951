// The profile document: any bytes read and given back unchanged; the one-pass lookup agreeing
// with the document; a sequence of writes and deletes that reads back as written, keeps what it
// did not touch, and gives the same bytes whether the file is edited in one batch or written
// and read again after every change.
//
// Input: the file's bytes, then optionally "#part" and the bytes that choose the edits.
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "base/text.h"
#include "fuzz_support.h"
#include "platform/posix/profile_document.h"

namespace lumacfg::fuzz {
namespace {

using platform::posix::LookUpProfileValue;
using platform::posix::ProfileDocument;

// Section names ("[name]") and key names ("name=") as the file's ANSI lines show them.
std::vector<std::string> NamesIn(std::string_view bytes) {
    std::vector<std::string> names;
    for (const TextLine& line : SplitLines(bytes)) {
        std::string_view text = TrimBlanks(line.content);
        if (text.empty()) continue;
        if (text.front() == '[' && text.find(']') != std::string_view::npos) {
            names.emplace_back(text.substr(1, text.find(']') - 1));
        } else if (std::size_t equals = text.find('='); equals != std::string_view::npos) {
            names.emplace_back(TrimBlanks(text.substr(0, equals)));
        }
        if (names.size() == 64) break;
    }
    return names;
}

bool IsPlain(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == ',';
    });
}

struct Edit {
    enum class Kind { Set, DeleteKey, DeleteSection } kind;
    std::string section, key, value;

    bool Plain() const {
        return IsPlain(section) && (kind == Kind::DeleteSection || IsPlain(key)) &&
               (kind != Kind::Set || IsPlain(value));
    }
    void ApplyTo(ProfileDocument& document) const {
        switch (kind) {
            case Kind::Set:
                document.Set(section, key, value);
                break;
            case Kind::DeleteKey:
                document.DeleteKey(section, key);
                break;
            case Kind::DeleteSection:
                document.DeleteSection(section);
                break;
        }
    }
};

std::vector<Edit> EditsFrom(std::string_view program, const std::vector<std::string>& names) {
    FuzzedDataProvider data(reinterpret_cast<const std::uint8_t*>(program.data()), program.size());
    std::vector<Edit> edits;
    while (data.remaining_bytes() > 0 && edits.size() < 24) {
        Edit edit{static_cast<Edit::Kind>(data.ConsumeIntegralInRange(0, 2)), PickName(data, names),
                  PickName(data, names), ""};
        edit.value = data.ConsumeBool() ? PlainName(data) : data.ConsumeRandomLengthString(40);
        edits.push_back(std::move(edit));
    }
    return edits;
}

struct Probe {
    std::string section, key;
};

// Names as the document compares them: without their blanks, without regard to case.
bool SameName(std::string_view a, std::string_view b) {
    return AnsiEqualNoCase(TrimBlanks(a), TrimBlanks(b));
}

// The probe and the edits, for the report of a broken property.
std::string Describe(const Probe& probe, const std::vector<Edit>& edits) {
    std::string text = "probe [" + probe.section + "] " + probe.key + "; edits:";
    for (const Edit& edit : edits) {
        static constexpr const char* kKinds[] = {"set", "delete key", "delete section"};
        text += std::string("\n  ") + kKinds[static_cast<int>(edit.kind)] + " [" + edit.section +
                "] " + edit.key + "=" + edit.value;
    }
    return text;
}

void Run(std::string_view bytes, std::string_view program) {
    const std::vector<std::string> names = NamesIn(bytes);
    const ProfileDocument original(bytes);
    Require(original.Bytes() == bytes, "an unedited document gives back its bytes");

    std::vector<Probe> probes;
    for (std::size_t i = 0; i + 1 < names.size() && probes.size() < 16; ++i)
        probes.push_back({names[i], names[i + 1]});
    for (const Probe& probe : probes) {
        Require(LookUpProfileValue(bytes, probe.section, probe.key) ==
                    original.Get(probe.section, probe.key),
                "the one-pass lookup reads what the document reads");
    }

    const std::vector<Edit> edits = EditsFrom(program, names);
    ProfileDocument batch(bytes);
    std::string keyByKey(bytes);
    bool plain = true;
    for (const Edit& edit : edits) {
        edit.ApplyTo(batch);
        ProfileDocument reread(keyByKey);
        edit.ApplyTo(reread);
        keyByKey = reread.Bytes();
        plain = plain && edit.Plain();
        if (plain && edit.kind == Edit::Kind::Set) {
            Require(batch.Get(edit.section, edit.key) == edit.value, "a written value reads back");
        }
    }
    if (ProfileDocument::Problem(bytes)) return;  // such a file is never written back

    const std::string written = batch.Bytes();
    Require(written == keyByKey, "one batch and a write per change give the same bytes");
    const ProfileDocument reread(written);
    for (const Probe& probe : probes) {
        Require(reread.Get(probe.section, probe.key) == batch.Get(probe.section, probe.key),
                "what is written reads back as the edited document reads");
        const bool touched = std::any_of(edits.begin(), edits.end(), [&](const Edit& edit) {
            return SameName(edit.section, probe.section);
        });
        if (plain && !touched) {
            Require(batch.Get(probe.section, probe.key) == original.Get(probe.section, probe.key),
                    "a section no edit names keeps its values", Describe(probe, edits));
        }
    }
}

}  // namespace
}  // namespace lumacfg::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return lumacfg::fuzz::RunOnFileAndChanges(data, size, lumacfg::fuzz::Run);
}
