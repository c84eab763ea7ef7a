#include "shell/instance.h"

#include "history/capture.h"
#include "host/defer.h"
#include "host/host.h"
#include "inspectors/inspectors.h"
#include "instance/symbols.h"
#include "interaction/cursors.h"
#include "interaction/icon_menu.h"
#include "model/bars.h"
#include "model/buffers.h"
#include "playback/time.h"
#include "shell/attributes.h"
#include "shell/messages.h"
#include "view/linecursor.h"
#include "view/reports.h"
#include "view/synchronise.h"
#include "view/zoom.h"
#include "view/zoom_commands.h"

namespace tq {

namespace {

/// The first view of a new box.
constexpr ZoomScroll first_view{
    .horizontalzoom = 0.04, .verticalzoom = 0.02, .horizontalscroll = 0, .verticalscroll = 0.5};

void do_initialisation(Prseq& object) {
    object.defaults = make_defaults();
    TQ_Prseq_LineCursor_MakeLine(object);
    init_scrollbars(object);
    prseq_horzoom(object, first_view.horizontalzoom);
    prseq_horscroll(object, first_view.horizontalscroll);
    prseq_vertzoom(object, first_view.verticalzoom);
    prseq_vertscroll(object, first_view.verticalscroll);
    prseq_resize_maxtime(object, object.timelinelength);
    begin_meter(object);
    TQ_Prseq_IconMenu_MakeMousemodeIconMenu(object);
    TQ_Prseq_MakeIconsForCursor(object);
    prseq_setdirtyflag(object, false);
    prseq_show(object, Change::Initialisation);
    object.initialised = true;
}

void notify(Prseq& object, const Notification& notification) {
    if (notification.sender == &object && notification.message == tq_sym_attr_modified)
        return attribute_modified(object, notification.data);
    if (notification.sender == &object.host().view) return TQ_Prseq_Output_PatcherwindowRect(object);
    if (inspector_notify(object, notification)) return;
    const Symbol name = notification.data;
    if (notification.message == tq_sym_globalsymbol_binding)
        defer_low(object, [name](Prseq& o) { TQ_Prseq_Buffer_FindAllEventsWithNamedBuffer(o, name); });
    else if (notification.message == tq_sym_globalsymbol_unbinding)
        TQ_Prseq_Buffer_RemoveNamedBufferFromAll(object, name);
    else if (notification.message == tq_sym_buffer_modified)
        TQ_Prseq_Buffer_ModifyBuffer(object, name);
}

constexpr PrseqCallbacks callbacks{.notify = notify,
                                   .resized = synchronise_view,
                                   .changed = inspectors_look_again,
                                   .eventcapture = close_event_capture,
                                   .runningtime = TQ_Prseq_Time_Runningtime,
                                   .eventcatched = TQ_Prseq_Time_EventCatched,
                                   .loopendcatched = TQ_Prseq_Time_LoopEndCatched,
                                   .zoomstep = zoom_clock_run};

}  // namespace

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
    auto object = std::make_unique<Prseq>(host, prseq_class(), callbacks);
    object_attr_set_defaults(*object);
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

void prseq_attach_patcherview(Prseq& object) { object_attach_byptr(object, object.host().view); }
void prseq_detach_patcherview(Prseq& object) { object_detach_byptr(object, object.host().view); }

std::string prseq_assist(char kind, long index) {
    static const char* const outlets[] = {"event output while playing", "event output when selected",
                                          "track info", "system info (scroll, zoom, position, undo, ...)",
                                          "dumpout"};
    if (kind == 'i' && index == 0) return "int (1/0) to Start/Stop, messages";
    return kind == 'o' && index >= 0 && index < 5 ? outlets[index] : "";
}

}  // namespace tq
