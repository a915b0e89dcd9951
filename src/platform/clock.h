#pragma once

namespace lumacfg::platform {

struct LocalTime {
    int year, month, day, hour, minute, second;
};

class Clock {
  public:
    virtual ~Clock() = default;
    virtual LocalTime Now() = 0;
};

}  // namespace lumacfg::platform
