#include "app/window/attribute_inspector.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/patch/box_settings.h"
#include "app/window/attribute_control.h"
#include "app/window/window_state.h"
#include "host/class.h"

namespace tq {

namespace {

constexpr int first_width = 540, first_height = 620, indent = 12;  // pixels

const Class& watcher_class() {
    static const Class the_class("attributewatcher");
    return the_class;
}

/// One without a name for people is not for them.
bool is_listed(const Attribute& attribute) { return !attribute.label.empty(); }

}  // namespace

/// Hears of every attribute that is set, by whomever.
class AttributeInspector::Watcher final : public Object {
 public:
    Watcher(Prseq& box, std::function<void()> changed)
        : Object(box.host(), watcher_class()), changed_(std::move(changed)) {
        object_attach_byptr(*this, box);
    }
    void notify(const Notification& notification) override {
        if (notification.message == gensym("attr_modified")) changed_();
    }

 private:
    std::function<void()> changed_;
};

AttributeInspector::AttributeInspector(Session& session, QWidget& owner,
                                       std::function<void(const SessionCall&)> calls)
    : QDialog(&owner),
      session_(session),
      calls_(std::move(calls)),
      reset_all_(new QPushButton("All Back to Default")),
      watcher_(std::make_unique<Watcher>(session.box(), [this] { look_again(); })) {
    setWindowTitle("Settings");
    setObjectName("settings");
    auto* page = new QWidget;
    auto* rows = new QVBoxLayout(page);
    std::vector<std::string> categories;
    for (const Attribute& attribute : session.box().object_class().attributes())
        if (is_listed(attribute) && std::ranges::find(categories, attribute.category) == categories.end())
            categories.push_back(attribute.category);
    for (const std::string& category : categories) add_category(category, *rows);
    rows->addStretch(1);
    auto* scroll = new QScrollArea;
    scroll->setWidget(page);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(scroll);
    reset_all_->setObjectName("reset all");
    reset_all_->setAutoDefault(false);
    layout->addWidget(reset_all_, 0, Qt::AlignRight);
    connect(reset_all_, &QPushButton::clicked, this, [this] { reset_all(); });
    resize(first_width, first_height);
    keep_place(*this, "settings");
    display();
}

AttributeInspector::~AttributeInspector() = default;

void AttributeInspector::add_category(const std::string& category, QVBoxLayout& page) {
    auto* title = new QLabel("<b>" + QString::fromStdString(category).toHtmlEscaped() + "</b>");
    auto* grid = new QGridLayout;
    grid->setContentsMargins(indent, 0, 0, indent);
    grid->setColumnStretch(0, 1);
    page.addWidget(title);
    page.addLayout(grid);
    for (const Attribute& attribute : session_.box().object_class().attributes())
        if (is_listed(attribute) && attribute.category == category) add_row(attribute, *grid);
}

void AttributeInspector::add_row(const Attribute& attribute, QGridLayout& grid) {
    const AttributeControl control = make_attribute_control(
        attribute, [this, &attribute](const Atoms& values) { set(attribute, values); });
    auto* label = new QLabel(QString::fromStdString(attribute.label));
    label->setBuddy(control.widget);
    auto* reset = new QToolButton;
    reset->setText("Default");
    reset->setObjectName(QString::fromStdString("reset " + attribute.name.text()));
    reset->setToolTip("Back to default");
    reset->setAccessibleName("Back to default: " + label->text());
    reset->setFocusPolicy(Qt::StrongFocus);
    connect(reset, &QToolButton::clicked, this,
            [this, &attribute] { set(attribute, default_of(attribute)); });
    const int row = grid.rowCount();
    grid.addWidget(label, row, 0);
    grid.addWidget(control.widget, row, 1);
    grid.addWidget(reset, row, 2);
    rows_.push_back({&attribute, control.widget, control.display, reset});
}

/// When whatever is setting them is done.
void AttributeInspector::look_again() {
    if (std::exchange(looking_again_, true)) return;
    QTimer::singleShot(0, this, [this] {
        looking_again_ = false;
        display();
    });
}

void AttributeInspector::display() {
    bool all_default = true;
    for (const Row& row : rows_) {
        row.display(row.attribute->read(session_.box()));
        const bool is_default = has_default(session_.box(), *row.attribute);
        if (is_default && row.reset->hasFocus()) row.control->setFocus();
        row.reset->setEnabled(!is_default);
        all_default &= is_default;
    }
    reset_all_->setEnabled(!all_default);
}

void AttributeInspector::set(const Attribute& attribute, const Atoms& values) {
    calls_(MessageCall{attribute.name, values, {}});
    display();
    keep();
}

void AttributeInspector::reset_all() {
    for (const Row& row : rows_)
        if (!has_default(session_.box(), *row.attribute))
            calls_(MessageCall{row.attribute->name, default_of(*row.attribute), {}});
    display();
    keep();
}

void AttributeInspector::keep() {
    std::string fault;
    if (!keep_settings(session_.box(), fault))
        object_error(session_.box(), "the settings were not kept: " + fault);
}

}  // namespace tq
