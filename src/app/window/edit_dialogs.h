// Edits that take numbers: each in a small dialog, which stays open while it is tried out. What is asked for
// is a message to the box.
#pragma once

#include <QDialog>
#include <QStringList>

#include <functional>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "app/window/shortcuts.h"

namespace tq {

/// A number, which is told to the message in its unit.
struct NumberQuestion {
    const char* name;
    double least, most, first;
    const char* suffix = "";
    int decimals = 0;
    double unit = 1;
};
/// One of several words.
struct ChoiceQuestion {
    struct Choice {
        const char *text, *word;
    };
    const char* name;
    std::span<const Choice> choices;
    int first = 0;
};
using EditQuestion = std::variant<NumberQuestion, ChoiceQuestion>;

struct EditDialogRow {
    WindowAction action;
    const char *message, *hint;
    bool of_selection;
    std::vector<EditQuestion> questions;
    /// What follows from the answers and stands behind them; none: nothing.
    std::string (*last_word)(const QStringList& words) = nullptr;
};
/// Null: the action is none of these.
const EditDialogRow* find_edit_dialog(WindowAction action);

class EditDialog : public QDialog {
 public:
    struct Acts {
        std::function<void(const std::string&)> send;  ///< a message, in message text
        std::function<void(const Shortcut::What&)> wants;
    };
    /// The row has to outlive this.
    EditDialog(QWidget& window, const EditDialogRow& row, Acts acts);

 private:
    void add(const NumberQuestion& question);
    void add(const ChoiceQuestion& question);
    void apply();

    const EditDialogRow& row_;
    Acts acts_;
    std::vector<std::function<QString()>> answers_;
};

}  // namespace tq
