// Headers of geometries that give charge and multiplicity in another way.
#include "diagnostics/bad_header.hpp"

#include <string>
#include <utility>

#include <velk/core/text_view.hpp>

#include "diagnostics/charge_words.hpp"
#include "diagnostics/lines_of_text.hpp"
#include "diagnostics/shown_name.hpp"
#include "diagnostics/subjects.hpp"
#include "model/geometry_names.hpp"
#include "model/numbers.hpp"

namespace velk::input::amesp {
namespace {

using core::text::take_word;
using core::text::trim_view;

std::string two_integers(std::int32_t charge, std::int32_t multiplicity) {
    std::string text;
    append_integer(text, charge);
    text += ' ';
    append_integer(text, multiplicity);
    return text;
}

Detected detected(const DetectorInput& input, std::size_t line, std::string_view wrong, std::string message) {
    Detected found = finding_in(input, line, wrong, Severity::error, codes::inp::bad_header, std::move(message));
    found.diagnostic.subject = {std::string(subjects::section), {}, std::string(xyz_section)};
    found.covers = {{found.diagnostic.range->offset, found.diagnostic.range->length}};
    found.explains = {codes::invalid_xyz_header};
    return found;
}

void advise(Diagnostic& diagnostic, const std::string& numbers, std::vector<TextEdit> edits) {
    diagnostic.help.emplace_back("write '>xyz " + numbers + "'");
    diagnostic.fixes.push_back(
        {"write charge and multiplicity as two integers", Applicability::likely, std::move(edits)});
}

Detections with_other_words(const DetectorInput& input, std::size_t line, const ChargeWords& words) {
    Detected found =
        detected(input, line, words.wrong,
                 "Charge and multiplicity are two integers, which " + shown_name(words.wrong) + " is not.");
    const std::string numbers = two_integers(words.charge, words.multiplicity);
    advise(found.diagnostic, numbers, {edit_of(input.lines, words.text, numbers)});
    return {std::move(found)};
}

// Both integers on the first line of the body; that line goes.
Detections with_integers_below(const DetectorInput& input, std::size_t header, std::string_view name) {
    std::size_t line = header + 1;
    while (line < input.lines.size() && input.lines.is_blank(line)) {
        ++line;
    }
    const std::string_view raw = line < input.lines.size() ? input.lines.raw(line) : std::string_view();
    const std::string_view text = trim_view(raw);
    std::string_view rest = text;
    const std::optional<std::int32_t> charge = read_int32(take_word(rest));
    const std::optional<std::int32_t> multiplicity = read_int32(take_word(rest));
    if (!charge || !multiplicity || *multiplicity < 1 || !trim_view(rest).empty()) {
        return {};
    }
    Detected found = detected(input, line, text, "Charge and multiplicity belong into the header.");
    found.covers = {extent_of(input.lines, line)};
    found.diagnostic.related.push_back({"the header is here", range_of_line(input.text, header + 1), {}});
    const std::string numbers = two_integers(*charge, *multiplicity);
    const auto after_name = static_cast<std::uint64_t>(name.data() + name.size() - input.lines.text().data());
    const Extent whole = extent_of(input.lines, line);
    advise(found.diagnostic, numbers, {{after_name, 0, " " + numbers}, {whole.offset, whole.length, {}}});
    return {std::move(found)};
}

Detections in_header(const DetectorInput& input, const Section& section) {
    const std::size_t line = section.location->line - 1;
    std::string_view rest = trim_view(input.lines.raw(line)).substr(1);
    const std::string_view name = take_word(rest);
    const std::string_view words = trim_view(rest);
    if (words.empty()) {
        return with_integers_below(input, line, name);
    }
    const std::optional<ChargeWords> read = read_charge_words(words);
    return read ? with_other_words(input, line, *read) : Detections();
}

}  // namespace

Detections find_bad_headers(const DetectorInput& input) {
    Detections found;
    for (const Section& section : input.document.sections) {
        if (!section.known || section.name != xyz_section || (section.charge && section.multiplicity)) {
            continue;
        }
        for (Detected& each : in_header(input, section)) {
            found.push_back(std::move(each));
        }
    }
    return found;
}

}  // namespace velk::input::amesp
