// Myers' greedy comparison of lines, cut off where texts differ in very many places.
#include "unified_diff.hpp"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "patch_name.hpp"

namespace amesp_inp {
namespace {

using Lines = std::vector<std::string_view>;  // with their line feeds

constexpr std::ptrdiff_t most_edits = 1000;
constexpr std::size_t context = 3;

Lines split(std::string_view text) {
    Lines lines;
    while (!text.empty()) {
        const std::size_t feed = text.find('\n');
        const std::size_t length = feed == std::string_view::npos ? text.size() : feed + 1;
        lines.push_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return lines;
}

// Which lines of each side have no counterpart on the other.
struct Marks {
    std::vector<bool> removed;
    std::vector<bool> added;
};

class Comparison {
public:
    Comparison(const Lines& a, const Lines& b) : a_(a), b_(b), marks_{{}, {}} {
        marks_.removed.resize(a.size());
        marks_.added.resize(b.size());
    }

    Marks run() && {
        while (begin_ < std::min(a_.size(), b_.size()) && a_[begin_] == b_[begin_]) {
            ++begin_;
        }
        a_end_ = a_.size();
        b_end_ = b_.size();
        while (a_end_ > begin_ && b_end_ > begin_ && a_[a_end_ - 1] == b_[b_end_ - 1]) {
            --a_end_;
            --b_end_;
        }
        if (!trace_edits()) {
            std::fill(marks_.removed.begin() + offset(begin_), marks_.removed.begin() + offset(a_end_), true);
            std::fill(marks_.added.begin() + offset(begin_), marks_.added.begin() + offset(b_end_), true);
        }
        return std::move(marks_);
    }

private:
    static std::ptrdiff_t offset(std::size_t index) { return static_cast<std::ptrdiff_t>(index); }
    std::ptrdiff_t rows() const { return offset(a_end_ - begin_); }
    std::ptrdiff_t columns() const { return offset(b_end_ - begin_); }
    bool same(std::ptrdiff_t x, std::ptrdiff_t y) const {
        return a_[begin_ + static_cast<std::size_t>(x)] == b_[begin_ + static_cast<std::size_t>(y)];
    }

    // The furthest x on diagonal k after one more edit.
    static std::ptrdiff_t step(const std::vector<std::ptrdiff_t>& v, std::ptrdiff_t k, std::ptrdiff_t d) {
        const auto at = [&](std::ptrdiff_t diagonal) { return v[static_cast<std::size_t>(diagonal + most_edits + 1)]; };
        return k == -d || (k != d && at(k - 1) < at(k + 1)) ? at(k + 1) : at(k - 1) + 1;
    }

    bool trace_edits() {
        std::vector<std::ptrdiff_t> v(2 * most_edits + 3, 0);
        std::vector<std::vector<std::ptrdiff_t>> history;
        for (std::ptrdiff_t d = 0; d <= std::min(rows() + columns(), most_edits); ++d) {
            history.push_back(v);
            for (std::ptrdiff_t k = -d; k <= d; k += 2) {
                std::ptrdiff_t x = step(history.back(), k, d);
                while (x < rows() && x - k < columns() && x - k >= 0 && same(x, x - k)) {
                    ++x;
                }
                v[static_cast<std::size_t>(k + most_edits + 1)] = x;
                if (x >= rows() && x - k >= columns()) {
                    mark(history, d);
                    return true;
                }
            }
        }
        return false;
    }

    void mark(const std::vector<std::vector<std::ptrdiff_t>>& history, std::ptrdiff_t d) {
        std::ptrdiff_t x = rows();
        std::ptrdiff_t y = columns();
        for (; d > 0; --d) {
            const auto& v = history[static_cast<std::size_t>(d)];
            const std::ptrdiff_t k = x - y;
            const auto at = [&](std::ptrdiff_t diagonal) {
                return v[static_cast<std::size_t>(diagonal + most_edits + 1)];
            };
            const bool down = k == -d || (k != d && at(k - 1) < at(k + 1));
            const std::ptrdiff_t from = down ? k + 1 : k - 1;
            x = at(from);
            y = x - from;
            if (down) {
                marks_.added[begin_ + static_cast<std::size_t>(y)] = true;
            } else {
                marks_.removed[begin_ + static_cast<std::size_t>(x)] = true;
            }
        }
    }

    const Lines& a_;
    const Lines& b_;
    std::size_t begin_ = 0;  // of what differs; the same on both sides
    std::size_t a_end_ = 0;
    std::size_t b_end_ = 0;
    Marks marks_;
};

void add_line(std::string& out, char kind, std::string_view line) {
    out += kind;
    out += line;
    if (!line.ends_with('\n')) {
        out += "\n\\ No newline at end of file\n";
    }
}

std::string range(std::size_t begin, std::size_t count) {
    const std::size_t first = count == 0 ? begin : begin + 1;
    return std::to_string(first) + (count == 1 ? "" : "," + std::to_string(count));
}

class Hunks {
public:
    Hunks(const Lines& a, const Lines& b, const Marks& marks) : a_(a), b_(b), marks_(marks) {}

    std::string run() {
        while (i_ < a_.size() || j_ < b_.size()) {
            if (changed(i_, j_)) {
                add_hunk();
            } else {
                ++i_;
                ++j_;
            }
        }
        return std::move(out_);
    }

private:
    bool changed(std::size_t i, std::size_t j) const {
        return (i < a_.size() && marks_.removed[i]) || (j < b_.size() && marks_.added[j]);
    }

    void add_hunk() {
        const std::size_t before = std::min(context, i_);
        const std::size_t a_begin = i_ - before;
        const std::size_t b_begin = j_ - before;
        std::string body;
        for (std::size_t k = a_begin; k < i_; ++k) {
            add_line(body, ' ', a_[k]);
        }
        std::size_t quiet = 0;  // unchanged lines since the last change
        while ((i_ < a_.size() || j_ < b_.size()) && quiet <= 2 * context) {
            if (i_ < a_.size() && marks_.removed[i_]) {
                add_line(body, '-', a_[i_++]);
                quiet = 0;
            } else if (j_ < b_.size() && marks_.added[j_]) {
                add_line(body, '+', b_[j_++]);
                quiet = 0;
            } else if (has_change_within(2 * context - quiet)) {
                add_line(body, ' ', a_[i_]);
                ++i_;
                ++j_;
                ++quiet;
            } else {
                break;
            }
        }
        for (std::size_t k = quiet; k < context && i_ < a_.size(); ++k) {
            add_line(body, ' ', a_[i_]);
            ++i_;
            ++j_;
        }
        out_ += "@@ -" + range(a_begin, i_ - a_begin) + " +" + range(b_begin, j_ - b_begin) + " @@\n" + body;
    }

    bool has_change_within(std::size_t distance) const {
        for (std::size_t k = 1; k <= distance; ++k) {
            if (changed(i_ + k, j_ + k)) {
                return true;
            }
        }
        return false;
    }

    const Lines& a_;
    const Lines& b_;
    const Marks& marks_;
    std::size_t i_ = 0;
    std::size_t j_ = 0;
    std::string out_;
};

}  // namespace

std::string unified_diff(std::string_view before, std::string_view after, std::string_view name) {
    if (before == after) {
        return {};
    }
    const Lines a = split(before);
    const Lines b = split(after);
    const Marks marks = Comparison(a, b).run();
    // The tab ends a name for patch, which otherwise ends it at a blank.
    return "--- " + patch_name("a/", name) + "\t\n+++ " + patch_name("b/", name) + "\t\n" + Hunks(a, b, marks).run();
}

}  // namespace amesp_inp
