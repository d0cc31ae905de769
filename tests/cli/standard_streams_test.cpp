// Every verb with every combination of closed standard streams: no file takes the number of one, so that nothing that
// is printed ends up in a file, and what could not be printed or read makes the exit status 2.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/resource.h>

#include <algorithm>
#include <filesystem>
#include <map>

#include "../tools/cli/standard_streams.hpp"
#include "support/run_program.hpp"

namespace velk::test {
namespace {

const std::string unfixed = "% maxcor 2000\n! HF sto-3g\n>scf\n  maxcyc 50\n>xyz 0 1\nHe 0 0 0\n";
const std::string sound = "! hf sto-3g\n\n>xyz 0 1\n  He 0.0000000000 0.0000000000 0.0000000000\nend\n";

struct Verb {
    const char* name;
    std::vector<std::string> words;
    bool reads_standard_input = false;
};

std::vector<std::string> many_files() {
    std::vector<std::string> words = {"check", "--fix", "-j", "3"};
    for (int i = 0; i < 30; ++i) {
        words.push_back("fix/" + std::to_string(i) + ".inp");
    }
    return words;
}

const std::vector<Verb> verbs = {
    {"Check", {"check", "a.inp", "b.inp", "missing.inp"}},
    {"CheckQuiet", {"check", "-q", "b.inp"}},
    {"CheckJson", {"check", "--format", "json", "a.inp"}},
    {"CheckStandardInput", {"check", "-"}, true},
    {"CheckFix", many_files()},
    {"CheckFixMissing", {"check", "--fix", "-j", "3", "a.inp", "missing.inp", "b.inp"}},
    {"CheckFixDiff", {"check", "--fix=all", "--diff", "a.inp"}},
    {"Explain", {"explain", "amesp.invalid_value"}},
    {"ExplainUnknown", {"explain", "none"}},
    {"Show", {"show", "a.inp"}},
    {"ShowStandardInput", {"show", "-"}, true},
    {"Fmt", {"fmt", "a.inp"}},
    {"FmtInPlace", {"fmt", "-i", "a.inp", "b.inp", "c.inp"}},
    {"FmtInPlaceMissing", {"fmt", "-i", "c.inp", "missing.inp"}},
    {"FmtCheck", {"fmt", "--check", "a.inp", "b.inp"}},
    {"Get", {"get", "b.inp", "!", "nothing"}},
    {"Set", {"set", "-", "--directive", "maxcore=1"}, true},
    {"SetInPlace", {"set", "-i", "a.inp", "b.inp", "c.inp", "--directive", "unknown=1"}},
    {"SetInPlaceMissing", {"set", "-i", "a.inp", "missing.inp", "b.inp", "--directive", "maxcore=1"}},
    {"SetInvalid", {"set", "-i", "b.inp", "--directive", "maxcore=many"}},
    {"SetOutput", {"set", "b.inp", "-o", "new.inp", "--directive", "maxcore=1"}},
    {"GeomOut", {"geom", "b.inp", "--to-xyz", "new.xyz"}},
    {"GeomIn", {"geom", "-i", "b.inp", "--from-xyz", "m.xyz"}},
    {"GeomInBad", {"geom", "-i", "b.inp", "--from-xyz", "bad.xyz"}},
    {"New", {"new", "--geometry", "m.xyz", "--method", "hf sto-3g", "-o", "new.inp"}},
    {"NewStandardInput", {"new", "--geometry", "-", "--method", "hf sto-3g", "-o", "new.inp"}, true},
    {"NewInvalid", {"new", "--geometry", "m.xyz", "--method", "hff sto-3g", "-o", "new.inp"}},
    {"Help", {"set", "--help"}},
    {"Version", {"--version"}},
    {"UsageError", {"set", "--no-such-option"}},
};

using Files = std::map<std::string, std::string>;

class Scene {
public:
    Scene() {
        const std::string xyz = "1\ncharge=0 multiplicity=1\nHe 0 0 1\n";
        std::filesystem::create_directory(dir_ / "fix");
        for (int i = 0; i < 30; ++i) {
            write_file(dir_ / ("fix/" + std::to_string(i) + ".inp"), unfixed);
        }
        for (const auto& [name, content] :
             Files{{"a.inp", unfixed}, {"b.inp", sound}, {"c.inp", "!HF\n"}, {"m.xyz", xyz}, {"bad.xyz", "many\n"}}) {
            write_file(dir_ / name, content);
        }
    }

    ProgramRun run(const Verb& verb, const std::vector<int>& closed) const {
        const std::string input = verb.words.front() == "new" ? read_file(dir_ / "m.xyz") : sound;
        return run_program(verb.words, {.input = input,
                                        .directory = dir_.path(),
                                        .environment = {"VELK_AMESP_INP_SCHEMA_YAML=" VELK_SOURCE_DIRECTORY
                                                        "/schemas/input/amesp.yaml"},
                                        .closed_streams = closed});
    }

    Files files() const {
        Files files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(dir_.path())) {
            if (entry.is_regular_file()) {
                files[entry.path().lexically_relative(dir_.path()).string()] = read_file(entry.path().string());
            }
        }
        return files;
    }

private:
    const TempDir dir_;
};

class ClosedStreams : public testing::TestWithParam<Verb> {};

TEST_P(ClosedStreams, LetNoMessageIntoAFile) {
    const Verb& verb = GetParam();
    const Scene untouched;
    const Scene usual_scene;
    const ProgramRun usual = usual_scene.run(verb, {});
    ASSERT_NE(usual.status, -1);
    for (int combination = 1; combination < 8; ++combination) {
        std::vector<int> closed;
        for (const int stream : {0, 1, 2}) {
            if ((combination & (1 << stream)) != 0) {
                closed.push_back(stream);
            }
        }
        SCOPED_TRACE(testing::PrintToString(closed));
        const auto is_closed = [&](int stream) { return std::count(closed.begin(), closed.end(), stream) == 1; };
        const bool unread = verb.reads_standard_input && is_closed(0);
        const bool unwritten = (is_closed(1) && !usual.out.empty()) || (is_closed(2) && !usual.err.empty());
        const Scene scene;
        const ProgramRun run = scene.run(verb, closed);
        EXPECT_EQ(run.status, unread || unwritten ? 2 : usual.status) << run.err;
        EXPECT_EQ(scene.files(), unread ? untouched.files() : usual_scene.files());
        if (!unread) {
            EXPECT_EQ(run.out, is_closed(1) ? "" : usual.out);
        } else if (!is_closed(2)) {
            EXPECT_THAT(run.err, testing::HasSubstr("cannot read '<stdin>': Bad file descriptor"));
        }
        if (is_closed(1) && !usual.out.empty() && !unread && !is_closed(2)) {
            EXPECT_THAT(run.err, testing::HasSubstr("amesp-inp: cannot write to standard output\n"));
        }
    }
}

// How a stream of this process is open: for what, or -1.
int mode_of(int stream) {
    const int flags = ::fcntl(stream, F_GETFL);
    return flags == -1 ? -1 : flags & O_ACCMODE;
}

// In a process of its own, whose exit status is that of `body`.
template <class Body>
int in_child(Body body) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(body());
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(StandardStreams, ThatAreClosedAreHeldSoThatUsingThemFails) {
    for (int combination = 0; combination < 8; ++combination) {
        const auto is_closed = [&](int stream) { return (combination & (1 << stream)) != 0; };
        const int wrong = in_child([&] {
            const int usual = ::open("/dev/full", O_RDWR);
            for (const int stream : {0, 1, 2}) {
                ::dup2(usual, stream);
            }
            for (const int stream : {0, 1, 2}) {
                if (is_closed(stream)) {
                    ::close(stream);
                }
            }
            bool right = amesp_inp::hold_standard_streams();
            for (const int stream : {0, 1, 2}) {
                right = right && mode_of(stream) == (!is_closed(stream) ? O_RDWR : stream == 0 ? O_WRONLY : O_RDONLY);
            }
            return right ? 0 : 1;
        });
        EXPECT_EQ(wrong, 0) << combination;
    }
}

TEST(StandardStreams, ThatCannotBeHeldAreReported) {
    EXPECT_EQ(in_child([] {
                  const struct rlimit none = {0, 0};
                  ::setrlimit(RLIMIT_NOFILE, &none);
                  ::close(1);
                  return amesp_inp::hold_standard_streams() ? 1 : 0;
              }),
              0);
}

// What the number of a stream that was closed stands for can be opened by the name of the number.
TEST(StandardStreams, AreHeldByTheProgram) {
    const ProgramRun run =
        run_program({"check", "-q", "/proc/self/fd/0"},
                    {.environment = {"VELK_AMESP_INP_SCHEMA_YAML=" VELK_SOURCE_DIRECTORY "/schemas/input/amesp.yaml"},
                     .closed_streams = {0}});
    EXPECT_EQ(run.status, 1) << run.err;
    EXPECT_THAT(run.out, testing::HasSubstr("amesp.missing_method"));
}

INSTANTIATE_TEST_SUITE_P(Verbs, ClosedStreams, testing::ValuesIn(verbs),
                         [](const auto& verb) { return std::string(verb.param.name); });

}  // namespace
}  // namespace velk::test
