#include "instance/revision.h"

#include "instance/prseq.h"

namespace tq {

BeforeSteps before_steps(const Prseq& object) { return {object.revisions.current, object.timelinelength}; }

void advance_revision(Prseq& object) { set_revision(object, ++object.revisions.last); }

void set_revision(Prseq& object, long revision) {
    const bool was_dirty = prseq_getdirtyflag(object);
    object.revisions.current = revision;
    if (prseq_getdirtyflag(object) != was_dirty) prseq_show(object, Change::UpperDisplay);
}

void prseq_setdirtyflag(Prseq& object, bool dirty) {
    if (dirty) {
        advance_revision(object);
    } else if (prseq_getdirtyflag(object)) {
        object.revisions.saved = object.revisions.current;
        prseq_show(object, Change::UpperDisplay);
    }
    jbox_redraw(object);
}

bool prseq_getdirtyflag(const Prseq& object) { return object.revisions.current != object.revisions.saved; }

}  // namespace tq
