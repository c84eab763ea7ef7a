#include <fmt/printf.h>

#include "edits/song_edits.h"
#include "inspectors/fields.h"
#include "inspectors/patcher_helpers.h"
#include "instance/prseq.h"
#include "model/bars.h"

namespace tq {

namespace {

template <std::string DocumentInfo::*text>
void show_text(const Inspected& at, Field& field) {
    field.set({gensym(at.object.info.*text)});
}
template <std::string DocumentInfo::*text>
void change_text(const Inspected& at, const Field& field, const std::string&) {
    change_document_text(at.object, text, TQ_Prseq_Utilities_GetTextAtomsFromSender(field));
}

void show_signature(const Inspected& at, Field& field) {
    std::vector<Atoms> rows;
    const Meter& meter = at.object.meter;
    for (const BarRegion& region : meter.barregions)
        rows.push_back({region.measure + meter.firstbarnumber, region.beats, region.notevalue});
    field.set_rows(std::move(rows));
}

void change_signature(const Inspected& at, const Field& field, const std::string& what) {
    if (what != "cellchanged" && what != "rowadded") return;
    const size_t row = field.touched().row;
    const long bar = cell_of(field, row, 0).as_long(), beats = cell_of(field, row, 1).as_long(),
               notevalue = cell_of(field, row, 2).as_long();
    object_post(at.object, fmt::sprintf("barregion %ld %ld %ld", bar, beats, notevalue));
    change_time_signature(at.object, bar, beats, notevalue);
}

constexpr FieldRow rows[] = {
    {"filename", show_text<&DocumentInfo::filename>, change_nothing},
    {"documentEd_title", show_text<&DocumentInfo::title>, change_text<&DocumentInfo::title>},
    {"documentEd_author", show_text<&DocumentInfo::author>, change_text<&DocumentInfo::author>},
    {"documentEd_memo", show_text<&DocumentInfo::memo>, change_text<&DocumentInfo::memo>},
    {"documentEd_signature", show_signature, change_signature},
};

}  // namespace

std::span<const FieldRow> document_fields() { return rows; }

}  // namespace tq
