// What the mouse does to the selected events by dragging, done by steps, as keys ask for it. Each is one step
// of the history; without selected events nothing happens.
#pragma once

namespace tq {

struct Prseq;

/// Moves the selection as a whole, by steps of the snapping grid and by semitones, as far as it can go.
void move_selection(Prseq& object, double grid_steps, double semitones);
/// Each event gets longer, or shorter, by steps of the snapping grid; none gets shorter than 1 ms.
void lengthen_selection(Prseq& object, double grid_steps);
/// Copies follow where the selection ends, and are selected.
void duplicate_selection(Prseq& object);
/// Pastes events from the play position on, and moves it behind them while nothing plays.
void paste_at_position(Prseq& object);

}  // namespace tq
