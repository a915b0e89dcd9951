#include "base/json.h"

#include <cstdio>

#include "base/windows1252.h"

namespace lumacfg {
namespace {

constexpr int kMaxDepth = 64;

class Reader {
  public:
    explicit Reader(std::string_view text) : text_(text) {}

    std::variant<JsonValue, JsonError> Document() {
        JsonValue value;
        // Windows editors often begin a UTF-8 file with a byte-order mark.
        if (text_.starts_with("\xEF\xBB\xBF")) at_ = 3;
        SkipBlanks();
        if (!Value(value, 0)) return error_;
        SkipBlanks();
        if (at_ != text_.size()) {
            Fail("unexpected text after the document");
            return error_;
        }
        return value;
    }

  private:
    bool Fail(std::string what) {
        error_.what = AtEnd() ? "the document ends early (" + what + ")" : std::move(what);
        error_.line = 1;
        error_.column = 1;
        for (std::size_t i = 0; i < at_ && i < text_.size(); ++i) {
            if (text_[i] == '\n') {
                ++error_.line;
                error_.column = 1;
            } else {
                ++error_.column;
            }
        }
        return false;
    }

    bool AtEnd() const { return at_ >= text_.size(); }
    char Peek() const { return AtEnd() ? '\0' : text_[at_]; }

    void SkipBlanks() {
        while (!AtEnd() && (Peek() == ' ' || Peek() == '\t' || Peek() == '\n' || Peek() == '\r'))
            ++at_;
    }

    bool Expect(char c, std::string_view what) {
        if (Peek() != c) return Fail(std::string("expected ") + std::string(what));
        ++at_;
        return true;
    }

    bool Value(JsonValue& value, int depth) {
        if (AtEnd()) return Fail("expected a value");
        switch (Peek()) {
            case '{':
                return Object(value, depth);
            case '[':
                return Array(value, depth);
            case '"':
                value.kind = JsonValue::Kind::String;
                return String(value.text);
            case 't':
                value.kind = JsonValue::Kind::Boolean;
                value.boolean = true;
                return Word("true");
            case 'f':
                value.kind = JsonValue::Kind::Boolean;
                return Word("false");
            case 'n':
                value.kind = JsonValue::Kind::Null;
                return Word("null");
            default:
                return Number(value);
        }
    }

    bool Word(std::string_view word) {
        if (text_.substr(at_, word.size()) != word) return Fail("unexpected character");
        at_ += word.size();
        return true;
    }

    bool Deeper(int depth) {
        if (depth + 1 > kMaxDepth) return Fail("nested too deeply");
        ++at_;
        SkipBlanks();
        return true;
    }

    bool Object(JsonValue& value, int depth) {
        value.kind = JsonValue::Kind::Object;
        if (!Deeper(depth)) return false;
        if (Peek() == '}') {
            ++at_;
            return true;
        }
        while (true) {
            JsonMember member;
            if (Peek() != '"') return Fail("expected a member's name in quotes");
            if (!String(member.name)) return false;
            SkipBlanks();
            if (!Expect(':', "':' after a member's name")) return false;
            SkipBlanks();
            if (!Value(member.value, depth + 1)) return false;
            value.members.push_back(std::move(member));
            SkipBlanks();
            if (Peek() == '}') {
                ++at_;
                return true;
            }
            if (!Expect(',', "',' or '}' after a member")) return false;
            SkipBlanks();
        }
    }

    bool Array(JsonValue& value, int depth) {
        value.kind = JsonValue::Kind::Array;
        if (!Deeper(depth)) return false;
        if (Peek() == ']') {
            ++at_;
            return true;
        }
        while (true) {
            if (!Value(value.items.emplace_back(), depth + 1)) return false;
            SkipBlanks();
            if (Peek() == ']') {
                ++at_;
                return true;
            }
            if (!Expect(',', "',' or ']' after an entry")) return false;
            SkipBlanks();
        }
    }

    bool Digits() {
        const std::size_t start = at_;
        while (Peek() >= '0' && Peek() <= '9') ++at_;
        return at_ > start || Fail("expected a digit");
    }

    bool Number(JsonValue& value) {
        const std::size_t start = at_;
        if (Peek() == '-') ++at_;
        if (Peek() == '0') {
            ++at_;
        } else if (Peek() < '1' || Peek() > '9') {
            return Fail(at_ == start ? "unexpected character" : "expected a digit");
        } else if (!Digits()) {
            return false;
        }
        if (Peek() == '.') {
            ++at_;
            if (!Digits()) return false;
        }
        if (Peek() == 'e' || Peek() == 'E') {
            ++at_;
            if (Peek() == '+' || Peek() == '-') ++at_;
            if (!Digits()) return false;
        }
        value.kind = JsonValue::Kind::Number;
        value.text = std::string(text_.substr(start, at_ - start));
        return true;
    }

    bool Hex4(char32_t& unit) {
        if (text_.size() - at_ < 4) return Fail("expected four hexadecimal digits after \\u");
        unit = 0;
        for (int i = 0; i < 4; ++i, ++at_) {
            const char c = text_[at_];
            const int digit = c >= '0' && c <= '9'   ? c - '0'
                              : c >= 'a' && c <= 'f' ? c - 'a' + 10
                              : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                                     : -1;
            if (digit < 0) return Fail("expected four hexadecimal digits after \\u");
            unit = unit * 16 + static_cast<char32_t>(digit);
        }
        return true;
    }

    // \uXXXX, or a pair of them for a character beyond U+FFFF.
    bool Unicode(std::string& out) {
        char32_t unit = 0;
        if (!Hex4(unit)) return false;
        if (unit >= 0xDC00 && unit <= 0xDFFF) return Fail("a lone low surrogate");
        if (unit >= 0xD800 && unit <= 0xDBFF) {
            char32_t low = 0;
            if (text_.substr(at_, 2) != "\\u") return Fail("a high surrogate without its pair");
            at_ += 2;
            if (!Hex4(low)) return false;
            if (low < 0xDC00 || low > 0xDFFF) return Fail("a high surrogate without its pair");
            unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
        }
        AppendUtf8(out, unit);
        return true;
    }

    bool Escape(std::string& out) {
        ++at_;  // the backslash
        const char c = Peek();
        ++at_;
        switch (c) {
            case '"':
            case '\\':
            case '/':
                out.push_back(c);
                return true;
            case 'b':
                out.push_back('\b');
                return true;
            case 'f':
                out.push_back('\f');
                return true;
            case 'n':
                out.push_back('\n');
                return true;
            case 'r':
                out.push_back('\r');
                return true;
            case 't':
                out.push_back('\t');
                return true;
            case 'u':
                return Unicode(out);
            default:
                --at_;
                return Fail("an unknown escape in a string");
        }
    }

    bool String(std::string& out) {
        const std::size_t opening = at_;
        ++at_;
        while (true) {
            if (AtEnd()) {
                at_ = opening;
                return Fail("a string without its closing quote");
            }
            const char c = Peek();
            if (c == '"') break;
            if (static_cast<unsigned char>(c) < 0x20)
                return Fail("a control character in a string (write it escaped)");
            if (c == '\\') {
                if (!Escape(out)) return false;
            } else {
                out.push_back(c);
                ++at_;
            }
        }
        ++at_;
        if (!IsValidUtf8(out)) {
            at_ = opening;
            return Fail("a string that is no valid UTF-8");
        }
        return true;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    JsonError error_;
};

}  // namespace

std::variant<JsonValue, JsonError> ParseJson(std::string_view text) {
    return Reader(text).Document();
}

std::string_view JsonKindName(JsonValue::Kind kind) {
    switch (kind) {
        case JsonValue::Kind::Null:
            return "null";
        case JsonValue::Kind::Boolean:
            return "a boolean";
        case JsonValue::Kind::Number:
            return "a number";
        case JsonValue::Kind::String:
            return "a string";
        case JsonValue::Kind::Array:
            return "an array";
        case JsonValue::Kind::Object:
            return "an object";
    }
    return {};
}

std::string JsonQuoted(std::string_view utf8) {
    std::string out = "\"";
    for (char c : utf8) {
        switch (c) {
            case '"':
                out += "\\\"";
                break;
            case '\\':
                out += "\\\\";
                break;
            case '\n':
                out += "\\n";
                break;
            case '\r':
                out += "\\r";
                break;
            case '\t':
                out += "\\t";
                break;
            default:
                if (static_cast<unsigned char>(c) < 0x20) {
                    char escaped[8];
                    std::snprintf(escaped, sizeof escaped, "\\u%04x", static_cast<unsigned>(c));
                    out += escaped;
                } else {
                    out.push_back(c);
                }
        }
    }
    return out + "\"";
}

}  // namespace lumacfg
