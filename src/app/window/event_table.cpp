#include "app/window/event_table.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/window/event_model.h"
#include "app/window/event_table_view.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "model/tracks.h"

namespace tq {

namespace {

constexpr int first_width = 860, first_height = 520;
constexpr qint64 shortest_pause_ms = 100;
/// Of ten parts of time, gathering takes one.
constexpr qint64 pause_per_gathering = 9;
/// What takes longer would be heard and seen while something plays or is dragged.
constexpr qint64 noticed_ms = 8;
/// A longer message would make a long line of a journal.
constexpr size_t most_in_a_message = 100000;

}  // namespace

EventTable::EventTable(QWidget& window, const Prseq& box, User user)
    : QDialog(&window),
      box_(box),
      user_(std::move(user)),
      model_(new EventModel(box, this)),
      view_(new EventTableView(*model_)),
      tracks_(new QComboBox),
      selected_only_(new QCheckBox("Selected only")),
      counts_(new QLabel) {
    setObjectName("event list");
    setWindowTitle("Events");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(make_choices());
    layout->addWidget(view_, 1);
    layout->addWidget(new QLabel("Return goes to an event; typing, or F2, changes a value."));
    resize(first_width, first_height);
    view_->setFocus();

    model_->edit = [this](long id, const Atoms& parts) { edit(id, parts); };
    model_->sorted = [this](const EventColumn& column, bool descending) {
        choice_.sorted_by = &column;
        choice_.descending = descending;
        gather();
    };
    view_->select = [this](size_t first, size_t last, const char* how) { select(first, last, how); };
    view_->go_to = [this](size_t row) { go_to(row); };
    view_->erase = [this] { delete_selected(); };
    view_->play_or_stop = [this] { user_.wants(Command::PlayOrStop); };
    constexpr int start_column = 2;
    choice_.sorted_by = &event_columns()[start_column];
    view_->horizontalHeader()->setSortIndicator(start_column, Qt::AscendingOrder);
    view_->setSortingEnabled(true);

    look_again_.setSingleShot(true);
    connect(&look_again_, &QTimer::timeout, this, [this] { look(); });
    make_dialog_shortcuts(*this, user_.wants);
}

QWidget* EventTable::make_choices() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    tracks_->setObjectName("tracks");
    tracks_->addItems({"Active track", "All tracks"});
    tracks_->setAccessibleName("Which tracks");
    selected_only_->setObjectName("selected only");
    counts_->setObjectName("counts");
    layout->addWidget(tracks_);
    layout->addWidget(selected_only_);
    layout->addStretch(1);
    layout->addWidget(counts_);
    connect(tracks_, &QComboBox::currentIndexChanged, this, [this](int index) {
        choice_.all_tracks = index == 1;
        gather();
    });
    connect(selected_only_, &QCheckBox::toggled, this, [this](bool only) {
        choice_.selected_only = only;
        gather();
    });
    return row;
}

void EventTable::follow() {
    if (!isVisible() || look_again_.isActive()) return;
    const qint64 pause = std::max(shortest_pause_ms, gathering_ms_ * pause_per_gathering);
    const qint64 since = clock_.isValid() ? clock_.elapsed() : pause;
    look_again_.start(static_cast<int>(std::max(pause - since, qint64{0})));
}

EventTable::Listed EventTable::listed_now() const {
    return {box_.revisions.current, box_.info.emptied, box_.activetrack,
            choice_.selected_only ? selection_stamp(listed_tracks(box_, choice_.all_tracks)) : 0};
}

void EventTable::look() {
    if (!isVisible()) return;
    clock_.start();
    const std::uint64_t selection = selection_stamp(listed_tracks(box_, choice_.all_tracks));
    const bool others_selected = std::exchange(shown_selection_, selection) != selection,
               stale = listed_now() != listed_;
    if (!others_selected && !stale) return;
    view_->viewport()->update();  // what rows show is asked of the box
    const bool noticed = (box_.playing || box_.gesture) && gathering_ms_ > noticed_ms;
    if (stale && (noticed || view_->is_editing())) return follow();
    if (stale)
        gather();
    else
        show_counts();
    if (others_selected) show_selected();
}

void EventTable::gather() {
    clock_.start();
    const long focus = view_->row() < 0 ? 0 : model_->rows().id(static_cast<size_t>(view_->row()));
    listed_ = listed_now();
    model_->gather(choice_);
    view_->move_focus(focus ? static_cast<int>(model_->rows().row_of(focus)) : -1);
    show_counts();
    gathering_ms_ = clock_.restart();
}

void EventTable::show_counts() {
    size_t selected = 0;
    for (const Track* track : listed_tracks(box_, choice_.all_tracks))
        selected += track->events.selected().size();
    counts_->setText(QString("%1 events, %2 selected").arg(model_->rows().size()).arg(selected));
}

/// One that was selected in the box is scrolled to; who clicks here sees it anyway.
void EventTable::show_selected() {
    const Track* active = TQ_Prseq_Tracks_GetActiveTrack(box_);
    if (!active || active->events.selected().size() != 1) return;
    const long row = model_->rows().row_of(active->events.selected().front()->id);
    if (row < 0) return;
    if (row != view_->row()) view_->move_focus(static_cast<int>(row));
    view_->scrollTo(view_->currentIndex());
}

void EventTable::select(size_t first, size_t last, const char* how) {
    const Symbol message = gensym("event_select");
    const bool only = how == std::string_view("only");
    for (size_t begin = first; begin <= last; begin += most_in_a_message) {
        Atoms atoms;
        for (size_t row = begin; row <= std::min(last, begin + most_in_a_message - 1); ++row)
            atoms.emplace_back(model_->rows().id(row));
        atoms.emplace_back(gensym(only && begin > first ? "add" : how));
        user_.calls(MessageCall{message, std::move(atoms), {}});
    }
    look();
}

/// In one message, to be one step of the history.
void EventTable::delete_selected() {
    Atoms identifiers;
    for (const Track* track : listed_tracks(box_, choice_.all_tracks))
        for (const Event* event : track->events.selected()) identifiers.emplace_back(event->id);
    if (!identifiers.empty()) user_.calls(MessageCall{gensym("event_delete"), std::move(identifiers), {}});
}

void EventTable::edit(long id, const Atoms& parts) {
    Atoms atoms{tq_sym_id, id};
    atoms.insert(atoms.end(), parts.begin(), parts.end());
    user_.calls(MessageCall{tq_sym_event, std::move(atoms), {}});
}

void EventTable::go_to(size_t row) {
    user_.calls(MessageCall{gensym("event_show"), {model_->rows().id(row)}, {}});
}

}  // namespace tq
