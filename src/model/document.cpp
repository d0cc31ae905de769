// The look-ups by name.
#include <velk/input/amesp/document.hpp>

#include <algorithm>
#include <utility>

#include "model/geometry_names.hpp"
#include "model/key.hpp"

namespace velk::input::amesp {
namespace {

template <class Record, class Matches>
const Record* first_match(const std::vector<Record>& records, Matches matches) {
    const auto found = std::find_if(records.begin(), records.end(), matches);
    return found == records.end() ? nullptr : &*found;
}

}  // namespace

const SectionEntry* Section::find_entry(std::string_view key) const {
    return first_match(entries, [key](const SectionEntry& entry) { return same_key(entry.key, key); });
}

SectionEntry* Section::find_entry(std::string_view key) {
    return const_cast<SectionEntry*>(std::as_const(*this).find_entry(key));
}

const Directive* AIPData::find_directive(std::string_view name) const {
    return first_match(directives, [name](const Directive& directive) { return same_key(directive.name, name); });
}

Directive* AIPData::find_directive(std::string_view name) {
    return const_cast<Directive*>(std::as_const(*this).find_directive(name));
}

const Section* AIPData::find_section(std::string_view name) const {
    return first_match(sections, [name](const Section& section) { return same_key(section.name, name); });
}

Section* AIPData::find_section(std::string_view name) {
    return const_cast<Section*>(std::as_const(*this).find_section(name));
}

const Section* AIPData::coordinate_section() const {
    return first_match(sections, [](const Section& section) {
        return same_key(section.name, xyz_section) || same_key(section.name, zmat_section);
    });
}

Section* AIPData::coordinate_section() {
    return const_cast<Section*>(std::as_const(*this).coordinate_section());
}

}  // namespace velk::input::amesp
