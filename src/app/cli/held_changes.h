// Changes held back from the station's files while a command decides whether it may write at
// all. While a HeldChanges object is installed, the profile, registry, file, security and
// audit services of the process keep every change in order in memory and answer reads as if the
// changes had been made; nothing reaches a file. The command then either commits them (the
// same calls made on the platform's services, in one batch: the same bytes as making them
// directly), previews them (the old and new bytes of every file they would change), or drops
// them (a refused command writes nothing, not even what its start-up would have written).
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace lumacfg::cli {

// A file the held changes would change: its path on the disk and its bytes before and after
// (nullopt: the file is not there).
struct FilePreview {
    std::string path;
    std::optional<std::string> before;
    std::optional<std::string> after;
};

class HeldChanges {
  public:
    // Installs the holding services in place of the process's own; reads go to the platform's
    // own services.
    HeldChanges();
    // Drops whatever was neither committed nor previewed, and gives the process its own
    // services back.
    ~HeldChanges();
    HeldChanges(const HeldChanges&) = delete;
    HeldChanges& operator=(const HeldChanges&) = delete;

    // Records the held audit events and security calls in the audit log, then makes every change
    // held, in order, on the platform's services, in one batch; each file is written once. When
    // the audit log cannot be written, no change is made and it answers false. The files that
    // could not be written are in platform::Failures().
    bool Commit();

    // What committing would do to each file: the profiles in the order they were first changed,
    // the registry store, then the other files. Worked out in memory by the documents the
    // platform's services write with; nothing is written. The registry store is the one
    // LUMACFG_REGISTRY names.
    std::vector<FilePreview> Preview();

    struct Log;

  private:
    std::shared_ptr<Log> log_;
};

}  // namespace lumacfg::cli
