// The instance: one box with its document, its view and its playback.
#pragma once

#include <string>
#include <vector>

#include "history/capture_record.h"
#include "history/clipboard_record.h"
#include "history/history.h"
#include "host/box.h"
#include "host/clock.h"
#include "host/transport.h"
#include "interaction/press.h"
#include "model/event.h"
#include "model/event_index.h"
#include "model/meter.h"
#include "model/track.h"
#include "playback/cycle.h"
#include "playback/linecursor_record.h"
#include "shell/attribute_fields.h"
#include "shell/defaults.h"
#include "view/records.h"

namespace tq {

/// Outlets, from the left.
enum PrseqOutlet : int { OutletPlaying = 0, OutletSelected = 1, OutletTrackInfo = 2, OutletSystemInfo = 3 };

/// The document's header and where its file is.
struct DocumentInfo {
    std::string title = "No Title";
    std::string date;
    std::string author = "Anonymous";
    long fileversion = 100;
    std::string filename;  ///< empty: untitled
    std::string folder;    ///< empty: the working folder
    long untitledcounter = 1;
    long emptied = 0;              ///< how often a document was emptied to make room for another
    bool dialogcancelled = false;  ///< the last file dialog was
    bool dirty = false;            ///< differs from its file
};

struct Prseq : Box, AttributeFields {
    explicit Prseq(Host& host);

    bool initialised = false;
    Defaults defaults;

    // the document
    DocumentInfo info;
    BufferOverviews buffers{*this};  ///< outlives the events
    std::vector<TrackRef> tracks;    ///< in display order
    long activetrack = -1;           ///< index; −1 without tracks
    long tracknamecounter = 0;
    long eventcounter = 0;    ///< the last identifier given out
    EventIndex events_by_id;  ///< every event that is in a track of the list
    Meter meter;
    double timelinelength = 10000;  ///< ms; grows, never shrinks
    static constexpr double keysperoctave = 12;
    static constexpr double maximumpitch = keysperoctave * 11 - 1;

    // editing
    std::vector<EventRef> selection;            ///< the selected events of the active track, in its order
    std::vector<EventRef> selectedwhenclicked;  ///< what was selected when a marquee was begun
    MainPress press;
    Clipboard clipboard;
    History history;
    EventCapture capture;
    Clock eventcaptureclock;
    EventRef bpfeditingevent;  ///< the event whose curves are edited, or none
    bool bpfeditor = false;
    Tiptool tiptool;

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
    Layout layout;
    MainDisplay maindisplay;
    KeyDisplay keydisplay;
    TQScrollbar horscrollbar, vertscrollbar;
    ZoomAnimation zoomanimation;
    Clock zoomclock;

    void notify(const Notification& notification) override;
};

}  // namespace tq
