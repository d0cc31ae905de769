// The model of the editor and of rendering.
#pragma once

#include <cstdint>
#include <string>
#include <vector>
#include <velk/input/amesp/document.hpp>

#include "oracle/schema_model.hpp"

namespace velk::oracle {

std::string render(const input::amesp::AIPData& data, const SchemaModel& schema);

struct EditorModel {
    input::amesp::AIPData data;
    SchemaModel schema;

    input::amesp::MethodToken make_method_token(const std::string& token) const;
    input::amesp::Section make_section(const std::string& name, const std::vector<std::string>& arguments) const;

    void set_directive(const std::string& name, const std::string& value);
    bool remove_directive(const std::string& name);
    void add_method_token(const std::string& token);
    bool remove_method_token(const std::string& token);
    void set_method_tokens(const std::vector<std::string>& tokens);
    input::amesp::Section& upsert_section(const std::string& name, const std::vector<std::string>& arguments);
    bool remove_section(const std::string& name);
    void set_section_entry(const std::string& section, const std::string& name, const std::string& value);
    bool remove_section_entry(const std::string& section, const std::string& name);
    void set_xyz_geometry(std::int32_t charge, std::int32_t multiplicity,
                          const std::vector<input::amesp::AtomRecord>& atoms);
};

}  // namespace velk::oracle
