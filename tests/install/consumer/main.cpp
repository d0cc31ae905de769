// A program outside the tree: checks one input text against the default schema, through every public header.
#include <cstdio>
#include <string>
#include <vector>

#include <velk/core/fs.hpp>
#include <velk/core/resource.hpp>
#include <velk/core/text.hpp>
#include <velk/input/amesp.hpp>

#ifdef YAML_CPP_API
#error "a header of yaml-cpp has reached a consumer"
#endif

namespace {

using namespace velk::input::amesp;

// Finds a section without 'end', fixes it, and reports it.
bool findings_work(const InputSchema& schema) {
    const std::string text = "! hf sto-3g\n>scf\n  maxcyc 50\n>xyz 0 1\n  He 0 0 0\nend\n";
    const Diagnosis diagnosis = diagnose(text, schema);
    const FixResult fixed = fix_all(text, schema);
    const bool is_fixed = diagnosis.diagnostics.size() == 1 && fixed.remaining.diagnostics.empty() &&
                          apply(text, fixed.edits) == fixed.text;
    const FileFindings file{"job.inp", text, diagnosis.diagnostics};
    return is_fixed && text_report(file, false).starts_with("job.inp:4:1: error: ") &&
           json_report(file).find("\"fixes\":[{") != std::string::npos;
}

// An edit as an editor applies it.
bool edits_work(const InputSchema& schema) {
    const std::string text = "% maxcore 1000\n";
    AIPEditor editor(AIPParser::parse_string(text, schema, {}).data, schema);
    editor.set_directive("maxcore", "1500");
    const TextEdits made = editor.text_edits(text);
    return made.edits == std::vector<TextEdit>{{11, 1, "5"}} && apply(text, made.edits) == "% maxcore 1500\n";
}

}  // namespace

int main() {
    const InputSchema& schema = default_schema();
    if (schema.empty()) {
        std::puts("the installed schema was not found");
        return 1;
    }
    const ParseResult result = AIPParser::parse_string("! hf sto-3g\n>xyz 0 1\nH 0 0 0\nH 0 0 0.74\nend\n", schema,
                                                       {.preserve_unknown = true, .validate = true});
    AIPEditor editor(result.data, schema);
    editor.set_directive("maxcore", "1000");
    std::fputs(editor.render().c_str(), stdout);
    const XyzResult xyz = read_xyz("1\ncharge=0 multiplicity=1\nHe 0 0 0.5\n");
    if (!xyz.molecule || write_xyz(*xyz.molecule).find(coordinate_text(0.5)) == std::string::npos) {
        return 1;
    }
    if (!findings_work(schema) || !edits_work(schema)) {
        std::puts("findings or edits are not as they should be");
        return 1;
    }
    return result.ok && velk::core::text::trim(" x ") == "x" ? 0 : 1;
}
