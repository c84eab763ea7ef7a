#include "instance/change.h"

#include "instance/prseq.h"

namespace tq {

void prseq_show(Prseq& object, Change change) {
    object.unpainted.add(change);
    object.callbacks.changed(object, change);
    jbox_redraw(object);
}

}  // namespace tq
