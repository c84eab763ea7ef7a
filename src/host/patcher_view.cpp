#include "host/patcher_view.h"

#include "host/class.h"

namespace tq {

namespace {

const Class& view_class() {
    static const Class the_class("patcherview");
    return the_class;
}

}  // namespace

PatcherView::PatcherView(Host& host) : Object(host, view_class()) {}

void patcherview_set_rect(PatcherView& view, const Rect& rect) {
    if (rect == view.rect_) return;
    view.rect_ = rect;
    object_notify(view, gensym("attr_modified"), gensym("rect"));
}

}  // namespace tq
