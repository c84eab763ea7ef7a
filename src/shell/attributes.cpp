#include "shell/attributes.h"

#include <unordered_map>

#include "history/edit.h"
#include "host/host.h"
#include "instance/prseq.h"
#include "model/bars.h"
#include "playback/time.h"
#include "view/linecursor.h"
#include "view/synchronise.h"

namespace tq {

namespace {

using F = AttributeFields;

/// What an attribute's change changes of what is seen; a row cannot leave it out.
struct Shows {
    constexpr Shows(Change c) : change(c) {}
    Change change;
};

struct ColorRow {
    const char* name;
    Rgba F::*field;
    const char *label, *default_value;
    Shows shows;
};
constexpr ColorRow colors[] = {
    {"upperdisplaycolor", &F::upperdisplaycolor, "Upper Display Color", "0.9 0.9 0.9 1.", Change::Background},
    {"trackdisplaycolor", &F::trackdisplaycolor, "Track Display Color", "0.74 0.76 0.81 1.",
     Change::TrackDisplay},
    {"menutitletextcolor", &F::menutitletextcolor, "Menu Title Text Color", "0.26 0.26 0.26 1.",
     Change::UpperDisplay},
    {"timedisplaycolor", &F::timedisplaycolor, "Time Display Color", "0.68 0.82 0.82 1.",
     Change::TimeDisplay},
    {"timedisplaycyclecolor", &F::timedisplaycyclecolor, "Time Display Loop Color", "0.1 1.0 0.2 1.0",
     Change::TimeDisplay},
    {"linecursorcolor", &F::linecursorcolor, "Line Cursor Color", "1. 0. 0. 1.", Change::LineCursor},
    {"keydisplaywhitekeycolor", &F::keydisplaywhitekeycolor, "Key Display White Key Color",
     "0.98 0.98 0.98 1.", Change::KeyDisplay},
    {"keydisplaywhitekeybordercolor", &F::keydisplaywhitekeybordercolor, "Key Display White Key Border Color",
     "0.8 0.8 0.67 1.", Change::KeyDisplay},
    {"keydisplayblackkeycolor", &F::keydisplayblackkeycolor, "Key Display Black Key Color",
     "0.78 0.78 0.78 1.", Change::KeyDisplay},
    {"keydisplaylabelcolor", &F::keydisplaylabelcolor, "Key Display Label Color", "0.2 0.2 0.2 1.",
     Change::KeyDisplay},
    {"keydisplayhighlightcolor", &F::keydisplayhighlightcolor, "Key Display Highlight Color",
     "0.5 0.5 0.5 1.", Change::KeyDisplay},
    {"maindisplaywhitekeycolor", &F::maindisplaywhitekeycolor, "Main Display White Key Color", "1. 1. 1. 1.",
     Change::MainDisplay},
    {"maindisplayblackkeycolor", &F::maindisplayblackkeycolor, "Main Display Black Key Color",
     "0.96 0.96 0.96 1.", Change::MainDisplay},
    {"maindisplaysubdivisionlinecolor", &F::maindisplaysubdivisionlinecolor,
     "Main Display Subdivision Line Color", "0.92 0.92 0.92 1.", Change::MainDisplay},
    {"maindisplaymaindivisionlinecolor", &F::maindisplaymaindivisionlinecolor,
     "Main Display Maindivision Line Color", "0.87 0.87 0.87 1.", Change::MainDisplay},
};

struct SwitchRow {
    const char* name;
    bool F::*field;
    const char *label, *category, *default_value;
    bool paint;
    Shows shows;
};
constexpr SwitchRow snap_switches[] = {
    {"snaptime", &F::snaptime, "Snap Time", "Behavior", "0", false, Change::Nothing},
    {"snappitch", &F::snappitch, "Snap Pitch", "Behavior", "0", false, Change::Nothing},
    {"bars_follow_tempo", &F::bars_follow_tempo, "Bars Follow the Tempo", "Behavior", "0", true,
     Change::Meter},
    {"keep_middle", &F::keep_middle, "Narrow Events Keep a Middle", "Behavior", "0", false, Change::Nothing},
    {"lane_by_time", &F::lane_by_time, "Parameter Lane Is Drawn by Time", "Behavior", "0", false,
     Change::Nothing},
    {"shift_draws_loop", &F::shift_draws_loop, "Shift and Drag in the Ruler Draw the Loop", "Behavior", "0",
     false, Change::Nothing},
    {"events_follow_tempo", &F::events_follow_tempo, "Events Follow the Tempo", "Behavior", "0", false,
     Change::Nothing},
};
// What moves or hides displays changes the contents of no layer that keeps its size, but for the knobs of
// the scrollbars.
constexpr SwitchRow display_switches[] = {
    {"menudisplay", &F::menudisplay, "Show/Hide Menu Display", "Display", "1", true, Change::UpperDisplay},
    {"focusdisplay", &F::focusdisplay, "Show/Hide Focus Hint", "Display", "1", true, Change::UpperDisplay},
    {"dirtydisplay", &F::dirtydisplay, "Show/Hide Dirty Hint", "Display", "1", true, Change::UpperDisplay},
    {"trackdisplay", &F::trackdisplay, "Show/Hide Track Display", "Display", "1", true, Change::Nothing},
    {"keydisplay", &F::keydisplay_shown, "Show/Hide Key Display", "Display", "1", true,
     Change::HorizontalView},
    {"parameterdisplay", &F::parameterdisplay, "Show/Hide Parameter Display", "Display", "0", true,
     Change::VerticalView},
    {"showlabels", &F::showlabels, "Show Labels", "Events", "1", true, Change::MainDisplay},
    {"showmessages", &F::showmessages, "Show Messages", "Events", "1", true, Change::MainDisplay},
    {"showbpfs", &F::showbpfs, "Show Bpfs", "Events", "1", true, Change::MainDisplay},
    {"showbuffers", &F::showbuffers, "Show Buffers", "Events", "1", true, Change::MainDisplay},
    {"display_all_bpfs", &F::display_all_bpfs, "Show Bpfs - Display All", "Events", "1", true,
     Change::MainDisplay},
    {"border", &F::border, "Draw Border", "Display", "1", true, Change::Nothing},
    {"notelanes", &F::notelanes, "Draw Note Lanes", "Display", "1", true, Change::MainDisplay},
    {"keyhighlight", &F::keyhighlight, "Key Highlighting in Key Display", "Display", "1", true,
     Change::KeyDisplay},
    {"zoom_animation", &F::zoom_animation, "Animate Zooming", "Display", "1", true, Change::Nothing},
};

struct ValueRow {
    const char *name, *label, *category, *default_value;
    std::optional<std::pair<double, double>> clip;
    bool paint;
    Shows shows;
};

std::unordered_map<Symbol, Change>& changes() {
    static std::unordered_map<Symbol, Change> by_attribute;
    return by_attribute;
}

/// What all rows have in common.
template <typename Field>
Attribute& add(Class& c, const char* name, Field F::*field, const char* label, const char* default_value,
               Shows shows) {
    Attribute& attribute = class_addattr<Prseq>(c, name, field);
    attribute.label = label;
    attribute.default_value = default_value;
    changes()[attribute.name] = shows.change;
    return attribute;
}

void add_switch(Class& c, const SwitchRow& row) {
    Attribute& attribute = add(c, row.name, row.field, row.label, row.default_value, row.shows);
    attribute.category = row.category;
    attribute.style = "onoff";
    attribute.clip = {0, 1};
    attribute.paint = row.paint;
}

void add_color(Class& c, const ColorRow& row) {
    Attribute& attribute = add(c, row.name, row.field, row.label, row.default_value, row.shows);
    attribute.category = "Color";
    attribute.style = "rgba";
    attribute.paint = true;
}

template <typename Field>
Attribute& add_value(Class& c, Field F::*field, const ValueRow& row) {
    Attribute& attribute = add(c, row.name, field, row.label, row.default_value, row.shows);
    attribute.category = row.category;
    attribute.clip = row.clip;
    attribute.paint = row.paint;
    return attribute;
}

/// In the document, too; there is nothing to be saved in one that is empty and has no file.
void change_bars(Prseq& object) {
    Edit edit(object, Edit::Unrecorded{Change::Meter});
    const bool blank = object.tracks.empty() && object.info.filename.empty();
    if (blank || object.meter.followstempo == object.bars_follow_tempo) edit.nothing();
    let_bars_follow_tempo(object, object.bars_follow_tempo);
}

}  // namespace

void add_attributes(Class& c) {
    using enum Change;
    for (const ColorRow& row : colors) add_color(c, row);
    add_value(c, &F::menufontsize,
              {"menufontsize", "Menu Font Size", "Display", "12", {{8, 20}}, true, UpperDisplay});
    add_value(c, &F::event_capture_span,
              {"event_capture_span",
               "Multiple Event Capture Span for Undo",
               "Events",
               "60",
               {{1, 1000}},
               false,
               Nothing});
    for (const SwitchRow& row : snap_switches) add_switch(c, row);
    add_value(c, &F::snap_division,
              {"snap_division", "Snap to Parts of a Beat", "Behavior", "0", {{0, 64}}, true, MainDisplay});
    for (const SwitchRow& row : display_switches) add_switch(c, row);
    add_value(
        c, &F::linecursor_update,
        {"linecursor_update", "Line Cursor Display Update", "Display", "50", {{10, 200}}, false, Nothing});
    add_value(
        c, &F::base_frequency,
        {"base_frequency", "Base Frequency for Pitch Conversion", "System", "440.", {}, false, Nothing});
    Attribute& color =
        add_value(c, &F::new_track_color,
                  {"new_track_color", "Color of New Track", "Display", "2", {{0, 2}}, false, Nothing});
    color.style = "enumindex";
    color.enums = {"Default", "Random", "Rainbow"};
    add_value(c, &F::transportname, {"transport", "Transport", "System", "\"\"", {}, false, Nothing});
}

void attribute_modified(Prseq& object, Symbol name) {
    static const Symbol linecursorcolor = gensym("linecursorcolor"), transport = gensym("transport"),
                        bars_follow_tempo = gensym("bars_follow_tempo");
    if (name == linecursorcolor) TQ_Prseq_LineCursor_SetLineColor(object);
    if (name == transport)
        TQ_Prseq_Time_FollowTransport(object, itm_getnamed(object.host(), object.transportname));
    if (name == bars_follow_tempo) change_bars(object);
    follow_tempo(object);
    synchronise_view(object);
    auto change = changes().find(name);
    if (change != changes().end()) prseq_show(object, change->second);  // fields may show what layers do not
}

}  // namespace tq
