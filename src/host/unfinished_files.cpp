#include "host/unfinished_files.h"

#include <limits.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstring>
#include <mutex>

namespace tq {

namespace {

/// Each thing is done in a way that a signal may come in between.
struct Slot {
    std::array<char, PATH_MAX> path;
    std::atomic<bool> holds = false;
};
std::array<Slot, 16> slots;
std::mutex changing;  // slots, by threads; the handler only reads

void remove_and_end(int signal) {
    for (Slot& slot : slots)
        if (slot.holds) ::unlink(slot.path.data());
    ::raise(signal);  // as it would have ended it: the handler stands for one signal only
}

void handle_signals() {
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction now {
        }, action{};
        action.sa_handler = remove_and_end;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        if (::sigaction(number, nullptr, &now) == 0 && now.sa_handler == SIG_DFL)
            ::sigaction(number, &action, nullptr);
    }
}

}  // namespace

void begin_unfinished(const std::filesystem::path& path) {
    const std::lock_guard lock(changing);
    handle_signals();
    for (Slot& slot : slots) {
        if (slot.holds || path.native().size() >= slot.path.size()) continue;
        std::memcpy(slot.path.data(), path.c_str(), path.native().size() + 1);
        slot.holds = true;
        return;
    }
}

void end_unfinished(const std::filesystem::path& path) {
    const std::lock_guard lock(changing);
    for (Slot& slot : slots)
        if (slot.holds && path == slot.path.data()) slot.holds = false;
}

}  // namespace tq
