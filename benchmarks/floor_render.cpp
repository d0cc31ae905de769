// The floor of rendering: std::to_chars into one buffer of the size needed.
#include <charconv>
#include <cstring>

#include "floor.hpp"

namespace velk::bench {
namespace {

using namespace input::amesp;

constexpr std::size_t coordinate_size = 1 + 1 + 6 + 1 + 10;  // a blank, the sign, digits, the point, decimals
constexpr int decimals = 10;

std::size_t size_bound(const AIPData& data) {
    std::size_t size = 16;
    for (const std::string& comment : data.header_comments) {
        size += comment.size() + 1;
    }
    for (const Directive& directive : data.directives) {
        size += 4 + directive.name.size() + directive.value.size();
    }
    for (const MethodToken& token : data.method_tokens) {
        size += 1 + token.canonical.size();
    }
    for (const Section& section : data.sections) {
        size += 64 + section.name.size();
        for (const SectionEntry& entry : section.entries) {
            size += 4 + entry.key.size() + entry.value.size();
        }
        for (const AtomRecord& atom : section.atoms) {
            size += 3 + atom.symbol.size() + 3 * coordinate_size;
        }
    }
    return size;
}

class FloorRenderer {
public:
    explicit FloorRenderer(std::size_t size) : text_{std::make_unique_for_overwrite<char[]>(size), 0} {
        place_ = text_.bytes.get();
        end_ = place_ + size;
    }

    FloorText run(const AIPData& data) {
        for (const std::string& comment : data.header_comments) {
            add(comment);
            add('\n');
        }
        for (const Directive& directive : data.directives) {
            add("% ");
            add(directive.name);
            add(' ');
            add(directive.value);
            add('\n');
        }
        if (!data.directives.empty()) {
            add('\n');
        }
        add('!');
        for (const MethodToken& token : data.method_tokens) {
            add(' ');
            add(token.canonical);
        }
        add('\n');
        for (const Section& section : data.sections) {
            add_section(section);
        }
        text_.size = static_cast<std::size_t>(place_ - text_.bytes.get());
        return std::move(text_);
    }

private:
    void add(char c) { *place_++ = c; }

    void add(std::string_view text) {
        std::memcpy(place_, text.data(), text.size());
        place_ += text.size();
    }

    void add_integer(std::int32_t value) { place_ = std::to_chars(place_, end_, value).ptr; }

    void add_section(const Section& section) {
        add("\n>");
        add(section.name);
        if (section.charge) {
            add(' ');
            add_integer(*section.charge);
            add(' ');
            add_integer(*section.multiplicity);
        }
        add('\n');
        for (const AtomRecord& atom : section.atoms) {
            add("  ");
            add(atom.symbol);
            for (const double coordinate : {atom.x, atom.y, atom.z}) {
                add(' ');
                place_ = std::to_chars(place_, end_, coordinate, std::chars_format::fixed, decimals).ptr;
            }
            add('\n');
        }
        for (const SectionEntry& entry : section.entries) {
            add("  ");
            add(entry.key);
            add(' ');
            add(entry.value);
            add('\n');
        }
        add("end\n");
    }

    FloorText text_;
    char* place_ = nullptr;
    char* end_ = nullptr;
};

}  // namespace

FloorText floor_render(const AIPData& data) {
    return FloorRenderer(size_bound(data)).run(data);
}

}  // namespace velk::bench
