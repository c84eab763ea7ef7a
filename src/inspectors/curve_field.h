// The table of the points of the event's active curve: a row a point, its time and its value.
#pragma once

#include "inspectors/fields.h"

namespace tq {

void show_curve(const Inspected& at, Field& field);
/// Cells that are dragged are one step of the history from "cell_mousedown" to "cell_mouseup", one that is
/// typed is a step of its own. Points keep their order, and the first and the last one their times.
void change_curve(const Inspected& at, const Field& field, const std::string& what);

}  // namespace tq
