// What diagnostics speak of.
#include "diagnostics/subjects.hpp"

namespace velk::input::amesp {

Subject subject_of(const IssueRecords& records) {
    if (records.directive != nullptr) {
        return {std::string(subjects::directive), {}, records.directive->name};
    }
    if (records.token != nullptr) {
        return {std::string(subjects::token), {}, records.token->canonical};
    }
    if (records.entry != nullptr) {
        return {std::string(subjects::entry), records.section->name, records.entry->key};
    }
    if (records.section != nullptr) {
        return {std::string(subjects::section), {}, records.section->name};
    }
    return {std::string(subjects::document), {}, {}};
}

}  // namespace velk::input::amesp
