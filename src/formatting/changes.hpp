// What canonical rendering does to a text, found rule by rule.
#pragma once

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include <velk/input/amesp/codes.hpp>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/positions.hpp>

namespace velk::input::amesp::formatting {

struct Change {
    Severity severity = Severity::warning;
    std::string_view code;
    const char* message = "";
    std::optional<SourceLocation> location;
};

// In the order in which they are found.
class Changes {
public:
    void lose(const std::optional<SourceLocation>& place, std::string_view code, const char* message) {
        found_.push_back({Severity::error, code, message, place});
    }
    void note(const std::optional<SourceLocation>& place, std::string_view code, const char* message) {
        found_.push_back({Severity::warning, code, message, place});
    }
    std::vector<Change> take() { return std::move(found_); }

private:
    std::vector<Change> found_;
};

// Words of the text that no record holds in a place where rendering writes it, and digits beyond those it writes.
void add_dropped_words(Changes& changes, const AIPData& data, const TextPositions& text);

// What the rendering of a document is read back as, where that is not the document.
void add_differences(Changes& changes, const AIPData& data, const AIPData& read_back, const InputSchema& schema);

// What the parser warned of, and rendering repairs.
void add_repairs(Changes& changes, const AIPData& data);

// Lines that stand elsewhere afterwards: kept lines come after the records of their section, or of the file.
void add_moved_lines(Changes& changes, const AIPData& data, const TextPositions& text, const AIPData& read_back,
                     const TextPositions& rendered);

// A coordinate as it is read back from canonical text.
double rounded(double value);
bool same_number(double a, double b);

}  // namespace velk::input::amesp::formatting
