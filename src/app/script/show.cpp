#include "app/script/show.h"

#include <map>

#include "file/document_writer.h"
#include "instance/prseq.h"
#include "model/tracks.h"

namespace tq {

namespace {

using Lines = std::vector<std::string>;

Lines show_parts(Prseq& box) {
    Lines lines;
    for (size_t i = 0; i < part_count; ++i) {
        const Rect& rect = box.layout.parts[i];
        lines.push_back("part " +
                        atom_gettext(Atoms{static_cast<long>(i), rect.x, rect.y, rect.width, rect.height}));
    }
    return lines;
}

Lines show_view(Prseq& box) {
    return {"view " + atom_gettext(Atoms{box.horizontalzoom, box.verticalzoom, box.horizontalscroll,
                                         box.verticalscroll})};
}

Lines show_events(Prseq& box) {
    static const Symbol id = gensym("event"), track_ = gensym("track"), start = gensym("start"),
                        duration = gensym("duration"), pitch = gensym("pitch"), velocity = gensym("velocity"),
                        selected = gensym("selected");
    Lines lines;
    for (const TrackRef& track : box.tracks)
        track->events.for_each([&](const Event& e) {
            lines.push_back(
                atom_gettext(Atoms{id, e.id, track_, track->index, start, e.start, duration, e.duration,
                                   pitch, e.pitch, velocity, e.velocity, selected, long{e.selected}}));
        });
    return lines;
}

Lines show_layers(Prseq& box) {
    std::string line = "layers";
    for (Symbol name : box.layers.drawn) line += " " + name.text();
    box.layers.drawn.clear();
    return {line};
}

Lines show_tiptool(Prseq& box) {
    if (!box.tiptool.visible) return {"tiptool hidden"};
    std::string line = "tiptool " + box.tiptool.text;
    for (size_t at; (at = line.find('\n')) != line.npos;) line.replace(at, 1, "\\n");
    return {line};
}

Lines show_cursor(Prseq& box) { return {"cursor " + std::to_string(box.cursors.current)}; }

std::string shown_value(const Field& field) {
    if (field.form().kind != FieldKind::Text) return atom_gettext(field.value());
    const std::string text = field.value().empty() ? "" : field.value().front().as_symbol().text();
    return text.empty() ? "\"\"" : text;
}

void show_boxes(const Patcher& patcher, Lines& lines) {
    for (const PatcherBox& box : patcher.boxes) {
        if (box.patcher) show_boxes(*box.patcher, lines);
        if (!box.field || box.varname.empty()) continue;
        const std::string name = "field " + box.varname.text();
        const std::vector<Atoms>& rows = box.field->rows();
        if (box.hidden)
            lines.push_back(name + " hidden");
        else if (box.field->form().kind != FieldKind::Table)
            lines.push_back(name + " " + shown_value(*box.field));
        for (size_t row = 0; !box.hidden && row < rows.size(); ++row)
            lines.push_back(name + " " + std::to_string(row) + " " + atom_gettext(rows[row]));
    }
}

Lines show_fields(Prseq& box) {
    Lines lines;
    for (const Inspector& inspector : box.inspectors.all)
        if (inspector.open()) show_boxes(*inspector.patcher, lines);
    return lines;
}

Lines show_document(Prseq& box) { return {"document " + TQ_Prseq_Json_MakeDictionary(box, false)}; }

}  // namespace

std::optional<Lines> show_lines(Prseq& box, const std::string& what) {
    static const std::map<std::string, Lines (*)(Prseq&)> rows{
        {"parts", show_parts},     {"view", show_view},        {"events", show_events},
        {"layers", show_layers},   {"cursor", show_cursor},    {"fields", show_fields},
        {"tiptool", show_tiptool}, {"document", show_document}};
    auto row = rows.find(what);
    return row == rows.end() ? std::nullopt : std::optional(row->second(box));
}

}  // namespace tq
