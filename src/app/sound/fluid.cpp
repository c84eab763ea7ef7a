#include "app/sound/fluid.h"

#include <array>
#include <cstdlib>
#include <filesystem>

#include "app/sound/error.h"

namespace tq {

namespace {

constexpr std::array places = {"/usr/share/sounds/sf2/TimGM6mb.sf2", "/usr/share/sounds/sf2/default-GM.sf2"};

bool is_file(const char* path) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored);
}

}  // namespace

void silence_fluid_log() {
    for (int level = FLUID_PANIC; level < LAST_LOG_LEVEL; ++level)
        fluid_set_log_function(level, nullptr, nullptr);
}

std::string find_sound_font() {
    if (const char* wanted = std::getenv("SORVO_SOUNDFONT")) {
        if (is_file(wanted)) return wanted;
        throw SoundError("SORVO_SOUNDFONT names no file: " + std::string(wanted));
    }
    for (const char* place : places) {
        if (is_file(place)) return place;
    }
    throw SoundError("no sound font: install timgm6mb-soundfont, or name one in SORVO_SOUNDFONT");
}

}  // namespace tq
