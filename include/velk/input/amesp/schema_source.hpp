// A schema with what its files say beyond the tables that the library's rules are made from.
#pragma once

#include <string>
#include <vector>

#include <velk/input/amesp/schema.hpp>

namespace velk::input::amesp {

struct SchemaSource {
    InputSchema rules;
    std::vector<std::string> files;  // that it was read from, as they were named; empty for one made otherwise

    // Not explicit: where a source is asked for, a schema alone will do.
    SchemaSource(const InputSchema& schema) : rules(schema) {}
};

}  // namespace velk::input::amesp
