// Copying, cutting and pasting events.
#pragma once

#include <optional>
#include <vector>

#include "instance/event.h"

namespace tq {

struct Prseq;

/// Fill the clipboard with the selected events, in the select mode; in other modes they only empty it.
void TQ_Prseq_Clipboard_CopySelection(Prseq& object);
void TQ_Prseq_Clipboard_CutSelection(Prseq& object);
/// Puts what the clipboard holds into the active track, where it was in time; not in the mode that edits
/// curves. It can be pasted again.
void TQ_Prseq_Clipboard_PasteSelection(Prseq& object);
/// The same, with the first event at a time in ms. Where the last one ends then; none when nothing was
/// pasted.
std::optional<double> paste_events_at(Prseq& object, double ms);
/// The events that would be pasted; none where pasting does nothing.
const std::vector<EventRef>* TQ_Prseq_Clipboard_GetItemToPaste(const Prseq& object);

// The steps of the above.
void TQ_Prseq_Clipboard_Clear(Prseq& object);
void TQ_Prseq_Clipboard_CopySelectedEventsToClipboard(Prseq& object);
/// Later than they were by so many ms.
void TQ_Prseq_Clipboard_PasteEventsFromClipboard(Prseq& object, double later = 0);

}  // namespace tq
