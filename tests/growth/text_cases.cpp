// Texts that are large in one way each.
#include "growth/cases.hpp"
#include "growth/colliding_names.hpp"

namespace velk::test {
namespace {

using std::size_t;

// One line with `n` times `piece` in the place of the '?' of `frame`.
std::function<std::string(size_t)> long_line(const char* frame, const std::string& piece) {
    return [frame = std::string(frame), piece](size_t n) {
        std::string text = frame;
        return text.replace(text.find('?'), 1, repeated(n, std::string_view(piece)));
    };
}

// So long that no copy of them is a small one.
const std::string digits = std::string(100, '7');
const std::string letters = std::string(100, 'X');
const std::string blanks = std::string(100, ' ');
const std::string tabs = std::string(100, '\t');

}  // namespace

const std::vector<TextCase>& text_cases() {
    static const std::vector<TextCase> cases = {
        {"blank lines", lines("", "\n")},
        {"carriage returns", lines("", "\r\n")},
        {"header comments", lines("", "# a comment\n")},
        {"later comments", lines("! hf\n", "# a comment\n")},
        {"comments in a section", lines(">scf\n", "; a comment\n", "end\n")},
        {"loose lines", lines("", "a loose line\n")},
        {"markers alone", lines("", "%\n!\n>\n")},
        {"one directive many times", lines("", "% maxcyc 0\n")},
        {"unknown directives", lines("", "% name? value\n")},
        {"enum directives", lines("", "% solver none\n")},
        {"method lines", lines("", "! hf sto-3g\n")},
        {"tokens of one line", lines("!", " hf b3-lyp", "\n")},
        {"prefixed tokens", lines("!", " uhf ub3-lyp", "\n")},
        {"unknown tokens", lines("!", " token?", "\n")},
        {"empty sections", lines("", ">scf\nend\n")},
        {"unterminated sections", lines("", ">scf\nconv 1\n")},
        {"unknown sections", lines("", ">name?\nline\nend\n")},
        {"geometries", lines("", ">xyz 0 1\nH 0 0 0\nend\n")},
        {"words of a header", lines(">scf", " word?", "\nend\n")},
        {"words of a header above entries",
         [](size_t n) { return ">scf" + repeated(n, " word?") + "\n" + repeated(n, "e? 1\n") + "end\n"; }},
        {"words of a header above raw lines",
         [](size_t n) { return ">notes" + repeated(n, " word?") + "\n" + repeated(n, "line\n") + "end\n"; }},
        {"one entry many times", lines(">scf\n", "maxcyc = 0\n", "end\n")},
        {"unknown entries", lines(">scf\n", "name? value\n", "end\n")},
        {"entries without a key", lines(">scf\n", "= value\n", "end\n")},
        {"required entries", lines(">many\n", "e? 1\n", "end\n")},
        {"entries that collide",
         [](size_t n) {
             const std::vector<std::string> names = colliding_names(n);
             return ">few\n" + repeated(n, [&](size_t i) { return names[i] + " 1\n"; }) + "end\n";
         }},
        {"sections of required entries", lines("", ">few\ne1 1\nend\n")},
        {"atoms", lines(">xyz 0 1\n", "H 0.1 -1.25 1D-3\n", "end\n")},
        {"atoms that differ", lines(">xyz 0 1\n", "H 0.? 0 0\n", "end\n")},
        {"bad atoms", lines(">xyz 0 1\n", "H 0 0\n", "end\n")},
        {"raw lines", lines(">notes\n", "line ?\n", "end\n")},
        {"blank lines in a section", lines(">notes\n", "\n", "end\n")},
    };
    return cases;
}

const std::vector<TextCase>& long_line_cases() {
    static const std::vector<TextCase> cases = {
        {"one long loose line", long_line("?", digits)},
        {"one long blank line", long_line("?", blanks)},
        {"one long run of tabs before a line", long_line("?x", tabs)},
        {"one long comment", long_line("#?", digits)},
        {"one long value", long_line("% maxcyc ?", digits)},
        {"one long name", long_line("% ?", letters)},
        {"one long token", long_line("! ?", letters)},
        {"one long section name", long_line(">?\nend\n", letters)},
        {"one long key", long_line(">scf\n? = 1\nend\n", letters)},
        {"one long real", long_line(">scf\nconv = 0.?\nend\n", digits)},
        {"one long coordinate", long_line(">xyz 0 1\nH 1? 0 0\nend\n", digits)},
        {"one long line of zero bytes", [](size_t n) { return std::string(100 * n, '\0'); }},
    };
    return cases;
}

}  // namespace velk::test
