#include "host/dictionary.h"

#include <fmt/printf.h>

#include <boost/json.hpp>
#include <cmath>

#include "host/exact_json.h"
#include "host/files.h"
#include "host/host.h"
#include "host/object.h"

namespace tq {

namespace json = boost::json;

namespace {

std::optional<double> finite_number(const json::value& value) {
    double number;
    if (const double* d = value.if_double())
        number = *d;
    else if (const std::int64_t* i = value.if_int64())
        number = static_cast<double>(*i);
    else if (const std::uint64_t* u = value.if_uint64())
        number = static_cast<double>(*u);
    else
        return {};
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

const json::value* find(const json::object* object, std::string_view key) {
    return object ? object->if_contains({key.data(), key.size()}) : nullptr;
}

}  // namespace

bool Dictionary::has(std::string_view key) const { return find(object_, key) != nullptr; }

std::optional<long> Dictionary::getlong(std::string_view key) const {
    const json::value* value = find(object_, key);
    if (!value) return {};
    if (const std::int64_t* i = value->if_int64()) return *i;
    std::optional<double> number = finite_number(*value);
    constexpr double limit = 9.2e18;
    return number && std::abs(*number) < limit ? std::optional(static_cast<long>(*number)) : std::nullopt;
}

std::optional<double> Dictionary::getfloat(std::string_view key) const {
    const json::value* value = find(object_, key);
    return value ? finite_number(*value) : std::nullopt;
}

std::optional<std::string_view> Dictionary::getstring(std::string_view key) const {
    const json::value* value = find(object_, key);
    const json::string* string = value ? value->if_string() : nullptr;
    return string ? std::optional(std::string_view(string->data(), string->size())) : std::nullopt;
}

std::optional<Dictionary> Dictionary::getdictionary(std::string_view key) const {
    const json::value* value = find(object_, key);
    const json::object* object = value ? value->if_object() : nullptr;
    return object ? std::optional(Dictionary(object)) : std::nullopt;
}

DictionaryArray Dictionary::getarray(std::string_view key) const {
    const json::value* value = find(object_, key);
    return DictionaryArray(value ? value->if_array() : nullptr);
}

size_t DictionaryArray::size() const { return array_ ? array_->size() : 0; }
Dictionary DictionaryArray::operator[](size_t index) const {
    return Dictionary((*array_)[index].if_object());
}

DictionaryFile::DictionaryFile() = default;
DictionaryFile::~DictionaryFile() = default;
DictionaryFile::DictionaryFile(DictionaryFile&&) noexcept = default;
DictionaryFile& DictionaryFile::operator=(DictionaryFile&&) noexcept = default;
Dictionary DictionaryFile::root() const { return Dictionary(value_->if_object()); }

namespace {

/// Nothing of it is freed or changed before all of it is: one growing piece of memory serves best.
std::optional<json::value> parsed(std::string_view text, std::string& fault) {
    constexpr size_t most_memory = size_t{4} << 30;
    json::error_code code;
    const json::storage_ptr limited = json::make_shared_resource<LimitedMemory>(most_memory);
    ExactJsonParser parser(json::parse_options(), limited,
                           json::make_shared_resource<json::monotonic_resource>(text.size() + 1024, limited));
    size_t read = 0;
    try {
        read = parser.write_some(false, text.data(), text.size(), code);
    } catch (const std::bad_alloc&) {
        fault = "it takes more than 4 GiB of memory";
        return {};
    }
    if (!code && text.find_first_not_of(" \t\r\n", read) != text.npos)
        code = json::make_error_code(json::error::extra_data);
    if (!code) return parser.handler().stack.release();
    fault = fmt::sprintf("%s at byte %zu", code.message(), read);
    return {};
}

}  // namespace

std::optional<DictionaryFile> dictionary_parse(std::string_view text, std::string& fault) {
    std::optional<json::value> value = parsed(text, fault);
    if (value && !value->is_object()) fault = "it holds no dictionary";
    if (!value || !value->is_object()) return {};
    DictionaryFile file;
    file.value_ = std::make_unique<json::value>(*std::move(value));
    return file;
}

std::optional<DictionaryFile> dictionary_read(const Object& object, const std::string& path) {
    std::string fault;
    std::optional<DictionaryFile> file;
    if (FileBytes text = object.host().patch.read(path, fault)) file = dictionary_parse(*text, fault);
    if (!file) object_error(object, fmt::sprintf("could not read \"%s\": %s", path, fault));
    return file;
}

bool dictionary_write(const Object& object, const std::string& path, std::string_view text) {
    std::string fault;
    if (object.host().patch.write(path, text, fault)) return true;
    object_error(object, fmt::sprintf("could not write \"%s\": %s", path, fault));
    return false;
}

}  // namespace tq
