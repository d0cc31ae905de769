// Edits made one after the other.
//
// Both lists are walked together in the text between them. Edits that touch or overlap there become one, which takes
// from the original what they take together, and puts there what both leave.
#include "model/compose_edits.hpp"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace velk::input::amesp {
namespace {

// An edit of the original, with the place in the text between of what it puts there.
struct Placed {
    const TextEdit* edit = nullptr;
    std::uint64_t begin = 0;
    std::uint64_t end() const { return begin + edit->text.size(); }
};

std::vector<Placed> placed(const std::vector<TextEdit>& edits) {
    std::vector<Placed> result;
    result.reserve(edits.size());
    std::uint64_t put = 0;    // by the edits so far
    std::uint64_t taken = 0;  // by them
    for (const TextEdit& edit : edits) {
        result.push_back({&edit, edit.offset - taken + put});
        put += edit.text.size();
        taken += edit.length;
    }
    return result;
}

// A run of edits of both lists that touch or overlap in the text between.
class Run {
public:
    // Where the run begins, in the text between and in the original.
    Run(std::uint64_t begin, std::uint64_t original_begin) : begin_(begin), at_(begin), original_at_(original_begin) {
        result_.offset = original_begin;
    }

    std::uint64_t end() const { return std::max(first_end_, second_end_); }

    void add_first(const Placed& first) {
        keep_original_up_to(first.begin);
        pending_ += first.edit->text;
        at_ = first.end();
        original_at_ += first.edit->length;
        first_end_ = at_;
    }

    void add_second(const TextEdit& second) {
        keep_original_up_to(second.offset);
        seconds_.push_back(&second);
        second_end_ = std::max(second_end_, second.offset + second.length);
    }

    TextEdit finish() {
        keep_original_up_to(second_end_);
        result_.length = original_at_ - result_.offset;
        std::size_t done = 0;
        for (const TextEdit* const second : seconds_) {
            const auto offset = static_cast<std::size_t>(second->offset - begin_);
            result_.text += std::string_view(pending_).substr(done, offset - done);
            result_.text += second->text;
            done = offset + static_cast<std::size_t>(second->length);
        }
        result_.text += std::string_view(pending_).substr(done);
        return std::move(result_);
    }

private:
    // Bytes of the original within a run are all taken by an edit of the second list: which they are does not matter.
    void keep_original_up_to(std::uint64_t place) {
        if (place > at_) {
            pending_.append(static_cast<std::size_t>(place - at_), '\0');
            original_at_ += place - at_;
            at_ = place;
        }
    }

    std::uint64_t begin_;
    std::uint64_t at_;           // in the text between
    std::uint64_t original_at_;  // the same place in the original
    std::uint64_t first_end_ = 0;
    std::uint64_t second_end_ = 0;
    std::string pending_;  // the text between, from the beginning of the run on
    std::vector<const TextEdit*> seconds_;
    TextEdit result_;
};

}  // namespace

std::vector<TextEdit> compose(const std::vector<TextEdit>& first, const std::vector<TextEdit>& second) {
    const std::vector<Placed> firsts = placed(first);
    std::vector<TextEdit> result;
    std::size_t i = 0;
    std::size_t j = 0;
    std::uint64_t put = 0;    // by the edits of the first list so far
    std::uint64_t taken = 0;  // by them
    while (i < firsts.size() || j < second.size()) {
        const bool first_begins = j == second.size() || (i < firsts.size() && firsts[i].begin <= second[j].offset);
        const std::uint64_t begin = first_begins ? firsts[i].begin : second[j].offset;
        Run run(begin, begin - put + taken);
        for (bool grows = true; grows;) {
            grows = false;
            const std::uint64_t reach = std::max(begin, run.end());
            if (i < firsts.size() && firsts[i].begin <= reach) {
                put += firsts[i].edit->text.size();
                taken += firsts[i].edit->length;
                run.add_first(firsts[i++]);
                grows = true;
            } else if (j < second.size() && second[j].offset <= reach) {
                run.add_second(second[j++]);
                grows = true;
            }
        }
        result.push_back(run.finish());
    }
    return result;
}

}  // namespace velk::input::amesp
