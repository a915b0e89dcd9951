// The report socket on POSIX: a Unix-domain stream socket in the session's runtime directory.
// The window (Qt's QLocalServer, given the full path) listens there; a sender writes its
// message, ends its side, and waits until the window closes the connection, which it does once
// it has taken the message, so a program that reports and then ends has been heard before it
// ends.
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/posix/backends.h"
#include "platform/report_socket.h"

namespace lumacfg::platform {
namespace {

constexpr int kReplyMilliseconds = 5000;

class Socket {
  public:
    Socket() : fd_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {}
    ~Socket() {
        if (fd_ >= 0) ::close(fd_);
    }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    int Fd() const { return fd_; }

  private:
    int fd_;
};

ReportSent Failure(ReportDelivery delivery) {
    return {delivery, std::strerror(errno)};
}

bool WriteAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::send(fd, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// Waits until the other side closes the connection.
bool AwaitClose(int fd) {
    pollfd watched{fd, POLLIN, 0};
    char ignored[64];
    while (true) {
        const int ready = ::poll(&watched, 1, kReplyMilliseconds);
        if (ready < 0 && errno == EINTR) continue;
        if (ready == 0) {
            errno = ETIMEDOUT;
            return false;
        }
        if (ready < 0) return false;
        const ssize_t got = ::recv(fd, ignored, sizeof ignored, 0);
        if (got == 0) return true;
        if (got < 0 && errno != EINTR) return errno == ECONNRESET;
    }
}

}  // namespace

std::string ReportSocketPath() {
    return posix::RuntimeDirectory() + "/lumacfg-" + std::to_string(::getuid());
}

ReportSent SendToReportSocket(std::string_view message) {
    const std::string path = ReportSocketPath();
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        return {ReportDelivery::NoListener, "the socket path is too long"};
    }
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    Socket socket;
    if (socket.Fd() < 0) return Failure(ReportDelivery::Failed);
    if (::connect(socket.Fd(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        const bool nobody = errno == ENOENT || errno == ECONNREFUSED || errno == ENOTSOCK;
        return Failure(nobody ? ReportDelivery::NoListener : ReportDelivery::Failed);
    }
    if (!WriteAll(socket.Fd(), message)) return Failure(ReportDelivery::Failed);
    ::shutdown(socket.Fd(), SHUT_WR);
    if (!AwaitClose(socket.Fd())) return Failure(ReportDelivery::Failed);
    return {ReportDelivery::Delivered, {}};
}

}  // namespace lumacfg::platform
