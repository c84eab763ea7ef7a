// Symbols that the box compares against, made once when the program starts.
#pragma once

#include "host/symbol.h"

namespace tq {

// event messages and what is sent of events
inline const Symbol tq_sym_event = gensym("event"), tq_sym_id = gensym("id"), tq_sym_start = gensym("start"),
                    tq_sym_duration = gensym("duration"), tq_sym_track = gensym("track"),
                    tq_sym_label = gensym("label"), tq_sym_stop = gensym("stop");
inline const Symbol tq_sym_tag_note_open = gensym("<note>"), tq_sym_tag_note_close = gensym("</note>"),
                    tq_sym_tag_message_open = gensym("<message>"),
                    tq_sym_tag_message_close = gensym("</message>"),
                    tq_sym_tag_buffer_open = gensym("<buffer>"),
                    tq_sym_tag_buffer_close = gensym("</buffer>"),
                    tq_sym_tag_parameter_open = gensym("<parameter>"),
                    tq_sym_tag_parameter_close = gensym("</parameter>"),
                    tq_sym_tag_bpf_open = gensym("<bpf>"), tq_sym_tag_bpf_close = gensym("</bpf>");

// track info
inline const Symbol tq_sym_tracks = gensym("tracks"), tq_sym_clear = gensym("clear"),
                    tq_sym_set = gensym("set"), tq_sym_color = gensym("color"),
                    tq_sym_inactivecolor = gensym("inactivecolor"), tq_sym_visible = gensym("visible"),
                    tq_sym_mute = gensym("mute"), tq_sym_parameter = gensym("parameter"),
                    tq_sym_bpf = gensym("bpf"), tq_sym_destination = gensym("destination"),
                    tq_sym_select = gensym("select"), tq_sym_done = gensym("done");

// names that stand in documents
inline const Symbol tq_sym_Pitch = gensym("Pitch"), tq_sym_Velocity = gensym("Velocity"),
                    tq_sym_Bpftype = gensym("Bpftype"), tq_sym_Untitled = gensym("Untitled"),
                    tq_sym_empty = gensym("<empty>");

// system info
inline const Symbol tq_sym_scrollhor = gensym("scrollhor"), tq_sym_scrollvert = gensym("scrollvert"),
                    tq_sym_zoomhor = gensym("zoomhor"), tq_sym_zoomvert = gensym("zoomvert"),
                    tq_sym_maxtime = gensym("maxtime"), tq_sym_cycle = gensym("cycle"),
                    tq_sym_cyclerange = gensym("cyclerange"), tq_sym_ticks = gensym("ticks"),
                    tq_sym_dirty = gensym("dirty"), tq_sym_undoredo = gensym("undoredo"),
                    tq_sym_patcherwindow_rect = gensym("patcherwindow_rect"),
                    tq_sym_append = gensym("append"), tq_sym_slot = gensym("slot");

// what the host calls things
inline const Symbol tq_sym_through = gensym("through"), tq_sym_attr_modified = gensym("attr_modified"),
                    tq_sym_rect = gensym("rect"),
                    tq_sym_globalsymbol_binding = gensym("globalsymbol_binding"),
                    tq_sym_globalsymbol_unbinding = gensym("globalsymbol_unbinding"),
                    tq_sym_buffer_modified = gensym("buffer_modified"),
                    tq_sym_document_edited = gensym("document_edited");

}  // namespace tq
