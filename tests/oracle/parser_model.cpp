// The model of the parser.
#include "oracle/parser_model.hpp"

#include <cstddef>

#include "oracle/plain_numbers.hpp"
#include "oracle/plain_text.hpp"
#include "oracle/validation_model.hpp"

namespace velk::oracle {

using namespace input::amesp;

namespace {

class Walk {
public:
    Walk(const std::string& text, const SchemaModel& schema, bool preserve_unknown)
        : lines_(lines_of(text)), schema_(schema), preserve_unknown_(preserve_unknown) {}

    AIPData document() {
        while (index_ < lines_.size()) {
            top_level_line();
        }
        return data_;
    }

private:
    void top_level_line() {
        const std::string raw = lines_[index_];
        const std::string t = trim(raw);
        ++index_;  // the line at hand is number index_ from here on
        if (t.empty()) {
            return;
        }
        if (is_comment(t)) {
            (content_seen_ ? data_.preserved_lines : data_.header_comments).push_back(raw);
            return;
        }
        content_seen_ = true;
        if (t[0] == '%') {
            directive(raw, t);
        } else if (t[0] == '!') {
            method_line(raw, t);
        } else if (t[0] == '>') {
            section(raw, t);
        } else {
            loose_line(raw);
        }
    }

    void directive(const std::string& raw, const std::string& t) {
        const std::string content = trim(t.substr(1));
        const std::vector<std::string> words = words_of(content);
        if (words.empty()) {
            warn(index_, "amesp.empty_directive", "Ignored an empty '%' directive.");
            return;
        }
        Directive directive;
        directive.name = schema_.canonical_directive(words[0]);
        directive.value = behind_first_blank(content);
        directive.known = schema_.is_known_directive(directive.name);
        directive.location = SourceLocation{index_, raw.find('%') + 1, t.size()};
        if (directive.known || preserve_unknown_) {
            data_.directives.push_back(directive);
        }
    }

    void method_line(const std::string& raw, const std::string& t) {
        const std::vector<std::string> tokens = words_of(trim(t.substr(1)));
        if (tokens.empty()) {
            warn(index_, "amesp.empty_method_line", "The AMESP method line contains no tokens.");
            return;
        }
        if (!data_.method_tokens.empty()) {
            warn(index_, "amesp.multiple_method_lines", "Multiple AMESP method lines were merged in input order.");
        }
        std::size_t cursor = 0;
        for (const std::string& word : tokens) {
            MethodToken token;
            token.text = word;
            token.canonical = schema_.canonical_method_token(word);
            token.category = schema_.method_token_category(word);
            token.known = schema_.is_known_method_token(word);
            token.location = SourceLocation{index_, 1, word.size()};
            const std::size_t place = raw.find(word, cursor);
            if (place != std::string::npos) {
                token.location->column = place + 1;
                cursor = place + word.size();
            }
            if (token.known || preserve_unknown_) {
                data_.method_tokens.push_back(token);
            }
        }
    }

    void section(const std::string& raw, const std::string& t) {
        const std::vector<std::string> words = words_of(trim(t.substr(1)));
        if (words.empty()) {
            warn(index_, "amesp.empty_section_header", "Ignored an empty '>' section header.");
            return;
        }
        Section section;
        section.name = schema_.canonical_section(words[0]);
        section.known = schema_.is_known_section(section.name);
        section.parse_mode = schema_.section_parse_mode(section.name);
        section.terminated = true;
        section.arguments.assign(words.begin() + 1, words.end());
        section.location = SourceLocation{index_, raw.find('>') + 1, t.size()};
        if (section.name == "xyz" && section.arguments.size() >= 2) {
            section.charge = read_int32(section.arguments[0]);
            section.multiplicity = read_int32(section.arguments[1]);
        }
        body(section);
        if (section.known || preserve_unknown_) {
            data_.sections.push_back(section);
        }
    }

    void body(Section& section) {
        while (index_ < lines_.size()) {
            const std::string raw = lines_[index_];
            ++index_;
            if (lower(trim(raw)) == "end") {
                return;
            }
            body_line(section, raw, trim(raw));
        }
        section.terminated = false;
        warn(section.location->line, "amesp.unterminated_section",
             "Section '>" + section.name + "' reached end-of-file without 'end'.");
    }

    void body_line(Section& section, const std::string& raw, const std::string& t) {
        if (t.empty()) {
            if (preserve_unknown_) {
                section.raw_lines.push_back(raw);
            }
        } else if (!is_comment(t) && section.parse_mode == SectionParseMode::cartesian_coordinates) {
            atom(section, raw, t);
        } else if (!is_comment(t) && section.parse_mode == SectionParseMode::key_value) {
            entry(section, raw, t);
        } else {
            section.raw_lines.push_back(raw);
        }
    }

    void atom(Section& section, const std::string& raw, const std::string& t) {
        const std::vector<std::string> words = words_of(t);
        if (words.size() < 4 || !read_real(words[1]) || !read_real(words[2]) || !read_real(words[3])) {
            section.raw_lines.push_back(raw);
            warn(index_, "amesp.invalid_xyz_record",
                 "Could not parse Cartesian coordinate record; the raw line was preserved.");
            return;
        }
        AtomRecord atom;
        atom.symbol = words[0];
        atom.x = *read_real(words[1]);
        atom.y = *read_real(words[2]);
        atom.z = *read_real(words[3]);
        atom.raw_line = raw;
        atom.location = body_location(raw, t);
        section.atoms.push_back(atom);
    }

    void entry(Section& section, const std::string& raw, const std::string& t) {
        std::string name;
        SectionEntry entry;
        const std::size_t equals = t.find('=');
        if (equals != std::string::npos) {
            name = trim(t.substr(0, equals));
            entry.value = trim(t.substr(equals + 1));
        } else {
            name = words_of(t)[0];
            entry.value = behind_first_blank(t);
        }
        if (name.empty()) {
            section.raw_lines.push_back(raw);
            warn(index_, "amesp.invalid_section_entry", "Could not parse section entry; the raw line was preserved.");
            return;
        }
        entry.key = schema_.canonical_entry(section.name, name);
        entry.known = schema_.is_known_entry(section.name, entry.key);
        entry.raw_line = raw;
        entry.location = body_location(raw, t);
        if (entry.known || preserve_unknown_) {
            section.entries.push_back(entry);
        }
    }

    SourceLocation body_location(const std::string& raw, const std::string& t) const {
        std::size_t column = 1;
        while (raw[column - 1] == ' ' || raw[column - 1] == '\t') {
            ++column;
        }
        return {index_, column, t.size()};
    }

    void loose_line(const std::string& raw) {
        if (preserve_unknown_) {
            data_.preserved_lines.push_back(raw);
        }
        warn(index_, "amesp.loose_line", "Preserved a line outside any AMESP directive, method line, or section.");
    }

    void warn(std::uint64_t line, const std::string& code, const std::string& message) {
        data_.warnings.push_back({code, message, SourceLocation{line, 1, 0}});
    }

    const std::vector<std::string> lines_;
    const SchemaModel& schema_;
    const bool preserve_unknown_;
    std::size_t index_ = 0;
    bool content_seen_ = false;
    AIPData data_;
};

void fold_in(const std::vector<ValidationIssue>& issues, ParseResult& result) {
    for (const ValidationIssue& issue : issues) {
        result.data.warnings.push_back({issue.code, issue.message, issue.location});
    }
    for (const ValidationIssue& issue : issues) {
        if (issue.severity == IssueSeverity::Error) {
            result.ok = false;
            result.error = issue.message;
            return;
        }
    }
}

}  // namespace

ParseResult parse(const std::string& text, const SchemaModel& schema, const ParseOptions& options) {
    ParseResult result;
    result.data = Walk(text, schema, options.preserve_unknown).document();
    result.ok = true;
    if (options.validate) {
        fold_in(validate(result.data, schema), result);
    }
    return result;
}

}  // namespace velk::oracle
