#include "racks/custrack_file.h"

#include <charconv>
#include <system_error>

#include "base/numbers.h"
#include "base/text.h"
#include "platform/file_system.h"
#include "platform/services.h"

namespace lumacfg {
namespace {

// At most 11 characters of a number come back, enough for any 32-bit value.
constexpr int kNumberBuffer = 12;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The whole text as a decimal number (sign, digits, fraction, exponent), rounded to an integer;
// nullopt when any part of it is not numeric or the value is beyond the 32-bit range.
std::optional<std::int32_t> WholeNumber(std::string_view text) {
    text = TrimBlanks(text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    // from_chars would also take "inf" and "nan"; a number starts with a digit or a point.
    if (text.empty() || !(IsDigit(text.front()) || text.front() == '.')) return std::nullopt;
    double magnitude = 0;
    const auto [end, status] = std::from_chars(text.data(), text.data() + text.size(), magnitude);
    if (status != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return RoundToInt32(negative ? -magnitude : magnitude);
}

// The passes open now, and the file as the outermost one found it: a pass finds the program's
// directory once, not once per value.
int openPasses = 0;
std::string& PassPath() {
    static std::string path;
    return path;
}

std::string FilePath() {
    return openPasses > 0 ? PassPath() : CustrackPath();
}

}  // namespace

std::string CustrackPath() {
    return platform::JoinPath(platform::ProgramDirectory(), kCustrackFile);
}

std::string DescribeNumberError(const CustrackNumberError& error) {
    return "[" + error.section + "] " + error.key + "=" + error.text;
}

std::string NumberErrorReason(const CustrackNumberError& error) {
    return "[" + error.section + "] " + error.key + ": \"" + error.text + "\" is not a number";
}

void ReportNumberError(const CustrackNumberError& error) {
    platform::Failures().Report(platform::FileOperation::Read, platform::HostPath(FilePath()),
                                NumberErrorReason(error));
}

std::size_t CustrackSectionCount(std::string_view section) {
    return platform::Profiles().SectionCount(FilePath(), section);
}

void ReportRepeatedSection(std::string_view section, std::size_t count) {
    platform::Failures().Report(
        platform::FileOperation::Write, platform::HostPath(FilePath()),
        "section [" + std::string(section) + "] stands " + std::to_string(count) + " times");
}

CustrackPass::CustrackPass() {
    if (openPasses++ == 0) PassPath() = CustrackPath();
    platform::Profiles().BeginBatch();
}

CustrackPass::~CustrackPass() {
    if (open_) (void)End();
}

bool CustrackPass::End() {
    if (!open_) return true;
    open_ = false;
    --openPasses;
    return platform::Profiles().EndBatch();
}

CustrackText ReadCustrackString(std::string_view section, std::string_view key,
                                std::string_view defaultText, int size) {
    std::string text;
    if (section.empty() || key.empty()) {
        text = defaultText;
    } else if (size >= 1) {
        text = platform::Profiles()
                   .GetString(FilePath(), section, key, defaultText, static_cast<std::size_t>(size))
                   .text;
        if (text != defaultText) text = CutAtNul(text);
    }
    const int length = static_cast<int>(text.size());
    return {std::move(text), length};
}

CustrackInt ReadCustrackInt(std::string_view section, std::string_view key,
                            std::int32_t defaultValue) {
    const std::string text(
        CutAtNul(ReadCustrackString(section, key, IntText(defaultValue), kNumberBuffer).text));
    if (text.empty()) return {defaultValue, std::nullopt};
    if (const auto value = CustrackNumber(text)) return {*value, std::nullopt};
    return {0, CustrackNumberError{std::string(section), std::string(key), text}};
}

std::optional<std::int32_t> CustrackNumber(std::string_view text) {
    return WholeNumber(text);
}

bool WriteCustrackString(std::string_view section, std::string_view key, std::string_view value) {
    if (section.empty() || key.empty()) return false;
    return platform::Profiles().WriteString(FilePath(), section, key, value);
}

bool DeleteCustrackKey(std::string_view section, std::string_view key) {
    if (section.empty() || key.empty()) return false;
    return platform::Profiles().WriteString(FilePath(), section, key, std::nullopt);
}

bool DeleteCustrackSection(std::string_view section) {
    if (section.empty()) return false;
    return platform::Profiles().WriteString(FilePath(), section, std::nullopt, std::nullopt);
}

}  // namespace lumacfg
