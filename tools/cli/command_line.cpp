// The one file that knows how options are written: the table of verbs, their options and their help.
#include "command_line.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <velk/input/amesp/diagnostics.hpp>

#include "check.hpp"
#include "exhausted_memory.hpp"
#include "exit_status.hpp"
#include "explain.hpp"
#include "fmt.hpp"
#include "geom.hpp"
#include "get.hpp"
#include "new.hpp"
#include "output.hpp"
#include "set.hpp"
#include "show.hpp"
#include "usage_error.hpp"

namespace amesp_inp {
namespace {

using Run = std::function<int()>;

// Options that outlive the reading of the command line, since what is run refers to them.
template <class Options>
std::shared_ptr<Options> call_with_options(CLI::App& verb, Run& run, int (*call)(const Options&)) {
    auto options = std::make_shared<Options>();
    verb.callback([options, call, &run] { run = [options, call] { return call(*options); }; });
    return options;
}

// What names input files besides words of the command line, and which of a directory are taken.
CLI::Option* add_other_inputs(CLI::App& verb, InputOptions& options) {
    auto* const list = verb.add_option("--files-from", options.list_path,
                                       "More of them from this file, one a line or with a NUL byte after each; - is "
                                       "standard input")
                           ->type_name("LIST");
    verb.add_option("--pattern", options.patterns, "Files to take from directories (default: *.inp *.aip)")
        ->type_name("GLOB")
        ->expected(1)
        ->take_all();
    verb.add_option("--exclude", options.excluded,
                    "Files and folders to leave out of directories, by name or by path below the directory")
        ->type_name("GLOB")
        ->expected(1)
        ->take_all();
    verb.add_flag("--allow-empty", options.may_be_empty, "A directory or a list without a file is no error");
    verb.add_option("--stdin-filename", options.stdin_name, "What messages call standard input")->type_name("NAME");
    return list;
}

// Of each of the words that are files, the option with a value that it could go on with, if that stands right before
// it.
std::vector<InputOptions::Before> what_stands_before(const CLI::App& verb, const CLI::Option* files) {
    std::vector<InputOptions::Before> before;
    InputOptions::Before last;
    std::map<const CLI::Option*, std::size_t> used;
    for (const CLI::Option* const option : verb.parse_order()) {
        const std::size_t use = used[option]++;
        const std::string name = option->get_name();
        const bool takes_many_words = name == "--method" || name == "--directive" || name == "--entry";
        if (option != files) {
            last = {takes_many_words || name == "--fix" ? name : "", takes_many_words ? option->results()[use] : ""};
            continue;
        }
        const std::string& word = files->results()[use];
        if (last.option == "--fix" && word != "all" && word != "certain") {
            last = {};
        }
        before.push_back(std::exchange(last, {}));
    }
    return before;
}

void add_input_options(CLI::App& verb, InputOptions& options) {
    auto* const files = verb.add_option("FILE", options.paths, "Input files or directories; - is standard input");
    auto* const list = add_other_inputs(verb, options);
    verb.parse_complete_callback([files, list, &verb, &options] {
        if (files->empty() && list->empty()) {
            throw CLI::RequiredError("FILE or --files-from");
        }
        options.before = what_stands_before(verb, files);
    });
}

void add_input_file(CLI::App& verb, std::string& path) {
    verb.add_option("FILE", path, "Input file; - is standard input")->required();
}

void add_schema_options(CLI::App& verb, SchemaOptions& options) {
    verb.add_option("--schema", options.path, "Schema file (default: the one that is installed, see the README)")
        ->type_name("FILE");
    verb.add_flag("--verbose", options.verbose, "Say on standard error which schema is used");
}

void add_color_option(CLI::App& verb, std::string& color) {
    verb.add_option("--color", color, "Colours in findings (default: auto; NO_COLOR is heeded)")
        ->check(CLI::IsMember({"auto", "always", "never"}));
}

CLI::Option* add_format_option(CLI::App& verb, std::string& format) {
    return verb.add_option("--format", format, "How findings are printed (default: text)")
        ->check(CLI::IsMember({"text", "json"}));
}

// How the findings of an edit are printed.
void add_finding_options(CLI::App& verb, FindingStyle& style) {
    add_format_option(verb, style.format);
    add_color_option(verb, style.color);
    verb.add_flag("-q,--quiet", style.quiet, "No warnings and no summary");
}

CLI::Option* add_diff_option(CLI::App& verb, bool& diff, const char* help) {
    return verb.add_flag("--diff,--dry-run", diff, help);
}

void add_edit_options(CLI::App& verb, EditOutput& output) {
    add_finding_options(verb, output.findings);
    verb.add_flag("-i,--in-place", output.in_place, "Rewrite the files");
    verb.add_flag("--force", output.force,
                  "Write also where content is lost, the input becomes invalid or the file is guarded");
}

CLI::Option* add_canonical_option(CLI::App& verb, bool& canonical) {
    return verb.add_flag("--canonical", canonical, "Write the whole text in canonical form, not the changes alone");
}

void add_other_outputs(CLI::App& verb, EditOutput& output) {
    verb.add_option("-o,--output", output.path, "Write to this file")
        ->type_name("OUT")
        ->excludes(verb.get_option("--in-place"));
    add_diff_option(verb, output.diff, "Print the change, for patch -p1, and write nothing");
}

// Of which --frame asks for `file`, the option that names an XYZ file.
void add_geometry_options(CLI::App& verb, GeometryOptions& options, const char* file) {
    verb.add_option("--charge", options.charge, "Charge of the geometry")->type_name("Q");
    verb.add_option("--multiplicity", options.multiplicity, "Spin multiplicity of the geometry")->type_name("M");
    const auto choose = [&options](const std::string& text) {
        const std::optional<std::uint64_t> frame = frame_of(text);
        if (!frame) {
            throw CLI::ValidationError("--frame", "'" + text + "' is neither a number from 1 on nor 'last'");
        }
        options.frame = *frame;
    };
    verb.add_option_function<std::string>("--frame", choose, "Which frame of an XYZ file that holds several")
        ->type_name("N|last")
        ->needs(verb.get_option(file));
}

void add_drop_option(CLI::App& verb, bool& drop, const char* geometry) {
    verb.add_flag("--drop-words", drop, "Leave out the words after charge and multiplicity of the old geometry")
        ->needs(verb.get_option(geometry));
}

void charge_options_need(CLI::App& verb, const char* option) {
    for (const char* const of_charge : {"--charge", "--multiplicity"}) {
        verb.get_option(of_charge)->needs(verb.get_option(option));
    }
}

// The option of each kind of edit; the order among them is kept in the order of the edits.
class EditOptions {
public:
    EditOptions(CLI::App& verb, const std::vector<EditKind>& kinds) : verb_(verb) {
        for (const EditKind kind : kinds) {
            const EditName& name = name_of(kind);
            auto* const option = verb.add_option(name.option)->description(name.help)->type_name(name.argument);
            option->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
            options_.push_back({kind, option});
        }
    }

    std::vector<Edit> in_order() const {
        std::vector<Edit> edits;
        std::vector<std::size_t> used(options_.size());
        for (const CLI::Option* const parsed : verb_.parse_order()) {
            for (std::size_t i = 0; i < options_.size(); ++i) {
                if (options_[i].option == parsed) {
                    edits.push_back({options_[i].kind, parsed->results()[used[i]++]});
                }
            }
        }
        return edits;
    }

private:
    struct EditOption {
        EditKind kind;
        CLI::Option* option;
    };

    const CLI::App& verb_;
    std::vector<EditOption> options_;
};

// Adds the options of the edits, and has them filled in before the verb is run.
template <class Options>
void add_edits(CLI::App& verb, Run& run, const std::shared_ptr<Options>& options, const std::vector<EditKind>& kinds,
               int (*call)(const Options&)) {
    verb.callback([edit_options = EditOptions(verb, kinds), options, call, &run] {
        options->edits.in_order = edit_options.in_order();
        run = [options, call] { return call(*options); };
    });
    add_geometry_options(verb, options->edits.geometry, "--geometry");
}

void add_check(CLI::App& verb, Run& run) {
    const auto options = call_with_options(verb, run, run_check);
    add_input_options(verb, options->inputs);
    add_schema_options(verb, options->schema);
    auto* const format = add_format_option(verb, options->format);
    verb.add_option("--fail-on", options->fail_on, "Findings that make the exit status 1 (default: error)")
        ->check(CLI::IsMember({"error", "warning", "never"}));
    add_color_option(verb, options->color);
    auto* const fix =
        verb.add_flag("--fix{certain}", options->fix,
                      "Fix the files, then check them: what is certain; with --fix=all also what is likely")
            ->check(CLI::IsMember({"certain", "all"}));
    add_diff_option(verb, options->diff,
                    "Print the fixes, for patch -p1, and write nothing; findings go to standard error")
        ->needs(fix)
        ->excludes(format);
    verb.add_flag("--force", options->force, "Fix also a file that is write-protected or has several hard links")
        ->needs(fix);
    add_canonical_option(verb, options->canonical)->needs(fix);
    verb.add_flag("-q,--quiet", options->quiet, "No summary and no progress bar");
    verb.add_option("-j,--jobs", options->threads, "Worker threads (default: the number of processors)")
        ->type_name("N")
        ->check(CLI::Range(1U, 1024U));
}

void add_explain(CLI::App& verb, Run& run) {
    const auto options = call_with_options(verb, run, run_explain);
    verb.add_option("CODE", options->code, "The code in brackets at the end of a finding");
}

void add_show(CLI::App& verb, Run& run) {
    const auto options = call_with_options(verb, run, run_show);
    add_input_options(verb, options->inputs);
    add_schema_options(verb, options->schema);
}

void add_fmt(CLI::App& verb, Run& run) {
    const auto options = call_with_options(verb, run, run_fmt);
    add_input_options(verb, options->inputs);
    add_schema_options(verb, options->schema);
    add_edit_options(verb, options->output);
    verb.add_flag("--check", options->check,
                  "List the files that would change or be refused, with --diff also how and why; "
                  "exit status 1 if there are any");
    add_diff_option(verb, options->output.diff, "Print the change, for patch -p1, and write nothing");
}

// The first word is the file, unless files are given elsewhere.
struct GetWords {
    std::string first;
    std::vector<std::string> others;
};

GetOptions completed(GetOptions options, const GetWords& words) {
    const bool has_files = !options.inputs.paths.empty() || !options.inputs.list_path.empty();
    if (words.first.empty()) {
        throw CLI::RequiredError(has_files ? "KEY" : "FILE");
    }
    (has_files ? options.keys : options.inputs.paths).push_back(words.first);
    options.keys.insert(options.keys.end(), words.others.begin(), words.others.end());
    if (options.keys.empty()) {
        throw CLI::RequiredError("KEY");
    }
    options.names = options.names || has_files;
    return options;
}

void add_get(CLI::App& verb, Run& run) {
    const auto options = std::make_shared<GetOptions>();
    const auto words = std::make_shared<GetWords>();
    verb.add_option("FILE", words->first, "Input file; - is standard input");
    verb.add_option("KEY", words->others, "What to print, one line each; sections, atoms and kept lines take several");
    verb.add_option("--files", options->inputs.paths, "Input files or directories, after the keys; implies --names")
        ->type_name("FILE");
    add_other_inputs(verb, options->inputs);
    verb.add_flag("--names", options->names, "Print file, key and value, with tabs between");
    verb.add_option("--format", options->format, "How values are printed (default: text)")
        ->check(CLI::IsMember({"text", "json", "csv"}));
    add_schema_options(verb, options->schema);
    verb.callback(
        [options, words, &run] { run = [completed = completed(*options, *words)] { return run_get(completed); }; });
}

void add_set(CLI::App& verb, Run& run) {
    const auto options = std::make_shared<SetOptions>();
    add_input_options(verb, options->inputs);
    add_schema_options(verb, options->schema);
    add_edits(verb, run, options,
              {EditKind::set_directive, EditKind::unset_directive, EditKind::set_method, EditKind::add_token,
               EditKind::remove_token, EditKind::set_entry, EditKind::unset_entry, EditKind::remove_section,
               EditKind::set_geometry},
              run_set);
    add_drop_option(verb, options->output.drop_words, "--geometry");
    add_edit_options(verb, options->output);
    add_canonical_option(verb, options->output.canonical);
    add_other_outputs(verb, options->output);
}

void add_geom(CLI::App& verb, Run& run) {
    const auto options = std::make_shared<GeomOptions>();
    add_input_file(verb, options->path);
    add_schema_options(verb, options->schema);
    auto* const to = verb.add_option("--to-xyz", options->to_xyz, "Write the geometry to this file")->type_name("OUT");
    auto* const from =
        verb.add_option("--from-xyz", options->from_xyz, "Take the geometry from this file")->type_name("MOL.xyz");
    to->excludes(from);
    add_geometry_options(verb, options->geometry, "--from-xyz");
    charge_options_need(verb, "--from-xyz");
    add_drop_option(verb, options->output.drop_words, "--from-xyz");
    add_edit_options(verb, options->output);
    add_canonical_option(verb, options->output.canonical);
    add_other_outputs(verb, options->output);
    to->excludes(verb.get_option("--format"));
    verb.callback([options, &run, to, from] {
        if (to->empty() && from->empty()) {
            throw CLI::RequiredError("--to-xyz or --from-xyz");
        }
        run = [options] { return run_geom(*options); };
    });
}

void add_new(CLI::App& verb, Run& run) {
    const auto options = std::make_shared<NewOptions>();
    add_schema_options(verb, options->schema);
    add_edits(verb, run, options,
              {EditKind::set_geometry, EditKind::set_method, EditKind::set_directive, EditKind::set_entry}, run_new);
    verb.get_option("--geometry")->required();
    verb.get_option("--method")->required();
    verb.add_option("-o,--output", options->output.path, "Write to this file (default: standard output)")
        ->type_name("OUT");
    add_diff_option(verb, options->output.diff, "Print the new file as a difference, for patch -p1, and write nothing");
    verb.add_flag("--force", options->output.force,
                  "Write also an input that is not valid, and over a file that exists");
    add_finding_options(verb, options->output.findings);
}

// The help of a verb, or of the program, as these print it themselves.
void add_help(CLI::App& verb, Run& run) {
    const auto asked = std::make_shared<std::string>();
    verb.add_option("VERB", *asked, "The verb (default: all of them, one line each)");
    verb.callback([asked, &run] {
        run = [name = *asked] {
            std::vector<std::string> words = {"amesp-inp", name, "--help"};
            std::erase(words, "");
            std::vector<char*> arguments;
            arguments.reserve(words.size());
            for (std::string& word : words) {
                arguments.push_back(word.data());
            }
            return read_command_line(static_cast<int>(arguments.size()), arguments.data())();
        };
    });
}

struct Verb {
    std::string name;
    const char* description;
    const char* examples;
    void (*add)(CLI::App&, Run&);
};

const std::array verbs = {
    Verb{"check", "Prints what is wrong with input files.",
         "  amesp-inp check water.inp             one file\n"
         "  amesp-inp check -j 8 jobs/            every *.inp and *.aip file below a directory\n"
         "  amesp-inp check --format json *.inp   for other programs\n"
         "  amesp-inp check --fix --diff *.inp    what the certain fixes would change\n"
         "  make-input | amesp-inp check -        standard input",
         add_check},
    Verb{"explain", "Says what a code means and how to fix its cause.",
         "  amesp-inp explain amesp.unterminated_section\n"
         "  amesp-inp explain                             lists all codes",
         add_explain},
    Verb{"show", "Prints parsed documents as JSON.",
         "  amesp-inp show water.inp\n"
         "  amesp-inp show water.inp | jq '.sections[].name'\n"
         "  amesp-inp show jobs/ *.inp | jq -r '.[] | [.file, .sections[].name] | @tsv'",
         add_show},
    Verb{"fmt", "Writes input files in canonical form.",
         "  amesp-inp fmt water.inp            prints the canonical text\n"
         "  amesp-inp fmt -i jobs/             rewrites every *.inp and *.aip file below a directory\n"
         "  amesp-inp fmt --check *.inp        lists the files that would change\n"
         "  amesp-inp fmt --diff water.inp     shows what would change, for patch -p1",
         add_fmt},
    Verb{"get", "Prints values of input files.",
         "  amesp-inp get water.inp %maxcore                   a directive\n"
         "  amesp-inp get water.inp '!' '!basis' '!opt'        all tokens, those of a category, one\n"
         "  amesp-inp get water.inp '>scf.maxcyc' '>scf'       an entry of a section, all its lines\n"
         "  amesp-inp get water.inp '>xyz.charge' '>xyz.multiplicity' '>xyz.atoms' '>zmat.raw'\n"
         "  amesp-inp get water.inp maxcore basis scf.maxcyc   clear without their marks\n"
         "  amesp-inp get xyz.charge maxcore --files jobs/ --format csv",
         add_get},
    Verb{"set", "Changes values of input files, in the order of the options.",
         "  amesp-inp set water.inp --directive maxcore=4000       prints the changed text\n"
         "  amesp-inp set -i jobs/ --entry scf.maxcyc=200          rewrites many files\n"
         "  amesp-inp set water.inp --method 'b3lyp def2-tzvp' -o tz.inp\n"
         "  amesp-inp set -i water.inp --charge -1 --multiplicity 2\n"
         "  amesp-inp set water.inp --geometry mol.xyz --charge 0 --multiplicity 1 --dry-run",
         add_set},
    Verb{"geom", "Takes the geometry out of an input file, or puts one in.",
         "  amesp-inp geom water.inp --to-xyz water.xyz       writes a plain XYZ file\n"
         "  amesp-inp geom water.inp --to-xyz -               prints it\n"
         "  amesp-inp geom -i water.inp --from-xyz new.xyz    replaces the geometry",
         add_geom},
    Verb{"new", "Makes an input file that passes check.",
         "  amesp-inp new --geometry mol.xyz --charge 0 --multiplicity 1 --method 'b3lyp def2-svp' -o mol.inp\n"
         "  amesp-inp new --geometry mol.xyz --method 'hf sto-3g' --directive maxcore=2000 --entry scf.maxcyc=100",
         add_new},
    Verb{"help", "Prints the help of a verb.",
         "  amesp-inp help check\n"
         "  amesp-inp help",
         add_help},
};

void add(CLI::App& program, const Verb& verb, Run& run) {
    CLI::App* const subcommand = program.add_subcommand(verb.name, verb.description);
    subcommand->footer(std::string("Examples:\n") + verb.examples);
    verb.add(*subcommand, run);
}

// Only the one that is called, where the first word says so: making the options of all of them takes longer than
// checking a small file.
void add_verbs(CLI::App& program, std::string_view first_word, Run& run) {
    const auto* const called =
        std::find_if(verbs.begin(), verbs.end(), [&](const Verb& verb) { return verb.name == first_word; });
    if (called != verbs.end()) {
        add(program, *called, run);
        return;
    }
    for (const Verb& verb : verbs) {
        add(program, verb, run);
    }
}

// The examples of a verb, which are its footer, open its help.
class ExamplesFirst : public CLI::Formatter {
public:
    std::string make_description(const CLI::App* app) const override {
        const std::string examples = app->get_footer();
        return examples.empty() ? Formatter::make_description(app)
                                : examples + "\n\n" + Formatter::make_description(app);
    }
    std::string make_footer(const CLI::App* /*app*/) const override { return {}; }

    // What comes first in one way is optional in the other; the library can say only one of them.
    std::string make_usage(const CLI::App* app, std::string name) const override {
        if (app->get_option_no_throw("--files") == nullptr) {
            return Formatter::make_usage(app, name);
        }
        const std::string call = name + " [OPTIONS] ";
        return "Usage: " + call + "FILE KEY...\n       " + call + "KEY... --files FILE...\n";
    }
};

std::string with_near_names(const std::string& message, const std::string& name,
                            const std::vector<std::string>& known) {
    const std::string near = velk::input::amesp::near_names(name, known);
    return near.empty() ? message : message + "; " + near;
}

bool is_mistyped_verb(std::string_view first_word) {
    return !first_word.empty() && !first_word.starts_with('-') &&
           std::none_of(verbs.begin(), verbs.end(), [&](const Verb& verb) { return verb.name == first_word; });
}

int end_without_a_verb(const std::string& first_word) {
    std::vector<std::string> names;
    names.reserve(verbs.size());
    for (const Verb& verb : verbs) {
        names.push_back(verb.name);
    }
    complain_about_usage("", with_near_names("'" + first_word + "' is no verb", first_word, names));
    return exit_trouble;
}

// What is wrong, and where an option was mistyped, which one may have been meant.
std::string explanation_of(const CLI::App& verb, const CLI::ParseError& error) {
    for (const std::string& word : verb.remaining()) {
        if (!word.starts_with('-')) {
            continue;
        }
        const std::string option = word.substr(0, word.find('='));
        std::vector<std::string> known;
        for (const CLI::Option* const one : verb.get_options()) {
            for (const std::string& name : one->get_lnames()) {
                known.push_back("--" + name);
            }
        }
        return with_near_names("'" + option + "' is no option", option, known);
    }
    return error.what();
}

// Help and version go to standard output; a usage error names the verb that it was made with.
int end_without_a_call(const CLI::App& program, const CLI::ParseError& error) {
    std::ostringstream out;
    std::ostringstream err;
    if (program.exit(error, out, err) == 0) {
        print(out.str());
        return exit_clean;
    }
    const std::vector<CLI::App*> called = program.get_subcommands();
    const std::string verb = called.empty() ? std::string() : called.front()->get_name();
    complain_about_usage(verb, explanation_of(called.empty() ? program : *called.front(), error));
    return exit_trouble;
}

int run_and_name_the_verb(const Run& run, const std::string& verb) {
    try {
        return run();
    } catch (const UsageError& error) {
        complain_about_usage(verb, error.what());
        return exit_trouble;
    }
}

}  // namespace

std::function<int()> read_command_line(int argc, char** argv) {
    const EndWithoutMemory guard;
    CLI::App program("Checks, shows and edits input files of the AMESP quantum-chemistry program.", "amesp-inp");
    program.formatter(std::make_shared<ExamplesFirst>());
    program.set_version_flag("-V,--version", "amesp-inp " AMESP_INP_VERSION);
    program.require_subcommand(1);
    Run run;
    const std::string first_word = argc > 1 ? argv[1] : "";
    if (is_mistyped_verb(first_word)) {
        return [first_word] { return end_without_a_verb(first_word); };
    }
    add_verbs(program, first_word, run);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const int status = end_without_a_call(program, error);
        return [status] { return status; };
    }
    return [run, verb = program.get_subcommands().front()->get_name()] { return run_and_name_the_verb(run, verb); };
}

}  // namespace amesp_inp
