// Edits of a document with many records.
#include "growth/cases.hpp"

namespace velk::test {
namespace {

using input::amesp::AIPEditor;
using input::amesp::AtomRecord;
using std::size_t;

std::vector<std::string> names(size_t n) {
    std::vector<std::string> list;
    for (size_t i = 0; i < n; ++i) {
        list.push_back("name" + std::to_string(i));
    }
    return list;
}

}  // namespace

const std::vector<EditCase>& edit_cases() {
    static const std::vector<EditCase> cases = {
        {"set_directive, the last", [](AIPEditor& e, size_t n) { e.set_directive("d" + std::to_string(n - 1), "x"); }},
        {"set_directive, a new one", [](AIPEditor& e, size_t) { e.set_directive("new", "x"); }},
        {"set_directive, many new ones",
         [](AIPEditor& e, size_t n) {
             for (const std::string& name : names(n)) {
                 e.set_directive(name, "x");
             }
         }},
        {"remove_directive, all", [](AIPEditor& e, size_t) { e.remove_directive("maxcyc"); }},
        {"add_method_token, many",
         [](AIPEditor& e, size_t n) {
             for (const std::string& name : names(n)) {
                 e.add_method_token(name);
             }
         }},
        {"remove_method_token, half", [](AIPEditor& e, size_t) { e.remove_method_token("hf"); }},
        {"set_method_tokens", [](AIPEditor& e, size_t n) { e.set_method_tokens(names(n)); }},
        {"upsert_section, the first, arguments", [](AIPEditor& e, size_t n) { e.upsert_section("scf", names(n)); }},
        {"upsert_section, a new one", [](AIPEditor& e, size_t) { e.upsert_section("new", {}); }},
        {"remove_section, half", [](AIPEditor& e, size_t) { e.remove_section("notes"); }},
        {"set_section_entry, a new one", [](AIPEditor& e, size_t) { e.set_section_entry("scf", "new", "x"); }},
        {"set_section_entry, a long value",
         [](AIPEditor& e, size_t n) { e.set_section_entry("scf", "new", std::string(100 * n, 'x')); }},
        {"remove_section_entry, half", [](AIPEditor& e, size_t) { e.remove_section_entry("scf", "maxcyc"); }},
        {"set_xyz_geometry",
         [](AIPEditor& e, size_t n) {
             e.set_xyz_geometry(0, 1, std::vector<AtomRecord>(n, AtomRecord{"H", 0, 0, 0.25, "", {}}));
         }},
    };
    return cases;
}

}  // namespace velk::test
