// Coordinates against RapidJSON, which reads them from an array of arrays.
#include <rapidjson/document.h>
#include <memory>
#include <velk/input/amesp/parser.hpp>

#include "alternatives.hpp"
#include "pair.hpp"
#include "rows.hpp"

namespace velk::bench {
namespace {

std::string json_text(const std::vector<AtomRecord>& atoms) {
    std::string text = "[";
    for (const AtomRecord& atom : atoms) {
        text += text.size() > 1 ? ",\n" : "";
        text += "[\"" + atom.symbol + "\"," + coordinate_text(atom.x) + ',' + coordinate_text(atom.y) + ',' +
                coordinate_text(atom.z) + ']';
    }
    return text + "]";
}

// With its default flags: the last digits may be off, which makes it faster.
std::unique_ptr<rapidjson::Document> read(const std::string& text) {
    auto document = std::make_unique<rapidjson::Document>();
    document->Parse(text.data(), text.size());
    return document;
}

bool has_atoms(const rapidjson::Document& document, const std::vector<AtomRecord>& atoms) {
    if (!document.IsArray() || document.Size() != atoms.size()) {
        return false;
    }
    rapidjson::SizeType next = 0;
    for (const AtomRecord& atom : atoms) {
        const auto& site = document[next++];
        if (atom.symbol != site[0].GetString() || !is_near(site[1].GetDouble(), atom.x) ||
            !is_near(site[3].GetDouble(), atom.z)) {
            return false;
        }
    }
    return true;
}

void add_rows() {
    add_pair("parse 1e4 atoms / RapidJSON, an array", coordinates_target, [] {
        const std::string text = json_text(atoms());
        require(has_atoms(*read(text), atoms()), "RapidJSON reads other coordinates");
        return Contest([] { return parse_coordinates(); }, [text] { return read(text); });
    });
}

const RowGroup group(Place::coordinates, add_rows);

}  // namespace
}  // namespace velk::bench
