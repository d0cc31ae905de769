// A program outside the tree: checks one input text against the default schema, through every public header.
#include <cstdio>

#include <velk/core/fs.hpp>
#include <velk/core/resource.hpp>
#include <velk/core/text.hpp>
#include <velk/input/amesp.hpp>

#ifdef YAML_CPP_API
#error "a header of yaml-cpp has reached a consumer"
#endif

int main() {
    using namespace velk::input::amesp;
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
    return result.ok && velk::core::text::trim(" x ") == "x" ? 0 : 1;
}
