// Reads AMESP input text.
#pragma once

#include <string>
#include <string_view>

#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/export.hpp>
#include <velk/input/amesp/schema.hpp>

namespace velk::input::amesp {

// Keeps no state between calls; all operations may run on any number of threads at once.
class AIPParser {
public:
    // Reads `text` into a document that owns all it holds. No content is rejected: what is not understood becomes a
    // warning and is kept or dropped as `options` say. Throws nothing but std::bad_alloc. Time and memory are
    // proportional to the text.
    VELK_AMESP_INP_EXPORT static ParseResult parse_string(std::string_view text, const InputSchema& schema,
                                                          const ParseOptions& options);

    // The same for a file. A file that cannot be read gives `ok` false, an empty document and an `error` that
    // begins "failed to read AMESP input '"; it is never an exception.
    VELK_AMESP_INP_EXPORT static ParseResult parse_file(const std::string& path, const InputSchema& schema,
                                                        const ParseOptions& options);

    // Whether `text` looks like AMESP input: its last '!' line holds a token, and some '>' line names a geometry
    // (xyz, zmat, zmatrix, z-matrix, coord or coordinates). Needs no schema; one pass, does not allocate.
    VELK_AMESP_INP_EXPORT static bool looks_like_amesp_input(std::string_view text);
};

}  // namespace velk::input::amesp
