#include "app/script/commands.h"

#include <utility>
#include <variant>

#include "app/script/driver.h"
#include "app/script/lines.h"
#include "app/script/show.h"

namespace tq {

/// What the driver does with its lines. A call goes to the session, unless the driver has to say in it.
struct DriverCommands {
    Driver& driver;

    template <typename Call>
    void operator()(const Call& call) const {
        driver.session_.call(call);
    }
    void operator()(MessageCall&& call) const {
        if (!driver.replaying_) driver.look_for_slips(call);
        driver.session_.call(std::move(call));
    }
    void operator()(const SizeCall& size) const { driver.resize({size.width, size.height}); }
    void operator()(const BufferCall& buffer) const {
        if (!driver.replaying_)  // ".sound" has told what came of it
            driver.session_.call(BufferCall{buffer.name, file_of(buffer.file)});
    }
    void operator()(const OpenCall& open) const {
        driver.session_.call(OpenCall{file_of(open.file), open.as_copy});
    }
    void operator()(const ImportCall& import) const {
        driver.session_.call(ImportCall{file_of(import.file), import.pedal_as_curve});
    }
    void operator()(const WaitLine& line) const { driver.wait(line.ms); }
    void operator()(const QuietLine& line) const { driver.set_quiet(line.on); }
    void operator()(const RunLine& line) const { driver.run_script(file_of(line.file)); }
    void operator()(const StopLine&) const { driver.stop_scripts(); }
    void operator()(const PaintLine& line) const { driver.paint(line.file, line.ratio.value_or(1)); }
    void operator()(const AnswerLine& line) const { driver.answers_.push_back(line); }
    void operator()(const ChooseLine& line) const { driver.choices_.push_back(line); }
    void operator()(const FileLine& line) const { driver.outcomes_.push_back(line); }
    void operator()(const ReplayLine&) const {
        driver.replaying_ = true;
        driver.answers_.clear();  // of a call that was never done
        driver.choices_.clear();
        driver.outcomes_.clear();
    }
    void operator()(const ShowLine& line) const {
        const std::optional<std::vector<std::string>> lines = show_lines(driver.session_.box(), line.what);
        if (!lines) throw ScriptFault{"", 0, "cannot show \"" + line.what + "\""};
        for (const std::string& text : *lines) driver.say(text);
    }
    void operator()(const QuitLine&) const { driver.quit(); }

    /// A file that is read: a script brings its own, and a journal tells where each was found.
    std::string file_of(const std::string& file) const {
        return file.empty() || driver.replaying_ ? file : driver.scripts_.beside(file);
    }
};

void run_command(Driver& driver, const std::string& line) {
    std::visit(DriverCommands{driver}, parse_line(line));
}

}  // namespace tq
