// What yaml-cpp takes for UTF-16 and UTF-32, and what it makes of it. Its ways with broken text are kept: a place shall
// be right in any text that it reads.
#include "schema/yaml_source.hpp"

#include <algorithm>

namespace velk::input::amesp {
namespace {

using namespace std::string_view_literals;

struct Encoding {
    std::size_t mark_size = 0;
    std::size_t unit_size = 1;
    bool big_endian = false;
};

// yaml-cpp's ASCII is what begins no byte-order mark.
bool is_ascii(char byte) {
    return "\0\xbb\xbf\xef\xfe\xff"sv.find(byte) == std::string_view::npos;
}

Encoding encoding_of(std::string_view text) {
    struct ByteOrderMark {
        std::string_view bytes;
        Encoding encoding;
    };
    static constexpr ByteOrderMark marks[] = {{"\xef\xbb\xbf"sv, {3, 1, false}}, {"\xff\xfe\0\0"sv, {4, 4, false}},
                                              {"\xff\xfe"sv, {2, 2, false}},     {"\xfe\xff"sv, {2, 2, true}},
                                              {"\0\0\xfe\xff"sv, {4, 4, true}},  {"\0\0\0"sv, {0, 4, true}}};
    for (const ByteOrderMark& mark : marks) {
        if (text.starts_with(mark.bytes)) {
            return mark.encoding;
        }
    }
    if (text.size() < 2 || (text[0] == '\0') == (text[1] == '\0')) {
        return {};
    }
    if (text[0] == '\0') {
        return is_ascii(text[1]) ? Encoding{0, 2, true} : Encoding{};
    }
    if (!is_ascii(text[0])) {
        return {};
    }
    return text.substr(1, 3) == "\0\0\0"sv ? Encoding{0, 4, false} : Encoding{0, 2, false};
}

constexpr std::uint32_t replacement_character = 0xfffd;

bool is_high_surrogate(std::uint32_t unit) {
    return unit >= 0xd800 && unit < 0xdc00;
}

bool is_low_surrogate(std::uint32_t unit) {
    return unit >= 0xdc00 && unit < 0xe000;
}

// Takes whole units from the front of a text.
class Units {
public:
    Units(std::string_view text, const Encoding& encoding) : text_(text), encoding_(encoding) {}

    bool empty() const { return text_.size() < encoding_.unit_size; }
    std::size_t left() const { return text_.size(); }

    std::uint32_t next() {
        std::uint32_t unit = 0;
        for (std::size_t number = 0; number < encoding_.unit_size; ++number) {
            const std::size_t place = encoding_.big_endian ? number : encoding_.unit_size - 1 - number;
            unit = unit << 8U | static_cast<unsigned char>(text_[place]);
        }
        text_.remove_prefix(encoding_.unit_size);
        return unit;
    }

private:
    std::string_view text_;
    Encoding encoding_;
};

void append_utf8(std::string& text, std::uint32_t character) {
    constexpr std::uint32_t end_of_stream = 4;  // to yaml-cpp, which lets none in
    if (character == end_of_stream) {
        character = replacement_character;
    }
    const auto append = [&](std::uint32_t head, unsigned shift, std::uint32_t mask) {
        text += static_cast<char>(static_cast<unsigned char>(head | (character >> shift & mask)));
    };
    if (character < 0x80) {
        append(0, 0, 0x7f);
        return;
    }
    if (character < 0x800) {
        append(0xc0, 6, 0x1f);
    } else if (character < 0x10000) {
        append(0xe0, 12, 0x0f);
        append(0x80, 6, 0x3f);
    } else {
        append(0xf0, 18, 0x07);
        append(0x80, 12, 0x3f);
        append(0x80, 6, 0x3f);
    }
    append(0x80, 0, 0x3f);
}

// The rest of what a high surrogate begins. One with another unit after it stands for itself, after U+FFFD, and takes
// that unit with it.
void append_pair(std::string& text, std::uint32_t high, Units& units) {
    while (!units.empty()) {
        const std::uint32_t unit = units.next();
        if (is_low_surrogate(unit)) {
            append_utf8(text, 0x10000 + ((high & 0x3ffU) << 10U | (unit & 0x3ffU)));
            return;
        }
        append_utf8(text, replacement_character);
        if (!is_high_surrogate(unit)) {
            append_utf8(text, high);
            return;
        }
        high = unit;
    }
    append_utf8(text, replacement_character);
}

}  // namespace

YamlSource::YamlSource(std::string_view text) : utf8_(text) {
    const Encoding encoding = encoding_of(text);
    skipped_ = encoding.mark_size;
    utf8_.remove_prefix(skipped_);
    if (encoding.unit_size == 1) {
        return;
    }
    Units units(utf8_, encoding);
    while (!units.empty()) {
        const auto origin = static_cast<std::uint32_t>(text.size() - units.left());
        const std::uint32_t unit = units.next();
        if (encoding.unit_size == 2 && is_high_surrogate(unit)) {
            append_pair(decoded_, unit, units);
        } else {
            append_utf8(decoded_, encoding.unit_size == 2 && is_low_surrogate(unit) ? replacement_character : unit);
        }
        origins_.resize(decoded_.size(), origin);
    }
    origins_.push_back(static_cast<std::uint32_t>(text.size()));
    utf8_ = decoded_;
}

std::size_t YamlSource::origin(std::size_t position) const {
    return origins_.empty() ? skipped_ + position : origins_[position];
}

}  // namespace velk::input::amesp
