#include "app/window/event_rows.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>

#include "app/window/event_columns.h"
#include "instance/prseq.h"
#include "model/tracks.h"

namespace tq {

namespace {

/// Words as numbers in the order of their texts.
class WordOrder {
 public:
    void add(Symbol word) { places_.emplace(word, 0); }
    void sort() {
        std::vector<Symbol> words;
        for (const auto& [word, place] : places_) words.push_back(word);
        std::ranges::sort(words, {}, [](Symbol word) -> const std::string& { return word.text(); });
        for (size_t i = 0; i < words.size(); ++i) places_[words[i]] = static_cast<double>(i);
    }
    double place(Symbol word) const { return places_.at(word); }

 private:
    std::unordered_map<Symbol, double> places_;
};

template <typename Visit>
void for_each_listed(const Prseq& box, const EventRows::Choice& choice, Visit visit) {
    for (const Track* track : listed_tracks(box, choice.all_tracks)) {
        if (!choice.selected_only)
            track->events.for_each(visit);
        else
            for (const Event* event : track->events.selected()) visit(*event);
    }
}

}  // namespace

std::vector<const Track*> listed_tracks(const Prseq& box, bool all) {
    std::vector<const Track*> tracks;
    if (all)
        for (const TrackRef& track : box.tracks) tracks.push_back(track.get());
    else if (const Track* active = TQ_Prseq_Tracks_GetActiveTrack(box))
        tracks.push_back(active);
    return tracks;
}

std::uint64_t selection_stamp(const std::vector<const Track*>& tracks) {
    constexpr std::uint64_t basis = 14695981039346656037u, prime = 1099511628211u;
    std::uint64_t stamp = basis;
    for (const Track* track : tracks)
        for (const Event* event : track->events.selected())
            stamp = (stamp ^ reinterpret_cast<std::uintptr_t>(event)) * prime;
    return stamp;
}

long EventRows::row_of(long id) const {
    const auto row = std::ranges::find(rows_, id, &Row::id);
    return row == rows_.end() ? -1 : row - rows_.begin();
}

std::vector<EventRows::Row> EventRows::rows_now(const Prseq& box) const {
    const EventColumn& column = *choice_.sorted_by;
    WordOrder words;
    if (column.word) {
        for_each_listed(box, choice_, [&](const Event& event) { words.add(column.word(event)); });
        words.sort();
    }
    std::vector<Row> now;
    now.reserve(rows_.size());
    for_each_listed(box, choice_, [&](const Event& event) {
        const double key = column.word ? words.place(column.word(event)) : column.number(event);
        now.push_back({choice_.descending ? -key : key, event.start, event.id});
    });
    return now;
}

/// The rows that are as they were keep their order; the others are sorted and put between them.
std::vector<EventRows::Row> EventRows::merged(std::vector<Row> now) {
    constexpr size_t none = ~size_t{0};
    long last = 0;
    for (const Row& row : now) last = std::max(last, row.id);
    std::vector<size_t> places(static_cast<size_t>(last) + 1, none);
    for (size_t i = 0; i < now.size(); ++i) places[static_cast<size_t>(now[i].id)] = i;
    std::vector<Row> stay, come, all;
    stay.reserve(now.size());
    for (const Row& row : rows_) {
        if (row.id > last) continue;
        size_t& place = places[static_cast<size_t>(row.id)];
        if (place == none || now[place] != row) continue;
        stay.push_back(row);
        place = none;
    }
    for (const Row& row : now)
        if (places[static_cast<size_t>(row.id)] != none) come.push_back(row);
    std::ranges::sort(come);
    if (come.empty()) return stay;
    all.reserve(now.size());
    std::ranges::merge(stay, come, std::back_inserter(all));
    return all;
}

void EventRows::gather(const Prseq& box, const Choice& choice) {
    if (!(choice == choice_)) rows_.clear();
    choice_ = choice;
    std::vector<Row> now = rows_now(box);
    if (rows_.empty() && !std::ranges::is_sorted(now)) std::ranges::sort(now);
    rows_ = rows_.empty() ? std::move(now) : merged(std::move(now));
}

}  // namespace tq
