#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/file_system.h"
#include "platform/services.h"

namespace lumacfg::platform {

std::optional<std::string> DirectoryProblem(std::string_view systemPath) {
    const std::string host = HostPath(systemPath);
    const int fd = ::open(host.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return std::string(std::strerror(errno));
    ::close(fd);
    return std::nullopt;
}

bool IsFullPath(std::string_view systemPath) {
    return systemPath.starts_with('/') || systemPath.starts_with('\\');
}

bool MakeDirectory(std::string_view systemPath) {
    const std::string host = HostPath(systemPath);
    if (::mkdir(host.c_str(), 0777) == 0) return true;  // the umask decides the rights
    Failures().Report(FileOperation::Write, host, std::strerror(errno));
    return false;
}

}  // namespace lumacfg::platform
