// A JSON parser whose doubles are the nearest to what stands in the text, so that a number that is written
// and read again is the same number. The library's own parser misses the last bit now and then.
#pragma once

#include <boost/json.hpp>
#include <boost/json/basic_parser_impl.hpp>
#include <charconv>
#include <new>

namespace tq {

/// Builds the value; called by boost::json::basic_parser.
struct ExactJsonHandler {
    using Text = boost::json::string_view;
    using Code = boost::json::error_code;
    static constexpr std::size_t max_object_size = boost::json::object::max_size();
    static constexpr std::size_t max_array_size = boost::json::array::max_size();
    static constexpr std::size_t max_key_size = std::size_t{64} << 20;  // bytes, as of strings
    static constexpr std::size_t max_string_size = max_key_size;

    boost::json::value_stack stack;

    /// The stack's own memory, and that of the value.
    ExactJsonHandler(boost::json::storage_ptr working, boost::json::storage_ptr storage)
        : stack(std::move(working)) {
        stack.reset(std::move(storage));
    }

    bool on_document_begin(Code&) { return true; }
    bool on_document_end(Code&) { return true; }
    bool on_object_begin(Code&) { return true; }
    bool on_object_end(std::size_t count, Code&) { return stack.push_object(count), true; }
    bool on_array_begin(Code&) { return true; }
    bool on_array_end(std::size_t count, Code&) { return stack.push_array(count), true; }
    bool on_key_part(Text part, std::size_t, Code&) { return stack.push_chars(part), true; }
    bool on_key(Text part, std::size_t, Code&) { return stack.push_key(part), true; }
    bool on_string_part(Text part, std::size_t, Code&) { return stack.push_chars(part), true; }
    bool on_string(Text part, std::size_t, Code&) { return stack.push_string(part), true; }
    bool on_number_part(Text, Code&) { return true; }
    bool on_int64(std::int64_t number, Text, Code&) { return stack.push_int64(number), true; }
    bool on_uint64(std::uint64_t number, Text, Code&) { return stack.push_uint64(number), true; }
    /// `text` is the whole number, because the parser is given the whole document at once.
    bool on_double(double number, Text text, Code&) {
        double exact = 0;
        const char* end = text.data() + text.size();
        auto [stop, fault] = std::from_chars(text.data(), end, exact);
        stack.push_double(fault == std::errc() && stop == end ? exact : number);
        return true;
    }
    bool on_bool(bool value, Code&) { return stack.push_bool(value), true; }
    bool on_null(Code&) { return stack.push_null(), true; }
    bool on_comment_part(Text, Code&) { return true; }
    bool on_comment(Text, Code&) { return true; }
};

/// Memory of which there is only so much.
class LimitedMemory : public boost::json::memory_resource {
 public:
    explicit LimitedMemory(std::size_t bytes) : left_(bytes) {}

 private:
    void* do_allocate(std::size_t bytes, std::size_t alignment) override {
        if (bytes > left_) throw std::bad_alloc();
        left_ -= bytes;
        return ::operator new(bytes, std::align_val_t(alignment));
    }
    void do_deallocate(void* memory, std::size_t bytes, std::size_t alignment) override {
        left_ += bytes;
        ::operator delete(memory, std::align_val_t(alignment));
    }
    bool do_is_equal(const memory_resource& other) const noexcept override { return this == &other; }

    std::size_t left_;
};

using ExactJsonParser = boost::json::basic_parser<ExactJsonHandler>;

}  // namespace tq
