// The model's own text operations, spelled out byte by byte.
#include "oracle/plain_text.hpp"

namespace velk::oracle {

bool is_space(char byte) {
    return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\v' || byte == '\f' || byte == '\r';
}

std::string trim(const std::string& text) {
    std::string result = text;
    while (!result.empty() && is_space(result.front())) {
        result.erase(result.begin());
    }
    while (!result.empty() && is_space(result.back())) {
        result.pop_back();
    }
    return result;
}

std::string lower(std::string text) {
    const std::string upper_letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const std::string lower_letters = "abcdefghijklmnopqrstuvwxyz";
    for (char& byte : text) {
        const std::size_t place = upper_letters.find(byte);
        if (place != std::string::npos) {
            byte = lower_letters[place];
        }
    }
    return text;
}

std::string key(const std::string& name) {
    return lower(trim(name));
}

std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::string line;
    for (const char byte : text) {
        if (byte != '\n') {
            line += byte;
            continue;
        }
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        lines.push_back(line);
        line.clear();
    }
    if (!text.empty() && text.back() != '\n') {
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> words_of(const std::string& text) {
    std::vector<std::string> words;
    std::string word;
    for (const char byte : text + ' ') {
        if (!is_space(byte)) {
            word += byte;
        } else if (!word.empty()) {
            words.push_back(word);
            word.clear();
        }
    }
    return words;
}

std::string behind_first_blank(const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == ' ' || text[i] == '\t') {
            return trim(text.substr(i + 1));
        }
    }
    return "";
}

bool starts_with(const std::string& text, const std::string& start) {
    return text.substr(0, start.size()) == start;
}

bool is_comment(const std::string& trimmed_line) {
    return starts_with(trimmed_line, "#") || starts_with(trimmed_line, "//") || starts_with(trimmed_line, ";");
}

}  // namespace velk::oracle
