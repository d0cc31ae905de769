// Any bytes as the YAML of a schema. What is read is used: its queries, and a small text parsed, checked and rendered.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <velk/input/amesp.hpp>
#include <velk/input/amesp/schema_tables.hpp>

#include "law.hpp"
#include "oracle/comparison.hpp"
#include "oracle/schema_reading_model.hpp"
#include "run.hpp"

namespace velk::fuzz {
namespace {

using namespace input::amesp;

bool is_normalised(const std::string& text) {
    const auto blank = [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };
    const auto upper = [](char c) { return c >= 'A' && c <= 'Z'; };
    return text.empty() ||
           (!blank(text.front()) && !blank(text.back()) && std::none_of(text.begin(), text.end(), upper));
}

template <class Table>
void check_names(const Table& table) {
    for (const auto& [name, spec] : table) {
        require(is_normalised(name) && spec.name == name, "a table's names are normalised and the records' own", name);
    }
}

// Every target of an alias is a name that its table holds, because aliases come with the body of a name.
template <class Table>
void check_aliases(const StringMap<std::string>& aliases, const Table& table) {
    for (const auto& [alias, target] : aliases) {
        require(is_normalised(alias) && table.find(target) != table.end(), "an alias stands for a known name", alias);
    }
    for (const auto& [name, spec] : table) {
        require(aliases.find(name) != aliases.end(), "a name has an alias of its own", name);
    }
}

void check_value(const ValueSpec& spec) {
    require(is_normalised(spec.value_type), "a type is normalised", spec.value_type);
    for (const std::string& word : spec.allowed) {
        require(is_normalised(word), "an allowed word is normalised", word);
    }
}

void check_tables(const InputSchema::Impl& tables) {
    check_names(tables.directives);
    check_names(tables.method_tokens);
    check_names(tables.sections);
    check_aliases(tables.directive_aliases, tables.directives);
    check_aliases(tables.method_token_aliases, tables.method_tokens);
    check_aliases(tables.section_aliases, tables.sections);
    for (const auto& row : tables.directives) {
        check_value(row.second);
    }
    for (const auto& row : tables.sections) {
        check_names(row.second.entries);
        check_aliases(row.second.entry_aliases, row.second.entries);
        for (const auto& entry : row.second.entries) {
            check_value(entry.second);
        }
    }
    const auto longer = [](const auto& a, const auto& b) { return a.prefix.size() > b.prefix.size(); };
    require(std::is_sorted(tables.method_prefixes.begin(), tables.method_prefixes.end(), longer),
            "the longest prefix comes first");
}

// A text that names all that the schema knows.
std::string text_of_all(const InputSchema& schema) {
    std::string text = "!";
    for (const std::string& token : schema.known_method_tokens()) {
        text += " " + token;
    }
    text += "\n";
    for (const std::string& directive : schema.known_directives()) {
        text += "%" + directive + " 1\n";
    }
    for (const std::string& section : schema.known_sections()) {
        text += ">" + section + " 0 1\nH 0 0 0\nend\n";
    }
    return text;
}

void use(const InputSchema& schema) {
    check_tables(schema.tables());
    const ParseResult result = AIPParser::parse_string(text_of_all(schema), schema, {true, true});
    const std::string rendered = AIPEditor(result.data, schema).render();
    AIPParser::parse_string(rendered, schema, {false, true});
}

}  // namespace

void run(const std::string& input) {
    const std::string difference = oracle::difference_in_loading(input);
    require(difference.empty(), "the library loads what the model loads", difference);
    if (oracle::read_schema(input).tables != nullptr) {
        use(InputSchema::from_yaml(input));
    }
}

}  // namespace velk::fuzz
