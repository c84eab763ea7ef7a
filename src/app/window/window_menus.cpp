#include "app/window/window_menus.h"

#include <QMenuBar>

#include <memory>
#include <optional>
#include <vector>

#include "app/window/division_menu.h"
#include "app/window/recent_menu.h"
#include "app/window/sound_menu.h"
#include "app/window/surroundings.h"
#include "instance/prseq.h"
#include "model/bars.h"
#include "model/tracks.h"

namespace tq {

namespace {

/// What stands in a menu beside commands and actions.
enum class Special { Separator, Recent, Sounds, Tracks, CurveTypes, Divisions, Surroundings };
using Item = std::variant<Command, WindowAction, Special>;

struct MenuRow {
    const char* title;
    std::vector<Item> items;
};

const std::vector<MenuRow>& menus() {
    using enum Special;
    static const std::vector<MenuRow> rows = {
        {"&File",
         {Command::New,
          WindowAction::Open,
          Recent,
          WindowAction::BringBack,
          WindowAction::UnsavedWork,
          Separator,
          Command::Save,
          Command::SaveAs,
          WindowAction::Revert,
          Separator,
          WindowAction::ExportSound,
          WindowAction::ExportLoudSound,
          WindowAction::ExportMidi,
          WindowAction::ExportPicture,
          Separator,
          WindowAction::AddSound,
          WindowAction::RunScript,
          WindowAction::StopScript,
          Separator,
          Command::DocumentInspector,
          Separator,
          WindowAction::Quit}},
        {"&Edit",
         {Command::Undo,
          Command::Redo,
          WindowAction::History,
          WindowAction::Events,
          Separator,
          Command::Cut,
          Command::Copy,
          Command::PasteAtPosition,
          Command::Paste,
          Command::Duplicate,
          Command::Delete,
          Separator,
          Command::SelectAll,
          Command::SelectAllTracks,
          Command::SelectNothing,
          Separator,
          Command::InsertEvent,
          Command::MoveEarlier,
          Command::MoveLater,
          Command::Shorten,
          Command::Lengthen,
          Command::TransposeUp,
          Command::TransposeDown,
          Command::OctaveUp,
          Command::OctaveDown,
          Separator,
          Command::EventInspector}},
        {"&Selection",
         {Command::Quantise,
          WindowAction::QuantiseWith,
          Command::Humanise,
          WindowAction::HumaniseWith,
          Command::Legato,
          Separator,
          WindowAction::Transpose,
          WindowAction::Stretch,
          Command::HalfAsLong,
          Command::TwiceAsLong,
          Command::Reverse,
          Separator,
          Command::Split,
          Command::Join,
          Separator,
          Command::Louder,
          Command::Softer,
          WindowAction::Velocities,
          WindowAction::Crescendo,
          Command::FadeIn,
          Command::FadeOut,
          WindowAction::FadeCurve,
          Separator,
          Command::InvertSelection,
          WindowAction::SelectWhere,
          Command::SelectLoop}},
        {"&Track",
         {Command::NewTrack, Command::DeleteTrack, Command::PreviousTrack, Command::NextTrack, Separator,
          WindowAction::RenameTrack, Sounds, WindowAction::Levels, Command::MuteTrack, Command::SoloTrack,
          Separator, Command::TrackInspector, Tracks}},
        {"&Curves",
         {Command::EditBpfs, Separator, Command::DisplayAllBpfs, Separator, Command::BpfTimeAbsolute,
          Command::BpfTimeRelative, CurveTypes}},
        {"&Grid",
         {Command::TimeSnap, Divisions, Command::PitchSnap, Separator, WindowAction::TimeSignature, Separator,
          Command::Milliseconds, Command::MinutesSeconds, Command::BarsBeats, Separator,
          Command::BarsFollowTempo, Command::EventsFollowTempo}},
        {"&View",
         {Command::TrackDisplay,
          Command::KeyDisplay,
          Command::ParameterDisplay,
          Command::NoteLanes,
          Separator,
          Command::ShowLabels,
          Command::ShowMessages,
          Command::ShowBpfs,
          Command::ShowBuffers,
          Separator,
          Command::ZoomIn,
          Command::ZoomOut,
          Command::ZoomNearSelection,
          Command::ZoomToSong,
          Command::ZoomOutAll,
          Separator,
          WindowAction::Console,
          WindowAction::Settings,
          Special::Surroundings,
          WindowAction::FullScreen}},
        {"&Play",
         {Command::PlayOrStop, Command::GoToStart, Command::GoToEnd, Separator, Command::Cycle,
          Command::LoopSelection, Command::FollowLineCursor, Separator, Command::RepeatLoop,
          Command::SwapLoop, Command::InsertLoop, Command::DeleteLoop}},
        {"&Help", {WindowAction::Keys}},
    };
    return rows;
}

/// One menu, which is filled anew whenever it is about to be shown.
class MenuFiller {
 public:
    MenuFiller(QMenu& menu, const MenuRow& row, const Prseq& box, std::shared_ptr<WindowMenuActs> acts)
        : menu_(menu), row_(row), box_(box), acts_(std::move(acts)) {}

    void fill() {
        menu_.clear();
        for (const Item& item : row_.items) std::visit([this](auto what) { add(what); }, item);
    }

 private:
    void add(Command command) {
        const CommandRow& row = command_row(command);
        add(Shortcut::What(command), QString::fromStdString(row.text(box_)), row.checked(box_));
    }
    void add(WindowAction action) { add(Shortcut::What(action), text_of(action), acts_->checked(action)); }
    void add(Special special) {
        if (special == Special::Separator) menu_.addSeparator();
        if (special == Special::Recent) add_recent();
        if (special == Special::Sounds) add_sounds();
        if (special == Special::Tracks) add_tracks();
        if (special == Special::CurveTypes) add_curve_types();
        if (special == Special::Divisions) add_divisions();
        if (special == Special::Surroundings) add_surroundings();
    }

    /// Keys are the shortcuts' own: here they are only shown.
    void add(const Shortcut::What& what, QString text, bool checked) {
        QAction* action = menu_.addAction(text.replace("&", "&&") + "\t" + key_text(what));
        action->setEnabled(acts_->enabled(what));
        action->setCheckable(checked);
        action->setChecked(checked);
        QObject::connect(action, &QAction::triggered, &menu_, [acts = acts_, what] { acts->act(what); });
    }

    void add_recent() {
        QMenu* recent = menu_.addMenu("Open Recent");
        recent->setEnabled(add_recent_files(*recent, acts_->open) > 0);
    }

    void add_sounds() {
        const Track* track = track_at(box_, box_.activetrack);
        QMenu* sounds = menu_.addMenu(
            "Sound\t" + (track ? sound_name(track->destination.text()).replace("&", "&&") : QString()));
        sounds->setEnabled(acts_->enabled(Command::DeleteTrack));  // there is a track
        fill_sound_menu(*sounds, acts_->destination(), [acts = acts_](const std::string& receiver) {
            acts->send("track_destination " + receiver);
        });
    }

    /// One of several, which a message chooses.
    void add_choice(QMenu& menu, const QString& text, bool chosen, const std::string& message) {
        QAction* action = menu.addAction(QString(text).replace("&", "&&"));
        action->setCheckable(true);
        action->setChecked(chosen);
        QObject::connect(action, &QAction::triggered, &menu,
                         [acts = acts_, message] { acts->send(message); });
    }

    void add_tracks() {
        if (!box_.tracks.empty()) menu_.addSeparator();
        for (const TrackRef& track : box_.tracks)
            add_choice(menu_, QString::fromStdString(track->name), track->index == box_.activetrack,
                       "track_active " + std::to_string(track->index));
    }

    void add_curve_types() {
        const Track* track = track_at(box_, box_.activetrack);
        if (!track) return;
        menu_.addSeparator();
        for (long i = 0; i < std::ssize(track->bpftypes); ++i)
            add_choice(menu_, QString::fromStdString(track->bpftypes[static_cast<size_t>(i)]->name.text()),
                       i == track->activebpfindex, "track_bpf_active " + std::to_string(i));
    }

    void add_surroundings() {
        QMenu* menu = menu_.addMenu("Surroundings");
        using Choice = tq::Surroundings;
        for (const Choice choice : {Choice::AsTheDesktop, Choice::Light, Choice::Dark}) {
            QAction* action = menu->addAction(text_of(choice));
            action->setCheckable(true);
            action->setChecked(choice == kept_surroundings());
            QObject::connect(action, &QAction::triggered, menu, [choice] { choose_surroundings(choice); });
        }
    }

    void add_divisions() {
        fill_division_menu(*menu_.addMenu("Snap to"), {box_.snap_division, first_beat(box_.meter)},
                           acts_->send);
    }

    QMenu& menu_;
    const MenuRow& row_;
    const Prseq& box_;
    std::shared_ptr<WindowMenuActs> acts_;
};

}  // namespace

void make_window_menus(QMenuBar& bar, const Prseq& box, WindowMenuActs acts) {
    const auto shared = std::make_shared<WindowMenuActs>(std::move(acts));
    for (const MenuRow& row : menus()) {
        QMenu* menu = bar.addMenu(row.title);
        menu->setObjectName(QString(row.title).remove('&'));
        MenuFiller filler(*menu, row, box, shared);
        filler.fill();  // some desktops ask for what is in a menu before they show it
        QObject::connect(menu, &QMenu::aboutToShow, menu, [filler]() mutable { filler.fill(); });
    }
}

}  // namespace tq
