#include "interaction/parts.h"

#include "host/modifiers.h"
#include "instance/prseq.h"
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

void press_maindisplay(Prseq& object, const Pointer& press) {
    if (press.modifiers & (modifier_right_button | modifier_control)) return;
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (track && !track->visible) return;
    object.outputonrelease = true;
    mouse_mode_row(object.maindisplay.mousemode).press(object, press);
    prseq_show(object, Change::Events);
}

void press_parameterdisplay(Prseq& object, const Pointer& press) {
    if (press.modifiers & (modifier_right_button | modifier_control)) return;
    object.gesture = parameter_gesture(object, press);
}

constexpr PartRow rows[] = {
    {Part::TimeDisplay, press_timedisplay, nullptr, nullptr, nullptr},
    {Part::KeyDisplay, nullptr, nullptr, nullptr, nullptr},
    {Part::HorScrollbar, press_horscrollbar, nullptr, nullptr, nullptr},
    {Part::VertScrollbar, press_vertscrollbar, nullptr, nullptr, nullptr},
    {Part::MainDisplay, press_maindisplay, nullptr, scroll_maindisplay, nullptr},
    {Part::ParameterDisplay, press_parameterdisplay, nullptr, nullptr, nullptr},
    {Part::UpperDisplay, click_upperdisplay, nullptr, nullptr, nullptr},
    {Part::TrackDisplay, press_trackdisplay, nullptr, scroll_trackdisplay, doubleclick_trackdisplay},
};

}  // namespace

const PartRow* part_row(Part part) { return part == Part::None ? nullptr : &rows[static_cast<size_t>(part)]; }

}  // namespace tq
