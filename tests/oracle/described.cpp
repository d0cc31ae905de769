// A complete description of documents and results as text: two are equal when their descriptions are.
#include "oracle/described.hpp"

#include <bit>
#include <cstdint>
#include <optional>

#include "oracle/plain_text.hpp"

namespace velk::oracle {

using namespace input::amesp;

namespace {

using oracle::described;

// Structured bindings name every field of a record: a field that is added here breaks the build until it is described.

std::string described(const std::optional<SourceLocation>& location) {
    if (!location) {
        return " nowhere";
    }
    const auto& [line, column, length] = *location;
    return " @" + std::to_string(line) + ":" + std::to_string(column) + "+" + std::to_string(length);
}

std::string described(const std::optional<std::int32_t>& number) {
    return number ? " " + std::to_string(*number) : " none";
}

std::string flag(bool known) {
    return known ? " yes" : " no";
}

std::string described(const Directive& directive) {
    const auto& [name, value, known, location] = directive;
    return "directive " + quoted(name) + quoted(value) + flag(known) + described(location) + "\n";
}

std::string described(const SectionEntry& entry) {
    const auto& [name, value, known, raw_line, location] = entry;
    return "  entry " + quoted(name) + quoted(value) + flag(known) + quoted(raw_line) + described(location) + "\n";
}

std::string described(const AtomRecord& atom) {
    const auto& [symbol, x, y, z, raw_line, location] = atom;
    return "  atom " + quoted(symbol) + bits(x) + bits(y) + bits(z) + quoted(raw_line) + described(location) + "\n";
}

std::string described(const ParseWarning& warning) {
    const auto& [code, message, location] = warning;
    return "warning " + code + quoted(message) + described(location) + "\n";
}

std::string described(const ValidationIssue& issue) {
    const auto& [severity, code, message, location] = issue;
    return "issue " + std::to_string(static_cast<int>(severity)) + code + quoted(message) + described(location) + "\n";
}

template <class Record>
std::string each_described(const std::vector<Record>& list) {
    std::string text;
    for (const Record& record : list) {
        text += described(record);
    }
    return text;
}

}  // namespace

std::string bits(double value) {
    return " " + std::to_string(std::bit_cast<std::uint64_t>(value));
}

std::string quoted(std::string_view text) {
    std::string result = " \"";
    for (const char byte : text) {
        const auto value = static_cast<unsigned char>(byte);
        if (byte == '"' || byte == '\\') {
            result += '\\';
            result += byte;
        } else if (value >= 0x20 && value < 0x7f) {
            result += byte;
        } else {
            result += '\\';
            result += static_cast<char>('0' + value / 64);
            result += static_cast<char>('0' + value / 8 % 8);
            result += static_cast<char>('0' + value % 8);
        }
    }
    return result + "\"";
}

std::string described(const MethodToken& token) {
    const auto& [text, canonical, category, known, location] = token;
    return "token " + quoted(text) + quoted(canonical) + quoted(category) + flag(known) + described(location) + "\n";
}

std::string described(const Section& section) {
    const auto& [name, arguments, mode, known, terminated, charge, multiplicity, entries, atoms, raw_lines, location] =
        section;
    return "section " + quoted(name) + " mode " + std::to_string(static_cast<int>(mode)) + flag(known) +
           flag(terminated) + described(charge) + described(multiplicity) + described(location) + "\n" +
           "arguments:\n" + described(arguments) + each_described(entries) + each_described(atoms) + "raw lines:\n" +
           described(raw_lines);
}

std::string described(const AIPData& data) {
    const auto& [header_comments, directives, method_tokens, sections, preserved_lines, warnings] = data;
    return "header comments:\n" + described(header_comments) + each_described(directives) +
           each_described(method_tokens) + each_described(sections) + "preserved lines:\n" +
           described(preserved_lines) + each_described(warnings);
}

std::string described(const ParseResult& result) {
    const auto& [data, ok, error] = result;
    return described(data) + "ok" + flag(ok) + "\nerror" + quoted(error) + "\n";
}

std::string described(const std::vector<ValidationIssue>& issues) {
    return each_described(issues);
}

std::string described(const std::vector<std::string>& strings) {
    std::string text;
    for (const std::string& line : strings) {
        text += "  line " + quoted(line) + "\n";
    }
    return text;
}

std::string first_difference(const std::string& library, const std::string& model) {
    if (library == model) {
        return {};
    }
    std::size_t from = 0;
    while (from < library.size() && from < model.size() && library[from] == model[from]) {
        ++from;
    }
    const std::size_t start = from == 0 ? 0 : library.rfind('\n', from - 1) + 1;
    const auto line = [&](const std::string& text) {
        return start < text.size() ? text.substr(start, text.find('\n', from) - start) : std::string("(nothing more)");
    };
    return "library: " + line(library) + "\n  model:   " + line(model);
}

}  // namespace velk::oracle
