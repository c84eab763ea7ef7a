// The commands: what menus, keys, context menus and the window's shortcuts offer. Each of these names a row
// of this table.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tq {

struct Prseq;

enum class Command {
    New,
    Open,
    Save,
    SaveAs,
    Undo,
    Redo,
    Cut,
    Copy,
    Paste,
    PasteAtPosition,
    DeleteEvents,
    Delete,
    SelectAllEvents,
    SelectAllSilently,
    SelectAll,
    SelectAllTracks,
    SelectLoop,
    SelectNothing,
    SelectPrevious,
    SelectNext,
    Duplicate,
    MoveEarlier,
    MoveLater,
    Shorten,
    Lengthen,
    TransposeUp,
    TransposeDown,
    OctaveUp,
    OctaveDown,
    InsertEvent,
    Quantise,
    Legato,
    HalfAsLong,
    TwiceAsLong,
    Reverse,
    Humanise,
    Split,
    Join,
    Louder,
    Softer,
    FadeIn,
    FadeOut,
    InvertSelection,
    ZoomIn,
    ZoomOut,
    ZoomToSelection,
    ZoomNearSelection,
    ZoomOutAll,
    ZoomToSong,
    PlayOrStop,
    GoToStart,
    GoToEnd,
    DocumentInspector,
    TrackDisplay,
    KeyDisplay,
    ParameterDisplay,
    NoteLanes,
    Milliseconds,
    MinutesSeconds,
    BarsBeats,
    NewTrack,
    DeleteTrack,
    PreviousTrack,
    NextTrack,
    MuteTrack,
    SoloTrack,
    TrackInspector,
    ShowLabels,
    ShowMessages,
    ShowBpfs,
    ShowBuffers,
    EventInspector,
    EditBpfs,
    DisplayAllBpfs,
    BpfTimeAbsolute,
    BpfTimeRelative,
    Cycle,
    LoopSelection,
    RepeatLoop,
    InsertLoop,
    DeleteLoop,
    SwapLoop,
    FollowLineCursor,
    PitchSnap,
    TimeSnap,
    BarsFollowTempo,
    EventsFollowTempo,
    SelectMode,
    InsertMode,
    SliceMode,
    GlueMode,
    ZoomMode,
    EditBpfMode,
    SelectBpfMode,
    BufferMode
};

/// What a command is called in menus: words, or what follows from the document.
class CommandText {
 public:
    constexpr CommandText(const char* words) : words_(words) {}
    constexpr CommandText(std::string (*of)(const Prseq&)) : of_(of) {}
    std::string operator()(const Prseq& object) const { return of_ ? of_(object) : words_; }

 private:
    const char* words_ = nullptr;
    std::string (*of_)(const Prseq&) = nullptr;
};

struct CommandRow {
    Command id;
    const char* name;  ///< in scripts and settings
    CommandText text;
    bool (*enabled)(const Prseq&);
    bool (*checked)(const Prseq&);
    void (*run)(Prseq&);
    const char* toggles = nullptr;  ///< an attribute, which it turns on and off; `run` is none then
};

/// In the order of their ids.
std::span<const CommandRow> commands();
const CommandRow& command_row(Command id);
/// None of that name: no row.
const CommandRow* find_command(std::string_view name);

/// Runs a command, also one that menus and shortcuts would not offer.
void run_command(Prseq& object, Command id);

}  // namespace tq
