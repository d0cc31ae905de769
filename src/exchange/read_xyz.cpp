// Reading of XYZ text, frame by frame.
#include <algorithm>
#include <cmath>

#include <velk/core/text_view.hpp>
#include <velk/input/amesp/xyz.hpp>

#include "exchange/comment_line.hpp"
#include "model/numbers.hpp"

namespace velk::input::amesp {
namespace {

using core::text::take_line;
using core::text::take_word;
using core::text::trim_view;

// The number that the first line of a frame holds and nothing else.
std::optional<std::uint64_t> atom_count(std::string_view line) {
    const std::optional<std::int64_t> count = read_int64(line);
    return count && *count >= 0 ? std::optional(static_cast<std::uint64_t>(*count)) : std::nullopt;
}

class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) { next_line(); }

    XyzResult run(std::uint64_t wanted) {
        do {
            read_frame();
        } while (!result_.error && find_next_frame() && frames_ != wanted);
        if (!result_.error) {
            check_choice(wanted);
        }
        if (!result_.error) {
            result_.molecule = std::move(molecule_);
        }
        return std::move(result_);
    }

private:
    bool next_line() {
        if (!take_line(rest_, line_)) {
            line_ = {};
            return false;
        }
        ++number_;
        return true;
    }

    void fail_at(std::uint64_t line, std::uint64_t column, std::string message) {
        result_.error = {std::max<std::uint64_t>(1, line), column, std::move(message)};
    }

    // At a word of the current line; at the end of the line for an empty word.
    void fail(std::string_view word, std::string message) {
        const std::size_t offset = word.empty() ? line_.size() : static_cast<std::size_t>(word.data() - line_.data());
        fail_at(number_, offset + 1, std::move(message));
    }

    void read_frame() {
        ++frames_;
        second_frame_ = frames_ == 2 ? number_ : second_frame_;
        const std::optional<std::uint64_t> count = atom_count(line_);
        if (!count) {
            const std::string_view text = trim_view(line_);
            return text.empty() ? fail_at(number_, 1, "expected the number of atoms")
                                : fail(text, "expected the number of atoms");
        }
        count_ = *count;
        molecule_ = {};
        next_line();
        read_comment();
        for (std::uint64_t i = 0; i < count_ && !result_.error; ++i) {
            if (!next_line()) {
                return fail_at(number_, 1,
                               "the file ends after " + std::to_string(i) + " of " + std::to_string(count_) + " atoms");
            }
            read_atom();
        }
    }

    void read_comment() {
        result_.notes.clear();
        CommentLine comment = read_comment_line(line_);
        if (comment.problem) {
            return fail_at(number_, comment.problem->offset + 1, std::move(comment.problem->message));
        }
        if (comment.charge.has_value() != comment.multiplicity.has_value()) {
            result_.notes.push_back(
                {number_, 1,
                 comment.charge ? "the comment line gives a charge, but no multiplicity: neither is taken from it"
                                : "the comment line gives a multiplicity, but no charge: neither is taken from it"});
            return;
        }
        molecule_.charge = comment.charge;
        molecule_.multiplicity = comment.multiplicity;
    }

    void read_atom() {
        std::string_view rest = line_;
        AtomRecord atom;
        atom.symbol = take_word(rest);
        if (atom.symbol.empty()) {
            return fail_at(number_, 1, "expected an atom: symbol, x, y, z");
        }
        for (double* const coordinate : {&atom.x, &atom.y, &atom.z}) {
            const std::string_view word = take_word(rest);
            const std::optional<double> value = read_real(word);
            if (!value || !std::isfinite(*value)) {
                return fail(word, "expected a coordinate");
            }
            *coordinate = *value;
        }
        molecule_.atoms.push_back(std::move(atom));
    }

    // False at the end of the text, and where something else stands.
    bool find_next_frame() {
        do {
            if (!next_line()) {
                return false;
            }
        } while (trim_view(line_).empty());
        if (atom_count(line_)) {
            return true;
        }
        read_atom();
        const std::string count = std::to_string(count_);
        fail(trim_view(line_),
             result_.error
                 ? "expected the end of the file, or a further frame, after " + count + " atoms"
                 : "the count says " + count + ", but line " + std::to_string(number_) + " holds a further atom");
        return false;
    }

    void check_choice(std::uint64_t wanted) {
        const std::string all = std::to_string(frames_);
        if (wanted == XyzOptions::only_frame && frames_ > 1) {
            result_.frames_to_choose_from = frames_;
            fail_at(second_frame_, 1, "the file holds " + all + " frames, and none of them was chosen");
        } else if (wanted != XyzOptions::last_frame && wanted > frames_) {
            fail_at(number_, 1,
                    "there is no frame " + std::to_string(wanted) + ": the file holds " + all +
                        (frames_ == 1 ? " frame" : " frames"));
        }
    }

    std::string_view rest_;
    std::string_view line_;
    std::uint64_t number_ = 0;  // of that line
    std::uint64_t count_ = 0;   // that the current frame begins with
    std::uint64_t frames_ = 0;
    std::uint64_t second_frame_ = 0;  // the line where it begins
    Molecule molecule_;
    XyzResult result_;
};

}  // namespace

XyzResult read_xyz(std::string_view text, const XyzOptions& options) {
    return Reader(text).run(options.frame);
}

}  // namespace velk::input::amesp
