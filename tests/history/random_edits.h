// Random edits as the mouse, keys, menus and inspectors make them: each is one item of the history, or
// nothing.
#pragma once

#include <random>

#include "shell/prseq.h"

namespace tq {

class RandomEdits {
 public:
    RandomEdits(Prseq& object, std::mt19937& random) : object_(object), random_(random) {}
    void edit();

 private:
    // what is selected, copied and drawn on is no edit
    void select_some();
    void copy();
    // events
    void cut();
    void paste();
    void delete_selected();
    void move_selected();
    void copy_by_dragging();
    void resize_starts();
    void resize_durations();
    void slice();
    void glue();
    // values
    void change_label();
    void change_message();
    void change_buffer();
    void change_velocities();
    void change_parameters();
    // types
    void delete_parameter_type();
    void change_parameter_type();
    void add_bpf_type();
    void delete_bpf_type();
    void change_bpf_type();
    // points
    void add_point();
    void delete_points();
    void move_points();
    // tracks
    void change_color();
    void change_name();

    size_t below(size_t count) { return random_() % count; }
    Track* active() const;
    EventRef any_event();
    BpfRef any_curve();
    void press_selection();
    template <typename Change>
    void change_state(void (*record)(Prseq&, EventRef, struct EventState), Change change);

    Prseq& object_;
    std::mt19937& random_;
};

}  // namespace tq
