// The schema that a run of the program uses.
#pragma once

#include <string>
#include <velk/input/amesp/schema.hpp>

namespace amesp_inp {

// What the command line says of it.
struct SchemaOptions {
    std::string path;  // empty: the default one
    bool verbose = false;
};

// The file of the schema to use. Says on standard error which it is when asked, and when the environment names another
// that is no file. Throws std::runtime_error, with a message that says where a schema was looked for, when there is
// none to be had.
std::string find_schema(const SchemaOptions& options);

// The schema of a file. Throws std::runtime_error with what is wrong with it, and std::bad_alloc, which the library
// takes for one more thing that is wrong with the file.
velk::input::amesp::InputSchema load_schema_file(const std::string& path);

}  // namespace amesp_inp
