// Dictionaries with ordered keys, and the JSON files they are written to and read from.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace boost::json {
class array;
class object;
class value;
}  // namespace boost::json

namespace tq {

class Object;
class DictionaryArray;

/// Looks into a dictionary that was read. A key that is missing, or whose value is of another kind, gives
/// nothing; numbers count as longs and floats alike, as long as they are finite and fit.
class Dictionary {
 public:
    Dictionary() = default;
    explicit Dictionary(const boost::json::object* object) : object_(object) {}

    bool has(std::string_view key) const;
    std::optional<long> getlong(std::string_view key) const;
    std::optional<double> getfloat(std::string_view key) const;
    std::optional<std::string_view> getstring(std::string_view key) const;
    std::optional<Dictionary> getdictionary(std::string_view key) const;
    /// Empty when there is none.
    DictionaryArray getarray(std::string_view key) const;

 private:
    const boost::json::object* object_ = nullptr;
};

/// An array of dictionaries; an element that is something else counts as an empty dictionary.
class DictionaryArray {
 public:
    DictionaryArray() = default;
    explicit DictionaryArray(const boost::json::array* array) : array_(array) {}
    size_t size() const;
    Dictionary operator[](size_t index) const;
    /// Calls visit(Dictionary) for each element.
    template <typename Visit>
    void for_each(Visit visit) const {
        for (size_t i = 0, n = size(); i < n; ++i) visit((*this)[i]);
    }

 private:
    const boost::json::array* array_ = nullptr;
};

/// A dictionary that was read, and its memory.
class DictionaryFile {
 public:
    DictionaryFile();
    ~DictionaryFile();
    DictionaryFile(DictionaryFile&&) noexcept;
    DictionaryFile& operator=(DictionaryFile&&) noexcept;
    Dictionary root() const;

 private:
    friend std::optional<DictionaryFile> dictionary_parse(std::string_view text, std::string& fault);
    std::unique_ptr<boost::json::value> value_;
};

/// A dictionary from its text; none, and what is wrong in `fault`, for anything else.
std::optional<DictionaryFile> dictionary_parse(std::string_view text, std::string& fault);
/// A dictionary from a JSON file. What is wrong is posted as an error of `object`; none then.
std::optional<DictionaryFile> dictionary_read(const Object& object, const std::string& path);
/// Writes a dictionary's text to a file, beside it first and then renamed over it. What goes wrong is posted
/// as an error of `object` and leaves the old file as it was; false then.
bool dictionary_write(const Object& object, const std::string& path, std::string_view text);

/// Writes a dictionary as JSON text, its keys in the order in which they are appended.
class DictionaryWriter {
 public:
    /// With `lines`, dictionaries down to that depth stand one key a line; deeper ones on one line each.
    explicit DictionaryWriter(int lines = 0) : lines_(lines) {}

    void appendlong(std::string_view key, long value);
    void appendfloat(std::string_view key, double value);
    void appendstring(std::string_view key, std::string_view value);
    /// Dictionaries and arrays; `open` without a key is for the root and for elements of arrays.
    void open_dictionary(std::string_view key = {});
    void close_dictionary() { close('}'); }
    void open_array(std::string_view key);
    void close_array() { close(']'); }

    const std::string& text() const { return text_; }

 private:
    void begin(std::string_view key);
    void open(std::string_view key, char bracket);
    void close(char bracket);
    void new_line();
    void quote(std::string_view text);

    std::string text_;
    int lines_;
    int depth_ = 0;
    bool first_ = true;
};

}  // namespace tq
