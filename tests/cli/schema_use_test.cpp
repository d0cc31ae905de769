// Which schema a run uses, and what it says of that.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/run_program.hpp"

namespace velk::test {
namespace {

using testing::HasSubstr;
using testing::Not;

const std::string good = "! hf sto-3g\n>xyz 0 1\nH 0 0 0\nend\n";

// A directory with a schema where the user's own is looked for.
class UserSchema : public testing::Test {
protected:
    UserSchema() {
        std::filesystem::create_directories(dir_ / "velk/schemas/input");
        write_file(path_, "method_tokens: {hf: , sto-3g: }\nsections: {xyz: {parse_mode: xyz}}\n");
        write_file(dir_ / "a.inp", good);
    }

    ProgramRun run(const std::vector<std::string>& arguments, const std::string& variable) const {
        return run_program(
            arguments,
            {.input = good, .environment = {"XDG_DATA_HOME=" + dir_.path(), "VELK_AMESP_INP_SCHEMA_YAML=" + variable}});
    }

    const TempDir dir_;
    const std::string path_ = dir_ / "velk/schemas/input/amesp.yaml";
};

TEST_F(UserSchema, IsNamedOnceWhereTheEnvironmentNamesNoFile) {
    for (const char* const verb : {"check", "show", "fmt", "set"}) {
        const ProgramRun done = run({verb, "-"}, dir_ / "none.yaml");
        EXPECT_EQ(done.status, 0) << verb;
        const std::string warning = "amesp-inp: VELK_AMESP_INP_SCHEMA_YAML names '" + (dir_ / "none.yaml") +
                                    "', which is no regular file; the schema in use is '" + path_ + "'\n";
        EXPECT_THAT(done.err, HasSubstr(warning)) << verb;
        EXPECT_EQ(done.err.find("VELK_", done.err.find("VELK_") + 1), std::string::npos) << verb;
        EXPECT_EQ(done.out, run({verb, "-"}, "").out) << verb;
    }
    EXPECT_THAT(run({"fmt", "-"}, dir_.path()).err, HasSubstr("which is no regular file"));
}

TEST_F(UserSchema, IsNotSpokenOfWhereNothingIsWrong) {
    EXPECT_EQ(run({"fmt", "-"}, "").err, "");
    EXPECT_EQ(run({"fmt", "-"}, path_).err, "");
    EXPECT_EQ(run({"fmt", "--schema", path_, "-"}, "none.yaml").err, "");
}

TEST_F(UserSchema, IsNamedWhenAsked) {
    for (const char* const verb : {"check", "show", "fmt", "set"}) {
        EXPECT_THAT(run({verb, "--verbose", "-"}, "").err, HasSubstr("amesp-inp: schema: " + path_ + "\n")) << verb;
        EXPECT_THAT(run({verb, "-"}, "").err, Not(HasSubstr(path_))) << verb;
    }
    EXPECT_EQ(run({"get", "--verbose", "-", "!"}, path_).err, "amesp-inp: schema: " + path_ + "\n");
}

TEST_F(UserSchema, IsNamedInJson) {
    EXPECT_EQ(nlohmann::json::parse(run({"check", "--format", "json", "-"}, "").out)["schema"], path_);
    EXPECT_EQ(nlohmann::json::parse(run({"show", "-"}, "").out)["schema"], path_);
}

}  // namespace
}  // namespace velk::test
