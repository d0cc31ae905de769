// What follows from an 'end' that is missing or misspelt.
#include "diagnostics/swallowed_lines.hpp"

#include <algorithm>

#include <velk/core/text_view.hpp>

#include "model/geometry_names.hpp"
#include "parser/line.hpp"

namespace velk::input::amesp {
namespace {

// The section as it is read that holds a line.
const SectionLines& section_around(const LineTable& lines, std::size_t line) {
    const auto& sections = lines.sections();
    const auto after =
        std::upper_bound(sections.begin(), sections.end(), line,
                         [](std::size_t number, const SectionLines& section) { return number < section.header; });
    return *(after - 1);
}

bool is_placed_before_a_line(const EndFault& fault) {
    return fault.has_place && fault.swallowed;
}

std::size_t line_of(const EndFault& fault) {
    return is_placed_before_a_line(fault) ? *fault.swallowed : fault.header;
}

Extent extent_of(const LineTable& lines, std::size_t begin, std::size_t stop) {
    return {lines.begin_of(begin), lines.begin_of(stop) - lines.begin_of(begin)};
}

// Of one section as it is read, which holds the headers of others: every fault has the lines from its own to the next
// one's; the last, at the end of the text, only the header that is swallowed.
class Consequences {
public:
    Consequences(const DetectorInput& input, EndFinding& finding, const SectionLines& around, const EndFault* next)
        : input_(input), finding_(finding), around_(around), next_(next) {}

    void add() {
        const EndFault& fault = finding_.fault;
        finding_.is_never_ended = fault.header == around_.header && !around_.terminated;
        if (finding_.is_never_ended) {
            finding_.explains.push_back(codes::unterminated_section);
        }
        if (is_placed_before_a_line(fault)) {
            add_swallowed_lines(line_of(fault));
        } else if (fault.header != around_.header) {
            add_extent(fault.header, fault.header + 1);
        }
    }

private:
    void add_swallowed_lines(std::size_t begin) {
        const std::size_t stop = next_ == nullptr ? around_.stop : line_of(*next_);
        add_extent(begin, stop);
        const bool next_is_last = next_ != nullptr && !is_placed_before_a_line(*next_);
        if (next_is_last) {
            add_extent(stop + 1, around_.stop);
        }
        add_what_is_missing(begin, next_is_last ? around_.stop : stop);
    }

    void add_extent(std::size_t begin, std::size_t stop) {
        finding_.covers.push_back(extent_of(input_.lines, begin, stop));
    }

    void add_what_is_missing(std::size_t begin, std::size_t stop) {
        for (std::size_t line = begin; line < stop; ++line) {
            const std::string_view text = core::text::trim_view(input_.lines.raw(line));
            const LineKind kind = classify(text);
            if (kind == LineKind::method_line) {
                explain(codes::missing_method_line);
            } else if (kind == LineKind::section_header &&
                       is_geometry_section(input_.schema.rules.canonical_section(marked_name(text)))) {
                explain(codes::missing_geometry);
            }
        }
    }

    void explain(std::string_view code) {
        auto& explains = finding_.explains;
        if (std::find(explains.begin(), explains.end(), code) == explains.end()) {
            explains.push_back(code);
        }
    }

    const DetectorInput& input_;
    EndFinding& finding_;
    const SectionLines& around_;
    const EndFault* const next_;  // in the same section
};

}  // namespace

std::vector<EndFinding> find_end_findings(const DetectorInput& input) {
    const std::vector<EndFault> faults = find_end_faults(input.lines, input.schema.rules);
    std::vector<EndFinding> findings;
    findings.reserve(faults.size());
    for (std::size_t i = 0; i < faults.size(); ++i) {
        const SectionLines& around = section_around(input.lines, faults[i].header);
        const bool has_next = i + 1 < faults.size() && faults[i + 1].header < around.stop;
        findings.push_back({faults[i], false, {}, {}});
        Consequences(input, findings.back(), around, has_next ? &faults[i + 1] : nullptr).add();
    }
    return findings;
}

}  // namespace velk::input::amesp
