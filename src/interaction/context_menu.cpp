#include "interaction/context_menu.h"

#include "instance/prseq.h"
#include "instance/symbols.h"
#include "interaction/commands.h"
#include "interaction/hit_test.h"
#include "interaction/popup_menu.h"
#include "interaction/resource_pictures.h"
#include "model/selection.h"
#include "model/tracks.h"

namespace tq {

namespace {

struct ModeItem {
    Command command;
    const char* icon;
};
constexpr ModeItem mode_items[] = {{Command::SelectMode, "pointer8.png"},
                                   {Command::InsertMode, "cursor_pencil32.png"},
                                   {Command::SliceMode, "cursor_scissors.png"},
                                   {Command::GlueMode, "cursor_pastetube.png"},
                                   {Command::ZoomMode, "cursor_zoom.png"},
                                   {Command::EditBpfMode, "pencilBpf8.png"},
                                   {Command::SelectBpfMode, "cursor_selectBpf.png"},
                                   {Command::BufferMode, "cursor_arrows_leftright.png"}};

void add_modes(PopupMenu& menu, Prseq& object) {
    for (const ModeItem& item : mode_items)
        menu.add(object, item.command, picture_or_error(object, item.icon));
    menu.separate();
}

/// There is always something to select all of on an event, and elsewhere where the command says so.
PopupMenu menu_on_event(Prseq& object) {
    PopupMenu menu;
    add_modes(menu, object);
    menu.add(object, Command::Cut);
    menu.add(object, Command::Copy);
    menu.add(object, Command::Paste);
    menu.separate();
    menu.add(object, Command::Delete);
    menu.add({.text = "Select All"}, [](Prseq& o) { run_command(o, Command::SelectAllSilently); });
    return menu;
}

PopupMenu menu_beside_events(Prseq& object) {
    PopupMenu menu;
    add_modes(menu, object);
    menu.add(object, Command::SelectAllSilently);
    menu.add(object, Command::Paste);
    return menu;
}

void display_parameter(Prseq& object, Symbol parameter) {
    Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (!track) return;
    track->displayedparameter = parameter;
    prseq_show(object, Change::ParameterDisplay);
}

PopupMenu menu_of_parameters(const Track& track) {
    PopupMenu menu;
    const auto add = [&](Symbol name) {
        menu.add({.text = name.text(), .checked = name == track.displayedparameter},
                 [name](Prseq& o) { display_parameter(o, name); });
    };
    add(tq_sym_Velocity);
    for (const ParameterTypeRef& type : track.parametertypes) add(type->name);
    return menu;
}

void show(Prseq& object, const PopupMenu& menu, const Pointer& press) {
    menu.ask(object, press.at)(object);
    prseq_show(object, Change::Events);
}

}  // namespace

void TQ_Prseq_Mouse_ClickRightMaindisplay(Prseq& object, const Pointer& press) {
    const EventRef event = event_under(object, press);
    if (event) event->track->events.select(*event, !edits_curves(object.maindisplay.mousemode));
    list_selected_events(object);
    prseq_show(object, Change::Events);
    show(object, event ? menu_on_event(object) : menu_beside_events(object), press);
}

void TQ_Prseq_Mouse_ClickRightParameterdisplay(Prseq& object, const Pointer& press) {
    if (const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object))
        show(object, menu_of_parameters(*track), press);
}

}  // namespace tq
