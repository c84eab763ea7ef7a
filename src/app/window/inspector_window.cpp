#include "app/window/inspector_window.h"

#include <QCloseEvent>
#include <QLabel>
#include <QShortcut>
#include <algorithm>
#include <utility>

namespace tq {

namespace {

constexpr double label_width = 116, label_gap = 6, least_left = 100, label_height = 18;  // pixels

QRect pixels(const Rect& rect) { return QRectF(rect.x, rect.y, rect.width, rect.height).toAlignedRect(); }

/// From top to bottom, which is the order in which Tab goes through them.
std::vector<const PatcherBox*> in_order(const Patcher& patcher) {
    std::vector<const PatcherBox*> boxes;
    for (const PatcherBox& box : patcher.boxes) boxes.push_back(&box);
    std::ranges::stable_sort(boxes, {},
                             [](const PatcherBox* box) { return std::pair(box->rect.y, box->rect.x); });
    return boxes;
}

bool share_a_page(const PatcherBox& a, const PatcherBox& b) {
    return a.page < 0 || b.page < 0 || a.page == b.page;
}

/// Where a box's label stands: left of it, or else above it where nothing else is; or nowhere.
QRect place_of_label(const Patcher& patcher, const PatcherBox& box) {
    const Rect& rect = box.rect;
    if (rect.x >= least_left)
        return pixels({rect.x - label_gap - label_width, rect.y, label_width, std::min(rect.height, 24.)});
    const QRect above = pixels({rect.x, rect.y - label_height, rect.width, label_height});
    const bool room =
        above.top() >= 0 && std::ranges::none_of(patcher.boxes, [&](const PatcherBox& other) {
            return &other != &box && share_a_page(box, other) && pixels(other.rect).intersects(above);
        });
    return room ? above : QRect();
}

}  // namespace

InspectorWindow::InspectorWindow(Patcher& patcher, QWidget& owner, InspectorUser user, const char* nothing)
    : QWidget(&owner, Qt::Dialog),
      patcher_(&patcher),
      user_(std::move(user)),
      nothing_(new QLabel(nothing, this)) {
    setWindowTitle(QString::fromStdString(patcher.title));
    setFixedSize(QSizeF(patcher.size.width, patcher.size.height).toSize());
    move(QPointF(patcher.position.x, patcher.position.y).toPoint());
    nothing_->setGeometry(rect());
    nothing_->setAlignment(Qt::AlignCenter);
    nothing_->setEnabled(false);
    add_boxes(patcher, *this);
    show_boxes();
    make_window_shortcuts();
}

void InspectorWindow::add_boxes(const Patcher& patcher, QWidget& place) {
    for (const PatcherBox* box : in_order(patcher)) {
        if (box->field) add_field(patcher, *box, place);
        if (!box->patcher) continue;
        auto* inner = new QWidget(&place);
        inner->setGeometry(pixels(box->rect));
        shown_.push_back({box, inner, nullptr});
        add_boxes(*box->patcher, *inner);
    }
}

void InspectorWindow::add_field(const Patcher& patcher, const PatcherBox& box, QWidget& place) {
    const FieldUser user{[this, name = box.varname](const char* change, const Atoms& atoms) {
                             if (patcher_) user_.does(name, change, atoms);
                         },
                         user_.subject,
                         [this] {
                             if (patcher_) user_.wants(Command::SelectNothing);
                         }};
    FieldControl* control = make_control(box.field->form(), box.rect.height, user);
    QWidget& widget = control->widget();
    widget.setParent(&place);
    widget.setGeometry(pixels(box.rect));
    widget.setObjectName(box.varname.text());
    widget.setAccessibleName(QString::fromStdString(box.field->form().label));
    control->display(*box.field);
    controls_[box.field.get()] = control;
    shown_.push_back({&box, &widget, make_label(patcher, box, place)});
}

QLabel* InspectorWindow::make_label(const Patcher& patcher, const PatcherBox& box, QWidget& place) {
    const QRect where = place_of_label(patcher, box);
    if (box.field->form().label.empty() || where.isEmpty()) return nullptr;
    auto* label = new QLabel(QString::fromStdString(box.field->form().label), &place);
    label->setGeometry(where);
    const bool left = box.rect.x >= least_left;
    label->setAlignment((left ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    return label;
}

/// The page that the window's selector shows; without one all boxes are on all pages.
long InspectorWindow::page() const {
    for (const PatcherBox& box : patcher_->boxes)
        if (box.field && box.field->form().kind == FieldKind::Selector && !box.field->value().empty())
            return box.field->value().front().as_long();
    return -1;
}

void InspectorWindow::show_boxes() {
    const long page_now = page();
    bool any = false;
    for (const Shown& shown : shown_) {
        const PatcherBox& box = *shown.box;
        const bool visible = !box.hidden && (box.page < 0 || page_now < 0 || box.page == page_now);
        any |= visible;
        shown.widget->setVisible(visible);
        if (shown.label) shown.label->setVisible(visible);
    }
    nothing_->setVisible(!any);
}

void InspectorWindow::refresh(const Field& field) {
    const auto found = controls_.find(&field);
    if (found == controls_.end()) return;
    found->second->display(field);
    if (field.form().kind == FieldKind::Selector) show_boxes();
}

void InspectorWindow::finish() {
    for (const auto& [field, control] : std::unordered_map(controls_)) control->finish();
}

void InspectorWindow::come_to_front() {
    show();
    raise();
    activateWindow();
}

/// Its controls may be the ones that are being worked with, so they stay until that is over.
void InspectorWindow::let_go() {
    patcher_ = nullptr;
    controls_.clear();
    shown_.clear();
    hide();
    deleteLater();
}

void InspectorWindow::closeEvent(QCloseEvent* event) {
    finish();
    if (patcher_) user_.closes({double(pos().x()), double(pos().y())});
    event->setAccepted(!patcher_);
}

void InspectorWindow::make_window_shortcuts() {
    for (const QKeySequence& keys : {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_W)})
        add_shortcut(keys, [this] { close(); });
    make_dialog_shortcuts(*this, [this](const Shortcut::What& wanted) {
        finish();
        user_.wants(wanted);
    });
}

void InspectorWindow::add_shortcut(const QKeySequence& keys, const std::function<void()>& act) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
}

}  // namespace tq
