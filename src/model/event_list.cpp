#include "model/event_list.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace tq {

namespace {

bool before(const Event& event, double start, long id) {
    return event.start != start ? event.start < start : event.id < id;
}

}  // namespace

EventList::~EventList() {
    for_each([](Event& event) { event.track = nullptr; });
}

EventList::Place EventList::lower_bound(double start, long id) const {
    // Only the block before the first that starts at or after `start`, and those that start exactly there,
    // can hold the place.
    auto [first, behind] = std::equal_range(starts_.begin(), starts_.end(), start);
    auto from = blocks_.begin() + std::max(first - starts_.begin() - 1, 0L);
    auto to = blocks_.begin() + (behind - starts_.begin());
    auto block = std::partition_point(
        from, to, [&](const Block& b) { return before(*b.entries.back().event, start, id); });
    if (block == blocks_.end()) return {blocks_.size(), 0};
    auto entry = std::partition_point(block->entries.begin(), block->entries.end(), [&](const Entry& e) {
        return e.start != start ? e.start < start : e.event->id < id;
    });
    return {static_cast<size_t>(block - blocks_.begin()), static_cast<size_t>(entry - block->entries.begin())};
}

EventList::Place EventList::place_of(const Event& event) const { return lower_bound(event.start, event.id); }

bool EventList::holds(Place place, const Event& event) const { return event_at(place) == &event; }

Event* EventList::event_at(Place place) const {
    return place.block < blocks_.size() ? blocks_[place.block].entries[place.entry].event.get() : nullptr;
}

size_t EventList::index_at(Place place) const {
    return std::accumulate(counts_.begin(), counts_.begin() + static_cast<long>(place.block), place.entry);
}

void EventList::insert(EventRef event, Track& track) {
    Place place = place_of(*event);
    event->track = &track;
    if (place.block == blocks_.size()) {  // after everything: a full last block is left full
        if (blocks_.empty() || blocks_.back().entries.size() == block_size) {
            blocks_.emplace_back().entries.reserve(block_size);
            starts_.push_back(event->start);
            ends_.push_back(event->end());
            counts_.push_back(0);
            if (group_ends_.size() * group_size < blocks_.size()) group_ends_.push_back(event->end());
        }
        place = {blocks_.size() - 1, blocks_.back().entries.size()};
    } else if (blocks_[place.block].entries.size() == block_size) {
        split(place.block);
        place = place_of(*event);
    }
    auto& entries = blocks_[place.block].entries;
    double start = event->start, end = event->end();
    entries.insert(entries.begin() + static_cast<long>(place.entry), {start, end, std::move(event)});
    starts_[place.block] = entries.front().start;
    ends_[place.block] = std::max(ends_[place.block], end);
    ++counts_[place.block];
    double& group_end = group_ends_[place.block / group_size];
    group_end = std::max(group_end, end);
    ++size_;
}

bool EventList::erase(const Event& event) {
    Place place = place_of(event);
    if (!holds(place, event)) return false;
    auto& entries = blocks_[place.block].entries;
    EventRef kept = std::move(entries[place.entry].event);
    entries.erase(entries.begin() + static_cast<long>(place.entry));
    kept->track = nullptr;
    --size_;
    if (entries.empty()) {
        remove_block(place.block);
    } else {
        summarize(place.block);
        summarize_group(place.block / group_size);
    }
    return true;
}

void EventList::assign(std::vector<EventRef> events, Track& track) {
    for_each([](Event& event) { event.track = nullptr; });
    blocks_.clear();
    auto ordered = [](const EventRef& a, const EventRef& b) { return before(*a, b->start, b->id); };
    if (!std::is_sorted(events.begin(), events.end(), ordered)) std::sort(events.begin(), events.end(), ordered);
    size_ = events.size();
    for (size_t i = 0; i < events.size(); i += block_size) {
        auto& entries = blocks_.emplace_back().entries;
        entries.reserve(block_size);
        for (size_t k = i; k < std::min(i + block_size, events.size()); ++k) {
            events[k]->track = &track;
            double start = events[k]->start, end = events[k]->end();
            entries.push_back({start, end, std::move(events[k])});
        }
    }
    starts_.resize(blocks_.size());
    ends_.resize(blocks_.size());
    counts_.resize(blocks_.size());
    for (size_t b = 0; b < blocks_.size(); ++b) summarize(b);
    summarize_groups_from(0);
}

void EventList::retime(Event& event, double start, double duration) {
    EventRef kept(&event);
    Place place = place_of(event);
    Track* track = event.track;
    if (!track || !holds(place, event)) {
        event.start = start;
        event.duration = duration;
        return;
    }
    if (start == event.start) {  // the place stays, only the end moves
        event.duration = duration;
        blocks_[place.block].entries[place.entry].end = event.end();
        summarize(place.block);
        summarize_group(place.block / group_size);
        return;
    }
    erase(event);
    event.start = start;
    event.duration = duration;
    insert(std::move(kept), *track);
}

Event* EventList::at(size_t index) const {
    for (size_t b = 0; b < blocks_.size(); ++b) {
        if (index < counts_[b]) return blocks_[b].entries[index].event.get();
        index -= counts_[b];
    }
    return nullptr;
}

long EventList::index_of(const Event& event) const {
    Place place = place_of(event);
    return holds(place, event) ? static_cast<long>(index_at(place)) : -1;
}

Event* EventList::last() const { return blocks_.empty() ? nullptr : blocks_.back().entries.back().event.get(); }

Event* EventList::next(const Event& event) const { return event_at(lower_bound(event.start, event.id + 1)); }

Event* EventList::previous(const Event& event) const {
    Place place = place_of(event);
    if (place.entry > 0) return blocks_[place.block].entries[place.entry - 1].event.get();
    return place.block > 0 ? blocks_[place.block - 1].entries.back().event.get() : nullptr;
}

Event* EventList::first_at_or_after(double start) const {
    return event_at(lower_bound(start, std::numeric_limits<long>::min()));
}

Event* EventList::last_before(double start) const {
    Place place = lower_bound(start, std::numeric_limits<long>::min());
    if (place.entry > 0) return blocks_[place.block].entries[place.entry - 1].event.get();
    return place.block > 0 ? blocks_[place.block - 1].entries.back().event.get() : nullptr;
}

double EventList::latest_end() const {
    return group_ends_.empty() ? 0 : *std::max_element(group_ends_.begin(), group_ends_.end());
}

void EventList::split(size_t block) {
    Block right;
    right.entries.reserve(block_size);
    auto& left = blocks_[block].entries;
    std::move(left.begin() + block_size / 2, left.end(), std::back_inserter(right.entries));
    left.resize(block_size / 2, {0, 0, nullptr});
    long behind = static_cast<long>(block) + 1;
    blocks_.insert(blocks_.begin() + behind, std::move(right));
    starts_.insert(starts_.begin() + behind, 0);
    ends_.insert(ends_.begin() + behind, 0);
    counts_.insert(counts_.begin() + behind, 0);
    summarize(block);
    summarize(block + 1);
    summarize_groups_from(block);
}

void EventList::remove_block(size_t block) {
    long at = static_cast<long>(block);
    blocks_.erase(blocks_.begin() + at);
    starts_.erase(starts_.begin() + at);
    ends_.erase(ends_.begin() + at);
    counts_.erase(counts_.begin() + at);
    summarize_groups_from(block);
}

void EventList::summarize(size_t block) {
    const auto& entries = blocks_[block].entries;
    starts_[block] = entries.front().start;
    counts_[block] = static_cast<unsigned>(entries.size());
    double latest = entries.front().end;
    for (const Entry& entry : entries) latest = std::max(latest, entry.end);
    ends_[block] = latest;
}

void EventList::summarize_group(size_t group) {
    auto first = ends_.begin() + static_cast<long>(group * group_size);
    auto stop = ends_.begin() + static_cast<long>(std::min((group + 1) * group_size, ends_.size()));
    group_ends_[group] = *std::max_element(first, stop);
}

/// After blocks moved up or down, every group from theirs on holds other blocks.
void EventList::summarize_groups_from(size_t block) {
    group_ends_.resize((blocks_.size() + group_size - 1) / group_size);
    for (size_t g = block / group_size; g < group_ends_.size(); ++g) summarize_group(g);
}

}  // namespace tq
