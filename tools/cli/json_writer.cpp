// Writing of indented JSON.
#include "json_writer.hpp"

#include <velk/input/amesp/report.hpp>
#include "output.hpp"

namespace amesp_inp {

using velk::input::amesp::json_number;
using velk::input::amesp::json_string;

void JsonWriter::key(std::string_view name) {
    begin_value();
    text_ += json_string(name);
    text_ += ": ";
    has_key_ = true;
}

void JsonWriter::string(std::string_view text) {
    scalar(json_string(text));
}

void JsonWriter::number(double value) {
    scalar(json_number(value));
}

void JsonWriter::finish() {
    text_ += '\n';
    print(text_);
    text_.clear();
}

void JsonWriter::open(char bracket) {
    begin_value();
    text_ += bracket;
    ++depth_;
    is_empty_ = true;
}

void JsonWriter::close(char bracket) {
    --depth_;
    if (!is_empty_) {
        new_line();
    }
    text_ += bracket;
    is_empty_ = false;
    print_long_text();
}

void JsonWriter::scalar(std::string_view text) {
    begin_value();
    text_ += text;
}

void JsonWriter::begin_value() {
    if (has_key_) {
        has_key_ = false;
        return;
    }
    if (depth_ > 0) {
        text_ += is_empty_ ? "" : ",";
        new_line();
    }
    is_empty_ = false;
}

void JsonWriter::new_line() {
    constexpr std::size_t indent = 2;
    text_ += '\n';
    text_.append(depth_ * indent, ' ');
}

void JsonWriter::print_long_text() {
    constexpr std::size_t long_text = std::size_t{1} << 16U;
    if (text_.size() >= long_text) {
        print(text_);
        text_.clear();
    }
}

}  // namespace amesp_inp
