// Copying, cutting and pasting events.
#pragma once

#include <optional>
#include <vector>

#include "instance/event.h"
#include "model/selected_events.h"

namespace tq {

struct Prseq;

/// Fill the clipboard with the selected events of all visible tracks, in the select mode; in other modes they
/// only empty it.
void TQ_Prseq_Clipboard_CopySelection(Prseq& object);
void TQ_Prseq_Clipboard_CutSelection(Prseq& object);
/// Puts what the clipboard holds into the active track, where it was in time; not in the mode that edits
/// curves. It can be pasted again.
void TQ_Prseq_Clipboard_PasteSelection(Prseq& object);
/// The same, with the first event at a time in ms; those of several tracks come back to these, as far as they
/// are in the document. What they take of time then; none when nothing was pasted.
std::optional<TimeSpan> paste_events_at(Prseq& object, double ms);
/// The events that would be pasted; none where pasting does nothing.
const std::vector<EventRef>* TQ_Prseq_Clipboard_GetItemToPaste(const Prseq& object);

// The steps of the above.
void TQ_Prseq_Clipboard_Clear(Prseq& object);
void TQ_Prseq_Clipboard_CopySelectedEventsToClipboard(Prseq& object);
void TQ_Prseq_Clipboard_PasteEventsFromClipboard(Prseq& object);

}  // namespace tq
