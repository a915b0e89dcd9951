// The logon tests' program: the system's logon library answered by pam_wrapper. The wrapper must
// be preloaded, so the program starts itself again with it, after writing the service "lumacfg"
// (pam_matrix for its authentication and account checks, names and passwords from
// "passdb" next to it, which the tests write) into a directory of its own. Qt's offscreen
// platform, so the tests run alike with and without a display.
#include <gmock/gmock.h>
#include <stdlib.h>
#include <unistd.h>

#include <QApplication>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

std::string WrappedServices() {
    char pattern[] = "/tmp/lumacfg-pam-XXXXXX";
    if (::mkdtemp(pattern) == nullptr) return {};
    const std::string module =
        LUMACFG_PAM_MODULE_DIR "/pam_matrix.so passdb=" + std::string(pattern) + "/passdb\n";
    std::ofstream(std::string(pattern) + "/lumacfg")
        << "auth required " << module << "account required " << module;
    return pattern;
}

// Starts this program again with pam_wrapper preloaded and enabled; returns only on failure.
int StartWrapped(char** argv) {
    const std::string services = WrappedServices();
    if (services.empty()) return 1;
    ::setenv("LD_PRELOAD", LUMACFG_PAM_WRAPPER_LIBRARY, 1);
    ::setenv("PAM_WRAPPER", "1", 1);
    ::setenv("PAM_WRAPPER_SERVICE_DIR", services.c_str(), 1);
    // The wrapper comes before the sanitizers' runtime, and loads PAM without deep binding,
    // which the sanitizers refuse. Debian 12's wrapper reads the switch under the name of its
    // sister project's variable; both names are set.
    ::setenv("PAM_WRAPPER_DISABLE_DEEPBIND", "1", 1);
    ::setenv("UID_WRAPPER_DISABLE_DEEPBIND", "1", 1);
    const char* asan = ::getenv("ASAN_OPTIONS");
    ::setenv(
        "ASAN_OPTIONS",
        (std::string(asan ? asan : "") + (asan && *asan ? ":" : "") + "verify_asan_link_order=0")
            .c_str(),
        1);
    ::execv("/proc/self/exe", argv);
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (::getenv("PAM_WRAPPER") == nullptr) return StartWrapped(argv);
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    const int status = RUN_ALL_TESTS();
    std::filesystem::remove_all(::getenv("PAM_WRAPPER_SERVICE_DIR"));
    return status;
}
