// Looks at work that was not lost, one after the other, without holding up whoever waits.
#pragma once

#include <QPixmap>
#include <QProcess>
#include <QTemporaryDir>
#include <deque>
#include <functional>

#include "app/journal/kept_work.h"

namespace tq {

/// Doing a session again may take long, and may break down a program that it has broken down before: another
/// process does it.
class KeptWorkLooker : public QObject {
 public:
    struct Seen {
        std::optional<KeptAmount> amount;  ///< none: it could not be looked at
        QPixmap picture;
    };
    explicit KeptWorkLooker(std::function<void(const KeptWork&, const Seen&)> seen);
    ~KeptWorkLooker() override { stop(); }

    /// This one as well, when those before are done.
    void look_at(const KeptWork& work);
    /// It need not be looked at any more, and nobody looks when this returns.
    void leave_out(const KeptWork& work);
    /// Nobody looks at anything any more.
    void stop();

 private:
    void next();
    void done();
    QString picture_path() const { return folder_.filePath("picture.png"); }

    std::function<void(const KeptWork&, const Seen&)> seen_;
    QTemporaryDir folder_;
    std::deque<KeptWork> waiting_;  ///< the first one is being looked at
    QProcess process_;
};

}  // namespace tq
