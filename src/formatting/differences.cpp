// Compares a document with what its rendering is read back as.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <string>

#include <velk/core/text_view.hpp>

#include "formatting/changes.hpp"
#include "model/coordinate_text.hpp"
#include "model/numbers.hpp"

namespace velk::input::amesp::formatting {
namespace {

using core::text::trim_view;

bool same_atom(const AtomRecord& a, const AtomRecord& b) {
    return a.symbol == b.symbol && same_number(rounded(a.x), b.x) && same_number(rounded(a.y), b.y) &&
           same_number(rounded(a.z), b.z);
}

class Comparison {
public:
    Comparison(Changes& changes, const AIPData& data, const AIPData& read_back, const InputSchema& schema)
        : changes_(changes), data_(data), again_(read_back), schema_(schema) {}

    void run() {
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

private:
    void report_difference(const std::optional<SourceLocation>& place) {
        changes_.lose(place, codes::inp::reads_differently,
                      "The canonical text of this would be read back as something else.");
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

    Changes& changes_;
    const AIPData& data_;
    const AIPData& again_;
    const InputSchema& schema_;
};

}  // namespace

double rounded(double value) {
    std::string text;
    append_fixed(text, value, coordinate_decimals);
    return read_real(text).value_or(value);
}

bool same_number(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) || std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

void add_differences(Changes& changes, const AIPData& data, const AIPData& read_back, const InputSchema& schema) {
    Comparison(changes, data, read_back, schema).run();
}

}  // namespace velk::input::amesp::formatting
