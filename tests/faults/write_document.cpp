// Writes a small document to the file named on the command line through the library, for the tests to disturb.
#include <cstdio>
#include <exception>
#include <velk/input/amesp/editor.hpp>

int main(int argc, char** argv) {
    using namespace velk::input::amesp;
    if (argc != 2) {
        return 2;
    }
    AIPEditor editor({}, InputSchema());
    editor.add_method_token("hf");
    try {
        editor.write_file(argv[1]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
