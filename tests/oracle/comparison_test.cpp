// The library against the model, over random schemas, texts and edits.
//
// VELK_ORACLE_DOCUMENTS sets how many texts each test compares (100000, or 5000 under the address sanitizer),
// VELK_ORACLE_SEED the first seed. A difference is reported with a shortened text and the whole schema.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <string>

#include "oracle/comparison.hpp"
#include "oracle/described.hpp"
#include "oracle/random_schema.hpp"
#include "oracle/random_text.hpp"
#include "oracle/random_yaml.hpp"
#include "oracle/schema_reading_model.hpp"
#include "oracle/yaml_comparison.hpp"

#if defined(__has_feature)
#define VELK_ADDRESS_SANITIZER __has_feature(address_sanitizer)
#else
#define VELK_ADDRESS_SANITIZER 0
#endif

namespace velk::oracle {
namespace {

std::uint64_t setting(const char* variable, std::uint64_t usual) {
    const char* value = std::getenv(variable);
    return value != nullptr ? std::strtoull(value, nullptr, 10) : usual;
}

// The sanitizers find in fewer texts what is theirs to find; the comparison itself is the work of the plain build.
std::uint64_t documents() {
#if defined(__SANITIZE_ADDRESS__) || VELK_ADDRESS_SANITIZER
    constexpr std::uint64_t usual = 5'000;
#else
    constexpr std::uint64_t usual = 100'000;
#endif
    return setting("VELK_ORACLE_DOCUMENTS", usual);
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
    compare(documents(), difference_in_reading);
}

TEST(Oracle, EditsEveryRandomTextAsTheModelDoes) {
    std::uint64_t number = 0;
    std::uint64_t reported = 0;
    compare(documents(), [&](const std::string& text, const TablesHandle& tables, const TablesHandle& other) {
        // Once a text differs, the shorter ones are tried with the edits of that text.
        const std::uint64_t seed = reported != 0 ? reported : ++number;
        std::string difference = difference_in_editing(text, tables, other, seed);
        reported = reported == 0 && !difference.empty() ? seed : reported;
        return difference;
    });
}

TEST(Oracle, LoadsEveryRandomSchemaAsTheModelDoes) {
    Chance chance(setting("VELK_ORACLE_SEED", 1));
    std::uint64_t loaded = 0;
    const std::uint64_t count = documents() / 5;
    for (std::uint64_t number = 0; number < count; ++number) {
        const std::string yaml = random_yaml(chance);
        ASSERT_EQ(difference_in_loading(yaml), "") << yaml;
        ASSERT_EQ(difference_in_yaml(yaml), "") << yaml;
        loaded += read_schema(yaml).tables != nullptr ? 1U : 0U;
    }
    EXPECT_GT(loaded, count / 4);  // most of them are not refused by both
    EXPECT_LT(loaded, count);
}

}  // namespace
}  // namespace velk::oracle
