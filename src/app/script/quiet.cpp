#include "app/script/quiet.h"

#include <fmt/format.h>

#include <iterator>
#include <utility>

#include "model/tracks.h"

namespace tq {

namespace {

constexpr size_t most_told = 20;

}  // namespace

std::string text_of(const ScriptPlace& place) { return fmt::format("{}:{}", place.file, place.line); }

void Quiet::begin() {
    if (on_) return;
    on_ = true;
    ++session_.hushed;
    before_ = counts();
    lines_ = mistakes_ = 0;
    told_.clear();
}

std::vector<std::string> Quiet::end() {
    if (!std::exchange(on_, false)) return {};
    --session_.hushed;
    const Counts now = counts();
    std::vector<std::string> report{fmt::format("quiet lines {} events {} steps {} mistakes {}",
                                                lines_ - (in_line_ ? 1 : 0),  // but for the one that ends it
                                                now.events - before_.events, now.steps - before_.steps,
                                                mistakes_)};
    report.insert(report.end(), told_.begin(), told_.end());
    if (const long more = mistakes_ - std::ssize(told_); more > 0)
        report.push_back(fmt::format("quiet and {} more", more));
    return report;
}

void Quiet::line_begins(const ScriptPlace& place) {
    in_line_ = true;
    place_ = place;
    lines_ += on_;
}

void Quiet::note_mistake(const ScriptPlace& place, const std::string& what) {
    ++mistakes_;
    if (told_.size() < most_told) told_.push_back(fmt::format("quiet {}: {}", text_of(place), what));
}

void Quiet::error(const Object&, const std::string& text) {
    if (on_)
        note_mistake(place_, text);
    else if (in_line_)
        complained(place_, text);
}

/// A burst that is still open is going to be a step.
Quiet::Counts Quiet::counts() const {
    const Prseq& box = session_.box();
    Counts counts{0, box.history.cursor + 1};
    if (!box.capture.inserted.empty() || !box.capture.modified.empty()) ++counts.steps;
    for (const TrackRef& track : box.tracks) counts.events += static_cast<long>(track->events.size());
    return counts;
}

}  // namespace tq
