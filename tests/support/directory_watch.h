// What happens in a directory while a test runs, as inotify reports it.
#pragma once

#include <sys/inotify.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

namespace lumacfg::support {

// What happens in a directory, in order: "open NAME" for each file opened to be read ("open ."
// for the directory itself), "write NAME" for each file replaced. Temporary files
// (".NAME.XXXXXX") are left out.
class DirectoryWatch {
  public:
    explicit DirectoryWatch(const std::filesystem::path& dir) : fd_(::inotify_init1(IN_NONBLOCK)) {
        ::inotify_add_watch(fd_, dir.c_str(), IN_OPEN | IN_MOVED_TO);
    }
    ~DirectoryWatch() { ::close(fd_); }
    DirectoryWatch(const DirectoryWatch&) = delete;
    DirectoryWatch& operator=(const DirectoryWatch&) = delete;

    // Puts a mark after what has happened so far.
    void Mark(const std::string& mark) {
        Drain();
        events_.push_back(mark);
    }
    const std::vector<std::string>& Events() {
        Drain();
        return events_;
    }

  private:
    void Drain() {
        alignas(inotify_event) char buffer[8192];
        for (ssize_t got; (got = ::read(fd_, buffer, sizeof buffer)) > 0;) {
            for (char* p = buffer; p < buffer + got;) {
                auto* event = reinterpret_cast<inotify_event*>(p);
                const std::string name = event->len > 0 ? event->name : ".";
                if (name == "." || name[0] != '.') {
                    events_.push_back(((event->mask & IN_OPEN) ? "open " : "write ") + name);
                }
                p += sizeof(inotify_event) + event->len;
            }
        }
    }

    int fd_;
    std::vector<std::string> events_;
};

}  // namespace lumacfg::support
