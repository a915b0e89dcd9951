// What every fuzz target shares: a property that fails loudly, the parts of an input, and names
// drawn from the input or from a small alphabet.
#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace lumacfg::fuzz {

// A property that does not hold is a finding: it is printed and the run aborts, so libFuzzer
// keeps the input that broke it.
inline void Require(bool holds, const char* property, std::string_view detail = {}) {
    if (holds) return;
    std::fprintf(stderr, "property broken: %s\n%.*s\n", property, static_cast<int>(detail.size()),
                 detail.data());
    std::abort();
}

// A directory of this fuzzing process, made on first use: in memory where the machine offers it,
// so a run costs no disk flush. Its name holds the process id, so parallel jobs keep apart.
inline std::filesystem::path WorkDirectory(std::string_view name) {
    namespace fs = std::filesystem;
    const fs::path base = fs::is_directory("/dev/shm") ? "/dev/shm" : fs::temp_directory_path();
    const fs::path path =
        base / ("lumacfg-fuzz-" + std::string(name) + "-" + std::to_string(::getpid()));
    fs::create_directories(path);
    return path;
}

// The parts of an input separated by lines "#part" (the last part ends the input). An input
// without the marker is one part.
inline std::vector<std::string_view> SplitParts(std::string_view input) {
    constexpr std::string_view kMarker = "\n#part\n";
    std::vector<std::string_view> parts;
    for (std::size_t at = input.find(kMarker); at != std::string_view::npos;
         at = input.find(kMarker)) {
        parts.push_back(input.substr(0, at));
        input.remove_prefix(at + kMarker.size());
    }
    parts.push_back(input);
    return parts;
}

// Runs a target whose input is a file's bytes and, after a line "#part", the bytes that choose
// the changes made to it: the body of its LLVMFuzzerTestOneInput.
inline int RunOnFileAndChanges(const std::uint8_t* data, std::size_t size,
                               void (*run)(std::string_view file, std::string_view changes)) {
    const std::vector<std::string_view> parts =
        SplitParts({reinterpret_cast<const char*>(data), size});
    run(parts[0], parts.size() > 1 ? parts[1] : std::string_view{});
    return 0;
}

// A name of 1 to 8 characters of letters, digits, "_" and ",", which every profile and registry
// reader takes as it is: the properties about what was written can be exact for such names.
inline std::string PlainName(FuzzedDataProvider& data) {
    static constexpr std::string_view kAlphabet = "ABCKSWXabcks0129_,";
    std::string name(data.ConsumeIntegralInRange<std::size_t>(1, 8), 'A');
    for (char& c : name)
        c = kAlphabet[data.ConsumeIntegralInRange<std::size_t>(0, kAlphabet.size() - 1)];
    return name;
}

// One of `known` (names found in the input) or a plain name.
inline std::string PickName(FuzzedDataProvider& data, const std::vector<std::string>& known) {
    if (!known.empty() && data.ConsumeBool())
        return known[data.ConsumeIntegralInRange<std::size_t>(0, known.size() - 1)];
    return PlainName(data);
}

}  // namespace lumacfg::fuzz
