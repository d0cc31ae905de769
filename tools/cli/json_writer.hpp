// Indented JSON, printed while it is written.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace amesp_inp {

// Objects and lists are opened and closed in pairs; within an object every value has its key before it. What is
// written goes to standard output in pieces, the rest with `finish`.
class JsonWriter {
public:
    void begin_object() { open('{'); }
    void end_object() { close('}'); }
    void begin_list() { open('['); }
    void end_list() { close(']'); }

    void key(std::string_view name);
    void string(std::string_view text);
    void number(double value);
    void integer(std::int64_t value) { scalar(std::to_string(value)); }
    void size(std::uint64_t value) { scalar(std::to_string(value)); }
    void boolean(bool value) { scalar(value ? "true" : "false"); }
    void null() { scalar("null"); }

    // Ends the text with a line feed.
    void finish();

private:
    void open(char bracket);
    void close(char bracket);
    void scalar(std::string_view text);
    void begin_value();
    void new_line();
    void print_long_text();

    std::string text_;
    std::size_t depth_ = 0;
    bool is_empty_ = true;  // of the innermost object or list
    bool has_key_ = false;  // the next value stands after its key
};

}  // namespace amesp_inp
