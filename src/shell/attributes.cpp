#include "shell/attributes.h"

#include <unordered_map>

#include "host/host.h"
#include "playback/linecursor.h"
#include "playback/time.h"
#include "shell/change.h"
#include "shell/prseq.h"

namespace tq {

namespace {

using F = AttributeFields;

struct ColorRow {
    const char* name;
    Rgba F::*field;
    const char *label, *default_value;
};

constexpr ColorRow colors[] = {
    {"upperdisplaycolor", &F::upperdisplaycolor, "Upper Display Color", "0.9 0.9 0.9 1."},
    {"trackdisplaycolor", &F::trackdisplaycolor, "Track Display Color", "0.74 0.76 0.81 1."},
    {"menutitletextcolor", &F::menutitletextcolor, "Menu Title Text Color", "0.26 0.26 0.26 1."},
    {"timedisplaycolor", &F::timedisplaycolor, "Time Display Color", "0.68 0.82 0.82 1."},
    {"timedisplaycyclecolor", &F::timedisplaycyclecolor, "Time Display Loop Color", "0.1 1.0 0.2 1.0"},
    {"linecursorcolor", &F::linecursorcolor, "Line Cursor Color", "1. 0. 0. 1."},
    {"keydisplaywhitekeycolor", &F::keydisplaywhitekeycolor, "Key Display White Key Color",
     "0.98 0.98 0.98 1."},
    {"keydisplaywhitekeybordercolor", &F::keydisplaywhitekeybordercolor, "Key Display White Key Border Color",
     "0.8 0.8 0.67 1."},
    {"keydisplayblackkeycolor", &F::keydisplayblackkeycolor, "Key Display Black Key Color",
     "0.78 0.78 0.78 1."},
    {"keydisplaylabelcolor", &F::keydisplaylabelcolor, "Key Display Label Color", "0.2 0.2 0.2 1."},
    {"keydisplayhighlightcolor", &F::keydisplayhighlightcolor, "Key Display Highlight Color",
     "0.5 0.5 0.5 1."},
    {"maindisplaywhitekeycolor", &F::maindisplaywhitekeycolor, "Main Display White Key Color", "1. 1. 1. 1."},
    {"maindisplayblackkeycolor", &F::maindisplayblackkeycolor, "Main Display Black Key Color",
     "0.96 0.96 0.96 1."},
    {"maindisplaysubdivisionlinecolor", &F::maindisplaysubdivisionlinecolor,
     "Main Display Subdivision Line Color", "0.92 0.92 0.92 1."},
    {"maindisplaymaindivisionlinecolor", &F::maindisplaymaindivisionlinecolor,
     "Main Display Maindivision Line Color", "0.87 0.87 0.87 1."},
};

struct SwitchRow {
    const char* name;
    bool F::*field;
    const char *label, *category, *default_value;
    bool paint;
};

constexpr SwitchRow snap_switches[] = {
    {"snaptime", &F::snaptime, "Snap Time", "Behavior", "0", false},
    {"snappitch", &F::snappitch, "Snap Pitch", "Behavior", "0", false},
};

constexpr SwitchRow display_switches[] = {
    {"menudisplay", &F::menudisplay, "Show/Hide Menu Display", "Display", "1", true},
    {"focusdisplay", &F::focusdisplay, "Show/Hide Focus Hint", "Display", "1", true},
    {"dirtydisplay", &F::dirtydisplay, "Show/Hide Dirty Hint", "Display", "1", true},
    {"trackdisplay", &F::trackdisplay, "Show/Hide Track Display", "Display", "1", true},
    {"keydisplay", &F::keydisplay_shown, "Show/Hide Key Display", "Display", "1", true},
    {"parameterdisplay", &F::parameterdisplay, "Show/Hide Parameter Display", "Display", "0", true},
    {"showlabels", &F::showlabels, "Show Labels", "Events", "1", true},
    {"showmessages", &F::showmessages, "Show Messages", "Events", "1", true},
    {"showbpfs", &F::showbpfs, "Show Bpfs", "Events", "1", true},
    {"showbuffers", &F::showbuffers, "Show Buffers", "Events", "1", true},
    {"display_all_bpfs", &F::display_all_bpfs, "Show Bpfs - Display All", "Events", "1", true},
    {"border", &F::border, "Draw Border", "Display", "1", true},
    {"notelanes", &F::notelanes, "Draw Note Lanes", "Display", "1", true},
    {"keyhighlight", &F::keyhighlight, "Key Highlighting in Key Display", "Display", "1", true},
    {"zoom_animation", &F::zoom_animation, "Animate Zooming", "Display", "1", true},
};

void add_switch(Class& c, const SwitchRow& row) {
    Attribute& attribute = class_addattr<Prseq>(c, row.name, row.field);
    attribute.label = row.label;
    attribute.category = row.category;
    attribute.style = "onoff";
    attribute.default_value = row.default_value;
    attribute.clip = {0, 1};
    attribute.paint = row.paint;
}

void add_color(Class& c, const ColorRow& row) {
    Attribute& attribute = class_addattr<Prseq>(c, row.name, row.field);
    attribute.label = row.label;
    attribute.category = "Color";
    attribute.style = "rgba";
    attribute.default_value = row.default_value;
    attribute.paint = true;
}

struct NumberRow {
    const char *name, *label, *category, *default_value;
    std::optional<std::pair<double, double>> clip;
    bool paint = false;
};

template <typename Field>
Attribute& add_number(Class& c, Field F::*field, const NumberRow& row) {
    Attribute& attribute = class_addattr<Prseq>(c, row.name, field);
    attribute.label = row.label;
    attribute.category = row.category;
    attribute.default_value = row.default_value;
    attribute.clip = row.clip;
    attribute.paint = row.paint;
    return attribute;
}

/// Which change an attribute's change is to the view. Attributes that are not here take effect at the next
/// paint or use.
const std::unordered_map<Symbol, Change>& changes_by_attribute() {
    static const std::unordered_map<Symbol, Change> changes{
        {gensym("linecursorcolor"), Change::LineCursor},
        {gensym("menudisplay"), Change::UpperDisplay},
        {gensym("focusdisplay"), Change::UpperDisplay},
        {gensym("dirtydisplay"), Change::UpperDisplay},
        {gensym("upperdisplaycolor"), Change::Background},
        {gensym("menufontsize"), Change::UpperDisplay},
        {gensym("trackdisplaycolor"), Change::TrackDisplay},
        {gensym("timedisplaycolor"), Change::TimeDisplay},
        {gensym("timedisplaycyclecolor"), Change::TimeDisplay},
        {gensym("keydisplaywhitekeycolor"), Change::KeyDisplay},
        {gensym("keydisplaywhitekeybordercolor"), Change::KeyDisplay},
        {gensym("keydisplayblackkeycolor"), Change::KeyDisplay},
        {gensym("keydisplaylabelcolor"), Change::KeyDisplay},
        {gensym("maindisplaywhitekeycolor"), Change::MainDisplay},
        {gensym("maindisplayblackkeycolor"), Change::MainDisplay},
        {gensym("maindisplaysubdivisionlinecolor"), Change::MainDisplay},
        {gensym("maindisplaymaindivisionlinecolor"), Change::MainDisplay},
        {gensym("notelanes"), Change::MainDisplay},
    };
    return changes;
}

}  // namespace

void add_attributes(Class& c) {
    for (const ColorRow& row : colors) add_color(c, row);
    add_number(c, &F::menufontsize, {"menufontsize", "Menu Font Size", "Display", "12", {{8, 20}}, true});
    add_number(c, &F::event_capture_span,
               {"event_capture_span", "Multiple Event Capture Span for Undo", "Events", "60", {{1, 1000}}});
    for (const SwitchRow& row : snap_switches) add_switch(c, row);
    for (const SwitchRow& row : display_switches) add_switch(c, row);
    add_number(c, &F::linecursor_update,
               {"linecursor_update", "Line Cursor Display Update", "Display", "50", {{10, 200}}});
    add_number(c, &F::base_frequency,
               {"base_frequency", "Base Frequency for Pitch Conversion", "System", "440.", {}});
    Attribute& color = add_number(c, &F::new_track_color,
                                  {"new_track_color", "Color of New Track", "Display", "2", {{0, 2}}});
    color.style = "enumindex";
    color.enums = {"Default", "Random", "Rainbow"};
    Attribute& transport = class_addattr<Prseq>(c, "transport", &F::transportname);
    transport.label = "Transport";
    transport.category = "System";
    transport.default_value = "\"\"";
}

void attribute_modified(Prseq& object, Symbol name) {
    static const Symbol linecursorcolor = gensym("linecursorcolor"), transport = gensym("transport");
    if (name == linecursorcolor) TQ_Prseq_LineCursor_SetLineColor(object);
    if (name == transport)
        TQ_Prseq_Time_FollowTransport(object, itm_getnamed(object.host(), object.transportname));
    auto change = changes_by_attribute().find(name);
    if (change != changes_by_attribute().end()) prseq_show(object, change->second);
}

}  // namespace tq
