// Random input texts, with a liking for the edges of the format.
#include "oracle/random_text.hpp"

#include <vector>

#include "oracle/random_words.hpp"

namespace velk::oracle {

using namespace std::string_literals;

namespace {

class Writer {
public:
    explicit Writer(Chance& chance) : chance_(chance), usual_line_end_(chance.one_in(4) ? "\r\n" : "\n") {}

    std::string text() {
        for (std::size_t left = chance_.below(9); left > 0; --left) {
            top_level();
        }
        if (chance_.one_in(4)) {
            while (!text_.empty() && (text_.back() == '\n' || (text_.back() == '\r' && chance_.one_in(2)))) {
                text_.pop_back();
            }
        }
        for (std::size_t left = chance_.one_in(6) ? chance_.below(5) : 0; left > 0; --left) {
            damage();
        }
        return text_;
    }

private:
    void top_level() {
        switch (chance_.below(8)) {
            case 0:
                return line(blank_or_comment());
            case 1:
                return line(junk());
            case 2:
            case 3:
                return line("%" + random_indent(chance_) + entry());
            case 4:
            case 5:
                return line(method_line());
            default:
                return section();
        }
    }

    std::string blank_or_comment() {
        static const std::vector<std::string> starts = {"", "", "#", "//", ";", "/", "#!", ";%", "// >", "\0"s};
        const std::string& start = chance_.of(starts);
        return start.empty() || chance_.one_in(3) ? start : start + random_gap(chance_) + random_value(chance_);
    }

    std::string junk() {
        static const std::vector<std::string> lines = {"%",   "!",   ">",   "% ", "!\t", ">\v", "%%",   "!!!",   ">>",
                                                       "end", "END", "= 5", "/",  "\0"s, "=",   "\x80", "loose", "> %"};
        return chance_.one_in(3) ? random_value(chance_) : chance_.of(lines);
    }

    // A name with or without a value, as directives and entries have it.
    std::string entry() {
        static const std::vector<std::string> separators = {" ", " ", "=", " = ", "= ", " =", "\t", "\v", "", "  ==  "};
        return random_spelling(chance_) + (chance_.one_in(5) ? "" : chance_.of(separators) + random_value(chance_));
    }

    std::string method_line() {
        std::string line = "!" + random_indent(chance_);
        for (std::size_t left = chance_.below(5); left > 0; --left) {
            line += random_spelling(chance_) + (chance_.one_in(12) ? "" : random_gap(chance_));
        }
        return line;
    }

    void section() {
        line(header());
        for (std::size_t left = chance_.below(6); left > 0; --left) {
            line(body_line());
        }
        static const std::vector<std::string> ends = {"end", "end",  "end",         "END",     "End",  " eNd\t",
                                                      "end", "end ", "end of data", "\vend\f", "endx", "e nd"};
        if (!chance_.one_in(8)) {
            line(chance_.of(ends));
        }
    }

    std::string header() {
        std::string header = ">" + random_indent(chance_);
        if (chance_.one_in(2)) {
            header += chance_.case_mixed("xyz");
            header += random_gap(chance_) + random_number(chance_) + random_gap(chance_) + random_number(chance_);
        } else {
            header += random_spelling(chance_);
        }
        for (std::size_t left = chance_.one_in(3) ? chance_.below(4) : 0; left > 0; --left) {
            header += random_gap(chance_) + random_value(chance_);
        }
        return header;
    }

    std::string body_line() {
        switch (chance_.below(9)) {
            case 0:
            case 1:
            case 2:
                return atom();
            case 3:
            case 4:
            case 5:
                return entry();
            case 6:
                return blank_or_comment();
            case 7:
                return method_line();
            default:
                return junk();
        }
    }

    std::string atom() {
        static const std::vector<std::string> symbols = {"H", "O", "Cl1", "1", "=", "!H", "%", "\xc3\xa9"};
        std::string line = chance_.of(symbols);
        for (std::size_t left = chance_.one_in(5) ? chance_.below(6) : 3; left > 0; --left) {
            line += random_gap(chance_) + random_number(chance_);
        }
        return line;
    }

    void line(const std::string& content) {
        static const std::vector<std::string> line_ends = {"\n", "\r\n", "\r", "\n\r", "\r\r\n", "\n\n", "\r\n\n", ""};
        text_ += random_indent(chance_) + content + random_indent(chance_);
        text_ += chance_.one_in(10) ? chance_.of(line_ends) : usual_line_end_;
    }

    void damage() {
        static const std::string bytes = "\n\n\r \t\v\f%!>#;/=eEdDnN0123.-+xyz\x80\xff"s + '\0';
        const std::size_t place = chance_.below(text_.size() + 1);
        switch (chance_.below(3)) {
            case 0:
                text_.erase(place, chance_.below(4));
                return;
            case 1:
                text_.insert(place, 1, bytes[chance_.below(bytes.size())]);
                return;
            default:
                text_.insert(place, text_.substr(chance_.below(text_.size() + 1), chance_.below(12)));
        }
    }

    Chance& chance_;
    const std::string usual_line_end_;
    std::string text_;
};

}  // namespace

std::string random_text(Chance& chance) {
    return Writer(chance).text();
}

}  // namespace velk::oracle
