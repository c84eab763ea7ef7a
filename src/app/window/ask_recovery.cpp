#include "app/window/ask_recovery.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace tq {

namespace {

enum class Wish { BringBack, Later, Discard };

Wish ask(const DeadSession& session, size_t more) {
    const QString name = session.document.empty()
                             ? QString("a document that was never saved")
                             : QFileInfo(QString::fromStdString(session.document)).fileName();
    QMessageBox box(QMessageBox::Question, "sorvo",
                    "A session with " + name + " ended unexpectedly. Bring it back?");
    QString told = "Last changed " + QString::fromStdString(session.ended) + ", with its editing history.";
    if (more > 0) told += QString("\n%1 more wait.").arg(more);
    box.setInformativeText(told);
    QPushButton* back = box.addButton("Bring Back", QMessageBox::AcceptRole);
    QPushButton* later = box.addButton("Later", QMessageBox::RejectRole);
    QPushButton* discard = box.addButton("Discard", QMessageBox::DestructiveRole);
    box.setDefaultButton(back);
    box.setEscapeButton(later);
    box.exec();
    return box.clickedButton() == back      ? Wish::BringBack
           : box.clickedButton() == discard ? Wish::Discard
                                            : Wish::Later;
}

}  // namespace

std::optional<Recovery> ask_for_recovery(const std::vector<DeadSession>& sessions) {
    for (size_t i = 0; i < sessions.size(); ++i) {
        const Wish wish = ask(sessions[i], sessions.size() - i - 1);
        if (wish == Wish::Later) return {};
        if (wish == Wish::BringBack)
            if (std::optional<Recovery> recovery = recover(sessions[i].folder)) return recovery;
        if (wish == Wish::Discard)
            if (std::optional<SessionFolder> folder = SessionFolder::take(sessions[i].folder))
                folder->remove();
    }
    return {};
}

}  // namespace tq
