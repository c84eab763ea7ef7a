// What a channel is told that several notes sound on at a time.
#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <vector>

namespace tq {

/// At `tick` something of a channel goes to a value; `what` is as of a ChannelMove.
struct WrittenMove {
    std::int64_t tick;
    int what;
    int value;
};

/// Remembers what a channel has been told, and whether another note can live with it.
class SharedChannel {
 public:
    /// `slack`: moves that are no further apart than so many ticks are the same.
    explicit SharedChannel(std::int64_t slack) : slack_(slack) {}

    /// Whether a note from `start` to `end` hears what its own moves say, by time, first ones at `start`,
    /// without any other that sounds hearing what it should not. Starts must not fall.
    bool suits(std::span<const WrittenMove> moves, std::int64_t start, std::int64_t end) const;
    /// Takes the note in; returns the moves that the channel must be told for it.
    std::vector<WrittenMove> take(std::span<const WrittenMove> moves, std::int64_t start, std::int64_t end);

 private:
    struct Level {
        std::int64_t tick;
        int value;
    };
    static std::vector<Level> levels(std::span<const WrittenMove> moves, int what);

    std::int64_t slack_;
    std::int64_t busy_until_ = 0;
    std::map<int, std::vector<Level>> told_;  // the last one before now, and those to come
};

}  // namespace tq
