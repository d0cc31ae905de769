// Any text: parsed, validated, rendered and parsed again. The first byte chooses the schema: '0' the sample of the
// tests, '1' the starter schema, '2' none.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp.hpp>
#include <velk/input/amesp/codes.hpp>

#include "accounted_lines.hpp"
#include "known_part.hpp"
#include "law.hpp"
#include "run.hpp"
#include "support/sample_schema.hpp"
#include "support/without_source.hpp"

namespace velk::fuzz {
namespace {

using namespace input::amesp;

const InputSchema& schema_number(std::uint8_t number) {
    static const std::vector<InputSchema> schemas = {
        test::sample_schema(), InputSchema::from_file(VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml"), {}};
    return schemas[number % schemas.size()];
}

bool is_listed(const std::string& code) {
    return code.starts_with("amesp.") && find_code(code) != nullptr;
}

class Places {
public:
    explicit Places(std::string_view text) {
        while (!text.empty()) {
            const std::size_t feed = std::min(text.find('\n'), text.size());
            lines_.push_back(text.substr(0, feed));
            text.remove_prefix(std::min(feed + 1, text.size()));
        }
    }

    // The bytes of the text at that place.
    std::string_view at(const std::optional<SourceLocation>& location) const {
        require(location.has_value(), "every record has a location");
        const auto [line, column, length] = *location;
        require(line >= 1 && line <= lines_.size(), "the line of a location is in the text");
        const std::string_view text = lines_[line - 1];
        require(column >= 1 && column - 1 <= text.size() && length <= text.size() - (column - 1),
                "a location is within its line");
        return text.substr(column - 1, length);
    }

private:
    std::vector<std::string_view> lines_;
};

void check_places(const AIPData& data, const Places& places) {
    for (const Directive& directive : data.directives) {
        require(places.at(directive.location).substr(0, 1) == "%", "a directive stands at its '%'");
    }
    const char* after_last = nullptr;
    for (const MethodToken& token : data.method_tokens) {
        const std::string_view place = places.at(token.location);
        require(place == token.text, "a token stands at its place", token.text);
        require(std::less_equal<>()(after_last, place.data()), "a token comes after the one before it", token.text);
        after_last = place.data() + place.size();
    }
    for (const Section& section : data.sections) {
        require(places.at(section.location).substr(0, 1) == ">", "a section stands at its '>'");
        for (const SectionEntry& entry : section.entries) {
            places.at(entry.location);
        }
        for (const AtomRecord& atom : section.atoms) {
            places.at(atom.location);
        }
    }
    for (const ParseWarning& warning : data.warnings) {
        require(is_listed(warning.code), "a warning has a listed code", warning.code);
        if (warning.location) {
            places.at(warning.location);
        }
    }
}

void check_validation(const ParseResult& result, const std::vector<ValidationIssue>& issues, std::size_t warned) {
    const auto& warnings = result.data.warnings;
    require(warnings.size() == warned + issues.size(), "every issue is among the warnings");
    std::string first_error;
    for (std::size_t i = 0; i < issues.size(); ++i) {
        const ValidationIssue& issue = issues[i];
        require(warnings[warned + i] == ParseWarning{issue.code, issue.message, issue.location},
                "issues follow the warnings of the parser, as they are", issue.message);
        if (first_error.empty() && issue.severity == IssueSeverity::Error) {
            first_error = issue.message;
        }
    }
    require(result.ok == first_error.empty() && result.error == first_error, "the first error fails the parse",
            result.error);
}

void check_rendering(const AIPData& data, const InputSchema& schema) {
    const std::string once = AIPEditor(data, schema).render();
    require(!once.empty() && once.back() == '\n', "a rendering ends in a line feed", once);
    require(once.size() < 2 || (once[once.size() - 2] != '\n' && once[once.size() - 2] != '\r'),
            "a rendering ends in one line feed", once);
    const AIPData again = AIPParser::parse_string(once, schema, {true, false}).data;
    check_places(again, Places(once));
    const std::string twice = AIPEditor(again, schema).render();
    if (test::without_source(again) == test::without_source(data)) {
        require(twice == once, "a document that comes back renders as before", once + "----\n" + twice);
    }
}

bool has_nan(const AIPData& data) {
    for (const Section& section : data.sections) {
        for (const AtomRecord& atom : section.atoms) {
            if (std::isnan(atom.x + atom.y + atom.z)) {
                return true;
            }
        }
    }
    return false;
}

void check(std::string_view text, const InputSchema& schema) {
    AIPParser::looks_like_amesp_input(text);
    const ParseResult plain = AIPParser::parse_string(text, schema, {true, false});
    require(plain.ok && plain.error.empty(), "a parse without validation succeeds");
    check_places(plain.data, Places(text));
    const std::string unaccounted = unaccounted_line(text, plain.data);
    require(unaccounted.empty(), "every line is accounted for", unaccounted);

    const ParseResult validated = AIPParser::parse_string(text, schema, {true, true});
    check_places(validated.data, Places(text));
    check_validation(validated, schema.validate(plain.data), plain.data.warnings.size());

    AIPData sparse = AIPParser::parse_string(text, schema, {false, false}).data;
    check_places(sparse, Places(text));
    sparse.warnings.clear();
    // A NaN equals nothing, not even itself.
    require(has_nan(sparse) || sparse == known_part(plain.data), "without preserving, the known part is left");

    check_rendering(plain.data, schema);
    check_rendering(sparse, schema);
}

}  // namespace

void run(const std::string& input) {
    if (!input.empty()) {
        check(std::string_view(input).substr(1), schema_number(static_cast<std::uint8_t>(input[0])));
    }
}

}  // namespace velk::fuzz
