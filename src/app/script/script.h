// The script driver: drives one box in virtual time, line by line, and prints everything that it says.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>

#include "app/patch/paint_offscreen.h"
#include "app/script/driver.h"
#include "app/script/session_printer.h"

namespace tq {

struct ScriptOptions {
    double width = 400, height = 300;
    std::string document;                                     ///< read before the first line; empty: none
    std::function<void(Session&)> prepare = [](Session&) {};  ///< called before that
    bool times = false;  ///< every line of output begins with the virtual time in ms
    /// Called with what there is to say of messages that do not what was meant.
    std::function<void(const ScriptPlace&, const std::string&)> advise = [](auto&&...) {};
};

/// The session that a script has to itself.
struct OwnSession {
    Session own_session;
};

class Script : private OwnSession, public Driver, private SessionListener {
 public:
    Script(const ScriptOptions& options, std::ostream& out);

 private:
    void redraw() override { redraw_asked_ = true; }
    void say(const std::string& line) override { printer_.say(line); }
    void advise(const ScriptPlace& place, const std::string& what) override { advise_(place, what); }
    void paint(const std::string& file, double ratio) override;
    void line_done() override {
        if (!quiet().on()) paint_if_asked();
    }
    void paint_if_asked();

    std::function<void(const ScriptPlace&, const std::string&)> advise_;
    SessionPrinter printer_;
    OffscreenPainter painter_;
    bool redraw_asked_ = true;
};

}  // namespace tq
