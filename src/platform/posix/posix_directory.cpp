#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/file_system.h"

namespace lumacfg::platform {

std::optional<std::string> DirectoryProblem(std::string_view systemPath) {
    const std::string host = HostPath(systemPath);
    const int fd = ::open(host.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return std::string(std::strerror(errno));
    ::close(fd);
    return std::nullopt;
}

}  // namespace lumacfg::platform
