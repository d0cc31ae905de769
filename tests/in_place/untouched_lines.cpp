// Which lines of a text an edit has no business with.
#include "in_place/untouched_lines.hpp"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <map>
#include <utility>
#include <velk/core/text.hpp>

namespace velk::test {
namespace {

using namespace input::amesp;

bool is_geometry(const Section& section) {
    return section.name == "xyz" || section.name == "zmat";
}

bool is_comment_or_blank(const std::string& line) {
    const std::string text = core::text::trim(line);
    return text.empty() || text[0] == '#' || text[0] == ';' || text.substr(0, 2) == "//";
}

bool same_atom(const AtomRecord& a, const AtomRecord& b) {
    const double left[] = {a.x, a.y, a.z};
    const double right[] = {b.x, b.y, b.z};
    return a.symbol == b.symbol && std::memcmp(left, right, sizeof left) == 0;
}

class Untouched {
public:
    Untouched(std::string_view text, const AIPData& before, const AIPData& after)
        : lines_(whole_lines(text)), before_(before), after_(after), result_(lines_.size(), true) {}

    std::vector<bool> run() {
        compare(before_.directives, after_.directives,
                [](const Directive& a, const Directive& b) { return a.name == b.name && a.value == b.value; });
        compare_tokens();
        compare_sections();
        return result_;
    }

private:
    template <class Record>
    void touch(const Record& record) {
        result_[static_cast<std::size_t>(record.location->line - 1)] = false;
    }

    template <class Record, class Same>
    void compare(const std::vector<Record>& before, const std::vector<Record>& after, Same same) {
        std::map<std::uint64_t, const Record*> left;
        for (const Record& record : after) {
            if (record.location) {
                left[record.location->line] = &record;
            }
        }
        for (const Record& record : before) {
            const auto found = left.find(record.location->line);
            if (found == left.end() || !same(record, *found->second)) {
                touch(record);
            }
        }
    }

    void compare_tokens() {
        const auto& now = after_.method_tokens;
        const bool set_anew = std::none_of(now.begin(), now.end(), [](const MethodToken& t) { return t.location; });
        return set_anew ? compare_tokens_set_anew() : compare_located_tokens();
    }

    // Only the line of the token before takes new tokens in, or of the one after when there is none before.
    void compare_located_tokens() {
        std::map<std::pair<std::uint64_t, std::uint64_t>, const MethodToken*> left;
        const MethodToken* neighbour = nullptr;
        bool new_in_front = false;
        for (const MethodToken& token : after_.method_tokens) {
            if (token.location) {
                left[{token.location->line, token.location->column}] = &token;
                neighbour = &token;
                new_in_front ? touch(token) : void();
                new_in_front = false;
            } else if (neighbour != nullptr) {
                touch(*neighbour);
            } else {
                new_in_front = true;
            }
        }
        for (const MethodToken& token : before_.method_tokens) {
            const auto found = left.find({token.location->line, token.location->column});
            if (found == left.end() || found->second->canonical != token.canonical) {
                touch(token);
            }
        }
    }

    // Tokens up to the first that differs keep their bytes, and so do those from the last that differs on; only the
    // line of the last equal one may take new tokens in.
    void compare_tokens_set_anew() {
        const auto& old = before_.method_tokens;
        const auto& now = after_.method_tokens;
        const auto same = [](const MethodToken& a, const MethodToken& b) { return a.canonical == b.canonical; };
        const auto front = std::mismatch(old.begin(), old.end(), now.begin(), now.end(), same);
        if (front.first == old.end() && front.second == now.end()) {
            return;
        }
        const auto back = std::mismatch(old.rbegin(), std::make_reverse_iterator(front.first), now.rbegin(),
                                        std::make_reverse_iterator(front.second), same);
        const auto begin = front.first == old.begin() ? front.first : front.first - 1;
        const auto end = back.first.base() == old.end() ? back.first.base() : back.first.base() + 1;
        std::for_each(begin, end, [this](const MethodToken& token) { touch(token); });
    }

    void compare_sections() {
        const Section* new_geometry = nullptr;
        std::map<std::uint64_t, const Section*> left;
        for (const Section& section : after_.sections) {
            if (section.location) {
                left[section.location->line] = &section;
            } else if (section.name == "xyz" && new_geometry == nullptr) {
                new_geometry = &section;
            }
        }
        for (const Section& section : before_.sections) {
            const auto found = left.find(section.location->line);
            if (found != left.end()) {
                compare_section(section, *found->second);
            } else if (new_geometry != nullptr && is_geometry(section)) {
                compare_geometry(section, *new_geometry);
                new_geometry = nullptr;
            } else {
                touch_all(section);
            }
        }
    }

    void compare_section(const Section& before, const Section& after) {
        if (before.arguments != after.arguments) {
            touch(before);
        }
        compare(before.entries, after.entries,
                [](const SectionEntry& a, const SectionEntry& b) { return a.key == b.key && a.value == b.value; });
        compare(before.atoms, after.atoms, same_atom);
    }

    std::size_t stop(const Section& section) const {
        std::size_t line = static_cast<std::size_t>(section.location->line);
        while (line < lines_.size()) {
            std::string text = core::text::trim(lines_[line++]);
            std::transform(text.begin(), text.end(), text.begin(),
                           [](char c) { return c == 'E' || c == 'N' || c == 'D' ? static_cast<char>(c + 32) : c; });
            if (text == "end") {
                break;
            }
        }
        return line;
    }

    void touch_all(const Section& section) {
        for (std::size_t line = static_cast<std::size_t>(section.location->line - 1); line < stop(section); ++line) {
            result_[line] = false;
        }
        take_one_blank_line(section);
    }

    bool take_blank(std::size_t line) {
        const bool can_go = result_[line] && core::text::trim(lines_[line]).empty();
        result_[line] = result_[line] && !can_go;
        return can_go;
    }

    // The one before a removed section, else the one after it, but for one below a comment.
    void take_one_blank_line(const Section& section) {
        const std::size_t header = static_cast<std::size_t>(section.location->line - 1);
        if (header > 0) {
            const bool below_comment =
                is_comment_or_blank(lines_[header - 1]) && !core::text::trim(lines_[header - 1]).empty();
            if (take_blank(header - 1) || below_comment) {
                return;
            }
        }
        if (stop(section) < lines_.size()) {
            take_blank(stop(section));
        }
    }

    // Comments stay, and so do the atoms at both ends that are the same.
    void compare_geometry(const Section& before, const Section& after) {
        const std::size_t first = static_cast<std::size_t>(before.location->line);
        const std::size_t last = stop(before) - (before.terminated ? 1 : 0);
        for (std::size_t line = first; line < last; ++line) {
            result_[line] = is_comment_or_blank(lines_[line]);
        }
        if (before.name != after.name || before.arguments != after.arguments) {
            touch(before);
        }
        const auto front =
            std::mismatch(before.atoms.begin(), before.atoms.end(), after.atoms.begin(), after.atoms.end(), same_atom);
        const auto back = std::mismatch(before.atoms.rbegin(), std::make_reverse_iterator(front.first),
                                        after.atoms.rbegin(), std::make_reverse_iterator(front.second), same_atom);
        const auto keep = [this](const AtomRecord& atom) {
            result_[static_cast<std::size_t>(atom.location->line - 1)] = true;
        };
        std::for_each(before.atoms.begin(), front.first, keep);
        std::for_each(back.first.base(), before.atoms.end(), keep);
    }

    std::vector<std::string> lines_;
    const AIPData& before_;
    const AIPData& after_;
    std::vector<bool> result_;
};

}  // namespace

std::vector<std::string> whole_lines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t feed = text.find('\n');
        const std::size_t size = feed == std::string_view::npos ? text.size() : feed + 1;
        lines.emplace_back(text.substr(0, size));
        text.remove_prefix(size);
    }
    return lines;
}

std::vector<bool> untouched_lines(std::string_view text, const AIPData& before, const AIPData& after) {
    return Untouched(text, before, after).run();
}

}  // namespace velk::test
