// Where the text of an edited input goes.
#pragma once

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "edit_report.hpp"
#include "exit_status.hpp"
#include "inputs.hpp"
#include "output.hpp"

namespace amesp_inp {

struct EditOutput {
    bool in_place = false;
    bool diff = false;
    bool force = false;       // also where content is lost or a file is guarded
    bool canonical = false;   // rendered in full instead of written into the text
    bool drop_words = false;  // of the header of a geometry that is replaced
    std::string path;         // of another file to write
    FindingStyle findings;
};

struct EditOutcome {
    int status = exit_clean;
    bool written = false;
};

// Prints the text, its difference, or writes it atomically, as asked; a file that would not change is not written.
// Throws std::runtime_error, "cannot write 'NAME': REASON".
EditOutcome deliver(const EditOutput& output, const Input& input, std::string_view before, const std::string& after);

// Runs `edit` for each input, once it is known that all can be read. The first that fails ends it; where inputs are
// written, how many were is said then. The worst exit status. Texts of several files one after the other are no input:
// throws UsageError where they would be printed.
int edit_each_input(const EditOutput& output, EditReport& report, const InputOptions& options,
                    std::vector<Input> inputs, const std::function<EditOutcome(const Input&)>& edit);

// Findings as JSON have standard output for themselves: throws UsageError, which names the `ways` out, where the text
// would go there, too.
void refuse_mixed_output(const EditOutput& output, const std::vector<Input>& inputs, const char* ways);

// Said where inputs are written and one of several failed.
void say_how_many_were_written(std::size_t written, std::size_t inputs);

// Runs `work` for each input; says of one that fails why, and goes on. The worst exit status.
template <class Work>
int for_each_input(const std::vector<Input>& inputs, Work work) {
    int status = exit_clean;
    for (const Input& input : inputs) {
        try {
            status = std::max(status, work(input));
        } catch (const std::runtime_error& error) {
            complain(error.what());
            status = exit_trouble;
        }
    }
    return status;
}

}  // namespace amesp_inp
