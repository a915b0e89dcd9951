// Sets or removes an environment variable for one test and restores it afterwards.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace lumacfg::testsupport {

class ScopedEnv {
  public:
    ScopedEnv(const char* name, std::optional<std::string> value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        Apply(value);
    }
    ~ScopedEnv() { Apply(old_); }

  private:
    void Apply(const std::optional<std::string>& value) {
        value ? setenv(name_.c_str(), value->c_str(), 1) : unsetenv(name_.c_str());
    }

    std::string name_;
    std::optional<std::string> old_;
};

}  // namespace lumacfg::testsupport
