// Buffers that are named on the command line.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "app/patch/session.h"
#include "app/patch/sound_files.h"

namespace tq {

/// Makes the buffers of "NAME=FILE" texts. Returns the exit status: 1 and why on standard error when a file
/// cannot be read, 2 when a text is of another form.
inline int make_named_buffers(Session& session, const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
        const std::optional<NamedSound> sound = parse_named_sound(text);
        if (!sound) {
            std::fprintf(stderr, "sorvo: --buffer takes NAME=FILE, not \"%s\"\n", text.c_str());
            return 2;
        }
        if (auto reason = buffer_read(session.host(), gensym(sound->name), sound->file)) {
            std::fprintf(stderr, "sorvo: %s\n", reason->c_str());
            return 1;
        }
    }
    return 0;
}

}  // namespace tq
