// What the surroundings do to a session's box beside sending it messages. Each is a line of the script
// driver, and the window, the driver and whoever else makes such a call make it here.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/patch/session.h"
#include "host/modifiers.h"

namespace tq {

/// What lines call the modifier keys.
struct ModifierName {
    const char* name;
    Modifier bit;
};
inline constexpr ModifierName modifier_names[] = {{"command", modifier_command},
                                                  {"shift", modifier_shift},
                                                  {"control", modifier_control},
                                                  {"option", modifier_option}};

/// ".size W H": pixels, held to what the box can be.
void call_size(Session& session, Size size);
/// ".wheel X Y DX DY": box coordinates, and turns in the host's units.
void call_wheel(Session& session, Point at, double dx, double dy);
/// ".key CODE [shift] [control] [option] [command]": a key of interaction/key_commands.h, or a character.
void call_key(Session& session, long code, unsigned modifiers);
/// ".focus in|out"
void call_focus(Session& session, bool in);
/// ".tempo BPM", ".transport MS", ".feedback on|off": the host's transport.
void call_tempo(Session& session, double bpm);
void call_transport(Session& session, double ms);
void call_feedback(Session& session, bool on);
/// ".receiver NAME"
void call_receiver(Session& session, const std::string& name);
/// ".buffer NAME [FILE]": makes the named buffer of a sound file, or removes it. Why that failed is posted as
/// an error.
void call_buffer(Session& session, const std::string& name, const std::string& file);
/// ".sound NAME [FRAMES CHANNELS RATE [FILE]]": makes a buffer of the sound in the file, if that is of this
/// format, and else of silence; without a format, removes it.
void call_sound(Session& session, Symbol name, const std::optional<SoundFormat>& format,
                const std::string& file);
/// The line that makes a buffer what it is now.
std::string sound_line(const Host& host, Symbol name);
/// ".seed N": what follows from chance follows from this number.
void call_seed(Session& session, std::uint32_t seed);
/// ".open FILE" and ".import FILE": replaces the document by a file's, or by the song of a Standard MIDI
/// File. False when that failed; why is posted as an error.
bool call_open(Session& session, const std::string& path);
bool call_import(Session& session, const std::string& path);

}  // namespace tq
