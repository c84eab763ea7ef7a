// The upper levels of an event list: branches that sum up what is below them.
#pragma once

#include <algorithm>
#include <iterator>
#include <numeric>
#include <vector>

#include "instance/event_leaf.h"

namespace tq {

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
    EventEntry take(const EventKey& key) {
        size_t c = child_for(key);
        EventEntry entry = children_[c].take(key);
        if (children_[c].empty())
            erase_child(c);
        else
            summarize(c);
        return entry;
    }
    /// See EventLeaf.
    const EventEntry* renew(const EventKey& key, const Event& event, bool& end_changed) {
        if (children_.empty()) return nullptr;
        size_t c = child_for(key);
        const EventEntry* entry = children_[c].renew(key, event, end_changed);
        if (!entry) return nullptr;
        if (end_changed) ends_[c] = children_[c].latest_end();
        looks_[c] |= entry->look;
        return entry;
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
