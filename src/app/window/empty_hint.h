// What can be done while there is nothing yet, told on the empty canvas.
#pragma once

#include <QLabel>

namespace tq {

struct Prseq;

/// Stands over the main display of an empty document; the mouse goes through it.
class EmptyHint : public QLabel {
 public:
    EmptyHint(QWidget& canvas, const Prseq& box);
    /// Shows itself where nothing is, and goes when something is there.
    void follow();

 private:
    const Prseq& box_;
};

}  // namespace tq
