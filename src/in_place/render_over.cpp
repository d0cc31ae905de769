// An edited document written into the text that it was read from.
#include <string>
#include <string_view>
#include <utility>

#include <velk/input/amesp/editor.hpp>

#include "in_place/line_table.hpp"
#include "in_place/patch.hpp"
#include "in_place/problems.hpp"
#include "in_place/revision.hpp"
#include "parser/reader.hpp"

namespace velk::input::amesp {
namespace {

using in_place::Revision;

// No operation changes these lists, and nothing tells where a change of them belongs.
void check_comments(Revision& revision, const AIPData& before, const AIPData& after) {
    if (before.header_comments != after.header_comments) {
        revision.problems.not_of_this_text("The list of header comments", std::nullopt);
    }
    if (before.preserved_lines != after.preserved_lines) {
        revision.problems.not_of_this_text("The list of preserved lines", std::nullopt);
    }
}

// Nothing can follow a section that has no end.
void close_open_section(Revision& revision) {
    const LineTable& lines = revision.lines;
    if (!lines.ends_in_open_section() || revision.patch.drops(lines.sections().back().header)) {
        return;
    }
    if (revision.close_open_section || revision.patch.appends()) {
        revision.patch.insert(lines.size(), InsertOrder::section_end, "end");
    }
}

}  // namespace

TextEdits AIPEditor::text_edits(std::string_view original, bool preserve_unknown) const {
    return text_edits(original, OverlayOptions{preserve_unknown, false});
}

TextEdits AIPEditor::text_edits(std::string_view original, const OverlayOptions& options) const {
    const AIPData before = read_document(original, schema_, options.preserve_unknown);
    const LineTable lines(original);
    Patch patch(lines);
    in_place::Problems problems;
    Revision revision{schema_, options.preserve_unknown, options.drop_header_words, lines, patch, problems};
    check_comments(revision, before, data_);
    edit_directives(revision, before, data_);
    edit_method_tokens(revision, before, data_);
    edit_sections(revision, before, data_);
    close_open_section(revision);
    return {patch.edits(), problems.take()};
}

OverlayResult AIPEditor::render_over(std::string_view original, bool preserve_unknown) const {
    return render_over(original, OverlayOptions{preserve_unknown, false});
}

OverlayResult AIPEditor::render_over(std::string_view original, const OverlayOptions& options) const {
    TextEdits made = text_edits(original, options);
    return {apply(original, made.edits), std::move(made.problems)};
}

}  // namespace velk::input::amesp
