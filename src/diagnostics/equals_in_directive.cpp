// Directives written with '='.
#include "diagnostics/equals_in_directive.hpp"

#include <set>
#include <string>
#include <utility>

#include <velk/core/text_view.hpp>

#include "diagnostics/lines_of_text.hpp"
#include "diagnostics/shown_name.hpp"
#include "diagnostics/value_places.hpp"
#include "diagnostics/value_remarks.hpp"
#include "schema/queries.hpp"

namespace velk::input::amesp {
namespace {

using core::text::trim_view;

struct Written {
    std::string_view name;    // before the '='
    std::string_view equals;  // with the white space around it
    std::string_view value;   // after it
    bool in_name = false;     // the '=' is read as part of the name
};

std::string_view between(std::string_view a, std::string_view b) {
    const char* const begin = a.data() + a.size();
    return {begin, static_cast<std::size_t>(b.data() - begin)};
}

// Nothing where there is no '=', or no value after it.
std::optional<Written> written_with_equals(std::string_view line) {
    const NameAndValue words = directive_words(line);
    const std::size_t in_name = words.name.find('=');
    if (in_name == std::string_view::npos && !words.value.starts_with('=')) {
        return std::nullopt;
    }
    Written found;
    found.in_name = in_name != std::string_view::npos;
    found.name = words.name.substr(0, in_name);
    const char* const after = found.in_name ? words.name.data() + in_name + 1 : words.value.data() + 1;
    found.value = trim_view({after, static_cast<std::size_t>(line.data() + line.size() - after)});
    if (found.value.empty()) {
        return std::nullopt;
    }
    found.equals = between(found.name, found.value);
    return found;
}

class EqualsFinder {
public:
    explicit EqualsFinder(const DetectorInput& input) : input_(input) {}

    Detections run() {
        for (const Directive& directive : input_.document.directives) {
            const std::size_t line = directive.location->line - 1;
            const std::string_view text = trim_view(input_.lines.raw(line));
            const std::optional<Written> written = written_with_equals(text);
            if (!written || (written->in_name && directive.known)) {
                continue;
            }
            const ValueSpec* const spec = queries::find_directive(input_.schema.rules.tables(), written->name);
            if (spec != nullptr) {
                found_.push_back(found_in(directive, line, *written, *spec));
            }
        }
        return std::move(found_);
    }

private:
    Detected found_in(const Directive& directive, std::size_t line, const Written& written, const ValueSpec& spec) {
        const bool fails = !written.in_name && !is_value(spec, directive.value);
        const std::string read = shown_name(written.in_name ? directive_words(trim_view(input_.lines.raw(line))).name
                                                            : std::string_view(directive.value));
        Detected found = finding_in(
            input_, line, trim_view(written.equals), fails ? Severity::error : Severity::warning,
            codes::inp::equals_in_directive,
            "A directive takes no '=': " + read + " is read as its " + (written.in_name ? "name." : "value."));
        const std::string name = input_.schema.rules.canonical_directive(written.name);
        found.diagnostic.subject = {"directive", {}, name};
        found.diagnostic.help.emplace_back("write name and value with a blank between them");
        const bool will_be_right = is_value(spec, written.value) || !value_before_remark(spec, written.value).empty();
        if (will_be_right && !(written.in_name && is_there(name))) {
            found.diagnostic.fixes.push_back({"write a blank in place of the '='",
                                              Applicability::certain,
                                              {edit_of(input_.lines, written.equals, " ")}});
        }
        return found;
    }

    // A second value of one name is another fault. Of two that would get the name one has to wait, too.
    bool is_there(const std::string& name) {
        if (names_.empty()) {
            for (const Directive& each : input_.document.directives) {
                names_.insert(each.name);
            }
        }
        return !names_.insert(name).second;
    }

    const DetectorInput& input_;
    std::set<std::string> names_;  // ordered: an input cannot aim at its cost
    Detections found_;
};

}  // namespace

Detections find_equals_in_directives(const DetectorInput& input) {
    return EqualsFinder(input).run();
}

}  // namespace velk::input::amesp
