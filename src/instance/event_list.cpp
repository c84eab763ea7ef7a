#include "instance/event_list.h"

#include <utility>

namespace tq {

void EventList::insert(EventRef event, Track& track) {
    event->track = &track;
    EventKey key{event->start, event->id};
    EventEntry entry(std::move(event));
    const Event* end = last();
    bool at_the_end = !end || (end->start != key.start ? end->start < key.start : end->id < key.id);
    ++size_;
    if (entry.event->selected) add_selected(*entry.event);
    if (at_the_end && waiting_.empty()) {
        tree_.insert(std::move(entry), key);
    } else {
        if (at_the_end) last_waiting_ = entry.event.get();
        waiting_.push_back(std::move(entry));
    }
}

void EventList::settle() const {
    constexpr size_t few = 16;
    size_t settled = size_ - waiting_.size();
    if (is_few(waiting_.size()) || waiting_.size() < few) {
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
    const EventRef taken = tree().take({event.start, event.id}).event;
    if (taken->selected) remove_selected(*taken);
    taken->track = nullptr;
    --size_;
    return true;
}

void EventList::sweep() {
    std::vector<Event*> selected = std::move(selected_);
    selected_.clear();
    for (Event* event : selected)
        if (event->track) add_selected(*event);
    std::vector<EventEntry> all = take_all();
    std::erase_if(all, [](const EventEntry& entry) { return !entry.event->track; });
    fill(std::move(all));
}

void EventList::assign(std::vector<EventRef> events, Track& track) {
    disown();
    tree_ = {};
    waiting_.clear();
    last_waiting_ = nullptr;
    selected_.clear();
    std::vector<EventEntry> entries;
    entries.reserve(events.size());
    for (EventRef& event : events) {
        event->track = &track;
        if (event->selected) add_selected(*event);
        entries.emplace_back(std::move(event));
    }
    fill(std::move(entries));
}

void EventList::retime(Event& event, double start, double duration) {
    const bool moves = start != event.start && holds(event);
    EventEntry entry = moves ? tree().take({event.start, event.id}) : EventEntry();
    event.start = start;
    event.duration = duration;
    if (!moves) return renew(event);
    entry.moved();
    tree().insert(std::move(entry), {start, event.id});
}

void EventList::retime(std::span<const EventTimes> times) {
    if (is_few(times.size())) {
        for (const EventTimes& t : times) retime(*t.event, t.start, t.duration);
        return;
    }
    std::vector<EventEntry> all = take_all();
    for (const EventTimes& t : times) {
        t.event->start = t.start;
        t.event->duration = t.duration;
    }
    for (EventEntry& entry : all) entry.moved();
    fill(std::move(all));
}

void EventList::renew(const Event& event) const {
    bool end_changed = false;
    tree().renew({event.start, event.id}, event, end_changed);
}

void EventList::renew_all() const {
    auto look_again = [](EventEntry& entry) { entry.look = look_of(*entry.event); };
    tree().change_looks(0, look_again);
}

/// A selection of a few is marked event by event; a large one by looking at all of them.
void EventList::mark_selected() const {
    if (!std::exchange(selection_unmarked_, false)) return;
    const bool few = is_few(selected_.size());
    auto mark = [&](EventEntry& entry) {
        const bool selected = !few && (selected_.size() == size_ || entry.event->selected);
        entry.look.flags = static_cast<std::uint8_t>((entry.look.flags & ~EventLook::Selected) |
                                                     (selected ? EventLook::Selected : 0));
    };
    tree().change_looks(few ? EventLook::Selected : 0, mark);
    if (few)
        for (const Event* event : selected_) renew(*event);
}

void EventList::select(Event& event, bool selected) {
    if (event.selected == selected) return;
    event.selected = selected;
    selection_unmarked_ = true;
    if (selected)
        add_selected(event);
    else
        remove_selected(event);
}

void EventList::select_all() {
    selection_unmarked_ = true;
    selected_.clear();
    selected_.reserve(size_);
    for_each([this](Event& event) {
        event.selected = true;
        add_selected(event);
    });
}

void EventList::deselect_all() {
    if (!selected_.empty()) selection_unmarked_ = true;
    for (Event* event : selected_) event->selected = false;
    selected_.clear();
}

void EventList::add_selected(Event& event) {
    event.selectedplace = static_cast<std::uint32_t>(selected_.size());
    selected_.push_back(&event);
}

void EventList::remove_selected(Event& event) {
    Event* last = selected_.back();
    selected_[event.selectedplace] = last;
    last->selectedplace = event.selectedplace;
    selected_.pop_back();
}

std::vector<EventEntry> EventList::take_all() {
    std::vector<EventEntry> all;
    all.reserve(size_);
    tree().empty_into(all);
    size_ = 0;
    return all;
}

void EventList::fill(std::vector<EventEntry> entries) {
    if (!std::is_sorted(entries.begin(), entries.end(), in_order))
        std::sort(entries.begin(), entries.end(), in_order);
    size_ = entries.size();
    for (EventEntry& entry : entries) tree_.append(std::move(entry));
}

long EventList::index_of(const Event& event) const {
    return holds(event) ? static_cast<long>(tree().count_before({event.start, event.id})) : -1;
}

void EventList::disown() {
    for_each([](Event& event) { event.track = nullptr; });
}

}  // namespace tq
