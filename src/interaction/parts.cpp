#include "interaction/parts.h"

#include <memory>

#include "host/modifiers.h"
#include "instance/prseq.h"
#include "interaction/commands.h"
#include "interaction/context_menu.h"
#include "interaction/cursors.h"
#include "interaction/icon_menu.h"
#include "interaction/mouse_modes.h"
#include "interaction/parameter_gesture.h"
#include "interaction/scrollbars.h"
#include "interaction/timedisplay.h"
#include "interaction/trackdisplay.h"
#include "interaction/wheel.h"
#include "model/tracks.h"

namespace tq {

namespace {

bool is_right(const Pointer& press) { return press.modifiers & (modifier_right_button | modifier_control); }

/// A press that begins nothing: the button is held, and the view may be scrolled with it.
class HeldGesture final : public Gesture {
 public:
    bool edits() const override { return false; }
    void step(Prseq&, const Pointer&) override {}
    void commit(Prseq&) override {}
    void rollback(Prseq&) override {}
};

void press_maindisplay(Prseq& object, const Pointer& press) {
    if (is_right(press)) return TQ_Prseq_Mouse_ClickRightMaindisplay(object, press);
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (track && !track->visible) return;
    object.outputonrelease = true;
    const MouseModeRow& mode = mouse_mode_row(object.maindisplay.mousemode);
    mode.press(object, press);
    prseq_show(object, Change::Events);
    if (edits_curves(mode.mode)) return;
    if (!object.gesture) object.gesture = std::make_unique<HeldGesture>();
    object.gesture->autoscroll = Autoscroll::Both;
}

void hover_maindisplay(Prseq& object, const Pointer& at) {
    mouse_mode_row(object.maindisplay.mousemode).hover(object, at);
}

void doubleclick_maindisplay(Prseq& object, const Pointer& at) {
    if (object.maindisplay.mousemode == MouseMode::Select && !is_right(at))
        run_command(object, Command::EventInspector);
}

void press_parameterdisplay(Prseq& object, const Pointer& press) {
    if (is_right(press)) return TQ_Prseq_Mouse_ClickRightParameterdisplay(object, press);
    object.gesture = parameter_gesture(object, press);
}

void hover_other_part(Prseq& object, const Pointer&) { TQ_Prseq_SetMouseCursorFromIcon(object, CursorArrow); }

constexpr PartRow rows[] = {
    {Part::TimeDisplay, press_timedisplay, hover_timedisplay, nullptr, nullptr},
    {Part::KeyDisplay, nullptr, hover_other_part, nullptr, nullptr},
    {Part::HorScrollbar, press_horscrollbar, hover_other_part, nullptr, nullptr},
    {Part::VertScrollbar, press_vertscrollbar, hover_other_part, nullptr, nullptr},
    {Part::MainDisplay, press_maindisplay, hover_maindisplay, scroll_maindisplay, doubleclick_maindisplay},
    {Part::ParameterDisplay, press_parameterdisplay, hover_other_part, nullptr, nullptr},
    {Part::UpperDisplay, click_upperdisplay, hover_other_part, nullptr, nullptr},
    {Part::TrackDisplay, press_trackdisplay, hover_other_part, scroll_trackdisplay, doubleclick_trackdisplay},
};

}  // namespace

const PartRow* part_row(Part part) { return part == Part::None ? nullptr : &rows[static_cast<size_t>(part)]; }

}  // namespace tq
