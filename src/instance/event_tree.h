// The levels of an event list: leaves of entries, and branches that sum up what is below them.
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
    EventRef take(const EventKey& key) {
        auto at = entries_.begin() + static_cast<long>(place(key));
        EventRef event = std::move(at->event);
        changed().erase(at);
        return event;
    }
    /// The event at the key has another end, or another look, which is returned.
    EventLook renew(const EventKey& key) {
        EventEntry& entry = changed()[place(key)];
        entry.end = entry.event->end();
        return entry.look = look_of(*entry.event);
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

/// Children in order, none of them empty, and of each: where it starts, its latest end, how many events it
/// has, and their looks; also those of some that have left, or look otherwise by now.
template <typename Child>
class EventBranch {
 public:
    static constexpr size_t capacity = 128;

    bool empty() const { return children_.empty(); }
    bool full() const { return children_.size() >= capacity; }
    size_t count() const { return std::accumulate(counts_.begin(), counts_.end(), size_t{0}); }
    double first_start() const { return starts_.front(); }
    double latest_end() const { return *std::max_element(ends_.begin(), ends_.end()); }
    EventLooks looks() const {
        EventLooks all;
        for (const EventLooks& looks : looks_) all |= looks;
        return all;
    }
    bool is_before(const EventKey& key) const { return children_.back().is_before(key); }

    void insert(EventEntry entry, const EventKey& key) {
        size_t c = child_for_insertion(key);
        double start = entry.start, end = entry.end;
        looks_[c] |= entry.look;
        children_[c].insert(std::move(entry), key);
        bool only = counts_[c]++ == 0;
        starts_[c] = only ? start : std::min(starts_[c], start);
        ends_[c] = only ? end : std::max(ends_[c], end);
    }
    EventBranch split() {
        EventBranch right;
        size_t middle = children_.size() / 2;
        split_off(children_, right.children_, middle);
        split_off(starts_, right.starts_, middle);
        split_off(ends_, right.ends_, middle);
        split_off(counts_, right.counts_, middle);
        split_off(looks_, right.looks_, middle);
        return right;
    }
    EventRef take(const EventKey& key) {
        size_t c = child_for(key);
        EventRef event = children_[c].take(key);
        if (children_[c].empty())
            erase_child(c);
        else
            summarize(c);
        return event;
    }
    /// Returns how it looks now.
    EventLook renew(const EventKey& key) {
        size_t c = child_for(key);
        const EventLook look = children_[c].renew(key);
        ends_[c] = children_[c].latest_end();
        looks_[c] |= look;
        return look;
    }
    /// Calls change(EventEntry&), which may change looks, for all entries of the leaves where any has one of
    /// the flags; without flags, for all.
    template <typename Change>
    void change_looks(unsigned flags, Change& change) {
        for (size_t c = 0; c < children_.size(); ++c) {
            if (flags && !looks_[c].has(flags)) continue;
            children_[c].change_looks(flags, change);
            looks_[c] = children_[c].looks();
        }
    }
    void empty_into(std::vector<EventEntry>& entries) {
        for (Child& child : children_) child.empty_into(entries);
        *this = {};
    }
    void append(EventEntry entry) {
        if (children_.empty() || children_.back().full()) append_child();
        size_t c = children_.size() - 1;
        double start = entry.start, end = entry.end;
        looks_[c] |= entry.look;
        children_[c].append(std::move(entry));
        if (counts_[c]++ == 0) starts_[c] = start;
        ends_[c] = std::max(ends_[c], end);
    }

    Event* at(size_t index) const {
        for (size_t c = 0; c < children_.size(); ++c) {
            if (index < counts_[c]) return children_[c].at(index);
            index -= counts_[c];
        }
        return nullptr;
    }
    Event* last() const { return children_.empty() ? nullptr : children_.back().last(); }
    Event* first_from(const EventKey& key) const {
        if (children_.empty()) return nullptr;
        size_t c = child_for(key);
        if (Event* event = children_[c].first_from(key)) return event;
        return c + 1 < children_.size() ? children_[c + 1].at(0) : nullptr;
    }
    Event* last_before(const EventKey& key) const {
        if (children_.empty()) return nullptr;
        size_t c = child_for(key);
        if (Event* event = children_[c].last_before(key)) return event;
        return c > 0 ? children_[c - 1].last() : nullptr;
    }
    size_t count_before(const EventKey& key) const {
        size_t c = child_for(key);
        size_t before = std::accumulate(counts_.begin(), counts_.begin() + static_cast<long>(c), size_t{0});
        return before + children_[c].count_before(key);
    }

    template <typename Visit>
    void for_each(Visit& visit) const {
        for (const Child& child : children_) child.for_each(visit);
    }
    template <typename Wanted>
    Event* find_from(double start, Wanted& wanted) const {
        for (size_t c = children_.empty() ? 0 : child_for({start, 0}); c < children_.size(); ++c)
            if (Event* found = children_[c].find_from(start, wanted)) return found;
        return nullptr;
    }
    template <typename Visit>
    void touching(double from, double to, Visit& visit) const {
        for (size_t c = 0; c < children_.size() && starts_[c] <= to; ++c)
            if (ends_[c] >= from) children_[c].touching(from, to, visit);
    }
    /// From the last to the first, entering those stretches only that the visitor enters.
    template <typename Visitor>
    void touching_backwards(double from, double to, Visitor& visitor) const {
        auto behind = std::upper_bound(starts_.begin(), starts_.end(), to);
        for (auto c = static_cast<size_t>(behind - starts_.begin()); c-- > 0;)
            if (ends_[c] >= from && visitor.enters(starts_[c], ends_[c], looks_[c]))
                children_[c].touching_backwards(from, to, visitor);
    }

 private:
    /// The child that has the key's place, or ends just before it: the last one that starts before it. Only
    /// where children start exactly at the key's start are they asked what they hold; it is dear to.
    size_t child_for(const EventKey& key) const {
        auto [first, behind] = std::equal_range(starts_.begin(), starts_.end(), key.start);
        long from = std::max(first - starts_.begin() - 1, 0L), to = behind - starts_.begin() - 1;
        if (from >= to) return static_cast<size_t>(from);
        auto child = std::partition_point(children_.begin() + from, children_.begin() + to,
                                          [&](const Child& c) { return c.is_before(key); });
        return static_cast<size_t>(child - children_.begin());
    }
    size_t child_for_insertion(const EventKey& key) {
        if (children_.empty()) append_child();
        size_t c = child_for(key);
        if (!children_[c].full()) return c;
        if (c + 1 == children_.size() &&
            children_[c].is_before(key)) {  // in order: full children are left full
            append_child();
            return c + 1;
        }
        Child right = children_[c].split();
        children_.insert(children_.begin() + static_cast<long>(c) + 1, std::move(right));
        starts_.insert(starts_.begin() + static_cast<long>(c) + 1, 0);
        ends_.insert(ends_.begin() + static_cast<long>(c) + 1, 0);
        counts_.insert(counts_.begin() + static_cast<long>(c) + 1, 0);
        looks_.insert(looks_.begin() + static_cast<long>(c) + 1, EventLooks());
        for (size_t half : {c, c + 1}) {
            summarize(half);
            looks_[half] = children_[half].looks();
        }
        return children_[c].is_before(key) ? c + 1 : c;
    }
    void append_child() {
        children_.emplace_back();
        starts_.push_back(0);
        ends_.push_back(0);
        counts_.push_back(0);
        looks_.emplace_back();
    }
    void erase_child(size_t c) {
        children_.erase(children_.begin() + static_cast<long>(c));
        starts_.erase(starts_.begin() + static_cast<long>(c));
        ends_.erase(ends_.begin() + static_cast<long>(c));
        counts_.erase(counts_.begin() + static_cast<long>(c));
        looks_.erase(looks_.begin() + static_cast<long>(c));
    }
    void summarize(size_t c) {
        starts_[c] = children_[c].first_start();
        ends_[c] = children_[c].latest_end();
        counts_[c] = children_[c].count();
    }
    template <typename T>
    static void split_off(std::vector<T>& from, std::vector<T>& to, size_t middle) {
        auto at = from.begin() + static_cast<long>(middle);
        to.assign(std::make_move_iterator(at), std::make_move_iterator(from.end()));
        from.erase(at, from.end());
    }

    std::vector<Child> children_;
    std::vector<double> starts_, ends_;
    std::vector<size_t> counts_;
    std::vector<EventLooks> looks_;
};

}  // namespace tq
