#include "interaction/key_commands.h"

#include <algorithm>
#include <iterator>

#include "host/modifiers.h"
#include "instance/prseq.h"
#include "interaction/commands.h"

namespace tq {

namespace {

struct KeyCommand {
    long code;
    unsigned modifiers;  ///< exactly these
    Command command;
    bool (*applies)(const Prseq&) = [](const Prseq&) { return true; };
};

/// Where there are no events to be selected by hand, the key selects none.
bool selects(const Prseq& object) {
    using enum MouseMode;
    const MouseMode mode = object.maindisplay.mousemode;
    return mode == Select || mode == Insert || edits_curves(mode);
}

constexpr KeyCommand key_commands[] = {
    {'x', 0, Command::Cut},
    {'c', 0, Command::Copy},
    {'v', 0, Command::Paste},
    {key_backspace, 0, Command::Delete},
    {'z', 0, Command::Undo},
    {'z', modifier_shift, Command::Redo},
    {'a', 0, Command::SelectAll, selects},
    {key_left, 0, Command::SelectPrevious},
    {key_right, 0, Command::SelectNext},
};

}  // namespace

void prseq_key(Prseq& object, long code, unsigned modifiers) {
    auto key = std::ranges::find_if(key_commands, [&](const KeyCommand& k) {
        return k.code == code && k.modifiers == modifiers && k.applies(object);
    });
    if (key == std::end(key_commands)) return jbox_redraw(object);
    run_command(object, key->command);
    prseq_show(object, Change::Events);
}

}  // namespace tq
