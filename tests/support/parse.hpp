// Short forms of parsing for tests.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp/parser.hpp>

#include "support/sample_schema.hpp"

namespace velk::test {

inline input::amesp::AIPData parse(std::string_view text, const input::amesp::InputSchema& schema = sample_schema()) {
    const auto result = input::amesp::AIPParser::parse_string(text, schema, {true, false});
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.error, "");
    return result.data;
}

// The same with what the schema does not know left out.
inline input::amesp::AIPData parse_known(std::string_view text,
                                         const input::amesp::InputSchema& schema = sample_schema()) {
    return input::amesp::AIPParser::parse_string(text, schema, {false, false}).data;
}

// "CODE@LINE" of each.
inline std::vector<std::string> codes(const std::vector<input::amesp::ParseWarning>& warnings) {
    std::vector<std::string> list;
    for (const auto& warning : warnings) {
        list.push_back(warning.code + "@" + (warning.location ? std::to_string(warning.location->line) : "none"));
    }
    return list;
}

}  // namespace velk::test
