// An edited document laid over the text that it was read from.
#include <string>
#include <string_view>

#include <velk/input/amesp/editor.hpp>

#include "overlay/line_table.hpp"
#include "overlay/overlay.hpp"
#include "overlay/patch.hpp"
#include "overlay/problems.hpp"
#include "parser/reader.hpp"

namespace velk::input::amesp {
namespace {

using overlay::Overlay;

// No operation changes these lists, and nothing tells where a change of them belongs.
void check_comments(Overlay& overlay, const AIPData& before, const AIPData& after) {
    if (before.header_comments != after.header_comments) {
        overlay.problems.not_of_this_text("The list of header comments", std::nullopt);
    }
    if (before.preserved_lines != after.preserved_lines) {
        overlay.problems.not_of_this_text("The list of preserved lines", std::nullopt);
    }
}

// Nothing can follow a section that has no end.
void close_open_section(Overlay& overlay) {
    const LineTable& lines = overlay.lines;
    if (!lines.ends_in_open_section() || overlay.patch.drops(lines.sections().back().header)) {
        return;
    }
    if (overlay.close_open_section || overlay.patch.appends()) {
        overlay.patch.insert(lines.size(), InsertOrder::section_end, "end");
    }
}

}  // namespace

OverlayResult AIPEditor::render_over(std::string_view original, bool preserve_unknown) const {
    return render_over(original, OverlayOptions{preserve_unknown, false});
}

OverlayResult AIPEditor::render_over(std::string_view original, const OverlayOptions& options) const {
    const AIPData before = read_document(original, schema_, options.preserve_unknown);
    const LineTable lines(original);
    Patch patch(lines);
    overlay::Problems problems;
    Overlay overlay{schema_, options.preserve_unknown, options.drop_header_words, lines, patch, problems};
    check_comments(overlay, before, data_);
    lay_directives(overlay, before, data_);
    lay_method_tokens(overlay, before, data_);
    lay_sections(overlay, before, data_);
    close_open_section(overlay);
    return {patch.assemble(), problems.take()};
}

}  // namespace velk::input::amesp
