// The events of one track, kept in start order.
#pragma once

#include <span>
#include <vector>

#include "instance/event_tree.h"

namespace tq {

/// When an event is to be, in ms.
struct EventTimes {
    EventRef event;
    double start = 0, duration = 0;
};

/// Events ascending by start; events that start together stand in the order of their identifiers, so an event
/// that leaves and comes back finds its old place.
///
/// A tree of three levels. Finding a place is a few binary searches, inserting moves part of one leaf, and a
/// query skips whatever ends too early by the branch and by the leaf, however long some notes are.
///
/// What comes out of order waits until somebody asks, and goes into the tree then: many at once by one sort,
/// which in a large list is several times cheaper than finding the way to each place.
///
/// The selected events are kept beside the tree: nobody who deals with three of them walks a million.
class EventList {
 public:
    EventList() = default;
    EventList(const EventList&) = delete;
    EventList& operator=(const EventList&) = delete;
    ~EventList() { disown(); }

    size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    /// Whether so many events are cheaper dealt with one by one than by going through the whole list.
    bool is_few(size_t count) const { return count < size_ / 16; }

    /// Puts an event that is in no list in its place.
    void insert(EventRef event, Track& track);
    /// Takes the event out; false when it is not in this list.
    bool erase(const Event& event);
    /// Takes out all events whose track has been set to none; linear.
    void sweep();
    /// Replaces all events at once by events in any order; linear when they come in start order.
    void assign(std::vector<EventRef> events, Track& track);
    /// Changes when an event of the list is; its place follows, and a pitch that it got before.
    void retime(Event& event, double start, double duration);
    /// The same for many events of the list at once; their order is made anew when they are a good part of
    /// it.
    void retime(std::span<const EventTimes> times);
    /// Something of the event that painting asks for has changed: its pitch, a label or a message, its link,
    /// its curves. Times and selection say so themselves. Nothing happens when it is not in this list.
    void renew(const Event& event) const;
    /// The same for every event; linear.
    void renew_all() const;

    /// Selects an event of the list, or not.
    void select(Event& event, bool selected);
    void select_all();
    void deselect_all();
    /// The selected events, in no order.
    const std::vector<Event*>& selected() const { return selected_; }

    /// None beyond the end.
    Event* at(size_t index) const { return tree().at(index); }
    /// −1 when the event is not in this list.
    long index_of(const Event& event) const;
    Event* first() const { return at(0); }
    Event* last() const { return last_waiting_ ? last_waiting_ : tree_.last(); }
    /// The event that comes after, or before, the place where `event` is, or would be if it has left.
    Event* next(const Event& event) const { return tree().first_from({event.start, event.id + 1}); }
    Event* previous(const Event& event) const { return tree().last_before({event.start, event.id}); }
    /// The first event with start >= `start` ms, and the last one before it; none when there is none.
    Event* first_at_or_after(double start) const { return tree().first_from({start, 0}); }
    Event* last_before(double start) const { return tree().last_before({start, 0}); }
    /// The first event behind a place in the order.
    Event* first_after(const EventKey& key) const { return tree().first_from({key.start, key.id + 1}); }
    /// The first event with start >= `start` ms that `wanted` takes, or none.
    template <typename Wanted>
    Event* find_from(double start, Wanted wanted) const {
        return tree().find_from(start, wanted);
    }
    /// The latest end of any event in ms; 0 without events.
    double latest_end() const { return empty() ? 0 : tree().latest_end(); }

    /// Calls visit(Event&) for every event in order.
    template <typename Visit>
    void for_each(Visit visit) const {
        tree().for_each(visit);
    }
    /// Calls visit(Event&), in order, for the events with start <= `to` and end >= `from` (ms).
    template <typename Visit>
    void touching(double from, double to, Visit visit) const {
        tree().touching(from, to, visit);
    }
    /// Shows the same events from the last to the first, with their looks: visitor.visit(const EventEntry&).
    /// Whole stretches are left out where visitor.enters(first start, latest end, EventLooks) says so.
    template <typename Visitor>
    void touching_backwards(double from, double to, Visitor& visitor) const {
        mark_selected();
        tree().touching_backwards(from, to, visitor);
    }

 private:
    using Tree = EventBranch<EventBranch<EventLeaf>>;

    bool holds(const Event& event) const { return tree().first_from({event.start, event.id}) == &event; }
    void add_selected(Event& event);
    void remove_selected(Event& event);
    std::vector<EventEntry> take_all();
    void fill(std::vector<EventEntry> entries);
    void disown();
    /// The tree with everything in it.
    Tree& tree() const {
        if (!waiting_.empty()) settle();
        return tree_;
    }
    void settle() const;
    /// Brings the looks into step with what is selected.
    void mark_selected() const;

    // Where an event is kept is nothing that anybody outside can tell.
    mutable Tree tree_;
    mutable std::vector<EventEntry> waiting_;
    mutable Event* last_waiting_ = nullptr;  ///< the last event of all, when it is one that waits
    size_t size_ = 0;
    std::vector<Event*> selected_;
    mutable bool selection_unmarked_ = false;  ///< the looks do not say yet what is selected
};

}  // namespace tq
