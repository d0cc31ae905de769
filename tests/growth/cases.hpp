// What is made large, one thing at a time, to see what it costs.
#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp.hpp>

namespace velk::test {

// A text with `n` of something.
struct TextCase {
    const char* name;
    std::function<std::string(std::size_t n)> text;
};

// A schema file with `n` of something.
struct SchemaCase {
    const char* name;
    std::function<std::string(std::size_t n)> yaml;
};

// One operation on a document with `n` of everything.
struct EditCase {
    const char* name;
    std::function<void(input::amesp::AIPEditor& editor, std::size_t n)> run;
};

// `n` names that are alike.
struct NameCase {
    const char* name;
    std::function<std::vector<std::string>(std::size_t n)> names;
};

const std::vector<TextCase>& text_cases();
const std::vector<TextCase>& long_line_cases();
// Under a schema that knows as many names.
const std::vector<TextCase>& finding_cases();
std::string yaml_of_many_names(std::size_t n);
const std::vector<SchemaCase>& schema_cases();
const std::vector<EditCase>& edit_cases();
const std::vector<NameCase>& name_cases();

// `n` times what `piece(i)` gives.
template <class Piece>
requires std::invocable<Piece, std::size_t> std::string repeated(std::size_t n, Piece piece) {
    std::string all;
    for (std::size_t i = 0; i < n; ++i) {
        all += piece(i);
    }
    return all;
}

// `n` times `piece`, each '?' of it standing for 0, 1, and so on.
inline std::string repeated(std::size_t n, std::string_view piece) {
    return repeated(n, [&](std::size_t i) {
        std::string text;
        for (const char c : piece) {
            text += c == '?' ? std::to_string(i) : std::string(1, c);
        }
        return text;
    });
}

// The same between two texts.
inline auto lines(const char* before, const char* line, const char* after = "") {
    return [=](std::size_t n) { return before + repeated(n, std::string_view(line)) + after; };
}

}  // namespace velk::test
