// Edits through every operation of the editor, drawn at random.
#include "in_place/random_edits.hpp"

#include <velk/input/amesp/schema.hpp>

namespace velk::test {
namespace {

using namespace input::amesp;
using Words = std::vector<std::string>;

const Words directive_names = {"maxcore", "memory", "nprocs", "Title", "colour", "new", "x=y"};
const Words values = {"", "7", "1e-6", "two  words", "a=b", "= 1", "x", "core", " padded ", "a = b = c", "end"};
const Words tokens = {"hf", "B3-LYP", "sto-3g", "opt", "freq", "xyzzy", "!x", "new"};
const Words section_names = {"scf", "opt", "notes", "zmat", "frob", "fresh", "xyz"};
const Words keys = {"maxcyc", "MaxIter", "conv", "guess", "note", "direct", "frob", "end", "longer-than-others"};
const Words symbols = {"H", "O", "C1", "He", "end", "%", "X=1"};

class Editing {
public:
    Editing(Random& random, AIPEditor& editor, bool expressible_only, EditLog& log)
        : random_(random), editor_(editor), expressible_only_(expressible_only), log_(log) {}

    void run() {
        switch (random_.below(10)) {
            case 0:
                return set_directive();
            case 1:
                return remove_directive();
            case 2:
            case 3:
                return edit_tokens();
            case 4:
                return upsert_section();
            case 5:
                return remove_section();
            case 6:
            case 7:
                return set_entry();
            case 8:
                return remove_entry();
            default:
                return random_.one_in(2) ? set_geometry() : move_atom();
        }
    }

private:
    void note(const std::string& operation, const std::string& a, const std::string& b = {}) {
        log_.text += operation + "(" + a + ", " + b + ")\n";
    }

    bool hard() { return !expressible_only_ && random_.one_in(4); }
    void mark_hard() { log_.expressible = false; }

    std::string value() {
        if (hard()) {
            mark_hard();
            return random_.of(Words{"a\nb", "a\n%", "a\n#b", "x\nend"});
        }
        return random_.of(values);
    }

    void set_directive() {
        const std::string name = random_.of(directive_names);
        const std::string text = value();
        note("set_directive", name, text);
        editor_.set_directive(name, text);
    }

    void remove_directive() {
        const std::string name = random_.of(directive_names);
        note("remove_directive", name);
        editor_.remove_directive(name);
    }

    void edit_tokens() {
        std::string token = random_.of(tokens);
        if (hard()) {
            mark_hard();
            token = "two words";
        }
        switch (random_.below(3)) {
            case 0:
                note("add_method_token", token);
                return editor_.add_method_token(token);
            case 1:
                note("remove_method_token", token);
                editor_.remove_method_token(token);
                return;
            default:
                return set_tokens();
        }
    }

    // Some of the tokens that are there, with others among them.
    void set_tokens() {
        Words list;
        for (const MethodToken& token : editor_.data().method_tokens) {
            if (random_.one_in(4)) {
                list.push_back(random_.of(tokens));
            }
            if (!random_.one_in(4)) {
                list.push_back(token.text);
            }
        }
        for (const std::string& token : list) {
            note("set_method_tokens", token);
        }
        editor_.set_method_tokens(list);
    }

    void upsert_section() {
        const std::string name = random_.of(section_names);
        Words arguments;
        // Arguments given to a new geometry would contradict its charge and multiplicity, which speak first.
        const bool fixed = name == "xyz" && log_.new_geometry;
        while (!fixed && random_.one_in(2)) {
            arguments.push_back(std::to_string(random_.below(5)));
        }
        if (!fixed && hard()) {
            mark_hard();
            arguments.push_back("a b");
        }
        note("upsert_section", name, std::to_string(arguments.size()));
        log_.new_geometry = log_.new_geometry || name == "xyz";  // it may have been removed before
        Section& section = editor_.upsert_section(name, arguments);
        section.terminated = section.terminated || random_.one_in(2);
    }

    void remove_section() {
        const std::string name = random_.of(section_names);
        note("remove_section", name);
        editor_.remove_section(name);
    }

    void set_entry() {
        const std::string name = hard() ? random_.of(section_names) : random_.of(Words{"scf", "opt"});
        std::string key = random_.of(keys);
        if (hard()) {
            mark_hard();
            key = random_.of(Words{"a b", "#x", "", "a=b"});
        }
        if (editor_.schema().section_parse_mode(name) != SectionParseMode::key_value) {
            mark_hard();
        }
        const std::string text = value();
        note("set_section_entry", name + " " + key, text);
        editor_.set_section_entry(name, key, text);
    }

    void remove_entry() {
        const std::string name = random_.of(Words{"scf", "opt"});
        const std::string key = random_.of(keys);
        note("remove_section_entry", name, key);
        editor_.remove_section_entry(name, key);
    }

    double coordinate() {
        static const std::vector<double> list = {0.0, -0.0, 1e-11, 1.0 / 3.0, 1e300, -7.25, 123456.789};
        return random_.one_in(2) ? random_.of(list) : static_cast<double>(random_.below(4000)) / 1000 - 2;
    }

    // Through the reference that the editor hands out.
    void move_atom() {
        if (editor_.data().find_section("xyz") == nullptr) {
            return;
        }
        std::vector<AtomRecord>& atoms = editor_.upsert_section("xyz", {}).atoms;
        if (!atoms.empty()) {
            const std::size_t index = random_.below(atoms.size());
            note("upsert_section", "xyz", "atom " + std::to_string(index));
            atoms[index].z = coordinate();
        }
    }

    AtomRecord atom() { return {random_.of(symbols), coordinate(), coordinate(), coordinate(), "", {}}; }

    // The atoms that are there, some of them moved, renamed, gone or followed by others.
    void set_geometry() {
        std::vector<AtomRecord> atoms;
        const Section* const old = editor_.data().coordinate_section();
        for (AtomRecord next : old != nullptr ? old->atoms : std::vector<AtomRecord>()) {
            next.y = random_.one_in(4) ? coordinate() : next.y;
            next.symbol = random_.one_in(8) ? random_.of(symbols) : next.symbol;
            if (!random_.one_in(6)) {
                atoms.push_back(next);
            }
            if (random_.one_in(6)) {
                atoms.push_back(atom());
            }
        }
        while (random_.one_in(3)) {
            atoms.push_back(atom());
        }
        if (hard()) {
            mark_hard();
            atoms.push_back({"two words", 0, 0, 0, "", {}});
        }
        note("set_xyz_geometry", std::to_string(atoms.size()));
        log_.new_geometry = true;
        editor_.set_xyz_geometry(static_cast<std::int32_t>(random_.below(3)), 1, atoms);
    }

    Random& random_;
    AIPEditor& editor_;
    const bool expressible_only_;
    EditLog& log_;
};

}  // namespace

void random_edit(Random& random, AIPEditor& editor, bool expressible_only, EditLog& log) {
    Editing(random, editor, expressible_only, log).run();
}

}  // namespace velk::test
