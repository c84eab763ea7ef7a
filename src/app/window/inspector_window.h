// The window of an inspector: the boxes of its patcher, with a control for each field.
#pragma once

#include <QWidget>
#include <unordered_map>
#include <vector>

#include "app/window/field_control.h"
#include "app/window/shortcuts.h"
#include "host/patcher.h"

class QLabel;

namespace tq {

/// What a window says of its user.
struct InspectorUser {
    std::function<void(Symbol field, const char* change, const Atoms& atoms)> does;
    std::function<void(Point position)> closes;
    std::function<void(Shortcut::What)> wants;
    std::function<const void*()> subject;
};

class InspectorWindow final : public QWidget {
 public:
    /// `nothing` is what stands there while all boxes are hidden.
    InspectorWindow(Patcher& patcher, QWidget& owner, InspectorUser user, const char* nothing);

    /// Which boxes are there to be seen.
    void show_boxes();
    /// Does nothing for a field of another window.
    void refresh(const Field& field);
    /// What is being typed is said.
    void finish();
    void come_to_front();
    /// The patcher goes, and so does the window.
    void let_go();

 protected:
    void closeEvent(QCloseEvent* event) override;

 private:
    struct Shown {
        const PatcherBox* box;
        QWidget *widget, *label;  ///< no label: null
    };
    void add_boxes(const Patcher& patcher, QWidget& place);
    void add_field(const Patcher& patcher, const PatcherBox& box, QWidget& place);
    QLabel* make_label(const Patcher& patcher, const PatcherBox& box, QWidget& place);
    void make_window_shortcuts();
    void add_shortcut(const QKeySequence& keys, const std::function<void()>& act);
    long page() const;

    Patcher* patcher_;  ///< null: it has gone
    InspectorUser user_;
    std::vector<Shown> shown_;
    std::unordered_map<const Field*, FieldControl*> controls_;
    QLabel* nothing_;
};

}  // namespace tq
