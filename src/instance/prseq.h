// The instance: one box with its document, its view and its playback.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/box.h"
#include "host/clock.h"
#include "host/transport.h"
#include "instance/attribute_fields.h"
#include "instance/bpf_editing.h"
#include "instance/capture_record.h"
#include "instance/change.h"
#include "instance/clipboard_record.h"
#include "instance/cursor_record.h"
#include "instance/cycle.h"
#include "instance/defaults.h"
#include "instance/event.h"
#include "instance/event_index.h"
#include "instance/gesture.h"
#include "instance/history.h"
#include "instance/inspector_record.h"
#include "instance/linecursor_record.h"
#include "instance/meter.h"
#include "instance/modal_dialog_record.h"
#include "instance/revision.h"
#include "instance/track.h"
#include "instance/upperdisplay_records.h"
#include "instance/view_records.h"

namespace tq {

/// Outlets, from the left.
enum PrseqOutlet : int { OutletPlaying = 0, OutletSelected = 1, OutletTrackInfo = 2, OutletSystemInfo = 3 };

/// The document's header and where its file is.
struct DocumentInfo {
    std::string title = "No Title";
    std::string date;
    std::string author = "Anonymous";
    std::string memo;
    long fileversion = 100;
    std::string filename;  ///< empty: untitled
    std::string folder;    ///< empty: the working folder
    long untitledcounter = 1;
    long emptied = 0;              ///< how often a document was emptied to make room for another
    bool dialogcancelled = false;  ///< the last file dialog was
};

/// What the instance calls when a clock or the host calls it. Rooms above this one give it.
struct PrseqCallbacks {
    void (*notify)(Prseq&, const Notification&);
    void (*resized)(Prseq&);
    void (*changed)(Prseq&, Change);  ///< something that is seen is to be shown anew
    void (*eventcapture)(Prseq&);
    void (*runningtime)(Prseq&);
    void (*eventcatched)(Prseq&);
    void (*loopendcatched)(Prseq&);
    void (*zoomstep)(Prseq&);
};

struct Prseq : Box, AttributeFields, Geometry {
    Prseq(Host& host, const Class& prseq_class, const PrseqCallbacks& callbacks);

    const PrseqCallbacks& callbacks;
    bool initialised = false;
    Defaults defaults;

    // the document
    DocumentInfo info;
    Revisions revisions;
    BufferOverviews buffers{*this};  ///< outlives the events
    std::vector<TrackRef> tracks;    ///< in display order
    long activetrack = -1;           ///< index; −1 without tracks
    long tracknamecounter = 0;
    long eventcounter = 0;    ///< the last identifier given out
    EventIndex events_by_id;  ///< every event that is in a track of the list
    Meter meter;
    double timelinelength = 10000;     ///< ms; grows, never shrinks
    bool timelinelengthasked = false;  ///< an event came or was moved: the length is to be reported
    static constexpr double keysperoctave = 12;
    static constexpr double maximumpitch = keysperoctave * 11 - 1;

    // editing
    std::vector<EventRef> selection;   ///< the selected events of the active track, in its order
    std::unique_ptr<Gesture> gesture;  ///< what is under way between a press and its release
    bool outputonrelease = false;      ///< the release tells the selected events
    Clipboard clipboard;
    History history;
    EventCapture capture;
    Clock eventcaptureclock;
    EventRef bpfeditingevent;  ///< the event whose curves are edited, or none
    bool bpfeditor = false;
    BpfEditing bpfediting;
    Tiptool tiptool;
    MenuBar menubar;
    IconMenu iconmenu;
    std::optional<ModalDialog> modaldialog;  ///< while it is open, no part gets the mouse
    Hover hover;
    Inspectors inspectors;
    MouseCursors cursors;

    // playback
    bool playing = false;
    EventRef nextevent;        ///< what is sent next, over all tracks, or none
    TrackRef nextevent_track;  ///< the track whose next event it is
    Cycle cycle;
    LineCursor linecursor;
    Itm* transport;
    TimeObject runningtime, eventtargettime, loopendtargettime;

    // the view
    long timedisplaytype = 0;  ///< 0 msecs, 1 m:s.ms, 2 Bars+Beats
    double horizontalzoom = 0, verticalzoom = 0, horizontalscroll = 0, verticalscroll = 0;  ///< unity values
    TQScrollbar trackscrollbar;  ///< of the track list
    ZoomAnimation zoomanimation;
    Clock zoomclock;
    mutable Changes unpainted;  ///< what has changed since the last paint; no part of the box's state

    void notify(const Notification& notification) override { callbacks.notify(*this, notification); }
    void resized() override { callbacks.resized(*this); }
};

}  // namespace tq
