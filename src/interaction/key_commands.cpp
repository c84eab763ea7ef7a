#include "interaction/key_commands.h"

#include <algorithm>
#include <iterator>

#include "host/modifiers.h"
#include "instance/prseq.h"

namespace tq {

namespace {

/// Where there are no events to be selected by hand, the key selects none.
bool selects(const Prseq& object) {
    using enum MouseMode;
    const MouseMode mode = object.maindisplay.mousemode;
    return mode == Select || mode == Insert || edits_curves(mode);
}

constexpr KeyCommand rows[] = {
    {'x', 0, Command::Cut},
    {'c', 0, Command::Copy},
    {'v', 0, Command::Paste},
    {key_backspace, 0, Command::Delete},
    {'z', 0, Command::Undo},
    {'z', modifier_shift, Command::Redo},
    {'a', 0, Command::SelectAll, selects},
    {'i', 0, Command::EventInspector},
    {key_left, 0, Command::SelectPrevious},
    {key_right, 0, Command::SelectNext},
};

}  // namespace

std::span<const KeyCommand> key_commands() { return rows; }

void prseq_key(Prseq& object, long code, unsigned modifiers) {
    auto key = std::ranges::find_if(rows, [&](const KeyCommand& k) {
        return k.code == code && k.modifiers == modifiers && k.applies(object);
    });
    if (key == std::end(rows)) return jbox_redraw(object);
    run_command(object, key->command);
    prseq_show(object, Change::Events);
}

}  // namespace tq
