// The pairs KEY=VALUE of extended XYZ; any text that is none of them is passed over.
#include "exchange/comment_line.hpp"

#include <algorithm>

#include <velk/core/text_view.hpp>

#include "model/key.hpp"
#include "model/numbers.hpp"

namespace velk::input::amesp {
namespace {

using core::text::is_space;

struct Pair {
    std::string_view key;
    std::optional<std::string_view> value;  // absent: the key is a word by itself
};

void skip_space(std::string_view& rest) {
    const auto text = std::find_if_not(rest.begin(), rest.end(), is_space);
    rest.remove_prefix(static_cast<std::size_t>(text - rest.begin()));
}

// A quote that nothing closes takes all that follows; a backslash takes the byte after it along.
std::string_view take_quoted(std::string_view& rest) {
    std::size_t end = 1;
    while (end < rest.size() && rest[end] != '"') {
        end += rest[end] == '\\' ? 2U : 1U;
    }
    const std::string_view text = rest.substr(1, end - 1);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return text;
}

// A quoted text, or all before white space or `stop`.
std::string_view take_text(std::string_view& rest, char stop) {
    if (rest.starts_with('"')) {
        return take_quoted(rest);
    }
    const auto end = std::find_if(rest.begin(), rest.end(), [stop](char c) { return is_space(c) || c == stop; });
    const std::string_view text = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    rest.remove_prefix(text.size());
    return text;
}

// The next pair or word; nothing at the end of the line.
std::optional<Pair> take_pair(std::string_view& rest) {
    skip_space(rest);
    if (rest.empty()) {
        return std::nullopt;
    }
    Pair pair{take_text(rest, '='), std::nullopt};
    std::string_view ahead = rest;
    skip_space(ahead);
    if (ahead.starts_with('=')) {
        ahead.remove_prefix(1);
        skip_space(ahead);
        pair.value = take_text(ahead, ' ');
        rest = ahead;
    }
    return pair;
}

// What is wrong with the value; empty when it was taken.
std::string take_number(std::optional<std::int32_t>& number, std::string_view name, const Pair& pair) {
    const std::optional<std::int32_t> value = read_int32(*pair.value);
    if (!value) {
        return "expected an integer after '" + std::string(pair.key) + "='";
    }
    if (number && *number != *value) {
        return "the " + std::string(name) + " is given as " + std::to_string(*number) + " and as " +
               std::to_string(*value);
    }
    number = value;
    return {};
}

std::string check_columns(std::string_view columns) {
    constexpr std::string_view known = "species:S:1:pos:R:3";
    const bool more = columns.size() > known.size();
    if (same_key(columns.substr(0, known.size()), known) && (!more || columns[known.size()] == ':')) {
        return {};
    }
    return "Properties begins with other columns than " + std::string(known) + ", which are those that are read";
}

std::string take_value(CommentLine& comment, const Pair& pair) {
    if (same_key(pair.key, "charge")) {
        return take_number(comment.charge, "charge", pair);
    }
    if (same_key(pair.key, "multiplicity") || same_key(pair.key, "spin")) {
        return take_number(comment.multiplicity, "multiplicity", pair);
    }
    return same_key(pair.key, "properties") ? check_columns(*pair.value) : std::string();
}

}  // namespace

CommentLine read_comment_line(std::string_view line) {
    CommentLine comment;
    std::string_view rest = line;
    while (const std::optional<Pair> pair = take_pair(rest)) {
        std::string problem = pair->value ? take_value(comment, *pair) : std::string();
        if (!problem.empty()) {
            comment.problem = {static_cast<std::size_t>(pair->key.data() - line.data()), std::move(problem)};
            break;
        }
    }
    return comment;
}

}  // namespace velk::input::amesp
