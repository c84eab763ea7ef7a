// The events of the document by identifier.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "instance/event.h"

namespace tq {

/// Identifiers are given out in order and never used again, so a table of pages serves better than hashing.
class EventIndex {
 public:
    Event* find(long id) const {
        size_t page = static_cast<size_t>(id) / page_size;
        return id > 0 && page < pages_.size() && pages_[page]
                   ? (*pages_[page])[static_cast<size_t>(id) % page_size]
                   : nullptr;
    }
    void add(Event& event) { slot(event.id) = &event; }
    void remove(const Event& event) { slot(event.id) = nullptr; }
    void clear() { pages_.clear(); }

 private:
    static constexpr size_t page_size = 1024;
    using Page = std::array<Event*, page_size>;

    Event*& slot(long id) {
        size_t page = static_cast<size_t>(id) / page_size;
        if (page >= pages_.size()) pages_.resize(page + 1);
        if (!pages_[page]) pages_[page] = std::make_unique<Page>();
        return (*pages_[page])[static_cast<size_t>(id) % page_size];
    }

    std::vector<std::unique_ptr<Page>> pages_;
};

}  // namespace tq
