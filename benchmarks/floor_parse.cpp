// The floor of parsing: the lines by memchr, the numbers by std::from_chars, records that own what they must.
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <utility>

#include "floor.hpp"

namespace velk::bench {
namespace {

using namespace input::amesp;

std::string_view take_word(std::string_view& rest) {
    const std::size_t begin = std::min(rest.find_first_not_of(' '), rest.size());
    const std::size_t end = std::min(rest.find(' ', begin), rest.size());
    const std::string_view word = rest.substr(begin, end - begin);
    rest.remove_prefix(end);
    return word;
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ') {
        text.remove_prefix(1);
    }
    while (!text.empty() && text.back() == ' ') {
        text.remove_suffix(1);
    }
    return text;
}

std::string lowered(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
    }
    return result;
}

class FloorParser {
public:
    FloorParser(std::string_view text, const FloorNames& names)
        : next_(text.data()), end_(text.data() + text.size()), names_(names) {}

    AIPData run() {
        while (next_line()) {
            if (line_.empty()) {
                continue;
            }
            switch (line_.front()) {
                case '#':
                    data_.header_comments.emplace_back(line_);
                    break;
                case '%':
                    read_directive();
                    break;
                case '!':
                    read_method_line();
                    break;
                default:
                    read_section();
            }
        }
        return std::move(data_);
    }

private:
    bool next_line() {
        if (next_ == end_) {
            return false;
        }
        const auto* const feed = static_cast<const char*>(std::memchr(next_, '\n', bytes_left()));
        line_ = {next_, static_cast<std::size_t>(feed - next_)};
        next_ = feed + 1;
        ++number_;
        return true;
    }

    std::size_t bytes_left() const { return static_cast<std::size_t>(end_ - next_); }

    // Makes the list of a large body once in its size. A small one is faster grown than counted.
    template <class Record>
    void make_room(std::vector<Record>& records) const {
        constexpr std::size_t large = std::size_t{1} << 18;
        if (bytes_left() < large) {
            return;
        }
        std::size_t lines = 0;
        for (const char* line = next_; *line != 'e'; ++lines) {
            line = static_cast<const char*>(std::memchr(line, '\n', static_cast<std::size_t>(end_ - line))) + 1;
        }
        records.reserve(lines);
    }

    SourceLocation location(std::string_view text) const {
        return {number_, static_cast<std::uint64_t>(text.data() - line_.data()) + 1, text.size()};
    }

    void read_directive() {
        std::string_view rest = line_.substr(1);
        const std::string name = lowered(take_word(rest));
        const FloorNames::Entry& known = names_.directives.find(name)->second;
        data_.directives.push_back(
            {std::string(known.canonical), std::string(trimmed(rest)), true, location(trimmed(line_))});
    }

    void read_method_line() {
        std::string_view rest = line_.substr(1);
        for (std::string_view word = take_word(rest); !word.empty(); word = take_word(rest)) {
            const FloorNames::Token& known = names_.tokens.find(lowered(word))->second;
            data_.method_tokens.push_back(
                {std::string(word), std::string(known.canonical), std::string(known.category), true, location(word)});
        }
    }

    void read_section() {
        std::string_view rest = line_.substr(1);
        const FloorNames::Section& known = names_.sections.find(lowered(take_word(rest)))->second;
        Section section;
        section.name = known.canonical;
        section.known = true;
        section.parse_mode = known.mode;
        section.location = location(trimmed(line_));
        for (std::string_view word = take_word(rest); !word.empty(); word = take_word(rest)) {
            section.arguments.emplace_back(word);
        }
        if (known.mode == SectionParseMode::cartesian_coordinates) {
            section.charge = integer(section.arguments[0]);
            section.multiplicity = integer(section.arguments[1]);
            read_atoms(section.atoms);
        } else {
            read_entries(section.entries, known);
        }
        data_.sections.push_back(std::move(section));
    }

    static std::int32_t integer(std::string_view text) {
        std::int32_t value = 0;
        std::from_chars(text.data(), text.data() + text.size(), value);
        return value;
    }

    void read_atoms(std::vector<AtomRecord>& atoms) {
        make_room(atoms);
        while (next_line() && line_ != "end") {
            const std::string_view text = trimmed(line_);
            const char* place = text.data();
            const char* const end = place + text.size();
            while (*place != ' ') {
                ++place;
            }
            const std::string_view symbol(text.data(), static_cast<std::size_t>(place - text.data()));
            const double x = coordinate(place, end);
            const double y = coordinate(place, end);
            const double z = coordinate(place, end);
            atoms.push_back({std::string(symbol), x, y, z, std::string(line_), location(text)});
        }
    }

    static double coordinate(const char*& place, const char* end) {
        while (*place == ' ') {
            ++place;
        }
        double value = 0.0;
        place = std::from_chars(place, end, value).ptr;
        return value;
    }

    void read_entries(std::vector<SectionEntry>& entries, const FloorNames::Section& section) {
        make_room(entries);
        while (next_line() && line_ != "end") {
            const std::string_view text = trimmed(line_);
            const auto* const equals = static_cast<const char*>(std::memchr(text.data(), '=', text.size()));
            const auto key_size = static_cast<std::size_t>(equals - text.data());
            std::string key = lowered(trimmed(text.substr(0, key_size)));
            const FloorNames::Entry& known = section.entries.find(key)->second;
            if (known.canonical != key) {
                key = known.canonical;
            }
            entries.push_back({std::move(key), std::string(trimmed(text.substr(key_size + 1))), true,
                               std::string(line_), location(text)});
        }
    }

    const char* next_;
    const char* end_;
    const FloorNames& names_;
    std::string_view line_;
    std::uint64_t number_ = 0;
    AIPData data_;
};

}  // namespace

FloorNames floor_names(const InputSchema::Impl& tables) {
    FloorNames names;
    for (const auto& [alias, canonical] : tables.directive_aliases) {
        names.directives[alias] = {canonical, &tables.directives.at(canonical)};
    }
    for (const auto& [alias, canonical] : tables.method_token_aliases) {
        names.tokens[alias] = {canonical, tables.method_tokens.at(canonical).category};
    }
    for (const auto& [alias, canonical] : tables.section_aliases) {
        const SectionSpec& spec = tables.sections.at(canonical);
        FloorNames::Section& section = names.sections[alias];
        section.canonical = canonical;
        section.mode = spec.parse_mode;
        for (const auto& [entry_alias, entry] : spec.entry_aliases) {
            section.entries[entry_alias] = {entry, &spec.entries.at(entry)};
        }
    }
    return names;
}

AIPData floor_parse(std::string_view text, const FloorNames& names) {
    return FloorParser(text, names).run();
}

}  // namespace velk::bench
