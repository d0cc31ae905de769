// Checks an input file, changes it and writes it back.
#include <iostream>
#include <velk/input/amesp.hpp>

int main() try {
    using namespace velk::input::amesp;
    const InputSchema& schema = default_schema();
    ParseResult input = AIPParser::parse_file("water.inp", schema, {.preserve_unknown = true, .validate = true});
    for (const ParseWarning& warning : input.data.warnings) {
        std::cout << (warning.location ? warning.location->line : 0) << ": " << warning.message << '\n';
    }
    if (!input.ok) {
        std::cout << input.error << '\n';
        return 1;
    }
    AIPEditor editor(std::move(input.data), schema);
    editor.set_directive("maxcore", "4000");
    editor.set_section_entry("scf", "maxcyc", "200");
    editor.write_file("water.inp");
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
