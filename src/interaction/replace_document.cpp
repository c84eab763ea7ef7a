#include "interaction/replace_document.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "file/document_messages.h"
#include "host/defer.h"
#include "instance/prseq.h"
#include "model/track_info.h"
#include "view/modal_dialog.h"

namespace tq {

namespace {

void begin_new(Prseq& object) {
    empty_document(object);
    TQ_Prseq_Tracks_OutputTrackInfo(object);
}

void open_another(Prseq& object) { TQ_Prseq_Json_ReadFromOpen(object); }

void begin_next_untitled(Prseq& object) {
    ++object.info.untitledcounter;
    begin_new(object);
}

/// Saving is deferred, and what comes then is deferred behind it. It does not come when the document could
/// not be saved, or when the user did not say where to.
template <void (*Then)(Prseq&)>
void save_and(Prseq& object) {
    object.info.dialogcancelled = false;
    TQ_Prseq_Json_WriteFromSave(object);
    defer_low(object, [](Prseq& o) {
        if (!o.info.dialogcancelled && !prseq_getdirtyflag(o)) Then(o);
    });
    TQ_Prseq_Tracks_OutputTrackInfo(object);
}

struct ReplacementRow {
    Replacement by;
    const char* title;
    void (*run)(Prseq&);
    void (*dont_save)(Prseq&);
    void (*save)(Prseq&);
};
constexpr ReplacementRow rows[] = {
    {Replacement::New, "New", begin_new, begin_next_untitled, save_and<begin_new>},
    {Replacement::Opened, "Open...", open_another, open_another, save_and<open_another>},
};

void answer(Prseq& object, const ReplacementRow& row, std::string_view button) {
    if (button == dont_save_button) row.dont_save(object);
    if (button == save_button) row.save(object);
}

}  // namespace

void replace_document(Prseq& object, Replacement by) {
    const ReplacementRow& row = rows[static_cast<size_t>(by)];
    if (!prseq_getdirtyflag(object)) return row.run(object);
    commit_gesture(object);
    object.modaldialog =
        TQ_Prseq_ModalDialog_Create(gensym("Do you want to save your document first?"), gensym(row.title));
    prseq_show(object, Change::ModalDialog);
}

void TQ_Prseq_ModalDialog_HandleClickedButton(Prseq& object, Point press) {
    const ModalButton* clicked = TQ_Prseq_ModalDialog_WhichButtonWasClicked(object, press);
    if (!clicked) return;
    const Symbol title = object.modaldialog->title, button = clicked->name;
    object.modaldialog.reset();
    prseq_show(object, Change::ModalDialog);
    auto row = std::ranges::find_if(rows, [&](const ReplacementRow& r) { return title.text() == r.title; });
    if (row != std::end(rows)) answer(object, *row, button.text());
}

}  // namespace tq
