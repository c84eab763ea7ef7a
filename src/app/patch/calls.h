// What is done to a box from outside. Each call is a record; its row says what line of the script driver does
// the same. The window, the driver and whoever else makes a call hands the record to Session::call.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/patch/line_table.h"
#include "host/buffer.h"
#include "host/geometry.h"
#include "host/modifiers.h"

namespace tq {

struct Host;
class Session;

/// A message to the inlet; it is a line without a name.
struct MessageCall {
    Symbol selector;
    Atoms arguments;
    std::string text;  ///< that it was parsed from, where that is kept; its line then
    friend bool operator==(const MessageCall& a, const MessageCall& b) {
        return a.selector == b.selector && a.arguments == b.arguments;
    }
};
/// Pixels, held to what the box can be.
struct SizeCall {
    double width = 0, height = 0;
    friend bool operator==(const SizeCall&, const SizeCall&) = default;
};
/// Box coordinates, and turns in the host's units.
struct WheelCall {
    double x = 0, y = 0, dx = 0, dy = 0;
    friend bool operator==(const WheelCall&, const WheelCall&) = default;
};
/// Zooms around a point in box coordinates by factors, above 1 to zoom in; 1 leaves a direction as it is.
struct ZoomCall {
    double x = 0, y = 0, horizontal = 1, vertical = 1;
    friend bool operator==(const ZoomCall&, const ZoomCall&) = default;
};
/// A key of interaction/key_commands.h, or a character.
struct KeyCall {
    long code = 0;
    unsigned modifiers = 0;
    friend bool operator==(const KeyCall&, const KeyCall&) = default;
};
/// What the mouse does, in box coordinates; the left button unless `right`.
struct MouseCall {
    enum class Kind { Down, Drag, Up, Move, Double, Leave };
    Kind kind = Kind::Down;
    double x = 0, y = 0;
    bool right = false;
    unsigned modifiers = 0;  ///< keys
    friend bool operator==(const MouseCall&, const MouseCall&) = default;
};
/// Where the window is that the box stands in, in pixels of the screen.
struct WindowCall {
    double x = 0, y = 0, width = 0, height = 0;
    friend bool operator==(const WindowCall&, const WindowCall&) = default;
};
/// What a user does to a field of an inspector that is open: a kind of change of Field::modify() in
/// host/field.h.
struct FieldCall {
    std::string name, change;
    Atoms atoms;
    friend bool operator==(const FieldCall&, const FieldCall&) = default;
};
/// The user closes an inspector's window.
struct CloseCall {
    std::string name;               ///< "document", "track" or "event"
    std::optional<Point> position;  ///< of the window on the screen, where it has been moved
    friend bool operator==(const CloseCall&, const CloseCall&) = default;
};
/// A command of the box, by its name in interaction/commands.h.
struct CommandCall {
    std::string name;
    friend bool operator==(const CommandCall&, const CommandCall&) = default;
};
struct FocusCall {
    bool in = false;
    friend bool operator==(const FocusCall&, const FocusCall&) = default;
};
/// The host's transport.
struct TempoCall {
    double bpm = 0;
    friend bool operator==(const TempoCall&, const TempoCall&) = default;
};
struct TransportCall {
    double ms = 0;
    friend bool operator==(const TransportCall&, const TransportCall&) = default;
};
/// Whether position reports are fed back to the transport.
struct FeedbackCall {
    bool on = false;
    friend bool operator==(const FeedbackCall&, const FeedbackCall&) = default;
};
struct ReceiverCall {
    std::string name;
    friend bool operator==(const ReceiverCall&, const ReceiverCall&) = default;
};
/// A message to whoever is bound to a name, or to the box by its scripting name. That nobody is, is posted.
struct SendCall {
    std::string name;
    Atoms message;
    friend bool operator==(const SendCall&, const SendCall&) = default;
};
/// Makes the named buffer of a sound file, or removes it. Why that failed is posted as an error.
struct BufferCall {
    std::string name, file;
    friend bool operator==(const BufferCall&, const BufferCall&) = default;
};
/// Makes a buffer of the sound in the file, if that is of this format, and else of silence; without a format,
/// removes it.
struct SoundCall {
    std::string name;
    std::optional<SoundFormat> format;
    std::string file;
    friend bool operator==(const SoundCall&, const SoundCall&) = default;
};
/// What follows from chance follows from this number.
struct SeedCall {
    std::uint32_t seed = 0;
    friend bool operator==(const SeedCall&, const SeedCall&) = default;
};
/// Replaces the document by a file's, or by the song of a Standard MIDI File; why that failed is posted.
struct OpenCall {
    std::string file;
    bool as_copy = false;  ///< the document has no file then, and is not saved
    friend bool operator==(const OpenCall&, const OpenCall&) = default;
};
struct ImportCall {
    std::string file;
    bool pedal_as_curve = false;  ///< else the sustain pedal lengthens notes
    friend bool operator==(const ImportCall&, const ImportCall&) = default;
};

/// The names of modifier keys.
void write_modifiers(unsigned modifiers, std::string& line);
unsigned read_modifiers(Words& words);
template <typename Call>
struct Modifiers {
    unsigned Call::*member;
    void write(const Call& call, std::string& line) const { write_modifiers(call.*member, line); }
    void read(Call& call, Words& words) const { call.*member = read_modifiers(words); }
};
template <typename Call>
Modifiers(unsigned Call::*) -> Modifiers<Call>;

struct MouseKind {
    void write(const MouseCall& call, std::string& line) const;
    void read(MouseCall& call, Words& words) const;
};
/// "right" or "left", which may be left out.
struct MouseButton {
    void write(const MouseCall& call, std::string& line) const;
    void read(MouseCall& call, Words& words) const;
};
/// Two numbers, or none.
struct PlaceOfWindow {
    void write(const CloseCall& call, std::string& line) const;
    void read(CloseCall& call, Words& words) const;
};
/// A sound's format and file, which may be left out.
struct SoundOfFormat {
    void write(const SoundCall& call, std::string& line) const;
    void read(SoundCall& call, Words& words) const;
};

inline constexpr double longest_time_ms = 1e12;

// clang-format off
inline constexpr std::tuple call_rows{
    line_row<SizeCall>(".size", Number{&SizeCall::width, "width", 1, 16384},
                                Number{&SizeCall::height, "height", 1, 16384}),
    line_row<WheelCall>(".wheel", Number{&WheelCall::x, "X"}, Number{&WheelCall::y, "Y"},
                                  Number{&WheelCall::dx, "DX"}, Number{&WheelCall::dy, "DY"}),
    line_row<ZoomCall>(".zoom", Number{&ZoomCall::x, "X"}, Number{&ZoomCall::y, "Y"},
                                Number{&ZoomCall::horizontal, "horizontal factor", 0.001, 1000},
                                Number{&ZoomCall::vertical, "vertical factor", 0.001, 1000}),
    line_row<KeyCall>(".key", Number{&KeyCall::code, "key code", -1000, 0x10ffff}, Modifiers{&KeyCall::modifiers}),
    line_row<MouseCall>(".mouse", MouseKind{}, Number{&MouseCall::x, "X"}, Number{&MouseCall::y, "Y"}, MouseButton{},
                                  Modifiers{&MouseCall::modifiers}),
    line_row<WindowCall>(".window", Number{&WindowCall::x, "X"}, Number{&WindowCall::y, "Y"},
                                    Number{&WindowCall::width, "width"}, Number{&WindowCall::height, "height"}),
    line_row<FieldCall>(".field", Word{&FieldCall::name, "a field"}, Word{&FieldCall::change, "a change"},
                                  LastWords{&FieldCall::atoms}),
line_row<CloseCall>(".close", Word{&CloseCall::name, "an inspector"}, PlaceOfWindow{}),
    line_row<CommandCall>(".command", Word{&CommandCall::name, "a command"}),
    line_row<FocusCall>(".focus", Either{&FocusCall::in, "in", "out"}),
    line_row<TempoCall>(".tempo", Number{&TempoCall::bpm, "tempo", 1, 10000}),
    line_row<TransportCall>(".transport", Number{&TransportCall::ms, "ms", 0, longest_time_ms}),
    line_row<FeedbackCall>(".feedback", Either{&FeedbackCall::on, "on", "off"}),
    line_row<ReceiverCall>(".receiver", Word{&ReceiverCall::name, "a name"}),
    line_row<SendCall>(".send", Word{&SendCall::name, "a receiver"}, SomeWords{&SendCall::message, "a message"}),
    line_row<BufferCall>(".buffer", Word{&BufferCall::name, "a name"}, LastWord{&BufferCall::file, "a file"}),
    line_row<SoundCall>(".sound", Word{&SoundCall::name, "a name"}, SoundOfFormat{}),
    line_row<SeedCall>(".seed", Number{&SeedCall::seed, "seed", 0, 4294967295.}),
    line_row<OpenCall>(".open", Word{&OpenCall::file, "a file"}, Flag{&OpenCall::as_copy, "copy"}),
    line_row<ImportCall>(".import", Word{&ImportCall::file, "a file"}, Flag{&ImportCall::pedal_as_curve, "pedal"}),
};
// clang-format on

using SessionCall = RecordOf<std::remove_const_t<decltype(call_rows)>, MessageCall>::type;

/// The driver's line that makes the call.
std::string line_text(const SessionCall& call);
/// Whether anything but the picture may depend on the call later; not on a pointer that passes over the box
/// without a button.
bool leaves_traces(const SessionCall& call);
/// Makes the call; whether it did what it was for. Only Session::call calls this.
bool perform(Session& session, const SessionCall& call);

/// Whether a line is the driver's own, and no message.
bool is_driver_line(std::string_view line);
/// The scripting name of the box in its patch.
inline constexpr std::string_view box_name = "sorvo";
/// The message of atoms, or of a text: a lone number is "int" or "float", several atoms that begin with a
/// number are a "list".
MessageCall message_of(Atoms atoms);
MessageCall parse_message(std::string_view text);
/// The call that makes a buffer what it is now.
SoundCall sound_call(const Host& host, Symbol name);

}  // namespace tq
