#include "app/window/line_input.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <iostream>

#include "app/script/framed_lines.h"
#include "app/window/box_widget.h"

namespace tq {

namespace {

constexpr int busy_pause = 10;  // ms

}  // namespace

LineInput::LineInput(MainWindow& window, bool close_at_end)
    : Driver(window.session()),
      window_(window),
      printer_(window.session(), std::cout, false),
      notifier_(STDIN_FILENO, QSocketNotifier::Read),
      close_at_end_(close_at_end) {
    std::cout << std::unitbuf;
    notifier_.setEnabled(false);
    pause_.setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, [this] { run_lines(); });
    connect(&notifier_, &QSocketNotifier::activated, this, [this] { read_input(); });
}

void LineInput::read_input() {
    char bytes[65536];
    const ssize_t got = ::read(STDIN_FILENO, bytes, sizeof bytes);
    if (got < 0 && (errno == EINTR || errno == EAGAIN)) return;
    if (got <= 0) {
        notifier_.setEnabled(false);
        ended_ = true;
    } else {
        text_.append(bytes, static_cast<size_t>(got));
    }
    size_t begin = 0;
    for (size_t end; (end = text_.find('\n', begin)) != text_.npos; begin = end + 1)
        lines_.push_back(text_.substr(begin, end - begin));
    text_.erase(0, begin);
    if (text_.size() > longest_line) {
        std::fprintf(stderr, "-:%ld: a line that is too long; no more is read\n",
                     number_ + std::ssize(lines_) + 1);
        text_.clear();
        notifier_.setEnabled(false);
        ended_ = true;
    }
    if (!pause_.isActive()) run_lines();
}

/// Lines wait for a ".wait", and for a dialog that is open.
void LineInput::run_lines() {
    while (!lines_.empty() && !pause_.isActive()) {
        if (window_.timer().acting()) return pause_.start(busy_pause);
        const std::string line = std::move(lines_.front());
        lines_.pop_front();
        ++number_;
        window_.timer().act([this, line] { run_one(line); });
    }
    window_.refresh();
    if (ended_ && close_at_end_ && lines_.empty() && !pause_.isActive()) window_.close();
}

void LineInput::run_one(const std::string& line) {
    try {
        run_line(line);
    } catch (const ScriptFault& fault) {
        std::fprintf(stderr, "-:%ld: %s\n", number_, fault.what.c_str());
    }
}

void LineInput::quit() { window_.close(); }

void LineInput::wait(double ms) { pause_.start(static_cast<int>(std::ceil(std::min(ms, 1e9)))); }

void LineInput::resize(Size size) {
    const QSize box = window_.box().size();
    window_.resize(window_.size() + QSize(int(size.width), int(size.height)) - box);
}

void LineInput::paint(const std::string& file, double ratio) {
    if (file.empty()) {
        window_.box().repaint();
        return;
    }
    Prseq& box = window_.session().box();
    painter_.ratio = ratio;
    if (auto reason = painter_.paint_to_png(box, file)) object_error(box, *reason);
}

}  // namespace tq
