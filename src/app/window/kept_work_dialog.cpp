#include "app/window/kept_work_dialog.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

#include "app/journal/session_folder.h"
#include "app/window/time_words.h"

namespace tq {

namespace {

constexpr int first_width = 660, first_height = 520, row_padding = 8;
constexpr QSize picture_size(192, 108);

bool is_session(const KeptWork& work) { return work.kind == KeptWork::Kind::Session; }
QDateTime when(const KeptWork& work) { return QDateTime::fromSecsSinceEpoch(work.when); }
QString path_of(const KeptWork& work) { return QFile::decodeName(work.path.c_str()); }

QString counted(size_t count, const char* one) {
    return QString("%1 %2%3").arg(count).arg(one, count == 1 ? "" : "s");
}

QString name_of(const KeptWork& work, const std::optional<KeptAmount>& amount) {
    const QString file = QFileInfo(QString::fromStdString(work.document)).fileName();
    if (!file.isEmpty()) return file;
    const QString title = amount ? QString::fromStdString(amount->name) : QString();
    return title.isEmpty() ? "Never saved" : title + " (never saved)";
}

QString words_of(const KeptAmount& amount) {
    const QString much = counted(amount.tracks, "track") + ", " + counted(amount.events, "event") + ", " +
                         length_words(amount.length);
    return amount.edits ? much + ", " + counted(*amount.edits, "edit") + " that can be undone" : much;
}

/// A picture in the middle of its place, or words instead.
QIcon framed(const QPixmap& picture, const char* words, const QWidget& widget) {
    const double ratio = widget.devicePixelRatioF();
    QPixmap framed(picture_size * ratio);
    framed.setDevicePixelRatio(ratio);
    framed.fill(widget.palette().color(QPalette::AlternateBase));
    QPainter painter(&framed);
    const QRect all(QPoint(), picture_size);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (!picture.isNull())
        painter.drawImage(
            all, picture.toImage().scaled(framed.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    painter.setPen(widget.palette().color(QPalette::Disabled, QPalette::Text));
    if (picture.isNull()) painter.drawText(all, Qt::AlignCenter, words);
    painter.drawRect(all.adjusted(0, 0, -1, -1));
    QIcon icon(framed);
    icon.addPixmap(framed, QIcon::Selected);  // the picture as it is
    return icon;
}

/// Why it could not be deleted; empty: it is.
QString erase(const KeptWork& work) {
    std::error_code error;
    if (!is_session(work)) {
        std::filesystem::remove(work.path, error);
        return QString::fromStdString(error ? error.message() : "");
    }
    std::optional<SessionFolder> folder = SessionFolder::take(work.path);
    if (!folder) return "It runs again, or is gone.";
    folder->remove();
    return {};
}

}  // namespace

KeptWorkDialog::KeptWorkDialog(std::vector<KeptWork> work, QWidget* parent)
    : QDialog(parent),
      work_(std::move(work)),
      list_(new QListWidget),
      nothing_(new QLabel("There is none: everything was saved.")),
      looker_([this](const KeptWork& seen_work, const KeptWorkLooker::Seen& seen) {
          const auto at = std::ranges::find(work_, seen_work);
          if (at != work_.end()) show_row(static_cast<size_t>(at - work_.begin()), seen);
      }) {
    setObjectName("unsaved work");
    setWindowTitle("Unsaved Work");
    auto* layout = new QVBoxLayout(this);
    auto* what = new QLabel(
        "Sessions that ended unexpectedly, which come back with their history, and copies of documents that "
        "were closed or replaced without having been saved.");
    what->setWordWrap(true);
    layout->addWidget(what);
    nothing_->setAlignment(Qt::AlignCenter);
    layout->addWidget(nothing_, 1);
    layout->addWidget(list_, 1);
    add_buttons();
    add_rows();
    resize(first_width, first_height);
}

void KeptWorkDialog::add_rows() {
    list_->setObjectName("work");
    list_->setIconSize(picture_size);
    list_->setUniformItemSizes(true);
    list_->setSpacing(row_padding / 2);
    list_->setAlternatingRowColors(true);
    for (size_t row = 0; row < work_.size(); ++row) {
        list_->addItem(new QListWidgetItem);
        show_row(row, {});
    }
    connect(list_, &QListWidget::currentRowChanged, this, [this] { enable_buttons(); });
    connect(list_, &QListWidget::itemActivated, this, [this] { bring_back(); });
    list_->setCurrentRow(0);
    enable_buttons();
    for (const KeptWork& work : work_) looker_.look_at(work);
}

void KeptWorkDialog::add_buttons() {
    auto* buttons = new QDialogButtonBox;
    bring_back_ = buttons->addButton("Bring Back", QDialogButtonBox::AcceptRole);
    delete_ = buttons->addButton("Delete...", QDialogButtonBox::DestructiveRole);
    show_folder_ = buttons->addButton("Show Folder", QDialogButtonBox::ActionRole);
    QPushButton* later = buttons->addButton("Later", QDialogButtonBox::RejectRole);
    bring_back_->setDefault(true);
    connect(bring_back_, &QPushButton::clicked, this, [this] { bring_back(); });
    connect(delete_, &QPushButton::clicked, this, [this] { remove(); });
    connect(show_folder_, &QPushButton::clicked, this, [this] { show_folder(); });
    connect(later, &QPushButton::clicked, this, &QDialog::reject);
    layout()->addWidget(buttons);
}

void KeptWorkDialog::show_row(size_t row, const std::optional<KeptWorkLooker::Seen>& seen) {
    const KeptWork& work = work_[row];
    const std::optional<KeptAmount> amount = seen ? seen->amount : std::nullopt;
    const QString much = amount ? words_of(*amount) : seen ? "It cannot be looked at." : "Looking at it…";
    QListWidgetItem& item = *list_->item(static_cast<int>(row));
    item.setText(name_of(work, amount) + "\n" + (is_session(work) ? "Session, " : "Copy, ") +
                 time_words(when(work)) + "\n" + much);
    item.setToolTip(QLocale::c().toString(when(work), "dddd, d MMMM yyyy, HH:mm:ss") + "\n" + path_of(work));
    item.setIcon(framed(seen ? seen->picture : QPixmap(), seen ? "No picture" : "Picture follows", *this));
}

int KeptWorkDialog::row() const { return list_->currentRow(); }

void KeptWorkDialog::enable_buttons() {
    for (QPushButton* button : {bring_back_, delete_, show_folder_}) button->setEnabled(row() >= 0);
    list_->setVisible(!work_.empty());
    nothing_->setVisible(work_.empty());
}

void KeptWorkDialog::bring_back() {
    if (row() < 0) return;
    choice_ = work_[static_cast<size_t>(row())];
    looker_.stop();
    accept();
}

void KeptWorkDialog::remove() {
    if (row() < 0) return;
    const int at = row();
    const KeptWork work = work_[static_cast<size_t>(at)];
    const QString what = is_session(work) ? "session" : "copy";
    const QString question =
        QString("Delete the %1 \"%2\", %3? It cannot come back then.")
            .arg(what, list_->item(at)->text().section('\n', 0, 0), time_words(when(work)));
    if (QMessageBox::question(this, "sorvo", question) != QMessageBox::Yes) return;
    looker_.leave_out(work);
    if (const QString fault = erase(work); !fault.isEmpty()) {
        QMessageBox::warning(this, "sorvo", "The " + what + " could not be deleted: " + fault);
        return;
    }
    work_.erase(work_.begin() + at);
    delete list_->takeItem(at);
    enable_buttons();
}

void KeptWorkDialog::show_folder() {
    const KeptWork& work = work_[static_cast<size_t>(row())];
    const QString folder = is_session(work) ? path_of(work) : QFileInfo(path_of(work)).path();
    QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

std::optional<KeptWork> choose_kept_work(std::vector<KeptWork> work, QWidget* parent) {
    KeptWorkDialog dialog(std::move(work), parent);
    return dialog.exec() == QDialog::Accepted ? dialog.choice() : std::nullopt;
}

}  // namespace tq
