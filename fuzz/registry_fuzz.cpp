// The registry store's ".reg" file: any bytes read and given back unchanged; a store takes
// text and number values under its keys and reads them back, in the document and from the
// bytes it writes, without changing any other value; what is no store refuses every change.
//
// Input: the file's bytes, then optionally "#part" and the bytes that choose the values set.
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/text.h"
#include "fuzz_support.h"
#include "platform/posix/reg_document.h"

namespace lumacfg::fuzz {
namespace {

using platform::posix::RegDocument;
using platform::posix::RegValue;

// Key paths ("[path]" lines) and value names ("name"=...) as the file's ANSI lines show them.
void NamesIn(std::string_view bytes, std::vector<std::string>& keys,
             std::vector<std::string>& names) {
    for (const TextLine& line : SplitLines(bytes)) {
        const std::string_view text = line.content;
        if (text.size() > 2 && text.front() == '[' && text.back() == ']') {
            keys.emplace_back(text.substr(1, text.size() - 2));
        } else if (text.size() > 2 && text.front() == '"') {
            names.emplace_back(text.substr(1, text.find('"', 1) - 1));
        }
    }
}

struct Value {
    bool isText;
    std::string text;
    std::uint32_t number;
};

std::optional<Value> Expected(const std::optional<RegValue>& value) {
    if (!value) return std::nullopt;
    switch (value->kind) {
        case RegValue::Kind::String:
            return Value{true, value->text, 0};
        case RegValue::Kind::Dword:
            return Value{false, "", value->dword};
        default:
            return Value{true, "(other)", 0};
    }
}

bool operator==(const Value& a, const Value& b) {
    return a.isText == b.isText && a.text == b.text && a.number == b.number;
}

struct Written {
    std::string key, name;
    Value value;
};

void Run(std::string_view bytes, std::string_view program) {
    const RegDocument original(bytes);
    Require(original.Bytes() == bytes, "an unchanged store gives back its bytes");

    std::vector<std::string> keys, names;
    NamesIn(bytes, keys, names);
    FuzzedDataProvider data(reinterpret_cast<const std::uint8_t*>(program.data()), program.size());
    RegDocument document(bytes);
    std::vector<Written> written;
    while (data.remaining_bytes() > 0 && written.size() < 16) {
        const std::string key = PickName(data, keys), name = PickName(data, names);
        const bool text = data.ConsumeBool();
        const std::string value = data.ConsumeRandomLengthString(60);
        const std::uint32_t number = data.ConsumeIntegral<std::uint32_t>();
        const bool set =
            text ? document.SetString(key, name, value) : document.SetDword(key, name, number);
        const bool settable = original.IsStore() && original.HasKey(key) &&
                              name.find_first_of("\r\n") == std::string::npos;
        Require(set == settable, "a value is set exactly where the store has its key");
        if (!set) continue;
        const Value expected{text, text ? std::string(CutAtNul(value)) : "", text ? 0 : number};
        Require(Expected(document.Get(key, name)) == expected, "a value set reads back");
        written.push_back({key, name, expected});
    }
    if (!original.IsStore()) {
        Require(document.Bytes() == bytes, "what is no store is never changed");
        return;
    }

    const RegDocument reread(document.Bytes());
    Require(reread.FileEncoding() == original.FileEncoding(), "the store keeps its encoding");
    for (auto last = written.rbegin(); last != written.rend(); ++last) {
        const bool overwritten = std::any_of(written.rbegin(), last, [&](const Written& later) {
            return SameTextIgnoringCase(later.key, last->key) &&
                   SameTextIgnoringCase(later.name, last->name);
        });
        if (overwritten) continue;
        Require(Expected(reread.Get(last->key, last->name)) == last->value,
                "a value set reads back from the bytes written",
                "[" + last->key + "] \"" + last->name + "\"");
    }
    for (const std::string& key : keys) {
        for (const std::string& name : names) {
            const bool set = std::any_of(written.begin(), written.end(), [&](const Written& w) {
                return SameTextIgnoringCase(w.key, key) && SameTextIgnoringCase(w.name, name);
            });
            if (set) continue;
            Require(Expected(reread.Get(key, name)) == Expected(original.Get(key, name)),
                    "a value nobody set keeps its value");
        }
    }
}

}  // namespace
}  // namespace lumacfg::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return lumacfg::fuzz::RunOnFileAndChanges(data, size, lumacfg::fuzz::Run);
}
