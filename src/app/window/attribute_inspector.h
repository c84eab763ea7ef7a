// The settings of the box: its attributes, each with a control and a way back to its default.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <vector>

#include "app/patch/session.h"

class QGridLayout;
class QPushButton;
class QToolButton;
class QVBoxLayout;

namespace tq {

struct Attribute;

class AttributeInspector final : public QDialog {
 public:
    /// `calls` hands the session a call; what its user has set is kept for the next box.
    AttributeInspector(Session& session, QWidget& owner, std::function<void(const SessionCall&)> calls);
    ~AttributeInspector() override;

 private:
    class Watcher;
    struct Row {
        const Attribute* attribute;
        QWidget* control;
        std::function<void(const Atoms&)> display;
        QToolButton* reset;
    };
    void add_category(const std::string& category, QVBoxLayout& page);
    void add_row(const Attribute& attribute, QGridLayout& grid);
    void look_again();
    void display();
    void set(const Attribute& attribute, const Atoms& values);
    void reset_all();
    void keep();

    Session& session_;
    std::function<void(const SessionCall&)> calls_;
    std::vector<Row> rows_;
    QPushButton* reset_all_;
    bool looking_again_ = false;
    std::unique_ptr<Watcher> watcher_;
};

}  // namespace tq
