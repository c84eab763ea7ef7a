#include "app/journal/crash_note.h"

#include <signal.h>

#include <array>
#include <atomic>
#include <cstddef>

namespace tq {

namespace {

constexpr std::array fatal_signals{SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT};

std::array<std::atomic<CrashWitness*>, 32> living;
std::array<struct sigaction, fatal_signals.size()> before;
/// The usual stack may be what overflowed.
std::array<std::byte, 1 << 16> crash_stack;

/// Whoever handled the signal before does so next: it is raised again by going back to what raised it.
void crash(int signal) {
    for (auto& one : living)
        if (CrashWitness* witness = one.exchange(nullptr)) witness->crashed();
    for (size_t i = 0; i < fatal_signals.size(); ++i)
        if (fatal_signals[i] == signal) ::sigaction(signal, &before[i], nullptr);
    if (signal == SIGABRT) ::raise(signal);
}

void install() {
    stack_t stack{};
    stack.ss_sp = crash_stack.data();
    stack.ss_size = crash_stack.size();
    ::sigaltstack(&stack, nullptr);
    struct sigaction action {};
    action.sa_handler = crash;
    action.sa_flags = SA_ONSTACK;
    for (size_t i = 0; i < fatal_signals.size(); ++i) ::sigaction(fatal_signals[i], &action, &before[i]);
}

void replace(CrashWitness* old, CrashWitness* witness) {
    for (auto& one : living)
        if (CrashWitness* expected = old; one.compare_exchange_strong(expected, witness)) return;
}

}  // namespace

void witness_crashes(CrashWitness& witness) {
    static const bool installed = (install(), true);
    (void)installed;
    replace(nullptr, &witness);
}

void forget_witness(CrashWitness& witness) { replace(&witness, nullptr); }

}  // namespace tq
