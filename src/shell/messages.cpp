#include "shell/messages.h"

#include "edits/timeline_edits.h"
#include "edits/track_edits.h"
#include "file/document_messages.h"
#include "history/undoredo.h"
#include "host/outlet.h"
#include "inspectors/inspectors.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "interaction/mouse_modes.h"
#include "model/selection.h"
#include "model/track_info.h"
#include "model/tracks.h"
#include "playback/output.h"
#include "playback/time.h"
#include "shell/edit_messages.h"
#include "shell/event_message.h"
#include "view/reports.h"
#include "view/zoom.h"
#include "view/zoom_commands.h"

namespace tq {

void add_messages(Class& c) {
    class_addmethod(c, "zoom_vert", prseq_vertzoom);
    class_addmethod(c, "zoom_hor", prseq_horzoom);
    class_addmethod(c, "scroll_vert", prseq_vertscroll);
    class_addmethod(c, "scroll_hor", prseq_horscroll);
    class_addmethod(c, "zoom_in", prseq_zoom_in);
    class_addmethod(c, "zoom_out", prseq_zoom_out);
    class_addmethod(c, "zoom_to_selection", prseq_zoom_to_selection);
    class_addmethod(c, "zoom_out_all", prseq_zoom_out_all);
    class_addmethod(c, "cyclerange", prseq_cyclerange);
    class_addmethod(c, "cycle", prseq_cycle);
    class_addmethod(c, "mouse_mode", prseq_mousemode);
    class_addmethod(c, "track_active", prseq_activetrack);
    class_addmethod(c, "track_add", prseq_addtrack);
    class_addmethod(c, "track_delete", prseq_deletetrack);
    class_addmethod(c, "track_color", prseq_trackcolor);
    class_addmethod(c, "track_visible", prseq_trackvisible);
    class_addmethod(c, "track_mute", prseq_trackmute);
    class_addmethod(c, "track_solo", prseq_tracksolo);
    class_addmethod(c, "track_destination", prseq_trackdestination);
    class_addmethod(c, "track_bpf_add", prseq_trackbpfadd);
    class_addmethod(c, "track_parameter_add", prseq_trackparameteradd);
    class_addmethod(c, "track_dump", TQ_Prseq_Tracks_OutputTrackInfo);
    class_addmethod(c, "position", prseq_position);
    class_addmethod(c, "event", prseq_event);
    class_addmethod(c, "undo", prseq_undo);
    class_addmethod(c, "redo", prseq_redo);
    class_addmethod(c, "undoredo", prseq_undoredo);
    class_addmethod(c, "undoredo_clear", prseq_undoredo_clear);
    class_addmethod(c, "undoredo_dump", TQ_Prseq_Undoredo_Dump);
    class_addmethod(c, "maxtime", prseq_maxtime);
    class_addmethod(c, "read", TQ_Prseq_Json_ReadFromReadMessage);
    class_addmethod(c, "readagain", TQ_Prseq_Json_ReadFromReadagainMessage);
    class_addmethod(c, "write", TQ_Prseq_Json_WriteFromWriteMessage);
    class_addmethod(c, "writeagain", TQ_Prseq_Json_WriteFromWriteAgainMessage);
    class_addmethod(c, "int", prseq_int);
    class_addmethod(c, "document_inspector_open", prseq_fileinspector_open);
    class_addmethod(c, "document_inspector_close", prseq_fileinspector_close);
    class_addmethod(c, "track_inspector_open", prseq_trackinspector_open);
    class_addmethod(c, "track_inspector_close", prseq_trackinspector_close);
    class_addmethod(c, "event_inspector_open", prseq_eventinspector_open);
    class_addmethod(c, "event_inspector_close", prseq_eventinspector_close);
    class_addmethod(c, "dump_selected", prseq_dump_selected);
    class_addmethod(c, "getdirty", prseq_getdirty_out);
    class_addmethod(c, "getmaxtime", TQ_Prseq_Output_Maxtime);
    class_addmethod(c, "getcycle", TQ_Prseq_Output_Cycle);
    class_addmethod(c, "getcyclerange", TQ_Prseq_Output_CycleRange);
    add_edit_messages(c);
}

void prseq_getdirty_out(Prseq& object) {
    dumpout_anything(object, tq_sym_dirty, Atoms{long{prseq_getdirtyflag(object)}});
}

}  // namespace tq
