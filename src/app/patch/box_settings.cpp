#include "app/patch/box_settings.h"

#include <algorithm>
#include <filesystem>
#include <ranges>

#include "host/dictionary.h"
#include "host/files.h"
#include "host/state_folder.h"
#include "shell/instance.h"

namespace tq {

namespace {

namespace fs = std::filesystem;

/// Whoever works by hand wants the notes of the keys and bars at the song's tempo, divided into sixteenths,
/// and has menus in the window; scripts begin with the box as it is.
struct {
    const char *name, *values;
} constexpr beginning[] = {{"snappitch", "1"},           {"snaptime", "1"},
                           {"snap_division", "4"},       {"bars_follow_tempo", "1"},
                           {"events_follow_tempo", "1"}, {"keep_middle", "1"},
                           {"lane_by_time", "1"},        {"shift_draws_loop", "1"},
                           {"menudisplay", "0"},         {"time_display_type", "2"}};

fs::path settings_path() { return config_folder() / "box.json"; }

Atoms beginning_of(const Attribute& attribute) {
    for (const auto& row : beginning)
        if (attribute.name.text() == row.name) return atom_setparse(row.values);
    return default_of(attribute);
}

/// Numbers of both kinds may be the same.
bool same(AtomSpan a, AtomSpan b) {
    return std::ranges::equal(a, b, [](const Atom& one, const Atom& other) {
        if (one.is_symbol() || other.is_symbol()) return one == other;
        return one.as_double() == other.as_double();
    });
}

bool fits(const Attribute& attribute, AtomSpan values) {
    const bool name = attribute.type == Attribute::Type::Name;
    const size_t count = attribute.type == Attribute::Type::Rgba ? 4 : 1;
    return values.size() == count &&
           std::ranges::all_of(values, [&](const Atom& value) { return value.is_symbol() == name; });
}

}  // namespace

Atoms default_of(const Attribute& attribute) { return atom_setparse(attribute.default_value); }

bool has_default(const Prseq& box, const Attribute& attribute) {
    return same(attribute.read(box), default_of(attribute));
}

std::vector<MessageCall> first_messages(std::string& fault) {
    std::vector<MessageCall> messages;
    for (const auto& row : beginning) messages.push_back({gensym(row.name), atom_setparse(row.values), {}});
    const std::string path = settings_path().string();
    std::error_code ignored;
    if (!fs::exists(path, ignored)) return messages;
    const FileBytes bytes = read_file(path, fault);
    const std::optional<DictionaryFile> file = bytes ? dictionary_parse(*bytes, fault) : std::nullopt;
    if (!file) {
        fault = path + ": " + fault;
        return messages;
    }
    const Dictionary root = file->root();
    std::vector<MessageCall> kept;
    for (const Attribute& attribute : prseq_class().attributes()) {
        const std::string& name = attribute.name.text();
        if (!attribute.save || !root.has(name)) continue;
        const std::optional<std::string_view> text = root.getstring(name);
        Atoms values = text ? atom_setparse(*text) : Atoms();
        if (!fits(attribute, values)) {
            fault = path + ": bad \"" + name + "\"";
            return messages;
        }
        kept.push_back({attribute.name, std::move(values), {}});
    }
    std::ranges::move(kept, std::back_inserter(messages));
    return messages;
}

bool keep_settings(const Prseq& box, std::string& fault) {
    DictionaryWriter writer(1);
    writer.open_dictionary();
    for (const auto& [name, values] : prseq_save(box)) {
        const Attribute& attribute = *prseq_class().find_attribute(name);
        if (!same(values, beginning_of(attribute))) writer.appendstring(name.text(), atom_gettext(values));
    }
    writer.close_dictionary();
    std::error_code ignored;
    fs::create_directories(settings_path().parent_path(), ignored);
    return write_file(settings_path().string(), writer.text() + "\n", fault);
}

}  // namespace tq
