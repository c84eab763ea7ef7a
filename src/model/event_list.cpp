#include "model/event_list.h"

namespace tq {

void EventList::insert(EventRef event, Track& track) {
    event->track = &track;
    EventKey key{event->start, event->id};
    double end = event->end();
    tree_.insert({key.start, end, std::move(event)}, key);
    ++size_;
}

bool EventList::erase(const Event& event) {
    if (!holds(event)) return false;
    EventRef taken = tree_.take({event.start, event.id});
    taken->track = nullptr;
    --size_;
    return true;
}

void EventList::assign(std::vector<EventRef> events, Track& track) {
    disown();
    auto ordered = [](const EventRef& a, const EventRef& b) {
        return a->start != b->start ? a->start < b->start : a->id < b->id;
    };
    if (!std::is_sorted(events.begin(), events.end(), ordered)) std::sort(events.begin(), events.end(), ordered);
    tree_ = {};
    size_ = events.size();
    for (EventRef& event : events) {
        event->track = &track;
        tree_.append(std::move(event));
    }
}

void EventList::retime(Event& event, double start, double duration) {
    bool held = holds(event);
    EventKey key{event.start, event.id};
    EventRef taken = held && start != event.start ? tree_.take(key) : EventRef();
    event.start = start;
    event.duration = duration;
    double end = event.end();
    if (taken) tree_.insert({start, end, std::move(taken)}, {start, event.id});
    else if (held) tree_.set_end(key, end);
}

long EventList::index_of(const Event& event) const {
    return holds(event) ? static_cast<long>(tree_.count_before({event.start, event.id})) : -1;
}

void EventList::disown() {
    for_each([](Event& event) { event.track = nullptr; });
}

}  // namespace tq
