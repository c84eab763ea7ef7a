#include "inspectors/inspectors.h"

#include <fmt/printf.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "host/defer.h"
#include "host/host.h"
#include "inspectors/fields.h"
#include "inspectors/patcher_helpers.h"
#include "instance/prseq.h"
#include "instance/utilities.h"
#include "model/bpf_editor.h"
#include "model/selection.h"
#include "model/tracks.h"

namespace tq {

namespace {

constexpr InspectorRow rows[] = {
    {InspectorKind::Document, "document", "tqsorvo_documenteditor.maxpat", "tq.sorvo Document Inspector",
     "documentEd_selector"},
    {InspectorKind::Track, "track", "tqsorvo_trackeditor.maxpat", "tq.sorvo Track Inspector",
     "trackEd_selector"},
    {InspectorKind::Event, "event", "tqsorvo_eventeditor.maxpat", "tq.sorvo Event Inspector",
     "eventEd_selector"},
};

std::span<const FieldRow> fields_of(InspectorKind kind) {
    if (kind == InspectorKind::Document) return document_fields();
    return kind == InspectorKind::Track ? track_fields() : event_fields();
}

/// The event whose fields are shown: the one whose curves are edited, or the only one that is selected.
EventRef event_to_inspect(const Prseq& object) {
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (!track) return nullptr;
    if (edits_curves(object.maindisplay.mousemode)) return bpf_edited_event(object);
    const std::vector<Event*>& selected = track->events.selected();
    return track->visible && selected.size() == 1 ? selected.front() : nullptr;
}

bool can_open(const Prseq& object, InspectorKind kind) {
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (kind == InspectorKind::Document) return true;
    if (kind == InspectorKind::Track) return track;
    return track && (!track->events.selected().empty() || event_to_inspect(object));
}

/// Every field of a patcher and of the patchers in it.
template <typename Visit>
void for_each_box(Patcher& patcher, Visit visit) {
    for (PatcherBox& box : patcher.boxes) {
        visit(box);
        if (box.patcher) for_each_box(*box.patcher, visit);
    }
}

Field* field_named(Inspector& inspector, const char* name) {
    const auto found = inspector.fields.find(gensym(name));
    return found == inspector.fields.end() ? nullptr : found->second;
}

/// Whether there is something for the fields to show.
bool has_subject(const Inspector& inspector, InspectorKind kind) {
    if (kind == InspectorKind::Document) return true;
    return kind == InspectorKind::Track ? inspector.track != nullptr : inspector.event != nullptr;
}

void hide_all(Inspector& inspector, bool hide) {
    if (TQ_Prseq_Utilities_HideAllBoxesInPatcher(*inspector.patcher, hide)) inspector.patcher->changed();
}

void update(Prseq& object, InspectorKind kind) {
    Inspector& inspector = object.inspectors[kind];
    if (!inspector.open()) return;
    inspector.track = TQ_Prseq_Tracks_GetActiveTrack(object);
    inspector.event = event_to_inspect(object);
    const bool shows = has_subject(inspector, kind);
    hide_all(inspector, !shows);
    if (!shows) return;
    const Inspected at{object, inspector};
    for (const FieldRow& row : fields_of(kind))
        if (Field* field = field_named(inspector, row.name)) row.show(at, *field);
}

void create_objects(Prseq& object, Inspector& inspector) {
    for_each_box(*inspector.patcher, [&](PatcherBox& box) {
        if (!box.field || box.varname.empty()) return;
        if (inspector.fields.emplace(box.varname, box.field.get()).second)
            TQ_Prseq_Utilities_SetNotificationFromObject(object, *box.field, true);
    });
}

void place(const Prseq& object, Inspector& inspector) {
    Patcher& patcher = *inspector.patcher;
    patcher.position = inspector.position.value_or(centered_on_display(object.host(), patcher.size));
}

/// In the middle of the window, on the page that was chosen last.
void prepare_selector(Inspector& inspector, const InspectorRow& row) {
    PatcherBox* box = TQ_Prseq_Utilities_FindBoxFromVarname(*inspector.patcher, gensym(row.selector));
    if (!box) return;
    box->rect.x = (inspector.patcher->size.width - box->rect.width) / 2;
    if (box->field) box->field->set({inspector.page});
}

void open(Prseq& object, InspectorKind kind) {
    Inspector& inspector = object.inspectors[kind];
    const InspectorRow& row = inspector_row(kind);
    if (inspector.open()) return inspector.patcher->front();
    if (!can_open(object, kind)) return;
    const std::string path = TQ_Prseq_Utilities_GetBundledResourcesPathFromFilename(gensym(row.file)).text();
    std::string fault;
    inspector.patcher = fileload(object.host(), path, fault);
    if (!inspector.patcher) return object_error(object, fmt::sprintf("could not load patcher %s", path));
    inspector.patcher->title = row.title;
    place(object, inspector);
    prepare_selector(inspector, row);
    object_attach_byptr(object, *inspector.patcher);
    create_objects(object, inspector);
    update(object, kind);
    inspector.patcher->show();
}

void close(Prseq& object, InspectorKind kind) {
    Inspector& inspector = object.inspectors[kind];
    inspector.fields.clear();
    inspector.track = nullptr;
    inspector.event = nullptr;
    inspector.patcher.reset();
}

/// What the fields show may have gone since they were written.
bool is_current(const Prseq& object, const Inspector& inspector, InspectorKind kind) {
    if (kind == InspectorKind::Track) return inspector.track == TQ_Prseq_Tracks_GetActiveTrack(object);
    return kind == InspectorKind::Document || inspector.event == event_to_inspect(object);
}

const FieldRow* row_of(InspectorKind kind, Symbol name) {
    for (const FieldRow& row : fields_of(kind))
        if (name == gensym(row.name)) return &row;
    return nullptr;
}

void told_by_field(Prseq& object, const InspectorRow& row, Symbol name, const Field& field,
                   const std::string& what) {
    Inspector& inspector = object.inspectors[row.kind];
    if (name == gensym(row.selector)) inspector.page = field.value().front().as_long();
    const FieldRow* of = row_of(row.kind, name);
    const bool about_this = has_subject(inspector, row.kind) && is_current(object, inspector, row.kind);
    if (of && about_this) of->change({object, inspector}, field, what);
    if (!of || !of->waits || what != "cellchanged") inspectors_look_again(object, Change::Nothing);
}

/// The patcher is telling this, and goes when it has told it.
void closed_by_hand(Prseq& object, InspectorKind kind) {
    Inspector& inspector = object.inspectors[kind];
    inspector.position = inspector.patcher->position;
    defer_low(object, [going = std::shared_ptr(std::move(inspector.patcher))](Prseq&) {});
    close(object, kind);
}

}  // namespace

const InspectorRow& inspector_row(InspectorKind kind) { return rows[static_cast<size_t>(kind)]; }

Inspector* find_inspector(Prseq& object, std::string_view name) {
    for (const InspectorRow& row : rows)
        if (row.name == name) return &object.inspectors[row.kind];
    return nullptr;
}

void prseq_fileinspector_open(Prseq& object) { open(object, InspectorKind::Document); }
void prseq_trackinspector_open(Prseq& object) { open(object, InspectorKind::Track); }
void prseq_eventinspector_open(Prseq& object) { open(object, InspectorKind::Event); }
void prseq_fileinspector_close(Prseq& object) { close(object, InspectorKind::Document); }
void prseq_trackinspector_close(Prseq& object) { close(object, InspectorKind::Track); }
void prseq_eventinspector_close(Prseq& object) { close(object, InspectorKind::Event); }

void update_inspectors(Prseq& object) {
    for (const InspectorRow& row : rows) update(object, row.kind);
}

void inspectors_look_again(Prseq& object, Change change) {
    // What happens many times a second changes no field.
    constexpr Changes passing{Change::LineCursor,     Change::Marquee,      Change::Tiptool,
                              Change::HorizontalView, Change::VerticalView, Change::Scrollbars};
    if (passing.any_of({change})) return;
    const bool any = std::ranges::any_of(object.inspectors.all, &Inspector::open);
    if (!any || std::exchange(object.inspectors.refreshing, true)) return;
    defer_low(object, [](Prseq& o) {
        o.inspectors.refreshing = false;
        update_inspectors(o);
    });
}

bool inspector_notify(Prseq& object, const Notification& notification) {
    for (const InspectorRow& row : rows) {
        Inspector& inspector = object.inspectors[row.kind];
        if (!inspector.open()) continue;
        if (notification.sender == inspector.patcher.get()) {
            closed_by_hand(object, row.kind);
            return true;
        }
        for (const auto& entry : inspector.fields)
            if (notification.sender == entry.second) {
                told_by_field(object, row, entry.first, *entry.second, notification.data.text());
                return true;
            }
    }
    return false;
}

}  // namespace tq
