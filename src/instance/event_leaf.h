// The lowest level of an event list: a leaf of entries, an event and what is asked of it first in each.
#pragma once

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <vector>

#include "instance/event.h"
#include "instance/event_look.h"

namespace tq {

/// An event with copies of its times and its look, so that searching stays inside the leaf.
struct EventEntry {
    EventEntry() = default;
    explicit EventEntry(EventRef e)
        : start(e->start), end(e->end()), look(look_of(*e)), event(std::move(e)) {}
    double start = 0, end = 0;
    EventLook look;
    EventRef event;

    /// The event has been moved: in time, to another pitch, or both.
    void moved() {
        start = event->start;
        end = event->end();
        look = at_pitch(look, event->pitch);
    }
};

/// A place in the order: by start, then by identifier.
struct EventKey {
    double start;
    long id;
    bool is_behind(const EventKey& other) const {
        return start != other.start ? start > other.start : id > other.id;
    }
    bool is_after(const EventEntry& entry) const {
        return entry.start != start ? entry.start < start : entry.event->id < id;
    }
};

inline bool in_order(const EventEntry& a, const EventEntry& b) {
    return a.start != b.start ? a.start < b.start : a.event->id < b.event->id;
}

class EventLeaf {
 public:
    static constexpr size_t capacity = 64;

    bool empty() const { return entries_.empty(); }
    bool full() const { return entries_.size() >= capacity; }
    size_t count() const { return entries_.size(); }
    double first_start() const { return entries_.front().start; }
    double latest_end() const {
        double latest = entries_.front().end;
        for (const EventEntry& entry : entries_) latest = std::max(latest, entry.end);
        return latest;
    }
    EventLooks looks() const {
        EventLooks all;
        for (const EventEntry& entry : entries_) all |= entry.look;
        return all;
    }
    bool is_before(const EventKey& key) const { return key.is_after(entries_.back()); }

    void insert(EventEntry entry, const EventKey& key) {
        if (entries_.empty()) entries_.reserve(capacity);
        changed().insert(entries_.begin() + static_cast<long>(place(key)), std::move(entry));
    }
    /// Takes the later half out.
    EventLeaf split() {
        EventLeaf right;
        right.entries_.reserve(capacity);
        auto middle = entries_.begin() + static_cast<long>(entries_.size() / 2);
        std::move(middle, entries_.end(), std::back_inserter(right.entries_));
        changed().erase(middle, entries_.end());
        return right;
    }
    EventEntry take(const EventKey& key) {
        auto at = entries_.begin() + static_cast<long>(place(key));
        EventEntry entry = std::move(*at);
        changed().erase(at);
        return entry;
    }
    /// The entry of an event that has another end, or another look; none when it is not here.
    const EventEntry* renew(const EventKey& key, const Event& event, bool& end_changed) {
        const size_t index = place(key);
        if (index >= entries_.size() || entries_[index].event.get() != &event) return nullptr;
        EventEntry& entry = changed()[index];
        end_changed = entry.end != event.end();
        entry.end = event.end();
        entry.look = look_of(event);
        return &entry;
    }
    template <typename Change>
    void change_looks(unsigned, Change& change) {
        for (EventEntry& entry : changed()) change(entry);
    }
    /// For filling, in order, up to the capacity.
    void append(EventEntry entry) {
        if (entries_.empty()) entries_.reserve(capacity);
        changed().push_back(std::move(entry));
    }
    /// Moves all entries out, in order.
    void empty_into(std::vector<EventEntry>& entries) {
        std::move(entries_.begin(), entries_.end(), std::back_inserter(entries));
        changed().clear();
    }

    Event* at(size_t index) const { return entries_[index].event.get(); }
    Event* last() const { return entries_.back().event.get(); }
    Event* first_from(const EventKey& key) const {
        size_t index = place(key);
        return index < entries_.size() ? at(index) : nullptr;
    }
    Event* last_before(const EventKey& key) const {
        size_t index = place(key);
        return index > 0 ? at(index - 1) : nullptr;
    }
    size_t count_before(const EventKey& key) const { return place(key); }

    template <typename Visit>
    void for_each(Visit& visit) const {
        for (const EventEntry& entry : entries_) visit(*entry.event);
    }
    template <typename Wanted>
    Event* find_from(double start, Wanted& wanted) const {
        for (const EventEntry& entry : entries_)
            if (entry.start >= start && wanted(*entry.event)) return entry.event.get();
        return nullptr;
    }
    template <typename Visit>
    void touching(double from, double to, Visit& visit) const {
        for (const EventEntry& entry : entries_) {
            if (entry.start > to) return;
            if (entry.end >= from) visit(*entry.event);
        }
    }
    template <typename Visitor>
    void touching_backwards(double from, double to, Visitor& visitor) const {
        if (!summed_up_) sum_up();
        for (size_t s = (entries_.size() + stretch - 1) / stretch; s-- > 0;) {
            const Stretch& sum = stretches_[s];
            if (sum.start > to || sum.end < from || !visitor.enters(sum.start, sum.end, sum.looks)) continue;
            for (size_t i = std::min((s + 1) * stretch, entries_.size()); i-- > s * stretch;)
                if (entries_[i].start <= to && entries_[i].end >= from) visitor.visit(entries_[i]);
        }
    }

 private:
    static constexpr size_t stretch = 16;  ///< events that are left out together, when they are covered
    struct Stretch {
        double start, end;
        EventLooks looks;
    };

    /// Done when it is asked for, so that editing has nothing to do with it.
    void sum_up() const {
        for (size_t first = 0; first < entries_.size(); first += stretch) {
            Stretch sum{entries_[first].start, entries_[first].end, {}};
            for (size_t i = first; i < std::min(first + stretch, entries_.size()); ++i) {
                sum.looks |= entries_[i].look;
                sum.end = std::max(sum.end, entries_[i].end);
            }
            stretches_[first / stretch] = sum;
        }
        summed_up_ = true;
    }
    /// For whatever changes entries.
    std::vector<EventEntry>& changed() {
        summed_up_ = false;
        return entries_;
    }
    size_t place(const EventKey& key) const {
        auto found = std::partition_point(entries_.begin(), entries_.end(),
                                          [&](const EventEntry& e) { return key.is_after(e); });
        return static_cast<size_t>(found - entries_.begin());
    }
    std::vector<EventEntry> entries_;
    mutable std::array<Stretch, capacity / stretch> stretches_{};
    mutable bool summed_up_ = false;
};

}  // namespace tq
