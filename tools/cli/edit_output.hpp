// Where the text of an edited input goes.
#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>
#include <velk/input/amesp/diagnostics.hpp>

#include "exit_status.hpp"
#include "inputs.hpp"
#include "output.hpp"

namespace amesp_inp {

struct EditOutput {
    bool in_place = false;
    bool diff = false;
    bool force = false;      // also where content is lost or a file is guarded
    bool canonical = false;  // rendered in full instead of written into the text
    std::string path;        // of another file to write
    std::string color = "auto";
    bool quiet = false;  // no warnings and no summary
};

// Prints the text, its difference, or writes it atomically, as asked; a file that would not change is not written.
// Throws std::runtime_error, "cannot write 'NAME': REASON".
void deliver(const EditOutput& output, const Input& input, std::string_view before, const std::string& after);

// Texts of several files one after the other are no input: throws UsageError where they would be printed.
void refuse_several_texts(const EditOutput& output, std::size_t inputs);

// Findings on standard error. True when one of them is an error.
bool report_findings(const EditOutput& output, const Input& input, const std::string& text,
                     std::vector<velk::input::amesp::Diagnostic> findings);

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
