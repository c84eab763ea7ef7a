#include "file/document_writer.h"

#include <ctime>

#include "host/dictionary.h"
#include "host/files.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "instance/utilities.h"
#include "model/tracks.h"

namespace tq {

namespace {

constexpr int line_depth = 4;  // root, tracks, track, events: an event is one line

void write_header(const DocumentInfo& info, DictionaryWriter& out) {
    std::time_t now = std::time(nullptr);
    out.open_dictionary("header");
    out.appendlong("fileversion", info.fileversion);
    out.appendstring("title", info.title);
    out.appendstring("author", info.author);
    if (!info.memo.empty()) out.appendstring("memo", info.memo);
    out.appendstring("date", std::ctime(&now));
    out.close_dictionary();
}

void write_parameters(const Event& event, DictionaryWriter& out) {
    out.open_array("parameters");
    for (const ParameterValue& value : event.parametervalues) {
        out.open_dictionary();
        out.appendstring("name", value.name().text());
        out.appendfloat("value", value.value);
        out.close_dictionary();
    }
    out.close_array();
}

void write_bpfs(const Event& event, DictionaryWriter& out) {
    out.open_array("bpfs");
    for (const BpfRef& bpf : event.bpfs) {
        out.open_dictionary();
        out.appendstring("name", bpf->name().text());
        out.open_array("points");
        for (const BpfPoint& point : bpf->points) {
            out.open_dictionary();
            out.appendfloat("x", point.x);
            out.appendfloat("y", point.y);
            out.close_dictionary();
        }
        out.close_array();
        out.close_dictionary();
    }
    out.close_array();
}

/// A time that is no whole ms, whole: beside it stands what it is.
void write_exactly(const char* key, double ms, DictionaryWriter& out) {
    if (ms != static_cast<double>(whole_ms(ms))) out.appendfloat(key, ms);
}

void write_event(const Event& event, bool exact, DictionaryWriter& out) {
    const BufferLink& link = event.link();
    out.open_dictionary();
    out.appendlong("start", whole_ms(event.start));
    out.appendlong("duration", whole_ms(event.duration));
    if (exact) {
        write_exactly("exactstart", event.start, out);
        write_exactly("exactduration", event.duration, out);
    }
    out.appendfloat("pitch", event.pitch);
    out.appendfloat("velocity", event.velocity);
    out.appendstring("label", event.label.text());
    out.appendstring("message", event.message.text());
    out.appendstring("buffer", link.name.text());
    out.appendlong("bufferadapt", link.adapt);
    out.appendfloat("bufferstart", link.start);
    out.appendfloat("bufferend", link.end);
    write_parameters(event, out);
    write_bpfs(event, out);
    out.close_dictionary();
}

void write_types(const Track& track, DictionaryWriter& out) {
    out.open_array("paramtypes");
    for (const ParameterTypeRef& type : track.parametertypes) {
        out.open_dictionary();
        out.appendstring("Name", type->name.text());
        out.appendfloat("Minimum", type->minimum);
        out.appendfloat("Maximum", type->maximum);
        out.appendlong("Steps", type->steps);
        out.appendfloat("Default", type->default_);
        if (type->id) out.appendlong("ID", *type->id);
        out.close_dictionary();
    }
    out.close_array();
    out.open_array("bpftypes");
    for (const BpfTypeRef& type : track.bpftypes) {
        if (type->name == tq_sym_Pitch) continue;
        out.open_dictionary();
        out.appendstring("name", type->name.text());
        out.appendfloat("minvalue", type->minimum);
        out.appendfloat("maxvalue", type->maximum);
        out.appendfloat("defaultvalue", type->default_);
        out.close_dictionary();
    }
    out.close_array();
}

void write_track(const Track& track, bool exact, DictionaryWriter& out) {
    out.open_dictionary();
    out.appendstring("name", track.name);
    out.appendlong("mute", track.mute);
    out.appendlong("solo", track.solo);
    out.appendlong("visible", track.visible);
    out.appendfloat("color", track.hue);
    out.appendstring("destination", track.destination.text());
    out.appendlong("discard_note_output", track.discardnoteoutput);
    out.appendlong("discard_default_pitch_bpf_output", track.discarddefaultpitchbpfoutput);
    write_types(track, out);
    out.open_array("events");
    track.events.for_each([&](const Event& event) { write_event(event, exact, out); });
    out.close_array();
    out.close_dictionary();
}

void write_meters(const Meter& meter, DictionaryWriter& out) {
    out.open_array("meters");
    for (const BarRegion& region : meter.barregions) {
        out.open_dictionary();
        out.appendlong("measure", region.measure);
        out.appendlong("beats", region.beats);
        out.appendlong("notevalue", region.notevalue);
        out.close_dictionary();
    }
    out.close_array();
}

void write_view(const Prseq& object, DictionaryWriter& out) {
    out.appendlong("showlabels", object.showlabels);
    out.appendlong("showmessages", object.showmessages);
    out.appendlong("showbpfs", object.showbpfs);
    out.appendlong("showallbpfs", object.display_all_bpfs);
    out.appendlong("showbuffers", object.showbuffers);
    out.appendlong("linecursorfollow", object.linecursor.follow);
    out.appendlong("timedisplaytype", object.timedisplaytype);
    out.appendfloat("verticalzoom", object.verticalzoom);
    out.appendfloat("horizontalzoom", object.horizontalzoom);
    out.appendfloat("verticalscroll", object.verticalscroll);
    out.appendfloat("horizontalscroll", object.horizontalscroll);
}

void write_cycle(const Cycle& cycle, bool exact, DictionaryWriter& out) {
    out.open_dictionary("cycle");
    out.appendlong("cyclestart", whole_ms(cycle.start));
    out.appendlong("cycleend", whole_ms(cycle.end));
    if (exact) {
        write_exactly("exactcyclestart", cycle.start, out);
        write_exactly("exactcycleend", cycle.end, out);
    }
    out.appendlong("cycleactive", cycle.active);
    out.close_dictionary();
}

}  // namespace

std::string TQ_Prseq_Json_MakeDictionary(const Prseq& object, bool lines) {
    DictionaryWriter out(lines ? line_depth : 0);
    out.open_dictionary();
    out.appendstring("tq.sorvo", "");
    write_header(object.info, out);
    out.open_array("tracks");
    for (const TrackRef& track : object.tracks) write_track(*track, object.meter.followstempo, out);
    out.close_array();
    if (!object.tracks.empty()) out.appendlong("activetrack", object.activetrack);
    out.appendfloat("maxtime", object.timelinelength);
    if (const double tempo = itm_gettempo(*object.transport); tempo != usual_tempo)
        out.appendfloat("tempo", tempo);
    if (object.meter.followstempo) out.appendlong("bars_follow_tempo", 1);
    write_meters(object.meter, out);
    write_view(object, out);
    write_cycle(object.cycle, object.meter.followstempo, out);
    out.close_dictionary();
    return out.text();
}

bool TQ_Prseq_Json_WriteDictionary(Prseq& object) {
    std::string text = TQ_Prseq_Json_MakeDictionary(object, true) + "\n";
    if (!dictionary_write(object, path_in_folder(object.info.folder, object.info.filename), text))
        return false;
    prseq_setdirtyflag(object, false);
    return true;
}

}  // namespace tq
