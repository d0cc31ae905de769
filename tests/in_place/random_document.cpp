// Texts of the input format, drawn at random.
#include "in_place/random_document.hpp"

namespace velk::test {
namespace {

using Words = std::vector<std::string>;

const Words directive_names = {"maxcore", "Memory", "nprocs", "TITLE", "colour", "x=y"};
const Words tokens = {"hf", "HF", "b3-lyp", "B3LYP", "sto-3g", "opt", "Freq", "xyzzy", "!x", "!", "plugh"};
const Words section_names = {"scf", "SCF", "opt", "notes", "xyz", "Geometry", "XYZ", "zmat", "frob", "scf"};
const Words keys = {"maxcyc", "MaxIter", "conv", "guess", "note", "direct", "my key", "frob"};
const Words values = {"", "5", "1.0d-8", "core  two", "a # b", "x", "off", "\xc3\xa9"};
const Words comments = {"# note", "  ; note", "//note", "#", "\t# end"};

class Writer {
public:
    explicit Writer(Random& random) : random_(random), ends_(random.below(4)) {}

    std::string run() {
        const std::size_t count = random_.below(9);
        for (std::size_t i = 0; i < count && !open_; ++i) {
            add_construct();
        }
        if (!text_.empty() && random_.one_in(5)) {
            text_.resize(text_.find_last_not_of("\r\n") + 1);
        }
        return text_;
    }

private:
    void add(const std::string& line) {
        const bool carriage_return = ends_ == 1 || (ends_ == 2 && random_.one_in(2));
        text_ += line + (carriage_return ? "\r\n" : "\n");
    }

    std::string blanks() { return random_blanks(random_); }
    std::string gap() { return random_.one_in(3) ? " " + blanks() : std::string(" "); }

    void add_construct() {
        switch (random_.below(9)) {
            case 0:
                return add(random_.one_in(2) ? blanks() : random_.of(comments));
            case 1:
                return add(random_.one_in(3) ? "loose line" : random_.of(comments));
            case 2:
            case 3:
                return add_directive();
            case 4:
                return add_method_line();
            default:
                return add_section();
        }
    }

    void add_directive() {
        if (random_.one_in(12)) {
            return add("%" + blanks());
        }
        add(blanks() + "%" + blanks() + random_.of(directive_names) + gap() + random_.of(values) + blanks());
    }

    void add_method_line() {
        std::string line = blanks() + "!";
        const std::size_t count = random_.below(6);
        for (std::size_t i = 0; i < count; ++i) {
            line += (i == 0 && random_.one_in(3) ? "" : gap()) + random_.of(tokens);
        }
        add(line + blanks());
    }

    void add_section() {
        const std::string& name = random_.of(section_names);
        const bool geometry = name.size() > 2 && (name[0] == 'x' || name[0] == 'X' || name[0] == 'G');
        std::string header = blanks() + ">" + (random_.one_in(4) ? gap() : "") + name;
        for (std::size_t i = geometry ? 0 : random_.below(4); i < 2; ++i) {
            header += gap() + std::to_string(random_.below(3));
        }
        if (random_.one_in(4)) {
            header += gap() + random_.of(Words{"angstrom", "Bohr", "x  y"});
        }
        add(header + blanks());
        const std::size_t count = random_.below(7);
        for (std::size_t i = 0; i < count; ++i) {
            add_body_line(geometry);
        }
        open_ = random_.one_in(12);
        if (!open_) {
            add(random_.one_in(3) ? "  END" : "end");
        }
    }

    void add_body_line(bool geometry) {
        switch (random_.below(12)) {
            case 0:
                return add(blanks());
            case 1:
                return add(random_.of(comments));
            case 2:
                return add(random_.of(Words{"= 5", "% lost 1", "! hf", "H 1 2", "end of data", ">scf"}));
            default:
                return geometry ? add_atom() : add_entry();
        }
    }

    void add_entry() {
        std::string line = blanks() + random_.of(keys);
        if (random_.one_in(3)) {
            line += random_.of(Words{"=", " = ", "  = ", "= "}) + (random_.one_in(4) ? "a=b" : random_.of(values));
        } else {
            line += gap() + random_.of(values);
        }
        add(line + blanks());
    }

    void add_atom() {
        std::string line = blanks() + random_.of(Words{"H", "O", "C1", "He"});
        for (int axis = 0; axis < 3; ++axis) {
            line += gap() + random_number(random_);
        }
        add(line + (random_.one_in(6) ? " # more" : blanks()));
    }

    Random& random_;
    std::size_t ends_;  // 0, 3: LF, 1: CRLF, 2: mixed
    bool open_ = false;
    std::string text_;
};

}  // namespace

std::string random_blanks(Random& random) {
    static const Words list = {"", "", "", " ", "  ", "\t", " \t ", "    "};
    return random.of(list);
}

std::string random_number(Random& random) {
    static const Words list = {"0", "0.0", "-0.0", "1d0", "+.5", "-4.692D-1", "1e-11", "0.3333333333333333", "1e300"};
    return random.one_in(2) ? random.of(list) : std::to_string(static_cast<double>(random.below(4000)) / 1000 - 2);
}

std::string random_document(Random& random) {
    return Writer(random).run();
}

}  // namespace velk::test
