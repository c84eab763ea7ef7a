// Which state of the document is which, and whether it is the one in its file.
#pragma once

namespace tq {

struct Prseq;

/// States of the document by number: the same number is the same document.
struct Revisions {
    long current = 0;  ///< what the document is now
    long saved = 0;    ///< what was last read or written
    long last = 0;     ///< the last number given out
};

/// What the document is before steps that are recorded together at their end.
struct BeforeSteps {
    long revision = 0;
    double length = 0;  ///< of the timeline, ms
};
BeforeSteps before_steps(const Prseq& object);

/// The document has become what it has not been before.
void advance_revision(Prseq& object);
/// The document is what it was in a revision; the dirty hint follows.
void set_revision(Prseq& object, long revision);

/// 1: the document differs from its file from now on. 0: it is now what is in its file. Asks for a redraw.
void prseq_setdirtyflag(Prseq& object, bool dirty);
/// Whether the document differs from what was last read or written.
bool prseq_getdirtyflag(const Prseq& object);

}  // namespace tq
