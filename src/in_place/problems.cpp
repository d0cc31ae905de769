// What cannot be written into a text, and what goes unasked.
#include "in_place/problems.hpp"

#include <velk/input/amesp/codes.hpp>

namespace velk::input::amesp::in_place {
namespace {

ValidationIssue error(std::string_view code, std::string message, const std::optional<SourceLocation>& location) {
    return {IssueSeverity::Error, std::string(code), std::move(message), location};
}

}  // namespace

void Problems::cannot_write(std::string_view what, const std::optional<SourceLocation>& location) {
    issues_.push_back(
        error(codes::not_expressible,
              std::string(what) + " cannot be written so that it reads back as itself; it was not written.", location));
}

void Problems::not_of_this_text(std::string_view what, const std::optional<SourceLocation>& location) {
    issues_.push_back(error(codes::not_of_this_text,
                            std::string(what) + " does not agree with the text to change; the text was left as it was.",
                            location));
}

void Problems::dropped_words(std::string_view what, const std::optional<SourceLocation>& location) {
    issues_.push_back(
        {IssueSeverity::Warning, std::string(codes::dropped_words), std::string(what) + " with it.", location});
}

void Problems::kept_unit(const Section& section, std::string_view word) {
    issues_.push_back({IssueSeverity::Warning, std::string(codes::kept_unit),
                       "The header of section '>" + section.name + "' keeps the word '" + std::string(word) +
                           "', which names another unit than angstrom; the new coordinates are read in it.",
                       section.location});
}

void Problems::remark_in_method_line(std::string_view token, const SourceLocation& remark) {
    issues_.push_back(error(codes::remark_in_method_line,
                            "Method-line token '" + std::string(token) +
                                "' was not added: the line holds a remark, whose words are method-line tokens to the "
                                "format; move the remark to a line of its own above.",
                            remark));
}

}  // namespace velk::input::amesp::in_place
