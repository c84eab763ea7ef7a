#include "app/sound/recorder.h"

#include <algorithm>
#include <tuple>

#include "app/midi/programs.h"

namespace tq {

namespace {

double end_of(const PlayedNote& note) { return note.ms + note.duration_ms; }

// Keeps the curve up to a time, with a point there.
void cut_curve(std::vector<CurvePoint>& curve, double ms) {
    const auto after = std::ranges::upper_bound(curve, ms, {}, &CurvePoint::ms);
    if (after == curve.begin() || after == curve.end()) return;
    const CurvePoint& before = after[-1];
    const double part = (ms - before.ms) / (after->ms - before.ms);
    const CurvePoint last{ms, before.value + part * (after->value - before.value)};
    curve.erase(after, curve.end());
    curve.push_back(last);
}

std::string name_of(const PlayedNote& note, const std::map<long, std::string>& names) {
    if (const auto given = names.find(note.track); given != names.end() && !given->second.empty())
        return given->second;
    if (note.voice.drums) return "Drums";
    return std::string(midi_program_name(std::clamp(note.voice.program, 0, 127)));
}

}  // namespace

void Recorder::note(const PlayedNote& note) {
    unstopped_[note.source].push_back(notes_.size());
    notes_.push_back(note);
}

void Recorder::stop(const std::string& source, double ms) {
    if (const auto found = unstopped_.find(source); found != unstopped_.end()) cut(found->second, ms);
}

void Recorder::stop_track(long track, double ms) {
    for (auto& [source, notes] : unstopped_) {
        const auto own = std::stable_partition(notes.begin(), notes.end(),
                                               [&](auto i) { return notes_[i].track != track; });
        std::vector<std::size_t> stopped(own, notes.end());
        notes.erase(own, notes.end());
        cut(stopped, ms);
    }
}

void Recorder::stop_all(double ms) {
    for (auto& [source, notes] : unstopped_) cut(notes, ms);
}

void Recorder::cut(std::vector<std::size_t>& notes, double ms) {
    for (const std::size_t index : notes) {
        PlayedNote& note = notes_[index];
        if (end_of(note) <= ms) continue;
        note.duration_ms = std::max(ms - note.ms, 0.0);
        cut_curve(note.curve, note.duration_ms);
        for (ControllerCurve& curve : note.controllers) cut_curve(curve.points, note.duration_ms);
    }
    notes.clear();
}

double Recorder::end_ms() const {
    double end = 0;
    for (const PlayedNote& note : notes_) end = std::max(end, end_of(note));
    return end;
}

std::vector<MidiPart> Recorder::midi_parts(const std::map<long, std::string>& names) const {
    std::vector<MidiPart> parts;
    std::map<std::tuple<long, std::string, Voice>, std::size_t> places;
    for (const PlayedNote& note : notes_) {
        if (note.only_sample) continue;
        const auto [place, added] = places.try_emplace({note.track, note.source, note.voice}, parts.size());
        if (added) parts.push_back({name_of(note, names), note.voice, {}});
        parts[place->second].notes.push_back(
            {note.ms, note.duration_ms, note.pitch, note.velocity, note.curve, note.controllers});
    }
    std::vector<MidiPart> in_order;
    for (const auto& [source, place] : places) in_order.push_back(std::move(parts[place]));
    return in_order;
}

}  // namespace tq
