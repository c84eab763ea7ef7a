#include "interaction/cursors.h"

#include "host/mouse_cursor.h"
#include "instance/prseq.h"
#include "interaction/resource_pictures.h"

namespace tq {

namespace {

struct CursorRow {
    CursorIndex index;
    const char* image;
    Point hotspot;  // in the image, pixels
};
constexpr CursorRow rows[] = {
    {CursorPencil, "cursor_pencil32.png", {4, 15}},
    {CursorResizeLeft, "cursor_resize-leftBW.png", {7, 7}},
    {CursorResizeRight, "cursor_resize-rightBW.png", {7, 7}},
    {CursorZoom, "cursor_zoom.png", {7, 7}},
    {CursorZoomIn, "cursor_zoomIn.png", {7, 7}},
    {CursorZoomOut, "cursor_zoomOut.png", {7, 7}},
    {CursorPencilBpf, "cursor_pencilBpf32.png", {0, 15}},
    {CursorSelectBpf, "cursor_selectBpf.png", {4, 8}},
    {CursorScissors, "cursor_scissors.png", {1, 1}},
    {CursorPasteTube, "cursor_pastetube.png", {1, 1}},
    {CursorArrowsUpDown, "cursor_double_arrows_updown.png", {7, 7}},
    {CursorBufferStart, "cursor_arrows_leftright.png", {7, 7}},
    {CursorBufferEnd, "cursor_arrows_leftright2.png", {7, 7}},
};

struct HostRow {
    CursorIndex index;
    HostCursor shape;
};
constexpr HostRow host_rows[] = {{CursorArrow, host_cursor_arrow},
                                 {CursorHand, host_cursor_dragging_hand},
                                 {CursorCopying, host_cursor_copying}};

bool set_host_cursor(const Prseq& object, long index) {
    for (const HostRow& row : host_rows)
        if (row.index == index) {
            jmouse_setcursor(object, row.shape);
            return true;
        }
    return false;
}

bool set_image(const Prseq& object, long index) {
    const auto& images = object.cursors.images;
    if (index < 0 || index >= std::ssize(images)) return false;
    const CursorImage& cursor = images[static_cast<size_t>(index)];
    if (cursor.image) jmouse_setcursor_surface(object, cursor.image, cursor.hotspot);
    return cursor.image != nullptr;
}

}  // namespace

void TQ_Prseq_MakeIconsForCursor(Prseq& object) {
    for (const CursorRow& row : rows)
        object.cursors.images.push_back({picture_or_error(object, row.image), row.hotspot});
}

void TQ_Prseq_SetMouseCursorFromIcon(Prseq& object, long index) {
    if (index == object.cursors.current) return;
    if (set_host_cursor(object, index) || set_image(object, index)) object.cursors.current = index;
}

}  // namespace tq
