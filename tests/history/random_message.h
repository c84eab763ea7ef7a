// Messages that a seed chooses.
#pragma once

#include <random>
#include <string>

namespace tq::test {

/// A random message; those that the history does not cover only when asked for.
inline std::string random_message(std::mt19937& random, bool undoable_only) {
    auto pick = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    auto number = [&](int count) { return std::to_string(pick(count)); };
    switch (pick(undoable_only ? 10 : 16)) {
        case 0:
            return "track_add";
        case 1:
            return pick(3) ? "track_active " + number(4) : "track_delete " + number(4);
        case 2:
            return "track_parameter_add p" + number(5) + " 0 10 " + number(10) + " 0";
        case 3:
        case 4:
        case 5:
            return "event start " + number(5000) + " duration " + number(900) + " track " + number(3) +
                   " <note> " + number(131) + " 99 </note>";
        case 6:
            return "event id " + number(40) + " start " + number(5000) + " label l" + number(9);
        case 7:
            return "event id " + number(40) + " track " + number(4) + " <parameter> p" + number(5) + " " +
                   number(20) + " </parameter>";
        case 8:
            return "event id " + number(40) + " <bpf> Pitch 0 0 " + number(400) + " " + number(5) +
                   " </bpf> <message> m " + number(9) + " </message>";
        case 9:
            return "event id " + number(40) + " duration " + number(2000) + " <note> " + number(131) +
                   " </note>";
        case 10:
            return "undo";
        case 11:
            return "redo";
        case 12:
            return "undoredo " + std::to_string(pick(40) - 2);
        case 13:
            return "track_bpf_add b" + number(3) + " 0 1 " + number(2);
        case 14:
            return pick(2) ? "track_mute " + number(3) + " 1" : "track_color 0.3";
        default:
            return pick(4) ? "int " + number(2) : "undoredo_clear";
    }
}

}  // namespace tq::test
