// Key-value pairs against toml++.
#include <toml++/toml.h>

#include "alternatives.hpp"
#include "pair.hpp"
#include "rows.hpp"

namespace velk::bench {
namespace {

std::string toml_text() {
    std::string text = "[scf]\n";
    for (const Pair& pair : pairs(pair_count)) {
        text += pair.key + " = " + (pair.is_word ? '"' + pair.value + '"' : pair.value) + '\n';
    }
    return text;
}

void add_rows() {
    add_pair("parse 250 entries / toml++", pairs_target, [] {
        const std::string text = toml_text();
        const toml::table table = toml::parse(text);
        require(table["scf"].as_table()->size() == parse_pairs().data.sections[0].entries.size(),
                "toml++ reads other pairs");
        return Contest([] { return parse_pairs(); }, [text] { return toml::table(toml::parse(text)); });
    });
}

const RowGroup group(Place::pairs, add_rows);

}  // namespace
}  // namespace velk::bench
