#include "shell/instance.h"

#include "history/capture.h"
#include "history/undoredo.h"
#include "host/defer.h"
#include "host/host.h"
#include "model/bars.h"
#include "model/buffers.h"
#include "model/tracks.h"
#include "playback/linecursor.h"
#include "playback/time.h"
#include "shell/attributes.h"
#include "shell/change.h"
#include "shell/messages.h"
#include "shell/symbols.h"
#include "view/layout.h"
#include "view/synchronise.h"
#include "view/zoom.h"
#include "view/zoom_commands.h"

namespace tq {

namespace {

constexpr int event_target_flags =
    TIME_FLAGS_TICKSONLY | TIME_FLAGS_USECLOCK | TIME_FLAGS_PERMANENT | TIME_FLAGS_POSITIVE;

/// The first view of a new box.
constexpr ZoomScroll first_view{
    .horizontalzoom = 0.04, .verticalzoom = 0.02, .horizontalscroll = 0, .verticalscroll = 0.5};

void do_initialisation(Prseq& object) {
    object.defaults = make_defaults();
    TQ_Prseq_LineCursor_MakeLine(object);
    calculate_windowparts(object);
    init_scrollbars(object);
    prseq_horzoom(object, first_view.horizontalzoom);
    prseq_horscroll(object, first_view.horizontalscroll);
    prseq_vertzoom(object, first_view.verticalzoom);
    prseq_vertscroll(object, first_view.verticalscroll);
    prseq_resize_maxtime(object, object.timelinelength);
    prseq_bar(object, object.meter.firstbarnumber, 4, 4);
    prseq_setdirtyflag(object, false);
    prseq_show(object, Change::Initialisation);
    object.initialised = true;
}

}  // namespace

Prseq::Prseq(Host& host)
    : Box(host, prseq_class()),
      eventcaptureclock(host.scheduler, *this, [this] { close_event_capture(*this); }),
      transport(&itm_getnamed(host, {})),
      runningtime(
          *transport, *this, [this] { TQ_Prseq_Time_Runningtime(*this); }, TIME_FLAGS_USECLOCK),
      eventtargettime(
          *transport, *this, [this] { TQ_Prseq_Time_EventCatched(*this); }, event_target_flags),
      loopendtargettime(
          *transport, *this, [this] { TQ_Prseq_Time_LoopEndCatched(*this); },
          event_target_flags | TIME_FLAGS_LOCATION),
      zoomclock(host.scheduler, *this, [this] { zoom_clock_run(*this); }) {
    minimum_size = {200, 240};
    object_attach_byptr(*this, *transport);
    object_attr_set_defaults(*this);
}

void Prseq::notify(const Notification& notification) {
    if (notification.sender == this && notification.message == tq_sym_attr_modified)
        return attribute_modified(*this, notification.data);
    const Symbol name = notification.data;
    if (notification.message == tq_sym_globalsymbol_binding)
        defer_low(*this, [name](Prseq& o) { TQ_Prseq_Buffer_FindAllEventsWithNamedBuffer(o, name); });
    else if (notification.message == tq_sym_globalsymbol_unbinding)
        TQ_Prseq_Buffer_RemoveNamedBufferFromAll(*this, name);
    else if (notification.message == tq_sym_buffer_modified)
        TQ_Prseq_Buffer_ModifyBuffer(*this, name);
}

const Class& prseq_class() {
    static const Class the_class = [] {
        Class c("tq.sorvo");
        add_messages(c);
        add_attributes(c);
        return c;
    }();
    return the_class;
}

std::unique_ptr<Prseq> prseq_new(Host& host, const std::optional<BoxDictionary>& dictionary) {
    if (!dictionary) return nullptr;
    auto object = std::make_unique<Prseq>(host);
    for (const auto& [name, atoms] : *dictionary)
        if (const Attribute* attribute = prseq_class().find_attribute(name))
            object_attr_setvalueof(*object, *attribute, atoms);
    do_initialisation(*object);
    return object;
}

BoxDictionary prseq_save(const Prseq& object) {
    BoxDictionary dictionary;
    for (const Attribute& attribute : prseq_class().attributes())
        if (attribute.save) dictionary.emplace_back(attribute.name, attribute.read(object));
    return dictionary;
}

std::string prseq_assist(char kind, long index) {
    static const char* const outlets[] = {"event output while playing", "event output when selected",
                                          "track info", "system info (scroll, zoom, position, undo, ...)",
                                          "dumpout"};
    if (kind == 'i' && index == 0) return "int (1/0) to Start/Stop, messages";
    return kind == 'o' && index >= 0 && index < 5 ? outlets[index] : "";
}

void TQ_Prseq_NewFile(Prseq& object) {
    if (object.playing) TQ_Prseq_Time_StartStopPlayer(object, 0);  // while the receivers can still be told
    clock_unset(object.eventcaptureclock);
    object.capture = {};
    TQ_Prseq_Undoredo_DeleteUndoLine(object);
    TQ_Prseq_Tracks_DeleteAllTracksAndFree(object);
    object.activetrack = -1;
    object.selection.clear();
    object.selectedwhenclicked.clear();
    object.press = {};
    object.bpfeditingevent = nullptr;
    object.nextevent = nullptr;
    object.nextevent_track = nullptr;
    ++object.info.emptied;
    object.info.filename.clear();
    object.info.fileversion = 100;
    object.info.title = "No Title";
    object.info.author = "Anonymous";
    prseq_setdirtyflag(object, false);
}

void prseq_setdirtyflag(Prseq& object, bool dirty) {
    if (object.info.dirty != dirty) {
        object.info.dirty = dirty;
        prseq_invalidate(object, Change::UpperDisplay);
    }
    jbox_redraw(object);
}

bool prseq_getdirtyflag(const Prseq& object) { return object.info.dirty; }

void prseq_edited(Prseq& object, Change change) {
    prseq_setdirtyflag(object, true);
    prseq_show(object, change);
}

void prseq_show(Prseq& object, Change change) {
    prseq_invalidate(object, change);
    jbox_redraw(object);
}

}  // namespace tq
