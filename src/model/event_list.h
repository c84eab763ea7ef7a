// The events of one track, kept in start order.
#pragma once

#include <algorithm>
#include <memory>
#include <vector>

#include "model/event.h"

namespace tq {

/// Events ascending by start; events that start together stand in the order of their identifiers, so an event
/// that leaves and comes back finds its old place.
///
/// The events stand in blocks of at most block_size. For each block a table says where it starts, how many
/// events it has and the latest end of any of them; groups of blocks are summed up again. Finding a place is two
/// binary searches, inserting moves part of one block, and a query skips whatever ends too early by the
/// block and by the group, however long some notes are.
class EventList {
  public:
    EventList() = default;
    EventList(const EventList&) = delete;
    EventList& operator=(const EventList&) = delete;
    ~EventList();

    size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }

    /// Puts an event that is in no list in its place.
    void insert(EventRef event, Track& track);
    /// Takes the event out; false when it is not in this list.
    bool erase(const Event& event);
    /// Replaces all events at once by events in any order; linear when they come in start order.
    void assign(std::vector<EventRef> events, Track& track);
    /// Changes when an event of the list is; its place follows.
    void retime(Event& event, double start, double duration);

    /// None beyond the end.
    Event* at(size_t index) const;
    /// −1 when the event is not in this list.
    long index_of(const Event& event) const;
    Event* first() const { return at(0); }
    Event* last() const;
    /// The event that comes after, or before, the place where `event` is, or would be if it has left.
    Event* next(const Event& event) const;
    Event* previous(const Event& event) const;
    /// The first event with start >= `start` ms, and the last one before it; none when there is none.
    Event* first_at_or_after(double start) const;
    Event* last_before(double start) const;
    /// The latest end of any event in ms; 0 without events.
    double latest_end() const;

    /// Calls visit(Event&) for every event in order.
    template <typename Visit>
    void for_each(Visit visit) const {
        for (const Block& block : blocks_)
            for (const Entry& entry : block.entries) visit(*entry.event);
    }
    /// Calls visit(Event&), in order, for the events with start <= `to` and end >= `from` (ms).
    template <typename Visit>
    void touching(double from, double to, Visit visit) const {
        for (size_t g = 0; g * group_size < blocks_.size() && starts_[g * group_size] <= to; ++g) {
            if (group_ends_[g] < from) continue;
            size_t stop = std::min((g + 1) * group_size, blocks_.size());
            for (size_t b = g * group_size; b < stop && starts_[b] <= to; ++b)
                if (ends_[b] >= from) visit_block(blocks_[b], from, to, visit);
        }
    }

  private:
    static constexpr size_t block_size = 128, group_size = 64;

    /// Copies of the times, so that searching stays inside the block.
    struct Entry {
        double start, end;
        EventRef event;
    };
    struct Block {
        std::vector<Entry> entries;  ///< never empty
    };
    struct Place {
        size_t block, entry;
    };

    template <typename Visit>
    static void visit_block(const Block& block, double from, double to, Visit& visit) {
        for (const Entry& entry : block.entries) {
            if (entry.start > to) return;
            if (entry.end >= from) visit(*entry.event);
        }
    }

    Place lower_bound(double start, long id) const;
    Place place_of(const Event& event) const;
    bool holds(Place place, const Event& event) const;
    Event* event_at(Place place) const;
    size_t index_at(Place place) const;
    void split(size_t block);
    void remove_block(size_t block);
    void summarize(size_t block);
    void summarize_group(size_t group);
    void summarize_groups_from(size_t block);

    std::vector<Block> blocks_;
    std::vector<double> starts_, ends_;      ///< of each block: its first start, its latest end
    std::vector<unsigned> counts_;           ///< of each block
    std::vector<double> group_ends_;         ///< of each group of blocks: its latest end
    size_t size_ = 0;
};

}  // namespace tq
