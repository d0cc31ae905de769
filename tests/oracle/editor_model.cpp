// The model of the editor.
#include "oracle/editor_model.hpp"

#include "oracle/plain_text.hpp"

namespace velk::oracle {

using namespace input::amesp;

namespace {

Directive* find_directive(AIPData& data, const std::string& name) {
    for (Directive& directive : data.directives) {
        if (key(directive.name) == key(name)) {
            return &directive;
        }
    }
    return nullptr;
}

Section* find_section(AIPData& data, const std::string& name) {
    for (Section& section : data.sections) {
        if (key(section.name) == key(name)) {
            return &section;
        }
    }
    return nullptr;
}

SectionEntry* find_entry(Section& section, const std::string& name) {
    for (SectionEntry& entry : section.entries) {
        if (key(entry.key) == key(name)) {
            return &entry;
        }
    }
    return nullptr;
}

// Says whether one was removed.
template <class Record, class Matches>
bool remove_all(std::vector<Record>& list, const Matches& matches) {
    std::vector<Record> kept;
    for (const Record& record : list) {
        if (!matches(record)) {
            kept.push_back(record);
        }
    }
    const bool removed = kept.size() < list.size();
    list = kept;
    return removed;
}

}  // namespace

MethodToken EditorModel::make_method_token(const std::string& token) const {
    MethodToken made;
    made.text = trim(token);
    made.canonical = schema.canonical_method_token(made.text);
    made.category = schema.method_token_category(made.text);
    made.known = schema.is_known_method_token(made.text);
    return made;
}

Section EditorModel::make_section(const std::string& name, const std::vector<std::string>& arguments) const {
    Section made;
    made.name = schema.canonical_section(name);
    made.arguments = arguments;
    made.parse_mode = schema.section_parse_mode(made.name);
    made.known = schema.is_known_section(made.name);
    made.terminated = true;
    return made;
}

void EditorModel::set_directive(const std::string& name, const std::string& value) {
    const std::string canonical = schema.canonical_directive(name);
    Directive* directive = find_directive(data, canonical);
    if (directive == nullptr) {
        data.directives.push_back(Directive{});
        directive = &data.directives.back();
    }
    directive->name = canonical;
    directive->value = trim(value);
    directive->known = schema.is_known_directive(canonical);
}

bool EditorModel::remove_directive(const std::string& name) {
    const std::string canonical = schema.canonical_directive(name);
    return remove_all(data.directives, [&](const Directive& directive) {
        return schema.canonical_directive(directive.name) == canonical;
    });
}

void EditorModel::add_method_token(const std::string& token) {
    if (!trim(token).empty()) {
        data.method_tokens.push_back(make_method_token(token));
    }
}

bool EditorModel::remove_method_token(const std::string& token) {
    const std::string canonical = schema.canonical_method_token(token);
    return remove_all(data.method_tokens, [&](const MethodToken& candidate) {
        const std::string name = candidate.canonical.empty() ? candidate.text : candidate.canonical;
        return schema.canonical_method_token(name) == canonical;
    });
}

void EditorModel::set_method_tokens(const std::vector<std::string>& tokens) {
    data.method_tokens.clear();
    for (const std::string& token : tokens) {
        add_method_token(token);
    }
}

Section& EditorModel::upsert_section(const std::string& name, const std::vector<std::string>& arguments) {
    const std::string canonical = schema.canonical_section(name);
    Section* section = find_section(data, canonical);
    if (section == nullptr) {
        data.sections.push_back(make_section(canonical, arguments));
        return data.sections.back();
    }
    section->name = canonical;
    section->known = schema.is_known_section(canonical);
    section->parse_mode = schema.section_parse_mode(canonical);
    if (!arguments.empty()) {
        section->arguments = arguments;
    }
    return *section;
}

bool EditorModel::remove_section(const std::string& name) {
    const std::string canonical = schema.canonical_section(name);
    return remove_all(data.sections,
                      [&](const Section& section) { return schema.canonical_section(section.name) == canonical; });
}

void EditorModel::set_section_entry(const std::string& section_name, const std::string& name,
                                    const std::string& value) {
    Section& section = upsert_section(section_name, {});
    const std::string canonical = schema.canonical_entry(section.name, name);
    SectionEntry* entry = find_entry(section, canonical);
    if (entry == nullptr) {
        section.entries.push_back(SectionEntry{});
        entry = &section.entries.back();
    }
    entry->key = canonical;
    entry->value = trim(value);
    entry->known = schema.is_known_entry(section.name, canonical);
}

bool EditorModel::remove_section_entry(const std::string& section_name, const std::string& name) {
    Section* section = find_section(data, schema.canonical_section(section_name));
    if (section == nullptr) {
        return false;
    }
    const std::string canonical = schema.canonical_entry(section->name, name);
    return remove_all(section->entries, [&](const SectionEntry& entry) {
        return schema.canonical_entry(section->name, entry.key) == canonical;
    });
}

void EditorModel::set_xyz_geometry(std::int32_t charge, std::int32_t multiplicity,
                                   const std::vector<AtomRecord>& atoms) {
    remove_all(data.sections, [&](const Section& section) {
        const std::string name = schema.canonical_section(section.name);
        return name == "xyz" || name == "zmat";
    });
    Section geometry = make_section("xyz", {std::to_string(charge), std::to_string(multiplicity)});
    geometry.charge = charge;
    geometry.multiplicity = multiplicity;
    geometry.atoms = atoms;
    data.sections.push_back(geometry);
}

}  // namespace velk::oracle
