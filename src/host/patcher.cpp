#include "host/patcher.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "host/class.h"
#include "host/dictionary.h"
#include "host/files.h"
#include "host/host.h"

namespace tq {

namespace {

const Class& patcher_class() {
    static const Class the_class("jpatcher");
    return the_class;
}

struct KindRow {
    std::string_view name;
    FieldKind kind;
};
constexpr KindRow kinds[] = {{"label", FieldKind::Label},   {"text", FieldKind::Text},
                             {"number", FieldKind::Number}, {"toggle", FieldKind::Toggle},
                             {"menu", FieldKind::Menu},     {"color", FieldKind::Color},
                             {"table", FieldKind::Table},   {"selector", FieldKind::Selector}};

std::string text_of(const Dictionary& dictionary, const char* key) {
    return std::string(dictionary.getstring(key).value_or(""));
}

Rect rect_of(const Dictionary& box) {
    return {box.getfloat("x").value_or(0), box.getfloat("y").value_or(0), box.getfloat("width").value_or(0),
            box.getfloat("height").value_or(0)};
}

FieldForm form_of(const Dictionary& box, FieldKind kind) {
    FieldForm form;
    form.kind = kind;
    form.label = text_of(box, "label");
    form.unit = text_of(box, "unit");
    form.minimum = box.getfloat("minimum").value_or(form.minimum);
    form.maximum = box.getfloat("maximum").value_or(form.maximum);
    form.step = box.getfloat("step").value_or(form.step);
    form.growing = box.getlong("growing").value_or(0) != 0;
    box.getarray("pages").for_each(
        [&](const Dictionary& page) { form.pages.push_back(text_of(page, "title")); });
    box.getarray("columns").for_each([&](const Dictionary& column) {
        form.columns.push_back({text_of(column, "title"), column.getlong("text").value_or(0) != 0});
    });
    return form;
}

void read_boxes(Patcher& patcher, const Dictionary& root) {
    root.getarray("boxes").for_each([&](const Dictionary& description) {
        PatcherBox box;
        box.varname = gensym(text_of(description, "varname"));
        box.rect = rect_of(description);
        box.page = description.getlong("page").value_or(-1);
        const std::string kind = text_of(description, "kind");
        const auto row = std::ranges::find(kinds, kind, &KindRow::name);
        if (row != std::end(kinds))
            box.field = std::make_unique<Field>(patcher.host(), form_of(description, row->kind));
        if (kind == "patcher") {
            box.patcher = std::make_unique<Patcher>(patcher.host());
            read_boxes(*box.patcher, description);
        }
        patcher.boxes.push_back(std::move(box));
    });
}

}  // namespace

Object* PatcherBox::object() const {
    return field ? static_cast<Object*>(field.get()) : static_cast<Object*>(patcher.get());
}

Patcher::Patcher(Host& host) : Object(host, patcher_class()) {}

Patcher::~Patcher() {
    if (shown_) host().patch.patcher_freed(*this);
}

void Patcher::show() {
    shown_ = true;
    host().patch.patcher_shown(*this);
}

void Patcher::front() { host().patch.patcher_front(*this); }

void Patcher::changed() { host().patch.patcher_changed(*this); }

void Patcher::close_by_hand() { object_notify(*this, gensym("free"), {}); }

std::unique_ptr<Patcher> fileload(Host& host, const std::string& path, std::string& fault) {
    const FileBytes bytes = read_file(path, fault);
    const std::optional<DictionaryFile> file = bytes ? dictionary_parse(*bytes, fault) : std::nullopt;
    if (!file) return nullptr;
    auto patcher = std::make_unique<Patcher>(host);
    const Dictionary root = file->root();
    patcher->size = {root.getfloat("width").value_or(0), root.getfloat("height").value_or(0)};
    read_boxes(*patcher, root);
    return patcher;
}

Point centered_on_display(const Host& host, Size window) {
    const Size display = host.patch.display_size;
    return {(display.width - window.width) / 2, (display.height - window.height) / 2};
}

}  // namespace tq
