// The model of format detection.
#include "oracle/parser_model.hpp"
#include "oracle/plain_text.hpp"

namespace velk::oracle {

namespace {

bool is_geometry_name(const std::string& name) {
    return name == "xyz" || name == "zmat" || name == "zmatrix" || name == "z-matrix" || name == "coord" ||
           name == "coordinates";
}

}  // namespace

bool looks_like_amesp_input(const std::string& text) {
    bool method = false;
    bool geometry = false;
    for (const std::string& line : lines_of(text)) {
        const std::string t = trim(line);
        if (t.empty() || is_comment(t)) {
            continue;
        }
        const std::vector<std::string> words = words_of(t.substr(1));
        if (t[0] == '!') {
            method = !words.empty();
        }
        if (t[0] == '>' && !words.empty() && is_geometry_name(key(words[0]))) {
            geometry = true;
        }
    }
    return method && geometry;
}

}  // namespace velk::oracle
