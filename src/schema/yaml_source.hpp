// A YAML text as yaml-cpp reads it, for finding in it what yaml-cpp's marks count.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velk::input::amesp {

// A view into the text given, unless that is UTF-16 or UTF-32 to yaml-cpp: by a byte-order mark, or by the zero bytes
// around a first ASCII character.
class YamlSource {
public:
    explicit YamlSource(std::string_view text);
    YamlSource(const YamlSource&) = delete;
    YamlSource& operator=(const YamlSource&) = delete;

    // Without a byte-order mark.
    std::string_view utf8() const noexcept { return utf8_; }
    // Where in the text given a byte of `utf8()`, or its end, comes from.
    std::size_t origin(std::size_t position) const;

private:
    std::size_t skipped_ = 0;
    std::string decoded_;
    std::vector<std::uint32_t> origins_;  // of the bytes of `decoded_`, and of its end
    std::string_view utf8_;
};

}  // namespace velk::input::amesp
