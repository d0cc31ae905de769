// File names in printed differences.
#include "patch_name.hpp"

#include <algorithm>
#include <array>
#include <filesystem>

namespace amesp_inp {
namespace {

constexpr std::string_view escaped = "\a\b\t\n\v\f\r\"\\";
constexpr std::string_view letters = "abtnvfr\"\\";

bool is_plain(char c) {
    return c >= ' ' && c < '\x7F' && c != '"' && c != '\\';
}

// git takes no "." in a path. What stands before a ".." may be a link, which only the system can follow: such a path
// stays, and git and patch take it for what it is, one that leaves their directory.
std::string shortest(std::string_view name) {
    while (name.starts_with('/')) {
        name.remove_prefix(1);
    }
    const std::filesystem::path path(name);
    return std::find(path.begin(), path.end(), "..") == path.end() ? path.lexically_normal().string()
                                                                   : std::string(name);
}

// As git does: nothing in it is a line feed, a control character or not ASCII.
std::string c_string(std::string_view text) {
    std::string result = "\"";
    for (const char c : text) {
        if (is_plain(c)) {
            result += c;
            continue;
        }
        result += '\\';
        const std::size_t known = escaped.find(c);
        if (known != std::string_view::npos) {
            result += letters[known];
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        for (const unsigned shift : {6U, 3U, 0U}) {
            result += "01234567"[(byte >> shift) & 7U];
        }
    }
    return result + '"';
}

}  // namespace

std::string patch_name(std::string_view side, std::string_view name) {
    const std::string text = std::string(side) + shortest(name);
    // A blank at the end would be taken for part of what follows the name.
    const bool reads_back = std::all_of(text.begin(), text.end(), is_plain) && !text.ends_with(' ');
    return reads_back ? text : c_string(text);
}

std::string listed_name(std::string_view name) {
    const auto is_control = [](char c) { return (c >= '\0' && c < ' ') || c == '\x7F'; };
    return std::any_of(name.begin(), name.end(), is_control) ? c_string(name) : std::string(name);
}

}  // namespace amesp_inp
