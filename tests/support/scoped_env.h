// An environment variable set or removed for a while and restored when the guard goes.
#pragma once

#include <stdlib.h>

#include <optional>
#include <string>
#include <utility>

namespace lumacfg::support {

class ScopedEnv {
  public:
    // Remembers the variable and leaves it as it is until Set.
    explicit ScopedEnv(std::string name) : name_(std::move(name)) {
        if (const char* old = ::getenv(name_.c_str())) old_ = old;
    }
    // Remembers the variable and gives it the value; std::nullopt removes it.
    ScopedEnv(std::string name, const std::optional<std::string>& value)
        : ScopedEnv(std::move(name)) {
        Set(value);
    }
    ~ScopedEnv() { Set(old_); }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

    void Set(const std::optional<std::string>& value) {
        value ? ::setenv(name_.c_str(), value->c_str(), 1) : ::unsetenv(name_.c_str());
    }

  private:
    std::string name_;
    std::optional<std::string> old_;
};

}  // namespace lumacfg::support
