// The windows of the inspectors that are open.
#pragma once

#include <functional>
#include <unordered_map>

#include "app/patch/session.h"
#include "app/window/shortcuts.h"
#include "instance/inspector_record.h"

class QWidget;

namespace tq {

class InspectorWindow;

/// Windows come and go as the box shows and frees its patchers.
class InspectorWindows : private SessionListener {
 public:
    struct User {
        std::function<void(const SessionCall&)> calls;
        std::function<void(Shortcut::What)> wants;
    };
    InspectorWindows(Session& session, QWidget& owner, User user);
    ~InspectorWindows() override;

    /// What is being typed in any of them is said.
    void finish();
    /// As their user would.
    void close();

 private:
    void patcher_shown(Patcher& patcher) override;
    void patcher_front(Patcher& patcher) override;
    void patcher_changed(Patcher& patcher) override;
    void patcher_freed(Patcher& patcher) override;
    void field_shown(const Field& field) override;

    InspectorWindow* window_of(const Patcher& patcher) const;
    std::vector<InspectorWindow*> all() const;
    const void* subject(InspectorKind kind) const;

    Session& session_;
    QWidget& owner_;
    User user_;
    std::unordered_map<const Patcher*, InspectorWindow*> windows_;
};

}  // namespace tq
