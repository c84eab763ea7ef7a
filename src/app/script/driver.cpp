#include "app/script/driver.h"

#include <algorithm>
#include <utility>

#include "app/script/commands.h"
#include "app/script/known_words.h"
#include "app/script/line_times.h"
#include "app/script/message_advice.h"
#include "host/files.h"
#include "view/draw.h"

namespace tq {

namespace {

using Kind = FileLine::Kind;

std::string trimmed(const std::string& line) {
    size_t first = line.find_first_not_of(" \t\r"), last = line.find_last_not_of(" \t\r");
    return first == line.npos ? "" : line.substr(first, last - first + 1);
}

/// How an item is printed: what can be done with it, and its text.
std::string popup_line(const PopupItem& item) {
    if (item.separator) return "popup =";
    const char* mark = item.disabled ? (item.checked ? "~" : "-") : (item.checked ? "*" : "+");
    return std::string("popup ") + mark + " " + item.text;
}

/// The item at the index, when it has the text; else the first that can be chosen and has it.
std::optional<size_t> chosen_item(std::span<const PopupItem> items, const ChooseLine& choice) {
    const auto fits = [&](const PopupItem& item) {
        return !item.separator && !item.disabled && item.text == *choice.text;
    };
    if (choice.index && *choice.index < std::ssize(items) && fits(items[static_cast<size_t>(*choice.index)]))
        return static_cast<size_t>(*choice.index);
    const auto found = std::ranges::find_if(items, fits);
    return found == items.end() ? std::nullopt : std::optional(static_cast<size_t>(found - items.begin()));
}

}  // namespace

Driver::Driver(Session& session) : PatchFiles(session.host().patch), session_(session) {}
Driver::~Driver() = default;

void Driver::run(std::istream& lines, const std::string& name) {
    scripts_.begin(lines, name);
    try {
        for (std::string line; scripts_.take(line);) {
            line_begins(scripts_.place().line);
            run_line(line, scripts_.place());
            line_done();
        }
    } catch (ScriptFault& fault) {
        if (fault.file.empty()) fault = {scripts_.place().file, scripts_.place().line, fault.what};
        scripts_.stop();
        throw;
    }
}

void Driver::run_line(const std::string& text, const ScriptPlace& place) {
    const std::string line = trimmed(text);
    if (line.empty() || line[0] == '#') return;
    const ScriptPlace here = place_ = place;
    quiet_.line_begins(here);
    try {
        const std::optional<std::string> name = name_to_help_with(line);
        if (name && !replaying_)
            for (const std::string& known : help_on(*name)) say(known);
        else
            run_command(*this, in_ms(line));
        if (fault_) throw ScriptFault{"", 0, *std::exchange(fault_, {})};
    } catch (ScriptFault& fault) {
        quiet_.line_ends();
        fault = {here.file, here.line, fault.what};
        throw;
    }
    quiet_.line_ends();
}

/// In a stretch without answers they are told among the mistakes.
void Driver::look_for_slips(const MessageCall& message) {
    for (const std::string& what : advice_on(session_.box(), message, false))
        if (quiet_.on())
            quiet_.note_mistake(place_, what);
        else
            advise(place_, what);
}

/// Journals tell times in ms, and words as the box got them.
std::string Driver::in_ms(const std::string& line) const {
    const Prseq& box = session_.box();
    return replaying_ ? line : line_in_ms(line, {itm_gettempo(*box.transport), box.meter});
}

void Driver::set_quiet(bool on) {
    if (on) return quiet_.begin();
    for (const std::string& text : quiet_.end()) say(text);
}

void Driver::wait(double ms) {
    Scheduler& scheduler = session_.host().scheduler;
    scheduler.run_until(scheduler.now() + ms);
}

void Driver::resize(Size size) { session_.call(SizeCall{size.width, size.height}); }

void Driver::quit() { throw ScriptFault{"", 0, "there is nothing to close"}; }

std::optional<std::string> Driver::open_dialog() {
    return take_answer("dialog open", [this] { return PatchFiles::open_dialog(); });
}

std::optional<std::string> Driver::save_dialog(const std::string& name) {
    return take_answer("dialog save " + name, [&] { return PatchFiles::save_dialog(name); });
}

template <typename Ask>
std::optional<std::string> Driver::take_answer(const std::string& said, Ask ask) {
    say(said);
    if (answers_.empty()) return replaying_ ? std::nullopt : ask();
    AnswerLine answer = std::move(answers_.front());
    answers_.pop_front();
    if (answer.ms) wait(*answer.ms);
    return answer.file;
}

std::optional<size_t> Driver::popup(std::span<const PopupItem> items, Point at) {
    for (const PopupItem& item : items) say(popup_line(item));
    if (choices_.empty()) return replaying_ ? std::nullopt : PatchFiles::popup(items, at);
    const ChooseLine choice = std::move(choices_.front());
    choices_.pop_front();
    if (choice.ms) wait(*choice.ms);
    if (!choice.text) return {};
    const std::optional<size_t> chosen = chosen_item(items, choice);
    if (!chosen) note_fault("the pop-up has no item \"" + *choice.text + "\" that can be chosen");
    return chosen;
}

std::optional<LocatedFile> Driver::locate(const std::string& name, const std::string& folder) {
    const std::optional<FileLine> outcome = take_outcome(Kind::Found, Kind::Missing);
    if (!outcome) return PatchFiles::locate(name, folder);
    return outcome->kind == Kind::Found ? std::optional(located(outcome->text)) : std::nullopt;
}

FileBytes Driver::read(const std::string& path, std::string& fault) {
    const std::optional<FileLine> outcome = take_outcome(Kind::Read, Kind::Unreadable);
    if (!outcome) return PatchFiles::read(path, fault);
    fault = outcome->text;
    if (outcome->kind != Kind::Read) return nullptr;
    FileBytes bytes = kept_bytes(outcome->text, fault);
    if (!bytes) note_fault("could not read \"" + outcome->text + "\": " + fault);
    return bytes;
}

bool Driver::write(const std::string& path, std::string_view bytes, std::string& fault) {
    const std::optional<FileLine> outcome = take_outcome(Kind::Written, Kind::Unwritable);
    if (!outcome) return PatchFiles::write(path, bytes, fault);
    fault = outcome->text;
    return outcome->kind == Kind::Written;
}

void Driver::keep_copy(const Object& object, const std::string& text) {
    if (!replaying_) PatchFiles::keep_copy(object, text);
}

std::optional<FileLine> Driver::take_outcome(Kind good, Kind bad) {
    if (outcomes_.empty() && !replaying_) return {};
    if (outcomes_.empty() || (outcomes_.front().kind != good && outcomes_.front().kind != bad)) {
        note_fault("the recorded file accesses do not fit");
        return FileLine{bad, ""};
    }
    FileLine outcome = std::move(outcomes_.front());
    outcomes_.pop_front();
    return outcome;
}

FileBytes Driver::kept_bytes(const std::string& name, std::string& fault) { return read_file(name, fault); }

void Driver::note_fault(const std::string& what) {
    if (!fault_) fault_ = what;
}

}  // namespace tq
