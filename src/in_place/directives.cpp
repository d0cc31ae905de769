// '%' lines.
#include <string>

#include <velk/core/text_view.hpp>

#include "in_place/partners.hpp"
#include "in_place/read_back.hpp"
#include "in_place/remarks.hpp"
#include "in_place/revision.hpp"
#include "in_place/words.hpp"

namespace velk::input::amesp::in_place {
namespace {

using core::text::take_word;
using core::text::trim_view;

bool reads_as(const Revision& revision, std::string_view line, const Directive& wanted) {
    const std::optional<Directive> read = read_directive(line, revision.schema);
    const auto canonical = [&](const std::string& name) { return revision.schema.canonical_directive(name); };
    return read && read->value == trim_view(wanted.value) &&
           (read->name == wanted.name || canonical(read->name) == canonical(wanted.name));
}

// In its line as it is, or with another name.
std::string_view name_in(std::string_view line, const Directive& directive) {
    std::string_view rest = line.substr(static_cast<std::size_t>(directive.location->column));
    return take_word(rest);
}

void change(Revision& revision, const Directive& before, const Directive& after) {
    const std::string_view line = revision.lines.raw(line_of(before));
    const auto with_value = [&](std::string_view text) {
        return with_value_behind(text, name_in(text, before), trim_view(after.value));
    };
    const auto replaced_by = [&](std::string text) {
        if (!reads_as(revision, text, after)) {
            return false;
        }
        revision.patch.replace(line_of(before), std::move(text));
        say_lost_remark(revision, before, after.value);
        return true;
    };
    if (replaced_by(with_value(line)) ||
        replaced_by(
            with_value(with_part(line, name_in(line, before), revision.schema.canonical_directive(after.name))))) {
        return;
    }
    revision.problems.cannot_write("Directive '" + after.name + "'", after.location);
}

LineStyle style_of(const Revision& revision, const std::vector<Directive>& directives) {
    std::vector<NamedLine> lines;
    for (const Directive& directive : directives) {
        const std::string_view line = revision.lines.raw(line_of(directive));
        const std::string_view name = name_in(line, directive);
        const std::size_t begin = offset_in(line, name);
        const std::size_t end = begin + name.size();
        const std::string_view value = trim_view(value_behind(line.substr(end)));
        const std::size_t stop = value.empty() ? end : offset_in(line, value);
        lines.push_back({line.substr(0, begin), name, line.substr(end, stop - end), !value.empty()});
    }
    return style_of(std::move(lines), {"% ", " ", 0, {}});
}

// Above what belongs to the line that the first directive of a text has to stand before.
std::size_t place_without_directives(const LineTable& lines) {
    if (const std::optional<std::size_t> method_line = lines.first_method_line()) {
        return lines.above_remark(*method_line);
    }
    return lines.sections().empty() ? lines.size() : lines.above_remark(lines.sections().front().header);
}

// Where new directives go. A place that is asked for again is not looked for again.
class Places {
public:
    Places(const LineTable& lines, const std::vector<Directive>& directives)
        : lines_(lines),
          directives_(directives),
          last_(directives.empty() ? place_without_directives(lines) : line_of(directives.back()) + 1) {}

    // Before the directive of that index, after the last when there is none.
    std::size_t before(std::size_t next) {
        if (next == no_partner) {
            return last_;
        }
        if (next != next_) {
            next_ = next;
            place_ = lines_.above_remark(line_of(directives_[next]));
        }
        return place_;
    }

private:
    const LineTable& lines_;
    const std::vector<Directive>& directives_;
    std::size_t last_;
    std::size_t next_ = no_partner;
    std::size_t place_ = 0;
};

}  // namespace

void edit_directives(Revision& revision, const AIPData& before, const AIPData& after) {
    const auto partner = partners(before.directives, after.directives);
    if (!partner) {
        return revision.problems.not_of_this_text("The list of directives", std::nullopt);
    }
    const std::vector<bool> removed = without_partner(before.directives.size(), *partner);
    for (std::size_t i = 0; i < removed.size(); ++i) {
        if (removed[i]) {
            revision.patch.drop(line_of(before.directives[i]));
            say_lost_remark(revision, before.directives[i], {});
        }
    }
    std::optional<LineStyle> style;
    NextPartner next_partner(*partner);
    Places places(revision.lines, before.directives);
    for (std::size_t i = 0; i < after.directives.size(); ++i) {
        const Directive& wanted = after.directives[i];
        if ((*partner)[i] != no_partner) {
            const Directive& old = before.directives[(*partner)[i]];
            if (old.name != wanted.name || old.value != wanted.value) {
                change(revision, old, wanted);
            }
            continue;
        }
        if (!style) {
            style = style_of(revision, before.directives);
        }
        std::string line =
            line_in_style(*style, revision.schema.canonical_directive(wanted.name), trim_view(wanted.value));
        if (!reads_as(revision, line, wanted)) {
            revision.problems.cannot_write("Directive '" + wanted.name + "'", wanted.location);
            continue;
        }
        revision.patch.insert(places.before(next_partner.from(i)), InsertOrder::directive, std::move(line));
    }
}

}  // namespace velk::input::amesp::in_place
