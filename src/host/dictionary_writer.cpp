#include <charconv>

#include "host/dictionary.h"

namespace tq {

void DictionaryWriter::appendlong(std::string_view key, long value) {
    begin(key);
    char digits[32];
    text_.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

void DictionaryWriter::appendfloat(std::string_view key, double value) {
    begin(key);
    char digits[64];
    std::string_view shortest(
        digits, static_cast<size_t>(std::to_chars(digits, digits + sizeof digits, value).ptr - digits));
    text_ += shortest;
    if (shortest.find_first_of(".e") == shortest.npos) text_ += ".0";  // a float stays one when it is read
}

void DictionaryWriter::appendstring(std::string_view key, std::string_view value) {
    begin(key);
    quote(value);
}

void DictionaryWriter::open_dictionary(std::string_view key) { open(key, '{'); }
void DictionaryWriter::open_array(std::string_view key) { open(key, '['); }

void DictionaryWriter::begin(std::string_view key) {
    if (!first_) text_ += ',';
    if (depth_ > 0) new_line();
    first_ = false;
    if (key.empty()) return;
    quote(key);
    text_ += lines_ > 0 ? ": " : ":";
}

void DictionaryWriter::open(std::string_view key, char bracket) {
    begin(key);
    text_ += bracket;
    ++depth_;
    first_ = true;
}

void DictionaryWriter::close(char bracket) {
    bool on_one_line = depth_ > lines_;
    --depth_;
    if (!first_ && !on_one_line) new_line();
    text_ += bracket;
    first_ = false;
}

void DictionaryWriter::new_line() {
    if (depth_ > lines_) {
        if (lines_ > 0 && text_.back() == ',') text_ += ' ';
        return;
    }
    if (lines_ == 0) return;
    text_ += '\n';
    text_.append(static_cast<size_t>(depth_), '\t');
}

void DictionaryWriter::quote(std::string_view text) {
    static const char* const hex = "0123456789abcdef";
    text_ += '"';
    for (char c : text) {
        auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            text_ += '\\';
            text_ += c;
        } else if (c == '\n') {
            text_ += "\\n";
        } else if (byte < 0x20) {
            text_ += "\\u00";
            text_ += hex[byte >> 4];
            text_ += hex[byte & 15];
        } else {
            text_ += c;
        }
    }
    text_ += '"';
}

}  // namespace tq
