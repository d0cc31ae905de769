// Names given twice.
#include "diagnostics/repeated_name.hpp"

#include <map>
#include <string>
#include <utility>

#include <velk/core/text_view.hpp>

#include "diagnostics/lines_of_text.hpp"
#include "diagnostics/shown_name.hpp"
#include "diagnostics/subjects.hpp"
#include "diagnostics/value_places.hpp"
#include "model/key.hpp"

namespace velk::input::amesp {
namespace {

using core::text::trim_view;

// A name as it is written.
struct Word {
    std::size_t line = 0;
    std::string_view text;
};

class RepeatFinder {
public:
    explicit RepeatFinder(const DetectorInput& input) : input_(input) {}

    Detections run() {
        for (const Directive& directive : input_.document.directives) {
            const std::size_t line = directive.location->line - 1;
            const Word word{line, directive_words(trim_view(input_.lines.raw(line))).name};
            look_at(directive.known, directive.name, word, {.directive = &directive});
        }
        first_.clear();
        for (const MethodToken& token : input_.document.method_tokens) {
            const std::size_t line = token.location->line - 1;
            const auto begin = static_cast<std::size_t>(token.location->column - 1);
            const Word word{line, input_.lines.raw(line).substr(begin, token.text.size())};
            look_at(token.known, token.canonical, word, {.token = &token});
        }
        for (const Section& section : input_.document.sections) {
            first_.clear();
            look_at_entries(section);
        }
        return std::move(found_);
    }

private:
    void look_at_entries(const Section& section) {
        for (const SectionEntry& entry : section.entries) {
            const std::size_t line = entry.location->line - 1;
            const Word word{line, entry_words(trim_view(input_.lines.raw(line))).name};
            look_at(entry.known, entry.key, word, {.section = &section, .entry = &entry});
        }
    }

    void look_at(bool is_known, std::string_view name, const Word& word, const IssueRecords& records) {
        if (!is_known) {
            return;
        }
        const auto [first, is_new] = first_.try_emplace(name, word);
        if (is_new) {
            return;
        }
        const Word& before = first->second;
        std::string message = shown_name(word.text);
        message += same_key(word.text, before.text)
                       ? std::string(" is given already.")
                       : " is another name for " + shown_name(before.text) + ", which is given already.";
        Detected& found = found_.emplace_back(
            finding_in(input_, word.line, word.text, Severity::warning, codes::inp::repeated_name, std::move(message)));
        found.covers.clear();
        found.diagnostic.subject = subject_of(records);
        found.diagnostic.related.push_back({"the first one is here", range_in(input_, before.line, before.text), {}});
    }

    const DetectorInput& input_;
    std::map<std::string_view, Word> first_;  // by canonical names; ordered: an input cannot aim at its cost
    Detections found_;
};

}  // namespace

Detections find_repeated_names(const DetectorInput& input) {
    return RepeatFinder(input).run();
}

}  // namespace velk::input::amesp
