// What the fields of the inspectors show, and what a change by the user does: one row a field.
#pragma once

#include <span>
#include <string>

#include "host/field.h"
#include "instance/inspector_record.h"

namespace tq {

struct Prseq;

/// What an inspector is about at the moment.
struct Inspected {
    Prseq& object;
    const Inspector& inspector;

    const TrackRef& track() const { return inspector.track; }
    const EventRef& event() const { return inspector.event; }
};

struct FieldRow {
    const char* name;  ///< the scripting name
    void (*show)(const Inspected&, Field&);
    /// The user has changed the field; what of it is the kind of change of Field::modify().
    void (*change)(const Inspected&, const Field&, const std::string& what);
    bool waits = false;  ///< cells of the table count when they are left, and keep what is typed until then
};

std::span<const FieldRow> document_fields();
std::span<const FieldRow> track_fields();
std::span<const FieldRow> event_fields();

/// Most fields change nothing.
void change_nothing(const Inspected&, const Field&, const std::string& what);
/// The cell of a row, or this number.
Atom cell_of(const Field& field, size_t row, size_t column, double otherwise = 0);

}  // namespace tq
