#include "app/window/line_input.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <iostream>

#include "app/script/framed_lines.h"
#include "app/window/main_window.h"

namespace tq {

LineInput::LineInput(MainWindow& window, bool close_at_end)
    : WindowLines(window, "-"),
      printer_(window.session(), std::cout, false),
      notifier_(STDIN_FILENO, QSocketNotifier::Read),
      close_at_end_(close_at_end) {
    std::cout << std::unitbuf;
    notifier_.setEnabled(false);
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
        add(text_.substr(begin, end - begin), ++number_);
    text_.erase(0, begin);
    if (text_.size() > longest_line) {
        tell_complaint({"-", number_ + 1}, "a line that is too long; no more is read");
        text_.clear();
        notifier_.setEnabled(false);
        ended_ = true;
    }
    run_lines();
}

void LineInput::tell_fault(const ScriptFault& fault, bool) {
    tell_complaint({fault.file, fault.line}, fault.what);
}

void LineInput::tell_complaint(const ScriptPlace& place, const std::string& what) {
    std::fprintf(stderr, "%s: %s\n", text_of(place).c_str(), what.c_str());
}

void LineInput::finished() {
    if (!ended_) return;
    set_quiet(false);
    if (close_at_end_) window_.close();
}

}  // namespace tq
