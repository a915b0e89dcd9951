// The machine-wide registry of the data system (local-machine hive), shaped like the few
// registry calls the system makes: open a key, query, set a string or a 32-bit value, close.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace lumacfg::platform {

class RegistryKey {
  public:
    virtual ~RegistryKey() = default;  // closes the key
    virtual std::optional<std::string> QueryString(std::string_view name) = 0;
    virtual std::optional<std::uint32_t> QueryDword(std::string_view name) = 0;
    // A string value is stored up to its first NUL (the terminator the callers pass).
    virtual bool SetString(std::string_view name, std::string_view text) = 0;
    virtual bool SetDword(std::string_view name, std::uint32_t value) = 0;
};

enum class RegistryAccess { Read, SetValue };

class Registry {
  public:
    virtual ~Registry() = default;
    // Opens an existing key of the local-machine hive ("SOFTWARE\..."); a missing key, or a
    // store that may not be written when SetValue access is asked for, gives nullptr.
    virtual std::unique_ptr<RegistryKey> OpenKey(std::string_view path, RegistryAccess access) = 0;

    // Opens a key of the local-machine hive to set values, creating it (and, on POSIX, the store
    // with its first line) when it is missing, as the data system's installation does; nullptr,
    // with the failure reported to Failures(), when the store cannot be read or written.
    virtual std::unique_ptr<RegistryKey> CreateKey(std::string_view path) = 0;

    // Where the store is, as a failure names it (on POSIX the store's file).
    virtual std::string Location() const = 0;

    // False when the registry is there but cannot be read (the failure is reported to
    // Failures()); a registry that holds no keys at all can be read.
    virtual bool Readable() { return true; }

    // Between BeginBatch and EndBatch, values are set in memory and the store is written once
    // at EndBatch (with what setting them one by one would have given); queries in between see
    // the values set. EndBatch returns false when the store could not be written (the failure
    // is reported to Failures()). Batches nest; the outermost EndBatch writes.
    virtual void BeginBatch() = 0;
    virtual bool EndBatch() = 0;
};

}  // namespace lumacfg::platform
