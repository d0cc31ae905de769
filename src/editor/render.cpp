// A document as AMESP input text, one function for each kind of record.
#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>
#include <string_view>

#include <velk/core/fs.hpp>
#include <velk/core/text_view.hpp>
#include <velk/input/amesp/editor.hpp>

#include "large_room.hpp"
#include "model/coordinate_text.hpp"
#include "model/geometry_names.hpp"
#include "model/numbers.hpp"
#include "schema/queries.hpp"

namespace velk::input::amesp {
namespace {

using core::text::trim_view;

constexpr std::string_view body_indent = "  ";

class Renderer {
public:
    Renderer(const AIPData& data, const InputSchema& schema) : data_(data), schema_(schema) {}

    std::string run() {
        core::reserve_room(text_, usual_size());
        add_lines(data_.header_comments);
        add_directives();
        add_method_line();
        for (const Section& section : data_.sections) {
            add_section(section);
        }
        if (!data_.preserved_lines.empty()) {
            text_ += '\n';
            add_lines(data_.preserved_lines);
        }
        text_.resize(text_.find_last_not_of("\r\n") + 1);  // npos + 1 is 0
        text_ += '\n';
        return std::move(text_);
    }

private:
    // A guess that most texts stay within, so that the text is made in one piece.
    std::size_t usual_size() const {
        constexpr std::size_t name = 12;
        constexpr std::size_t line = 32;
        constexpr std::size_t atom_line = 2 + 2 + 3 * (1 + 4 + coordinate_decimals) + 1;
        std::size_t size = data_.method_tokens.size() * name + data_.directives.size() * 2 * name +
                           (data_.header_comments.size() + data_.preserved_lines.size() + 1) * line;
        for (const Section& section : data_.sections) {
            size += line + section.atoms.size() * atom_line + section.entries.size() * 2 * name +
                    section.raw_lines.size() * line;
        }
        return size;
    }

    void add_lines(const std::vector<std::string>& lines) {
        for (const std::string& line : lines) {
            text_ += line;
            text_ += '\n';
        }
    }

    void add_word(std::string_view word) {
        text_ += ' ';
        text_ += word;
    }

    void add_value_line_end(std::string_view value) {
        if (const std::string_view trimmed = trim_view(value); !trimmed.empty()) {
            add_word(trimmed);
        }
        text_ += '\n';
    }

    void add_directives() {
        for (const Directive& directive : data_.directives) {
            const Key key(directive.name);
            text_ += '%';
            add_word(queries::canonical(schema_.tables().directive_aliases, key));
            add_value_line_end(directive.value);
        }
        if (!data_.directives.empty() && !data_.method_tokens.empty()) {
            text_ += '\n';
        }
    }

    void add_method_line() {
        if (data_.method_tokens.empty()) {
            return;
        }
        text_ += '!';
        for (const MethodToken& token : data_.method_tokens) {
            const Key key(token.canonical.empty() ? token.text : token.canonical);
            const queries::TokenMatch match = queries::match_method_token(schema_.tables(), key);
            add_word(match.prefix);
            text_ += match.base;
        }
        text_ += '\n';
    }

    void add_section(const Section& section) {
        const Key key(section.name);
        const std::string_view name = queries::canonical(schema_.tables().section_aliases, key);
        text_ += "\n>";
        text_ += name;
        add_arguments(section, name);
        if (section.parse_mode == SectionParseMode::cartesian_coordinates) {
            add_atoms(section);
        } else if (section.parse_mode == SectionParseMode::key_value) {
            add_entries(section, name);
        }
        add_raw_lines(section);
        text_ += "end\n";
    }

    void add_arguments(const Section& section, std::string_view name) {
        if (name == xyz_section && section.charge && section.multiplicity) {
            text_ += ' ';
            append_integer(text_, *section.charge);
            text_ += ' ';
            append_integer(text_, *section.multiplicity);
        } else {
            for (const std::string& argument : section.arguments) {
                add_word(argument);
            }
        }
        text_ += '\n';
    }

    void add_atoms(const Section& section) {
        for (const AtomRecord& atom : section.atoms) {
            add_atom(atom);
        }
    }

    // Put together on the stack and appended in one piece, up to a coordinate that only the general way can write.
    void add_atom(const AtomRecord& atom) {
        constexpr std::size_t short_symbol = 16;
        std::array<char, body_indent.size() + short_symbol + 3 * (1 + longest_coordinate) + 1> line;
        constexpr std::string_view longest_line =
            "  sixteen-letters. -524287.0123456789 -524287.0123456789 -524287.0123456789\n";
        static_assert(line.size() == longest_line.size());
        char* end = std::copy(body_indent.begin(), body_indent.end(), line.data());
        if (atom.symbol.size() <= short_symbol) {
            end = std::copy(atom.symbol.begin(), atom.symbol.end(), end);
        } else {
            text_.append(line.data(), end);
            text_ += atom.symbol;
            end = line.data();
        }
        for (const double coordinate : {atom.x, atom.y, atom.z}) {
            *end++ = ' ';
            if (char* const next = write_coordinate(end, coordinate)) {
                end = next;
                continue;
            }
            text_.append(line.data(), end);
            append_fixed(text_, coordinate, coordinate_decimals);
            end = line.data();
        }
        *end++ = '\n';
        text_.append(line.data(), end);
    }

    void add_entries(const Section& section, std::string_view name) {
        const SectionSpec* const spec = queries::find_section(schema_.tables(), name);
        for (const SectionEntry& entry : section.entries) {
            const Key key(entry.key);
            text_ += body_indent;
            text_ += spec != nullptr ? queries::canonical(spec->entry_aliases, key) : key.view();
            add_value_line_end(entry.value);
        }
    }

    void add_raw_lines(const Section& section) {
        for (const std::string& line : section.raw_lines) {
            if (!line.empty()) {
                text_ += body_indent;
                text_ += trim_view(line);
            }
            text_ += '\n';
        }
    }

    const AIPData& data_;
    const InputSchema& schema_;
    std::string text_;
};

}  // namespace

std::string AIPEditor::render() const {
    return Renderer(data_, schema_).run();
}

void AIPEditor::write_file(const std::string& path) const {
    if (!core::fs::write_text_file_atomic(path, render())) {
        throw std::runtime_error("failed to write AMESP input file '" + path + "'");
    }
}

}  // namespace velk::input::amesp
