// Key-value pairs against inih, whose caller keeps the texts that it is handed.
#include <ini.h>

#include "alternatives.hpp"
#include "pair.hpp"
#include "rows.hpp"

namespace velk::bench {
namespace {

std::string ini_text() {
    std::string text = "[scf]\n";
    for (const Pair& pair : pairs(pair_count)) {
        text += pair.key + " = " + pair.value + '\n';
    }
    return text;
}

using Kept = std::vector<std::pair<std::string, std::string>>;

Kept read(const std::string& text) {
    Kept kept;
    const auto keep = [](void* user, const char* /*section*/, const char* name, const char* value) {
        static_cast<Kept*>(user)->emplace_back(name, value);
        return 1;
    };
    ini_parse_string(text.c_str(), keep, &kept);
    return kept;
}

bool has_entries(const Kept& kept) {
    const auto entries = parse_pairs().data.sections[0].entries;
    return std::equal(
        kept.begin(), kept.end(), entries.begin(), entries.end(),
        [](const auto& pair, const auto& entry) { return pair.first == entry.key && pair.second == entry.value; });
}

void add_rows() {
    add_pair("parse 250 entries / inih", pairs_target, [] {
        const std::string text = ini_text();
        require(has_entries(read(text)), "inih reads other pairs");
        return Contest([] { return parse_pairs(); }, [text] { return read(text); });
    });
}

const RowGroup group(Place::pairs, add_rows);

}  // namespace
}  // namespace velk::bench
