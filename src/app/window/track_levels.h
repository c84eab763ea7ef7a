// Volume, pan and their like of the active track, as sliders that move all of its curves of that name.
#pragma once

#include <QDialog>
#include <functional>
#include <string>
#include <vector>

class QLabel;
class QSlider;
class QSpinBox;

namespace tq {

struct Prseq;

class TrackLevels : public QDialog {
 public:
    /// `send` gets messages in message text.
    TrackLevels(QWidget& window, const Prseq& box, std::function<void(const std::string&)> send);
    /// Shows the levels of the track that is active now; costs nothing while this is hidden.
    void follow();

 protected:
    void showEvent(QShowEvent*) override { follow(); }

 private:
    struct Row {
        std::string name;
        int initial;  ///< of a track that has no such curves
        QSlider* slider;
        QSpinBox* number;
    };
    void add_row(int controller);
    void ask(const Row& row, int value);

    const Prseq& box_;
    std::function<void(const std::string&)> send_;
    QLabel* track_;
    std::vector<Row> rows_;
};

}  // namespace tq
