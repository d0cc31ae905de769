// Finds what canonical rendering loses or changes: by rule where the rule is known, and in any case by reading the
// rendering back.
#include "rendering_changes.hpp"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <set>
#include <utility>
#include <velk/core/text_view.hpp>
#include <velk/input/amesp/codes.hpp>
#include <velk/input/amesp/parser.hpp>

#include "line_marks.hpp"
#include "source_lines.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;
using velk::core::text::take_word;
using velk::core::text::trim_view;

const SourceLocation nowhere{0, 0, 0};  // of what no line of a file made

// What a coordinate becomes: canonical text has ten decimals. Infinities and NaN are read back as they are.
double rounded(double value) {
    constexpr int decimals = 10;
    char text[std::numeric_limits<double>::max_exponent10 + decimals + 4];
    const auto written = std::to_chars(std::begin(text), std::end(text), value, std::chars_format::fixed, decimals);
    std::from_chars(std::begin(text), written.ptr, value);
    return value;
}

bool same_number(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) || std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool same_atom(const AtomRecord& a, const AtomRecord& b) {
    return a.symbol == b.symbol && same_number(rounded(a.x), b.x) && same_number(rounded(a.y), b.y) &&
           same_number(rounded(a.z), b.z);
}

// Whether a line "name value" has words that are in neither: a name ends at any white space, a value begins behind a
// blank or tab.
bool hides_words(std::string_view line) {
    take_word(line);
    return !trim_view(line.substr(0, line.find_first_of(" \t"))).empty();
}

bool is_marker_alone(std::string_view code) {
    return code == codes::empty_directive || code == codes::empty_method_line || code == codes::empty_section_header;
}

class Changes {
public:
    Changes(const AIPEditor& editor, std::string_view rendered)
        : data_(editor.data()),
          schema_(editor.schema()),
          again_(AIPParser::parse_string(rendered, schema_, {true, false}).data) {}

    std::vector<Finding> take() {
        std::stable_sort(found_.begin(), found_.end(), [](const Finding& a, const Finding& b) {
            return std::pair(a.location.line, a.location.column) < std::pair(b.location.line, b.location.column);
        });
        return std::move(found_);
    }

    // Compares the document with what its rendering is read back as.
    void compare() {
        compare_lists(data_.directives, again_.directives, [&](const Directive& a, const Directive& b) {
            return schema_.canonical_directive(a.name) == b.name && trim_view(a.value) == b.value;
        });
        compare_lists(data_.method_tokens, again_.method_tokens, [&](const MethodToken& a, const MethodToken& b) {
            return schema_.canonical_method_token(a.canonical.empty() ? a.text : a.canonical) == b.canonical;
        });
        if (compare_lists(data_.sections, again_.sections, [&](const Section& a, const Section& b) {
                return schema_.canonical_section(a.name) == b.name && a.parse_mode == b.parse_mode &&
                       (a.arguments == b.arguments || (b.name == "xyz" && a.charge && a.multiplicity)) &&
                       b.terminated && a.charge == b.charge && a.multiplicity == b.multiplicity;
            })) {
            for (std::size_t i = 0; i < data_.sections.size(); ++i) {
                compare_bodies(data_.sections[i], again_.sections[i]);
            }
        }
        compare_comments();
    }

    void add_dropped_words(std::string_view text) {
        add_hidden_words(SourceLines(text));
        for (const Section& section : data_.sections) {
            if (section.name == "xyz" && section.charge && section.multiplicity && section.arguments.size() > 2) {
                lose(section.location, codes::inp::dropped_words,
                     "Words after charge and multiplicity in the >xyz header would be lost.");
            }
            for (const AtomRecord& atom : section.atoms) {
                std::string_view rest = atom.raw_line;
                for (int word = 0; word < 4; ++word) {
                    take_word(rest);
                }
                if (!trim_view(rest).empty()) {
                    lose(atom.location, codes::inp::dropped_words,
                         "Words after the coordinates of an atom would be lost.");
                }
                if (!same_number(atom.x, rounded(atom.x)) || !same_number(atom.y, rounded(atom.y)) ||
                    !same_number(atom.z, rounded(atom.z))) {
                    note(atom.location, codes::inp::rounded, "Coordinates would be rounded to ten decimals.");
                }
            }
        }
    }

    void add_hidden_words(const SourceLines& lines) {
        const auto lose_words = [&](const std::optional<SourceLocation>& location) {
            lose(location, codes::inp::dropped_words, "Words between a name and its value would be lost.");
        };
        for (const Directive& directive : data_.directives) {
            if (directive.location &&
                hides_words(lines.line(directive.location->line).substr(directive.location->column))) {
                lose_words(directive.location);
            }
        }
        for (const Section& section : data_.sections) {
            for (const SectionEntry& entry : section.entries) {
                if (entry.raw_line.find('=') == std::string::npos && hides_words(entry.raw_line)) {
                    lose_words(entry.location);
                }
            }
        }
    }

    void add_repairs() {
        for (const ParseWarning& warning : data_.warnings) {
            if (warning.code == codes::unterminated_section) {
                lose(warning.location, codes::inp::added_end, "The missing 'end' of this section would be added.");
            } else if (warning.code == codes::multiple_method_lines) {
                note(warning.location, codes::inp::moved_line, "This method line would be joined to the first one.");
            } else if (is_marker_alone(warning.code)) {
                lose(warning.location, codes::inp::dropped_marker, "This line holds a marker alone and would go.");
            } else if (warning.code == codes::loose_line || warning.code == codes::invalid_xyz_record) {
                lose(warning.location, codes::inp::lost_line, "This line is not read as part of the input.");
            }
        }
    }

    // Lines that stand elsewhere afterwards: kept lines come after the records of their section, or of the file.
    void add_moved_lines(const SourceLines& lines, const SourceLines& rendered) {
        add_records_out_of_order();
        for (const Section& section : data_.sections) {
            add_moved_in(section, lines);
        }
        add_moved_comments(lines);
        if (blank_runs(data_, lines) != blank_runs(again_, rendered)) {
            add_first_blank_line(lines);
        }
    }

private:
    void lose(const std::optional<SourceLocation>& place, std::string_view code, std::string message) {
        found_.push_back(
            {IssueSeverity::Error, std::string(code), std::move(message), place.value_or(nowhere), {}, {}});
    }

    void note(const std::optional<SourceLocation>& place, std::string_view code, std::string message) {
        found_.push_back(
            {IssueSeverity::Warning, std::string(code), std::move(message), place.value_or(nowhere), {}, {}});
    }

    void report_difference(const std::optional<SourceLocation>& place) {
        lose(place, codes::inp::reads_differently, "The canonical text of this would be read back as something else.");
    }

    // False when the lists cannot be told to match record by record.
    template <class Record, class Same>
    bool compare_lists(const std::vector<Record>& before, const std::vector<Record>& after, Same same) {
        for (std::size_t i = 0; i < before.size(); ++i) {
            if (i >= after.size() || !same(before[i], after[i])) {
                report_difference(before[i].location);
                return false;
            }
        }
        if (after.size() > before.size()) {
            report_difference(before.empty() ? std::nullopt : before.back().location);
            return false;
        }
        return true;
    }

    void compare_bodies(const Section& before, const Section& after) {
        compare_lists(before.entries, after.entries, [&](const SectionEntry& a, const SectionEntry& b) {
            return schema_.canonical_entry(after.name, a.key) == b.key && trim_view(a.value) == b.value;
        });
        compare_lists(before.atoms, after.atoms, same_atom);
        const bool same_lines =
            std::equal(before.raw_lines.begin(), before.raw_lines.end(), after.raw_lines.begin(), after.raw_lines.end(),
                       [](const std::string& a, const std::string& b) { return trim_view(a) == trim_view(b); });
        if (!same_lines) {
            report_difference(before.location);
        }
    }

    void compare_comments() {
        const auto all = [](const AIPData& data) {
            std::vector<std::string_view> lines;
            for (const auto* const list : {&data.header_comments, &data.preserved_lines}) {
                for (const std::string& line : *list) {
                    if (!trim_view(line).empty()) {
                        lines.push_back(trim_view(line));
                    }
                }
            }
            return lines;
        };
        if (all(data_) != all(again_)) {
            report_difference(std::nullopt);
        }
    }

    // Directives come first, then the method line, then the sections.
    void add_records_out_of_order() {
        const std::uint64_t method = data_.method_tokens.empty() || !data_.method_tokens[0].location
                                         ? UINT64_MAX
                                         : data_.method_tokens[0].location->line;
        const std::uint64_t section =
            data_.sections.empty() || !data_.sections[0].location ? UINT64_MAX : data_.sections[0].location->line;
        for (const Directive& directive : data_.directives) {
            if (directive.location && directive.location->line > std::min(method, section)) {
                note(directive.location, codes::inp::moved_line, "This directive would be moved to the front.");
            }
        }
        if (method != UINT64_MAX && method > section) {
            note(data_.method_tokens[0].location, codes::inp::moved_line,
                 "The method line would be moved above the sections.");
        }
    }

    static std::uint64_t last_body_line(const Section& section) {
        return section.location->line + section.entries.size() + section.atoms.size() + section.raw_lines.size();
    }

    void add_moved_in(const Section& section, const SourceLines& lines) {
        std::set<std::uint64_t> records;
        for (const SectionEntry& entry : section.entries) {
            records.insert(entry.location->line);
        }
        for (const AtomRecord& atom : section.atoms) {
            records.insert(atom.location->line);
        }
        const std::uint64_t last_record = records.empty() ? 0 : *records.rbegin();
        for (std::uint64_t number = section.location->line + 1; number < last_record; ++number) {
            if (!records.contains(number)) {
                note(lines.text_of(number), codes::inp::moved_line,
                     "This line would be moved to the end of its section.");
            }
        }
    }

    // The lines outside of sections, with what follows a header.
    static std::vector<std::uint64_t> top_level_lines(const AIPData& data, const SourceLines& lines) {
        std::vector<std::uint64_t> numbers;
        auto section = data.sections.begin();
        for (std::uint64_t number = 1; number <= lines.count(); ++number) {
            numbers.push_back(number);
            if (section != data.sections.end() && section->location->line == number) {
                number = last_body_line(*section) + (section->terminated ? 1 : 0);
                ++section;
            }
        }
        return numbers;
    }

    void add_moved_comments(const SourceLines& lines) {
        bool content_seen = false;
        std::vector<std::uint64_t> kept;  // lines that wait for a record after them
        for (const std::uint64_t number : top_level_lines(data_, lines)) {
            const std::string_view text = trim_view(lines.line(number));
            if (is_marked(text)) {
                for (const std::uint64_t moved : kept) {
                    note(lines.text_of(moved), codes::inp::moved_line,
                         "This line would be moved to the end of the file.");
                }
                kept.clear();
            } else if (!text.empty() && (!is_comment(text) || content_seen)) {
                kept.push_back(number);
            }
            content_seen = content_seen || (!text.empty() && !is_comment(text));
        }
    }

    // How many blank lines stand before each line outside of sections.
    static std::vector<std::size_t> blank_runs(const AIPData& data, const SourceLines& lines) {
        std::vector<std::size_t> runs;
        std::size_t blank = 0;
        for (const std::uint64_t number : top_level_lines(data, lines)) {
            if (trim_view(lines.line(number)).empty()) {
                ++blank;
            } else {
                runs.push_back(std::exchange(blank, 0));
            }
        }
        return runs;
    }

    void add_first_blank_line(const SourceLines& lines) {
        for (const std::uint64_t number : top_level_lines(data_, lines)) {
            if (trim_view(lines.line(number)).empty()) {
                note(lines.text_of(number), codes::inp::moved_blank_lines, "Blank lines would be laid out anew.");
                return;
            }
        }
    }

    const AIPData& data_;
    const InputSchema& schema_;
    const AIPData again_;
    std::vector<Finding> found_;
};

}  // namespace

std::vector<Finding> inexpressible(const AIPEditor& editor, std::string_view text, std::string_view rendered) {
    Changes changes(editor, rendered);
    changes.add_dropped_words(text);
    changes.compare();
    std::vector<Finding> found = changes.take();
    std::erase_if(found, [](const Finding& finding) { return finding.severity != IssueSeverity::Error; });
    return found;
}

std::vector<Finding> rendering_changes(const AIPEditor& editor, std::string_view text, std::string_view rendered) {
    Changes changes(editor, rendered);
    changes.add_dropped_words(text);
    changes.compare();
    changes.add_repairs();
    changes.add_moved_lines(SourceLines(text), SourceLines(rendered));
    return changes.take();
}

}  // namespace amesp_inp
