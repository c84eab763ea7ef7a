#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <memory>
#include <thread>

#include "app/commands/commands.h"
#include "app/commands/faults.h"
#include "app/commands/named_sounds.h"
#include "app/patch/loudspeaker.h"
#include "app/patch/note_listener.h"
#include "app/patch/real_time.h"

namespace tq {

namespace {

constexpr double longest_sleep_ms = 20, progress_ms = 200;

std::atomic<bool> interrupted = false;
void interrupt(int) { interrupted = true; }

/// Outlet 0 and receivers on standard output, with their logical times.
class Printer : public SessionListener {
 public:
    explicit Printer(const Scheduler& scheduler) : scheduler_(scheduler) {}
    void outlet(int outlet, Symbol, AtomSpan atoms) override {
        if (outlet == OutletPlaying) say("out0", atoms);
    }
    void receiver(Symbol name, Symbol selector, AtomSpan atoms) override {
        say("to " + atom_gettext(Atoms{name, selector}), atoms);
    }

 private:
    void say(const std::string& from, AtomSpan atoms) const {
        std::printf("%.3f %s %s\n", scheduler_.now(), from.c_str(), atom_gettext(atoms).c_str());
    }
    const Scheduler& scheduler_;
};

/// The loudspeaker, or none, which is said once.
std::unique_ptr<AudioOutput> open_audio() {
    Loudspeaker loudspeaker = open_loudspeaker();
    if (!loudspeaker.output) std::fprintf(stderr, "sorvo: no sound: %s\n", loudspeaker.reason.c_str());
    return std::move(loudspeaker.output);
}

void show_progress(const Prseq& box, bool last) {
    std::fprintf(stderr, "\r%9.2f s of %.2f s%s", box.linecursor.position / 1000, box.timelinelength / 1000,
                 last ? "\n" : "");
}

void play_until_over(Session& session) {
    RealTimeDriver driver(session.host().scheduler);
    double next_progress = 0;
    while (session.box().playing && !interrupted) {
        driver.catch_up();
        if (driver.logical_now() >= next_progress) {
            show_progress(session.box(), false);
            next_progress = driver.logical_now() + progress_ms;
        }
        double sleep = std::min(driver.ms_until_next().value_or(longest_sleep_ms), longest_sleep_ms);
        std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(sleep));
    }
    if (session.box().playing) session.send("int 0");
    show_progress(session.box(), true);
}

}  // namespace

int run_play(const PlayCommand& command) {
    Session session;
    FaultPrinter faults;
    session.listen(faults);
    if (const int status = make_named_buffers(session, command.buffers)) return status;
    const SoundFiles sounds(session);
    if (!session.open(command.file)) return 1;
    NoteListener notes(session);
    Printer printer(session.host().scheduler);
    if (command.print) session.listen(printer);
    std::unique_ptr<AudioOutput> audio = open_audio();
    if (audio) {
        notes.add(*audio);
        audio->start(session.host().scheduler.now());
    }
    std::signal(SIGINT, interrupt);
    std::signal(SIGTERM, interrupt);
    session.send("int 1");
    play_until_over(session);
    if (audio) {  // let the last notes end
        audio->stop_all(session.host().scheduler.now());
        for (int i = 0; i < 50 && audio->sounding() > 0; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return 0;
}

}  // namespace tq
