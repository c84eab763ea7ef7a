// Hands things from one thread to another; neither ever waits, and nothing is lost.
#pragma once

#include <atomic>
#include <memory>
#include <utility>

namespace tq {

/// For items that have a member `T* next`. One thread puts, one takes.
template <class T>
class Mailbox {
 public:
    Mailbox() = default;
    Mailbox(const Mailbox&) = delete;
    Mailbox& operator=(const Mailbox&) = delete;
    ~Mailbox() {
        take([](std::unique_ptr<T>) {});
    }

    void put(std::unique_ptr<T> item) noexcept {
        T* const added = item.release();
        added->next = newest_.load(std::memory_order_relaxed);
        while (!newest_.compare_exchange_weak(added->next, added, std::memory_order_release,
                                              std::memory_order_relaxed))
            continue;
    }

    /// Calls `use(std::unique_ptr<T>)` with everything that was put so far, oldest first.
    template <class Use>
    void take(Use use) {
        T* item = reversed(newest_.exchange(nullptr, std::memory_order_acquire));
        while (item) {
            T* const next = std::exchange(item->next, nullptr);
            use(std::unique_ptr<T>(item));
            item = next;
        }
    }

 private:
    static T* reversed(T* newest) {
        T* oldest = nullptr;
        while (newest) {
            T* const next = std::exchange(newest->next, oldest);
            oldest = std::exchange(newest, next);
        }
        return oldest;
    }

    std::atomic<T*> newest_ = nullptr;
};

}  // namespace tq
