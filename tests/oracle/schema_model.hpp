// The model's answers to the questions that a schema is asked: every table is searched from its first row.
#pragma once

#include <string>
#include <vector>
#include <velk/input/amesp/schema_tables.hpp>

namespace velk::oracle {

using Tables = input::amesp::InputSchema::Impl;

template <class T>
const T* look_up(const input::amesp::StringMap<T>& table, const std::string& name) {
    for (const auto& row : table) {
        if (row.first == name) {
            return &row.second;
        }
    }
    return nullptr;
}

class SchemaModel {
public:
    explicit SchemaModel(const Tables& tables) : tables_(tables) {}

    const Tables& tables() const { return tables_; }

    bool empty() const;
    std::string canonical_directive(const std::string& name) const;
    std::string canonical_section(const std::string& name) const;
    std::string canonical_method_token(const std::string& token) const;
    std::string canonical_entry(const std::string& section, const std::string& entry) const;
    std::string method_token_category(const std::string& token) const;
    bool is_known_directive(const std::string& name) const;
    bool is_known_section(const std::string& name) const;
    bool is_known_method_token(const std::string& token) const;
    bool is_known_entry(const std::string& section, const std::string& entry) const;
    input::amesp::SectionParseMode section_parse_mode(const std::string& name) const;

private:
    const input::amesp::SectionSpec* section(const std::string& name) const;

    struct Prefixed {
        const input::amesp::MethodSpec* base = nullptr;  // null: no prefix matches
        const input::amesp::MethodPrefixSpec* prefix = nullptr;
    };
    Prefixed prefixed(const std::string& normalised_token) const;

    const Tables& tables_;
};

}  // namespace velk::oracle
