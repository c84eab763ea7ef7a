#include <utility>

#include "edits/track_edits.h"
#include "edits/type_edits.h"
#include "history/edit.h"
#include "inspectors/fields.h"
#include "inspectors/patcher_helpers.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "model/bpfs.h"
#include "model/parameters.h"
#include "model/track_info.h"
#include "model/tracks.h"

namespace tq {

namespace {

void show_name(const Inspected& at, Field& field) { field.set({gensym(at.track()->name)}); }
void change_name(const Inspected& at, const Field& field, const std::string&) {
    const Symbol name = gensym(TQ_Prseq_Utilities_GetTextAtomsFromSender(field));
    if (name.text() != at.track()->name) change_track_name(at.object, at.track(), name);
}

void show_hue(const Inspected& at, Field& field) { field.set({at.track()->hue}); }
void change_hue(const Inspected& at, const Field& field, const std::string&) {
    change_track_hue(at.object, at.track(), field.value().front().as_double());
}

/// Where a track's events go is saved with it, and no part of the history.
template <typename Value>
void change_routing(const Inspected& at, void (*set)(Prseq&, long, Value), Value value) {
    Edit edit(at.object, Edit::Unrecorded{Change::Tracks});
    set(at.object, at.track()->index, value);
}

void show_destination(const Inspected& at, Field& field) { field.set({at.track()->destination}); }
void change_destination(const Inspected& at, const Field& field, const std::string&) {
    change_track_destination(at.object, at.track(), gensym(TQ_Prseq_Utilities_GetTextAtomsFromSender(field)));
}

template <bool Track::*flag>
void show_flag(const Inspected& at, Field& field) {
    field.set({long{(*at.track()).*flag}});
}
template <void (*set)(Prseq&, long, bool)>
void change_flag(const Inspected& at, const Field& field, const std::string&) {
    change_routing(at, set, field.value().front().as_long() != 0);
}

void show_bpfs(const Inspected& at, Field& field) {
    std::vector<Atoms> rows;
    for (const BpfTypeRef& type : at.track()->bpftypes) {
        const bool pitch = type->name == tq_sym_Pitch;  // told as the reports tell it
        rows.push_back(
            {type->name, type->minimum, pitch ? Prseq::maximumpitch : type->maximum, type->default_});
    }
    field.set_rows(std::move(rows));
}

/// The name that the row has, or else this one.
Symbol name_in(const Field& field, size_t row, const char* otherwise) {
    const Symbol name = cell_of(field, row, 0).as_symbol();
    return name.empty() ? gensym(otherwise) : name;
}

BpfTypeValues bpf_values(const Field& field, size_t row) {
    return {.name = name_in(field, row, "Bpftype"),
            .minimum = cell_of(field, row, 1).as_double(),
            .maximum = cell_of(field, row, 2, 1).as_double(),
            .default_ = cell_of(field, row, 3).as_double()};
}

/// The type "Pitch" belongs to every track, and is what it is.
void change_bpfs(const Inspected& at, const Field& field, const std::string& what) {
    const size_t row = field.touched().row;
    const long index = static_cast<long>(row);
    if (what == "rowadded") add_bpf_type(at.object, at.track(), bpf_values(field, row));
    if (what == "rowdeleted" && index > 0) delete_bpf_type(at.object, at.track(), index);
    if (what == "cell_mouseup" && index > 0)
        change_bpf_type(at.object, at.track(), index, bpf_values(field, row));
    if (what == "cleared") TQ_Prseq_Tracks_OutputBpfInfo(at.object, *at.track());
}

void show_params(const Inspected& at, Field& field) {
    std::vector<Atoms> rows;
    for (const ParameterTypeRef& type : at.track()->parametertypes)
        rows.push_back({type->name, type->minimum, type->maximum, type->default_, type->steps});
    field.set_rows(std::move(rows));
}

ParameterTypeRef parameter_values(const Field& field, size_t row) {
    return TQ_Prseq_Parameters_MakeParameterType(
        name_in(field, row, "Parameter"), cell_of(field, row, 1).as_double(),
        cell_of(field, row, 2, 1).as_double(), cell_of(field, row, 3).as_double(),
        cell_of(field, row, 4).as_long());
}

void change_params(const Inspected& at, const Field& field, const std::string& what) {
    const size_t row = field.touched().row;
    const long index = static_cast<long>(row);
    if (what == "rowadded") add_parameter_type(at.object, at.track(), *parameter_values(field, row));
    if (what == "rowdeleted") delete_parameter_type(at.object, at.track(), index);
    if (what == "cell_mouseup")
        change_parameter_type(at.object, at.track(), index, *parameter_values(field, row));
    if (what == "cleared") TQ_Prseq_Tracks_OutputParameterInfo(at.object, *at.track());
}

constexpr FieldRow rows[] = {
    {"trackname", show_name, change_name},
    {"trackcolor_jsui", show_hue, change_hue},
    {"trackbpfs", show_bpfs, change_bpfs, true},
    {"trackparams", show_params, change_params, true},
    {"trackdestination", show_destination, change_destination},
    {"trackdiscardnoteoutput", show_flag<&Track::discardnoteoutput>,
     change_flag<TQ_Prseq_Tracks_SetDiscardNoteOutput>},
    {"trackdiscarddefaultpitchbpfoutput", show_flag<&Track::discarddefaultpitchbpfoutput>,
     change_flag<TQ_Prseq_Tracks_SetDiscardDefaultPitchBpfOutput>},
};

}  // namespace

std::span<const FieldRow> track_fields() { return rows; }

}  // namespace tq
