// What the mouse does in the main display, mode by mode.
#pragma once

#include <span>

#include "host/symbol.h"
#include "instance/gesture.h"
#include "instance/view_records.h"

namespace tq {

/// What choosing a mode does to the curve editor.
enum class BpfEditor { Opens, Closes, StaysAsItIs };

struct MouseModeRow {
    MouseMode mode;
    const char* name;   ///< in the message "mouse_mode"
    const char* label;  ///< in menus
    const char* icon;   ///< a file of the resource folder
    BpfEditor editor;
    /// A left press in the main display, while the active track is not hidden.
    void (*press)(Prseq&, const Pointer&);
    /// The pointer passes over the main display.
    void (*hover)(Prseq&, const Pointer&);
};

/// By their numbers.
std::span<const MouseModeRow> mouse_modes();
const MouseModeRow& mouse_mode_row(MouseMode mode);

/// Message "mouse_mode"; "buffer_display" is another name of the mode "buffer". The modes for curves open the
/// curve editor on the selected event, or on the active track's only one; all others but "zoom" close it. An
/// unknown name is an error.
void prseq_mousemode(Prseq& object, Symbol name);

}  // namespace tq
