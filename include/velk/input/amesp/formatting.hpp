// What rendering a document in canonical form would do to the text that it was read from.
#pragma once

#include <string_view>
#include <vector>

#include <velk/input/amesp/diagnostics.hpp>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/export.hpp>

namespace velk::input::amesp {

// In both, `rendered` is what `editor` renders its document to. Empty, a document that no text made, has no places.

// What canonical text cannot say: content that would be lost or read back as something else. All errors, in the order
// in which they are found; without a range where they concern the document as a whole.
VELK_AMESP_INP_EXPORT std::vector<Diagnostic> canonical_losses(const AIPEditor& editor, std::string_view text,
                                                               std::string_view rendered);

// The same with all that would only be moved, added, dropped or rounded, as warnings. The document must be as it was
// read from the text.
VELK_AMESP_INP_EXPORT std::vector<Diagnostic> canonical_changes(const AIPEditor& editor, std::string_view text,
                                                                std::string_view rendered);

// Whether a text has content, but no line that begins with '%', '!' or '>', and so means nothing in an AMESP input.
VELK_AMESP_INP_EXPORT bool is_other_format(std::string_view text);

}  // namespace velk::input::amesp
