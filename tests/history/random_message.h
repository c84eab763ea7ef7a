// Messages that a seed chooses.
#pragma once

#include <random>
#include <span>
#include <string>

namespace tq::test {

/// One of these texts, in which each "#N" has become a number below N.
inline std::string random_text(std::mt19937& random, std::span<const std::string> texts) {
    std::string text = texts[random() % texts.size()];
    for (size_t at = 0; (at = text.find('#', at)) != text.npos;) {
        const size_t end = text.find_first_not_of("0123456789", at + 1);
        text.replace(at, end - at, std::to_string(random() % std::stoul(text.substr(at + 1))));
    }
    return text;
}

/// A random message; those that the history does not cover only when asked for.
inline std::string random_message(std::mt19937& random, bool undoable_only) {
    // What the history covers stands first.
    // clang-format off
    static const std::string messages[] = {
        "track_active #4", "track_active #4", "track_delete #4",
        "track_parameter_add p#5 0 10 #10 0", "track_parameter_add p#5 0 10 #10 0",
        "event start #5000 duration #900 track #3 <note> #131 99 </note>",
        "event start #5000 duration #900 track #3 <note> #131 99 </note>",
        "event start #5000 duration #900 track #3 <note> #131 99 </note>",
        "event start #5000 duration #900 track #3 <note> #131 99 </note>",
        "event id #40 start #5000 label l\xe9#9",
        "event id #40 start #5000", "event id #40 duration #700", "event id #40 label l#9",
        "event id #40 track #4 <parameter> p#5 #20 </parameter>",
        "event id #40 <bpf> Pitch 0 0 #400 #5 </bpf> <message> m #9 </message>",
        "event id #40 duration #2000 <note> #131 </note>",
        "track_add",
        "quantise #400", "quantise 1#99 0.#9 0.#9 both", "legato #30", "stretch 0.#9", "stretch 1.#4",
        "reverse", "humanise #90 #40", "humanise #40 #9 #9", "split #5000", "split #1000", "join",
        "velocity_scale #2.#9 -#40", "velocity_ramp #127 #127", "event_delete #40 #40",
        "stretch_to_tempo 9#9", "stretch_to_tempo 1#30", "track_level Volume #90", "track_level Volume 1#27",
        "curve_fade Volume 0.#9 0.#9", "curve_fade b#3 1 0 #90", "transpose #20", "transpose -#9",
        "track_name n#9", "loop_repeat", "loop_swap", "loop_insert", "loop_delete",
        "select_where pitch #99 131", "select_where time #3000 5000 add", "select_where velocity 0 #127 remove",
        "select_where time 0 #5000 within", "select_where label l#9 add", "select_invert", "select_invert",
        "undo", "redo", "undoredo -#3", "undoredo #38", "track_bpf_add b#3 0 1 #2", "track_mute #3 1",
        "track_color 0.3", "int #2", "int #2", "undoredo_clear", "cyclerange #2000 #3000", "bars_follow_tempo #2",
        "events_follow_tempo #2", "event_select #40 #40 add", "event_show #40",
        "event_select #40 #40 #40 add", "time_signature #4 1#9 8", "lane_by_time #2"};
    // clang-format on
    return random_text(random, std::span(messages).first(undoable_only ? 51 : std::size(messages)));
}

}  // namespace tq::test
