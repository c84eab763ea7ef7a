#include "model/event_list.h"

namespace tq {

void EventList::insert(EventRef event, Track& track) {
    event->track = &track;
    EventKey key{event->start, event->id};
    EventEntry entry{key.start, event->end(), std::move(event)};
    const Event* end = last();
    bool at_the_end = !end || (end->start != key.start ? end->start < key.start : end->id < key.id);
    ++size_;
    if (at_the_end && waiting_.empty()) {
        tree_.insert(std::move(entry), key);
    } else {
        if (at_the_end) last_waiting_ = entry.event.get();
        waiting_.push_back(std::move(entry));
    }
}

void EventList::settle() const {
    constexpr size_t few = 16;  // one in so many is cheaper found a place one by one
    size_t settled = size_ - waiting_.size();
    if (waiting_.size() < settled / few || waiting_.size() < few) {
        for (EventEntry& entry : waiting_) {
            EventKey key{entry.start, entry.event->id};
            tree_.insert(std::move(entry), key);
        }
    } else {
        std::vector<EventEntry> all;
        all.reserve(size_);
        tree_.empty_into(all);
        std::move(waiting_.begin(), waiting_.end(), std::back_inserter(all));
        auto middle = all.begin() + static_cast<long>(settled);
        std::sort(middle, all.end(), in_order);
        std::inplace_merge(all.begin(), middle, all.end(), in_order);
        for (EventEntry& entry : all) tree_.append(std::move(entry));
    }
    waiting_.clear();
    last_waiting_ = nullptr;
}

bool EventList::erase(const Event& event) {
    if (!holds(event)) return false;
    EventRef taken = tree().take({event.start, event.id});
    taken->track = nullptr;
    --size_;
    return true;
}

void EventList::sweep() {
    std::vector<EventEntry> all;
    all.reserve(size_);
    tree().empty_into(all);
    size_ = 0;
    for (EventEntry& entry : all) {
        if (!entry.event->track) continue;
        tree_.append(std::move(entry));
        ++size_;
    }
}

void EventList::assign(std::vector<EventRef> events, Track& track) {
    disown();
    tree_ = {};
    waiting_.clear();
    last_waiting_ = nullptr;
    size_ = events.size();
    std::vector<EventEntry> entries;
    entries.reserve(events.size());
    for (EventRef& event : events) {
        event->track = &track;
        double start = event->start, end = event->end();
        entries.push_back({start, end, std::move(event)});
    }
    if (!std::is_sorted(entries.begin(), entries.end(), in_order))
        std::sort(entries.begin(), entries.end(), in_order);
    for (EventEntry& entry : entries) tree_.append(std::move(entry));
}

void EventList::retime(Event& event, double start, double duration) {
    bool held = holds(event);
    EventKey key{event.start, event.id};
    EventRef taken = held && start != event.start ? tree().take(key) : EventRef();
    event.start = start;
    event.duration = duration;
    double end = event.end();
    if (taken)
        tree().insert({start, end, std::move(taken)}, {start, event.id});
    else if (held)
        tree().set_end(key, end);
}

long EventList::index_of(const Event& event) const {
    return holds(event) ? static_cast<long>(tree().count_before({event.start, event.id})) : -1;
}

void EventList::disown() {
    for_each([](Event& event) { event.track = nullptr; });
}

}  // namespace tq
