// The default schema from many threads at once. Each case runs in a process of its own: the default is made once.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>
#include <velk/core/fs.hpp>
#include <velk/input/amesp/schema.hpp>

#include "support/temp_dir.hpp"
#include "threads/at_once.hpp"

namespace velk::test {
namespace {

using namespace input::amesp;

constexpr std::size_t threads = 16;
constexpr const char* variable = "VELK_AMESP_INP_SCHEMA_YAML";
const std::string good = "directives: {fixed: }\n";
const std::string bad = "directives: [\n";

// The body of a child process: exits with 0 when `holds`.
#define EXPECT_IN_CHILD(statements) EXPECT_EXIT({statements}, testing::ExitedWithCode(0), "")

class DefaultSchemaOfThreads : public testing::Test {
protected:
    DefaultSchemaOfThreads() {
        testing::FLAGS_gtest_death_test_style = "threadsafe";
        ::setenv(variable, path().c_str(), 1);
        write_file(path(), bad);
    }
    ~DefaultSchemaOfThreads() override { ::unsetenv(variable); }

    std::string path() const { return dir_ / "schema.yaml"; }

private:
    const TempDir dir_;
};

// The default schema; null when loading it fails as it may.
const InputSchema* attempt() {
    try {
        return &default_schema();
    } catch (const std::runtime_error& error) {
        if (!std::string(error.what()).starts_with("failed to load AMESP input schema '")) {
            std::_Exit(3);
        }
        return nullptr;
    }
}

std::vector<const InputSchema*> attempts_at_once() {
    std::vector<const InputSchema*> seen(threads);
    at_once(threads, [&](std::size_t i) { seen[i] = attempt(); });
    return seen;
}

bool all_are(const std::vector<const InputSchema*>& seen, const InputSchema* expected) {
    return std::all_of(seen.begin(), seen.end(), [&](const InputSchema* one) { return one == expected; });
}

TEST_F(DefaultSchemaOfThreads, IsOneObjectForAll) {
    write_file(path(), good);
    EXPECT_IN_CHILD({
        const std::vector<const InputSchema*> seen = attempts_at_once();
        std::_Exit(all_are(seen, &default_schema()) && seen[0]->is_known_directive("fixed") ? 0 : 1);
    });
}

TEST_F(DefaultSchemaOfThreads, FailsForAllAndIsThenMadeForAll) {
    EXPECT_IN_CHILD({
        const bool failed = all_are(attempts_at_once(), nullptr) && all_are(attempts_at_once(), nullptr);
        write_file(path(), good);
        const std::vector<const InputSchema*> seen = attempts_at_once();
        const bool made = all_are(seen, &default_schema()) && seen[0]->is_known_directive("fixed");
        std::_Exit(failed && made ? 0 : 1);
    });
}

TEST_F(DefaultSchemaOfThreads, IsTriedAgainByEachUntilTheFileIsMended) {
    EXPECT_IN_CHILD({
        std::vector<const InputSchema*> seen(threads);
        std::atomic<std::size_t> failures = 0;
        at_once(threads + 1, [&](std::size_t i) {
            if (i == threads) {
                while (failures < threads) {
                    std::this_thread::yield();
                }
                core::fs::write_text_file_atomic(path(), good);
                return;
            }
            while ((seen[i] = attempt()) == nullptr) {
                ++failures;
            }
        });
        std::_Exit(all_are(seen, &default_schema()) && seen[0]->is_known_directive("fixed") ? 0 : 1);
    });
}

}  // namespace
}  // namespace velk::test
