#include "app/window/inspector_windows.h"

#include <QTimer>
#include <utility>

#include "app/window/inspector_window.h"
#include "inspectors/inspectors.h"

namespace tq {

namespace {

std::optional<InspectorKind> kind_of(const Prseq& box, const Patcher& patcher) {
    for (size_t i = 0; i < inspector_count; ++i)
        if (box.inspectors.all[i].patcher.get() == &patcher) return static_cast<InspectorKind>(i);
    return {};
}

/// What stands in a window that has nothing to show.
const char* nothing_of(InspectorKind kind) {
    static constexpr const char* texts[] = {"", "There is no track.", "Select one event to see it here."};
    return texts[static_cast<size_t>(kind)];
}

}  // namespace

InspectorWindows::InspectorWindows(Session& session, QWidget& owner, User user)
    : session_(session), owner_(owner), user_(std::move(user)) {
    session_.listen(*this);
    for (const Inspector& inspector : session_.box().inspectors.all)  // of a session that came back
        if (inspector.open() && inspector.patcher->shown()) patcher_shown(*inspector.patcher);
}

/// Without a word to the session, which may be going.
InspectorWindows::~InspectorWindows() {
    for (const auto& [patcher, window] : windows_) {
        window->let_go();
        delete window;
    }
}

const void* InspectorWindows::subject(InspectorKind kind) const {
    const Inspector& inspector = session_.box().inspectors[kind];
    return kind == InspectorKind::Event ? static_cast<const void*>(inspector.event.get())
                                        : inspector.track.get();
}

void InspectorWindows::patcher_shown(Patcher& patcher) {
    const std::optional<InspectorKind> kind = kind_of(session_.box(), patcher);
    if (!kind || window_of(patcher)) return;
    const InspectorUser user{.does =
                                 [this](Symbol field, const char* change, const Atoms& atoms) {
                                     user_.calls(FieldCall{field.text(), change, atoms});
                                 },
                             .closes =
                                 [this, kind](Point at) {
                                     user_.calls(CloseCall{inspector_row(*kind).name, at});
                                 },
                             .wants = user_.wants,
                             .subject = [this, kind] { return subject(*kind); }};
    auto* window = new InspectorWindow(patcher, owner_, user, nothing_of(*kind));
    windows_[&patcher] = window;
    if (owner_.isVisible()) return window->come_to_front();
    QTimer::singleShot(0, window, [window] { window->show(); });  // after its owner
}

InspectorWindow* InspectorWindows::window_of(const Patcher& patcher) const {
    const auto found = windows_.find(&patcher);
    return found == windows_.end() ? nullptr : found->second;
}

void InspectorWindows::patcher_front(Patcher& patcher) {
    if (InspectorWindow* window = window_of(patcher)) window->come_to_front();
}

void InspectorWindows::patcher_changed(Patcher& patcher) {
    if (InspectorWindow* window = window_of(patcher)) window->show_boxes();
}

void InspectorWindows::patcher_freed(Patcher& patcher) {
    InspectorWindow* window = window_of(patcher);
    windows_.erase(&patcher);
    if (window) window->let_go();
}

void InspectorWindows::field_shown(const Field& field) {
    for (const auto& [patcher, window] : windows_) window->refresh(field);
}

/// A list of its own: what they say may make them go.
std::vector<InspectorWindow*> InspectorWindows::all() const {
    std::vector<InspectorWindow*> windows;
    for (const auto& [patcher, window] : windows_) windows.push_back(window);
    return windows;
}

void InspectorWindows::finish() {
    for (InspectorWindow* window : all()) window->finish();
}

void InspectorWindows::close() {
    for (InspectorWindow* window : all()) static_cast<QWidget*>(window)->close();
}

}  // namespace tq
