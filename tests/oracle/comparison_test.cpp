// The library against the model, over random schemas, texts and edits.
//
// VELK_ORACLE_DOCUMENTS sets how many of each are compared, VELK_ORACLE_SEED the first seed. A difference is reported
// with a shortened text and the whole schema.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "oracle/comparison.hpp"
#include "oracle/described.hpp"
#include "oracle/random_schema.hpp"
#include "oracle/random_text.hpp"

namespace velk::oracle {
namespace {

std::uint64_t setting(const char* variable, std::uint64_t usual) {
    const char* value = std::getenv(variable);
    return value != nullptr ? std::strtoull(value, nullptr, 10) : usual;
}

constexpr std::uint64_t texts_of_a_schema = 20;

using Difference = std::function<std::string(const std::string&, const TablesHandle&, const TablesHandle&)>;

// Compares `count` random texts, from one seed for each schema; stops at the first difference.
void compare(std::uint64_t count, const Difference& difference) {
    const std::uint64_t first_seed = setting("VELK_ORACLE_SEED", 1);
    for (std::uint64_t seed = first_seed; seed < first_seed + count / texts_of_a_schema; ++seed) {
        Chance chance(seed);
        const TablesHandle tables = random_schema(chance);
        const TablesHandle other = random_schema(chance);
        for (std::uint64_t number = 0; number < texts_of_a_schema; ++number) {
            const std::string text = random_text(chance);
            if (difference(text, tables, other).empty()) {
                continue;
            }
            const std::string shorter = shrunk(
                text, [&](const std::string& candidate) { return !difference(candidate, tables, other).empty(); });
            FAIL() << "seed " << seed << ", text" << quoted(shorter) << "\n"
                   << difference(shorter, tables, other) << "\nschema:\n"
                   << described(*tables) << "other schema:\n"
                   << described(*other);
        }
    }
}

TEST(Oracle, ReadsChecksAndWritesEveryRandomTextAsTheModelDoes) {
    compare(setting("VELK_ORACLE_DOCUMENTS", 100'000), difference_in_reading);
}

}  // namespace
}  // namespace velk::oracle
