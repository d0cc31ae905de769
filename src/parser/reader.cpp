// Lines to records, one function for each kind of line.
#include "parser/reader.hpp"

#include <optional>
#include <string>
#include <utility>

#include <velk/core/text_view.hpp>

#include "large_room.hpp"
#include "model/geometry_names.hpp"
#include "model/in_place.hpp"
#include "model/numbers.hpp"
#include "model/real_words.hpp"
#include "parser/line.hpp"
#include "parser/look_ahead.hpp"
#include "parser/warnings.hpp"
#include "schema/queries.hpp"
#include "schema/records.hpp"

namespace velk::input::amesp {
namespace {

using core::text::take_word;
using core::text::trim_view;

class Reader {
public:
    Reader(std::string_view text, const InputSchema& schema, bool preserve_unknown)
        : lines_(text), text_end_(text.data() + text.size()), schema_(schema), preserve_unknown_(preserve_unknown) {}

    AIPData run() {
        Line line;
        while (lines_.next(line)) {
            read_line(line);
        }
        return std::move(data_);
    }

private:
    void warn(ParseWarning warning) { data_.warnings.push_back(std::move(warning)); }

    void read_line(const Line& line) {
        const LineKind kind = classify(line.text);
        if (kind == LineKind::blank) {
            return;
        }
        if (kind == LineKind::comment) {
            (content_seen_ ? data_.preserved_lines : data_.header_comments).emplace_back(line.raw);
            return;
        }
        content_seen_ = true;
        switch (kind) {
            case LineKind::directive:
                return read_directive(line);
            case LineKind::method_line:
                return read_method_line(line);
            case LineKind::section_header:
                return read_section(line);
            default:
                return read_loose_line(line);
        }
    }

    void read_directive(const Line& line) {
        std::string_view rest = line.text.substr(1);
        const std::string_view name = take_word(rest);
        if (name.empty()) {
            warn(warnings::empty_directive(line.number));
            return;
        }
        Directive directive = records::make_directive(schema_, name, value_behind(rest));
        if (directive.known || preserve_unknown_) {
            directive.location = line.location();
            data_.directives.push_back(std::move(directive));
        }
    }

    void read_method_line(const Line& line) {
        std::string_view rest = line.text.substr(1);
        std::string_view word = take_word(rest);
        if (word.empty()) {
            warn(warnings::empty_method_line(line.number));
            return;
        }
        if (!data_.method_tokens.empty()) {
            warn(warnings::multiple_method_lines(line.number));
        }
        std::size_t cursor = 0;  // in the raw line, its '!' included
        for (; !word.empty(); word = take_word(rest)) {
            const std::size_t position = line.raw.find(word, cursor);
            cursor = position + word.size();
            MethodToken token = records::make_method_token(schema_, word);
            if (token.known || preserve_unknown_) {
                token.location = SourceLocation{line.number, position + 1, word.size()};
                data_.method_tokens.push_back(std::move(token));
            }
        }
    }

    void read_section(const Line& header) {
        std::string_view rest = header.text.substr(1);
        const std::string_view name = take_word(rest);
        if (name.empty()) {
            warn(warnings::empty_section_header(header.number));
            return;
        }
        const Key key(name);
        const queries::Match match = queries::match_section(schema_.tables(), key);
        Section section = records::make_section(match, {});
        for (std::string_view word = take_word(rest); !word.empty(); word = take_word(rest)) {
            section.arguments.emplace_back(word);
        }
        section.location = header.location();
        if (section.name == xyz_section && section.arguments.size() >= 2) {
            section.charge = read_int32(section.arguments[0]);
            section.multiplicity = read_int32(section.arguments[1]);
        }
        read_body(section, match.spec);
        if (!section.terminated) {
            warn(warnings::unterminated_section(header.number, section.name));
        }
        if (section.known || preserve_unknown_) {
            data_.sections.push_back(std::move(section));
        }
    }

    // Everything up to the end line belongs to the body, whatever it begins with.
    void read_body(Section& section, const SectionSpec* spec) {
        make_room(section);
        Line line;
        while (lines_.next(line)) {
            if (is_section_end(line.text)) {
                return;
            }
            const LineKind kind = classify(line.text);
            if (kind == LineKind::comment || (kind == LineKind::blank && preserve_unknown_)) {
                section.raw_lines.emplace_back(line.raw);
            } else if (kind != LineKind::blank) {
                read_body_line(line, section, spec);
            }
        }
        section.terminated = false;
    }

    // Not for entries of which some will be left out: they would leave their room unused.
    void make_room(Section& section) const {
        if (section.parse_mode == SectionParseMode::cartesian_coordinates) {
            constexpr std::size_t shortest_atom = std::string_view("H 0 0 0").size();
            core::reserve_room(section.atoms, records_ahead(lines_.rest(), shortest_atom));
        } else if (section.parse_mode == SectionParseMode::key_value && preserve_unknown_) {
            core::reserve_room(section.entries, records_ahead(lines_.rest(), 1));
        }
    }

    void read_body_line(const Line& line, Section& section, const SectionSpec* spec) {
        switch (section.parse_mode) {
            case SectionParseMode::cartesian_coordinates:
                return read_atom(line, section);
            case SectionParseMode::key_value:
                return read_entry(line, section, spec);
            case SectionParseMode::raw:
                break;
        }
        section.raw_lines.emplace_back(line.raw);
    }

    void read_atom(const Line& line, Section& section) {
        RealWords words(line.text, text_end_);
        const std::string_view symbol = words.take_word();
        double x = 0.0;
        double y = 0.0;
        double z = 0.0;
        if (!words.take_real(x) || !words.take_real(y) || !words.take_real(z)) {
            section.raw_lines.emplace_back(line.raw);
            warn(warnings::invalid_xyz_record(line.number));
            return;
        }
        section.atoms.emplace_back(InPlace{
            [&] { return AtomRecord{std::string(symbol), x, y, z, std::string(line.raw), line.body_location()}; }});
    }

    void read_entry(const Line& line, Section& section, const SectionSpec* spec) {
        const std::size_t equals = line.text.find('=');
        std::string_view value = line.text;
        std::string_view key;
        if (equals != std::string_view::npos) {
            key = trim_view(line.text.substr(0, equals));
            value.remove_prefix(equals + 1);
        } else {
            key = take_word(value);
            value = value_behind(value);
        }
        if (key.empty()) {
            section.raw_lines.emplace_back(line.raw);
            warn(warnings::invalid_section_entry(line.number));
            return;
        }
        const SectionEntry& entry = section.entries.emplace_back(
            InPlace{[&] { return records::make_entry(spec, key, value, line.raw, line.body_location()); }});
        if (!entry.known && !preserve_unknown_) {
            section.entries.pop_back();
        }
    }

    void read_loose_line(const Line& line) {
        if (preserve_unknown_) {
            data_.preserved_lines.emplace_back(line.raw);
        }
        warn(warnings::loose_line(line.number));
    }

    LineCursor lines_;
    const char* const text_end_;
    const InputSchema& schema_;
    const bool preserve_unknown_;
    bool content_seen_ = false;
    AIPData data_;
};

}  // namespace

AIPData read_document(std::string_view text, const InputSchema& schema, bool preserve_unknown) {
    return Reader(text, schema, preserve_unknown).run();
}

}  // namespace velk::input::amesp
