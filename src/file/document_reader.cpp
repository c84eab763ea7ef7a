#include "file/document_reader.h"

#include <fmt/printf.h>

#include <cmath>
#include <limits>

#include "file/track_reader.h"
#include "instance/prseq.h"
#include "instance/utilities.h"
#include "model/bars.h"
#include "model/timeline.h"
#include "model/track_info.h"
#include "model/tracks.h"
#include "playback/output.h"
#include "view/layout.h"
#include "view/reports.h"
#include "view/synchronise.h"
#include "view/zoom.h"

namespace tq {

namespace {

constexpr long readable_version = 100;

void read_header(DocumentInfo& info, const Dictionary& header) {
    struct Row {
        const char* key;
        std::string DocumentInfo::*field;
        size_t longest;  // bytes
    };
    static const Row rows[] = {{"title", &DocumentInfo::title, 255},
                               {"author", &DocumentInfo::author, 255},
                               {"memo", &DocumentInfo::memo, 1 << 20},
                               {"date", &DocumentInfo::date, 255}};
    for (const Row& row : rows)
        if (auto text = header.getstring(row.key))
            info.*row.field = cut_text(std::string(*text), row.longest);
}

void read_timeline(Prseq& object, const Dictionary& root) {
    if (auto active = root.getlong("activetrack"); active && track_at(object, *active))
        object.activetrack = *active;
    if (auto length = root.getfloat("maxtime"); length && *length > 0) {
        object.timelinelength = *length;
        for (const TrackRef& track : object.tracks) extend_timeline(object, track->events.latest_end());
        synchronise_view(object);
        prseq_resize_maxtime(object, object.timelinelength);
    }
    settle_timeline_length(object);
    root.getarray("meters").for_each([&](const Dictionary& region) {
        long measure = region.getlong("measure").value_or(0), first = object.meter.firstbarnumber;
        long bar = measure < std::numeric_limits<long>::max() - first ? measure + first
                                                                      : -1;  // no bar has number -1
        prseq_bar(object, bar, region.getlong("beats").value_or(0), region.getlong("notevalue").value_or(0));
    });
}

/// A document that says nothing was made at the tempo that transports begin with, on a grid that knows none.
void read_tempo(Prseq& object, const Dictionary& root) {
    const double tempo = root.getfloat("tempo").value_or(usual_tempo);
    itm_settempo(*object.transport, std::isfinite(tempo) ? tempo : usual_tempo);
    let_bars_follow_tempo(object, root.getlong("bars_follow_tempo").value_or(0) != 0);
}

void read_switches(Prseq& object, const Dictionary& root) {
    struct Row {
        const char* key;
        bool AttributeFields::*field;
    };
    static const Row rows[] = {{"showlabels", &AttributeFields::showlabels},
                               {"showmessages", &AttributeFields::showmessages},
                               {"showbpfs", &AttributeFields::showbpfs},
                               {"showallbpfs", &AttributeFields::display_all_bpfs},
                               {"showbuffers", &AttributeFields::showbuffers}};
    for (const Row& row : rows)
        if (auto value = root.getlong(row.key)) object.*row.field = *value != 0;
    if (auto value = root.getlong("linecursorfollow")) object.linecursor.follow = *value != 0;
    if (auto value = root.getlong("timedisplaytype"); value && *value >= 0 && *value <= 2)
        set_time_display_type(object, static_cast<TimeDisplayType>(*value));
}

void read_view(Prseq& object, const Dictionary& root) {
    struct Row {
        const char* key;
        void (*apply)(Prseq&, double);
        void (*report)(Prseq&);
    };
    static const Row rows[] = {{"verticalzoom", prseq_vertzoom, TQ_Prseq_Output_ZoomVert},
                               {"horizontalzoom", prseq_horzoom, TQ_Prseq_Output_ZoomHor},
                               {"verticalscroll", prseq_vertscroll, TQ_Prseq_Output_ScrollVert},
                               {"horizontalscroll", prseq_horscroll, TQ_Prseq_Output_ScrollHor}};
    for (const Row& row : rows)
        if (auto value = root.getfloat(row.key)) {
            row.apply(object, *value);
            row.report(object);
        }
}

void read_cycle(Prseq& object, const Dictionary& root) {
    std::optional<Dictionary> cycle = root.getdictionary("cycle");
    if (!cycle) return;
    if (auto start = cycle->getlong("cyclestart"))
        object.cycle.start = exact_time(*cycle, "exactcyclestart", static_cast<double>(*start));
    if (auto end = cycle->getlong("cycleend"))
        object.cycle.end = exact_time(*cycle, "exactcycleend", static_cast<double>(*end));
    if (auto active = cycle->getlong("cycleactive")) object.cycle.active = *active != 0;
    TQ_Prseq_Output_CycleRange(object);
    TQ_Prseq_Output_Cycle(object);
}

bool is_readable(const Dictionary& root) {
    std::optional<Dictionary> header = root.getdictionary("header");
    return header && header->getlong("fileversion") == readable_version;
}

}  // namespace

bool TQ_Prseq_Json_ParseDictionary(Prseq& object, const Dictionary& root) {
    if (!root.has("tq.sorvo")) {
        object_error(object, fmt::sprintf("The file \"%s\" is not a tq.sorvo file", object.info.filename));
        return false;
    }
    bool readable = is_readable(root);
    if (readable) {
        read_header(object.info, *root.getdictionary("header"));
        root.getarray("tracks").for_each([&](const Dictionary& track) { read_track(object, track); });
        read_tempo(object, root);
        read_timeline(object, root);
        read_switches(object, root);
        read_view(object, root);
        read_cycle(object, root);
        TQ_Prseq_Tracks_OutputTrackInfo(object);
    } else {
        object_error(object, "Bad File Version");
    }
    prseq_setdirtyflag(object, false);
    return readable;
}

}  // namespace tq
