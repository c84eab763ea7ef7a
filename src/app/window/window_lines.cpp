#include "app/window/window_lines.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "app/window/box_widget.h"
#include "app/window/main_window.h"

namespace tq {

namespace {

constexpr int busy_pause = 10;                        // ms
constexpr auto turn = std::chrono::milliseconds(30);  // then the window gets one

}  // namespace

WindowLines::WindowLines(MainWindow& window, std::string name)
    : Driver(window.session()), window_(window), name_(std::move(name)) {
    for (QTimer* timer : {&entered_.pause, &script_.pause, &again_}) {
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer);
        connect(timer, &QTimer::timeout, this, [this] { run_lines(); });
    }
    quiet().complained = [this](const ScriptPlace& place, const std::string& what) {
        if (in_script_) tell_complaint(place, what);
    };
}

void WindowLines::add(std::string line, long number) {
    if (lines_.empty() && !entered_.pause.isActive()) entered_.reached = Clock::now();
    lines_.push_back({std::move(line), number});
}

void WindowLines::run_lines() {
    const Clock::time_point begin = Clock::now();
    while (can_go_on()) {
        if (window_.timer().acting()) return again_.start(busy_pause);
        if (Clock::now() - begin > turn) {
            window_.refresh();
            return again_.start(0);
        }
        window_.timer().act([this] { run_next(); });
    }
    window_.refresh();
    if (idle()) finished();
}

void WindowLines::run_next() {
    speaking_ = true;
    if (script_can_go_on())
        run_next_of_script();
    else if (!lines_.empty())
        run_next_entered();
    speaking_ = false;
}

void WindowLines::run_next_of_script() {
    in_script_ = true;
    std::string line;
    try {
        if (scripts().take(line)) {
            const bool was_quiet = quiet().on();
            run_scripted(line, scripts().place());
            if (!was_quiet && quiet().on()) script_is_quiet_ = true;
        } else {
            end_script("done");
        }
    } catch (const ScriptFault& fault) {
        tell_fault(fault, true);
        stop_scripts();
    }
    in_script_ = false;
}

void WindowLines::run_next_entered() {
    const Line line = std::move(lines_.front());
    lines_.pop_front();
    try {
        run_entered(line.text, {name_, line.number});
    } catch (const ScriptFault& fault) {
        if (quiet().on())
            quiet().note_mistake({fault.file, fault.line}, fault.what);
        else
            tell_fault(fault, false);
    }
}

void WindowLines::run_script(const std::string& file) {
    if (!in_script_) {
        RunningScripts next;
        next.begin(file);  // one that cannot be read takes nobody's place
        stop_scripts();
        script_is_quiet_ = false;
        script_.reached = Clock::now();
        scripts() = std::move(next);
        script_name_ = file;
    } else {
        scripts().begin(file);
    }
}

void WindowLines::stop_scripts() {
    if (script_runs()) end_script(fmt::format("stopped {}", text_of(scripts().place())));
}

/// A stretch of quiet lines that the script began ends with it.
void WindowLines::end_script(const std::string& how) {
    script_.pause.stop();
    scripts().stop();
    if (script_is_quiet_) set_quiet(false);
    say(fmt::format("script {} {}", message_word(script_name_), how));
}

void WindowLines::stop() {
    speaking_ = true;
    stop_scripts();
    speaking_ = false;
    lines_.clear();
    entered_.pause.stop();
}

void WindowLines::quit() {
    set_quiet(false);
    window_.close();
}

void WindowLines::wait(double ms) {
    Lane& lane = in_script_ ? script_ : entered_;
    constexpr double longest = 1e9;  // ms
    lane.reached += std::chrono::duration_cast<Clock::duration>(
        std::chrono::duration<double, std::milli>(std::min(ms, longest)));
    const std::chrono::duration<double, std::milli> left = lane.reached - Clock::now();
    lane.pause.start(static_cast<int>(std::ceil(std::max(left.count(), 0.0))));
}

void WindowLines::resize(Size size) {
    const QSize box = window_.box().size();
    window_.resize(window_.size() + QSize(int(size.width), int(size.height)) - box);
}

void WindowLines::paint(const std::string& file, double ratio) {
    if (file.empty()) {
        window_.box().repaint();
        return;
    }
    Prseq& box = window_.session().box();
    painter_.ratio = ratio;
    if (auto reason = painter_.paint_to_png(box, file)) object_error(box, *reason);
}

}  // namespace tq
