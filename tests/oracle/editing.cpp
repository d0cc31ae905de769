// The same random edits through the library's editor and through the model of it.
#include <algorithm>
#include <vector>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/parser.hpp>

#include "oracle/comparison.hpp"
#include "oracle/described.hpp"
#include "oracle/editor_model.hpp"
#include "oracle/random_words.hpp"
#include "oracle/validation_model.hpp"

namespace velk::oracle {

using namespace input::amesp;

namespace {

using Words = std::vector<std::string>;

class BothEditors {
public:
    BothEditors(Chance& chance, const AIPData& data, const TablesHandle& tables)
        : chance_(chance), library_(data, InputSchema(tables)), model_{data, SchemaModel(*tables)} {}

    // Empty when both did the same.
    std::string edit() {
        done_.clear();
        std::string difference = edit_both();
        if (difference.empty()) {
            difference = first_difference(described(library_.data()), described(model_.data));
        }
        return difference.empty() ? difference : done_ + "\n  " + difference;
    }

    std::string differing_end() const {
        const std::string rendered = render(model_.data, model_.schema);
        if (library_.render() != rendered) {
            return "render:\n  library:" + quoted(library_.render()) + "\n  model:  " + quoted(rendered);
        }
        return first_difference(described(library_.validate()), described(validate(model_.data, model_.schema)));
    }

private:
    std::string edit_both() {
        switch (chance_.below(11)) {
            case 0:
                return set_directive();
            case 1:
                return remove_directive();
            case 2:
                return add_method_token();
            case 3:
                return remove_method_token();
            case 4:
                return set_method_tokens();
            case 5:
                return upsert_section();
            case 6:
                return remove_section();
            case 7:
            case 8:
                return set_section_entry();
            case 9:
                return remove_section_entry();
            default:
                return set_xyz_geometry();
        }
    }

    void note(const char* operation, const Words& arguments) {
        done_ = operation;
        for (const std::string& argument : arguments) {
            done_ += quoted(argument);
        }
    }

    static std::string compared(bool library, bool model) {
        return library == model ? "" : "says " + std::to_string(library) + ", the model " + std::to_string(model);
    }

    std::string word() { return random_indent(chance_) + random_spelling(chance_) + random_indent(chance_); }
    std::string value() { return random_indent(chance_) + random_value(chance_); }

    // A new word, or one of the document's own: a view into the very record that the edit may remove or change.
    template <class Record>
    std::string_view name_of(const std::vector<Record>& list, std::string Record::*name) {
        if (!list.empty() && chance_.one_in(2)) {
            return list[chance_.below(list.size())].*name;
        }
        return word_ = word();
    }

    std::string_view section_name() { return name_of(library_.data().sections, &Section::name); }

    std::string set_directive() {
        const std::string name(name_of(library_.data().directives, &Directive::name));
        const std::string text = value();
        note("set_directive", {name, text});
        library_.set_directive(name, text);
        model_.set_directive(name, text);
        return {};
    }

    std::string remove_directive() {
        const std::string_view name = name_of(library_.data().directives, &Directive::name);
        note("remove_directive", {std::string(name)});
        const bool expected = model_.remove_directive(std::string(name));
        return compared(library_.remove_directive(name), expected);
    }

    std::string add_method_token() {
        const std::string token = chance_.one_in(6) ? value() : word();
        note("add_method_token", {token});
        library_.add_method_token(token);
        model_.add_method_token(token);
        return first_difference(described(library_.make_method_token(token)),
                                described(model_.make_method_token(token)));
    }

    std::string remove_method_token() {
        const auto field = chance_.one_in(2) ? &MethodToken::text : &MethodToken::canonical;
        const std::string_view token = name_of(library_.data().method_tokens, field);
        note("remove_method_token", {std::string(token)});
        const bool expected = model_.remove_method_token(std::string(token));
        return compared(library_.remove_method_token(token), expected);
    }

    std::string set_method_tokens() {
        Words tokens(chance_.below(4));
        std::generate(tokens.begin(), tokens.end(), [this] { return chance_.one_in(4) ? value() : word(); });
        note("set_method_tokens", tokens);
        library_.set_method_tokens(tokens);
        model_.set_method_tokens(tokens);
        return {};
    }

    std::string upsert_section() {
        const std::string name(section_name());
        Words arguments(chance_.below(4));
        std::generate(arguments.begin(), arguments.end(), [this] { return value(); });
        note("upsert_section", arguments);
        done_ += " of" + quoted(name);
        Section& section = library_.upsert_section(name, arguments);
        Section& expected = model_.upsert_section(name, arguments);
        const std::string difference = first_difference(described(section), described(expected));
        // What the caller does with the reference shows in the document.
        section.terminated = expected.terminated = chance_.one_in(2);
        section.charge = expected.charge = chance_.one_in(2) ? std::optional<std::int32_t>() : -3;
        return difference + first_difference(described(library_.make_section(name, arguments)),
                                             described(model_.make_section(name, arguments)));
    }

    std::string remove_section() {
        const std::string_view name = section_name();
        note("remove_section", {std::string(name)});
        const bool expected = model_.remove_section(std::string(name));
        return compared(library_.remove_section(name), expected);
    }

    std::string set_section_entry() {
        const std::string_view section = section_name();
        const std::string key = word();
        const std::string text = value();
        note("set_section_entry", {std::string(section), key, text});
        model_.set_section_entry(std::string(section), key, text);
        library_.set_section_entry(section, key, text);
        return {};
    }

    std::string remove_section_entry() {
        const std::string section(section_name());
        const Section* const found = library_.data().find_section(section);
        const std::string own_word = word();
        const std::string_view key =
            found != nullptr ? name_of(found->entries, &SectionEntry::key) : std::string_view(own_word);
        note("remove_section_entry", {section, std::string(key)});
        const bool expected = model_.remove_section_entry(section, std::string(key));
        return compared(library_.remove_section_entry(section, key), expected);
    }

    std::string set_xyz_geometry() {
        static const std::vector<std::int32_t> counts = {0, 1, -1, 2, INT32_MAX, INT32_MIN};
        static const std::vector<double> places = {0.0, -0.0, 1e-12, 5e-11, -1.5, 1e300, 12345.678, 0.1};
        std::vector<AtomRecord> atoms(chance_.below(4));
        for (AtomRecord& atom : atoms) {
            atom.symbol = value();
            atom.x = chance_.of(places);
            atom.y = chance_.of(places);
            atom.z = chance_.of(places);
        }
        const std::int32_t charge = chance_.of(counts);
        const std::int32_t multiplicity = chance_.of(counts);
        note("set_xyz_geometry", {std::to_string(charge), std::to_string(multiplicity)});
        library_.set_xyz_geometry(charge, multiplicity, atoms);
        model_.set_xyz_geometry(charge, multiplicity, atoms);
        return {};
    }

    Chance& chance_;
    AIPEditor library_;
    EditorModel model_;
    std::string done_;
    std::string word_;
};

}  // namespace

std::string difference_in_editing(const std::string& text, const TablesHandle& tables, const TablesHandle& other,
                                  std::uint64_t seed) {
    Chance chance(seed);
    const AIPData data = AIPParser::parse_string(text, InputSchema(tables), {true, false}).data;
    BothEditors editors(chance, data, chance.one_in(3) ? other : tables);
    std::string difference;
    for (std::size_t left = 1 + chance.below(8); left > 0 && difference.empty(); --left) {
        difference = editors.edit();
    }
    return difference.empty() ? editors.differing_end() : difference;
}

}  // namespace velk::oracle
