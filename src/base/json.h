// A small JSON reader and writer for the documents the headless front end exchanges with other
// tools (RFC 8259). The reader keeps an object's members in their order, duplicates included,
// so that the caller can name a member given twice; strings are UTF-8, numbers kept as written.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace lumacfg {

struct JsonMember;

struct JsonValue {
    enum class Kind { Null, Boolean, Number, String, Array, Object };
    Kind kind = Kind::Null;
    bool boolean = false;
    std::string text;  // a string's UTF-8 text, or a number as written
    std::vector<JsonValue> items;
    std::vector<JsonMember> members;  // an object's, in their order
};

// A member of an object. Declared apart from the value: a pair of an incomplete type cannot be
// an element of the value's own vector.
struct JsonMember {
    std::string name;
    JsonValue value;
};

// Where and why a text is no JSON document; line and column count from 1 (columns in bytes).
struct JsonError {
    std::size_t line = 1;
    std::size_t column = 1;
    std::string what;
};

// The document a text holds: one value, blanks around it, a UTF-8 byte-order mark before it
// skipped. Strings must be valid UTF-8; nesting deeper than 64 levels is refused.
std::variant<JsonValue, JsonError> ParseJson(std::string_view text);

// "Kind" as a document's reader says it ("a string", "an object").
std::string_view JsonKindName(JsonValue::Kind kind);

// A UTF-8 text as a JSON string, quotes included: '"', '\' and the control characters escaped.
std::string JsonQuoted(std::string_view utf8);

}  // namespace lumacfg
