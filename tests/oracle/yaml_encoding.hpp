// Texts in the encodings of YAML.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velk::oracle {

struct YamlEncoding {
    std::size_t unit_size = 1;
    bool big_endian = false;
    bool byte_order_mark = false;
};

// Of well-formed UTF-8.
std::string encoded(std::string_view utf8, const YamlEncoding& encoding);

}  // namespace velk::oracle
