#include "app/window/window_lines.h"

#include <algorithm>
#include <cmath>

#include "app/window/box_widget.h"
#include "app/window/main_window.h"

namespace tq {

namespace {

constexpr int busy_pause = 10;  // ms

}  // namespace

WindowLines::WindowLines(MainWindow& window) : Driver(window.session()), window_(window) {
    pause_.setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, [this] { run_lines(); });
}

void WindowLines::run_lines() {
    while (!lines_.empty() && !pause_.isActive()) {
        if (window_.timer().acting()) return pause_.start(busy_pause);
        const std::string line = std::move(lines_.front());
        lines_.pop_front();
        window_.timer().act([this, line] { run_one(line); });
    }
    window_.refresh();
    if (idle()) finished();
}

void WindowLines::quit() { window_.close(); }

void WindowLines::wait(double ms) { pause_.start(static_cast<int>(std::ceil(std::min(ms, 1e9)))); }

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
