// The inspectors: forms in windows of their own that show the document, the active track and the selected
// event, and follow them; what a user does in a field is an edit like any other.
#pragma once

#include <string_view>

#include "host/object.h"
#include "instance/change.h"
#include "instance/inspector_record.h"

namespace tq {

struct Prseq;

/// The row of an inspector in the table of inspectors.
struct InspectorRow {
    InspectorKind kind;
    const char* name;      ///< in scripts: "document", "track", "event"
    const char* file;      ///< of the resource folder
    const char* title;     ///< of the window
    const char* selector;  ///< the scripting name of the field that chooses the page
};
const InspectorRow& inspector_row(InspectorKind kind);
/// By its name; none of that name: none.
Inspector* find_inspector(Prseq& object, std::string_view name);

// Messages "document_inspector_open" and so on. Opening one that is open brings its window to the front. The
// track inspector opens where there is an active track, the event inspector where an event is selected or its
// curves are edited. "could not load patcher %s" is posted where its file cannot be read.

void prseq_fileinspector_open(Prseq& object);
void prseq_trackinspector_open(Prseq& object);
void prseq_eventinspector_open(Prseq& object);
void prseq_fileinspector_close(Prseq& object);
void prseq_trackinspector_close(Prseq& object);
void prseq_eventinspector_close(Prseq& object);

/// Something that is seen has changed: the fields of the inspectors that are open are written soon.
void inspectors_look_again(Prseq& object, Change change);
/// Writes all fields of the inspectors that are open with what is so now.
void update_inspectors(Prseq& object);

/// A field, or the window, of an inspector has told something. False when the sender is neither.
bool inspector_notify(Prseq& object, const Notification& notification);

}  // namespace tq
