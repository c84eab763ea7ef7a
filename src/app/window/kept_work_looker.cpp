#include "app/window/kept_work_looker.h"

#include <unistd.h>
#include <QCoreApplication>
#include <QFile>
#include <QTimer>
#include <algorithm>

namespace tq {

namespace {

/// Less urgent than what the user does.
constexpr int niceness = 10;

QString program() { return QCoreApplication::applicationDirPath() + "/sorvo"; }

}  // namespace

KeptWorkLooker::KeptWorkLooker(std::function<void(const KeptWork&, const Seen&)> seen)
    : seen_(std::move(seen)) {
    process_.setStandardErrorFile(QProcess::nullDevice());
    process_.setChildProcessModifier([] { static_cast<void>(::nice(niceness)); });
    connect(&process_, &QProcess::finished, this, [this] { done(); });
    connect(&process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) QTimer::singleShot(0, this, [this] { done(); });
    });
}

void KeptWorkLooker::look_at(const KeptWork& work) {
    waiting_.push_back(work);
    if (waiting_.size() == 1) next();
}

void KeptWorkLooker::next() {
    if (waiting_.empty()) return;
    QFile::remove(picture_path());
    process_.start(program(),
                   {"recover", "--from", QFile::decodeName(waiting_.front().path.c_str()), picture_path()});
}

void KeptWorkLooker::done() {
    if (waiting_.empty()) return;
    const KeptWork work = waiting_.front();
    waiting_.pop_front();
    Seen seen;
    if (process_.error() != QProcess::FailedToStart) {
        seen.amount = amount_in_line(process_.readAllStandardOutput().trimmed().toStdString());
        seen.picture = QPixmap(picture_path());
    }
    next();
    seen_(work, seen);
}

void KeptWorkLooker::leave_out(const KeptWork& work) {
    const bool looking = !waiting_.empty() && waiting_.front() == work;
    std::erase(waiting_, work);
    if (!looking) return;
    std::deque<KeptWork> others;
    others.swap(waiting_);
    stop();
    waiting_ = std::move(others);
    next();
}

void KeptWorkLooker::stop() {
    waiting_.clear();
    process_.kill();
    process_.waitForFinished();
}

}  // namespace tq
