#include "app/midi/left_out.h"

#include <string_view>

namespace tq {

std::string text_of(const LeftOut& left_out) {
    const struct {
        std::size_t count;
        std::string_view what;
    } rows[] = {
        {left_out.exclusives, "system exclusive messages"},
        {left_out.parameters, "parameter messages"},
        {left_out.fine, "fine controller values"},
        {left_out.tracks, "tracks that the file does not promise"},
    };
    std::string text;
    for (const auto& row : rows)
        if (row.count > 0)
            text += (text.empty() ? "left out: " : ", ") + std::to_string(row.count) + " " +
                    std::string(row.what);
    if (left_out.repaired > 0)
        text += (text.empty() ? "" : "; ") + ("repaired: " + std::to_string(left_out.repaired)) +
                " bytes out of range";
    return text;
}

}  // namespace tq
