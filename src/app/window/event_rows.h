// Which events a list of them shows, and in which order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tq {

struct EventColumn;
struct Prseq;
struct Track;

/// The identifiers of events, sorted. Nothing else of an event is kept but what it was sorted by.
class EventRows {
 public:
    struct Choice {
        bool all_tracks = false;     ///< else the active one
        bool selected_only = false;  ///< those of them that are selected
        const EventColumn* sorted_by = nullptr;
        bool descending = false;
        friend bool operator==(const Choice&, const Choice&) = default;
    };

    /// The events as they are now. Events that have not changed what they are sorted by are not sorted again.
    void gather(const Prseq& box, const Choice& choice);
    size_t size() const { return rows_.size(); }
    long id(size_t row) const { return rows_[row].id; }
    /// −1 where no row has the identifier.
    long row_of(long id) const;

 private:
    /// Those with an equal key stand in the order of time.
    struct Row {
        double key = 0, start = 0;
        long id = 0;
        friend auto operator<=>(const Row&, const Row&) = default;
    };
    std::vector<Row> rows_now(const Prseq& box) const;
    std::vector<Row> merged(std::vector<Row> now);

    std::vector<Row> rows_;
    Choice choice_;
};

/// The tracks whose events are listed.
std::vector<const Track*> listed_tracks(const Prseq& box, bool all);
/// Another number where other events of these tracks are selected.
std::uint64_t selection_stamp(const std::vector<const Track*>& tracks);

}  // namespace tq
