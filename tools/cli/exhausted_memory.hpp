// What the program says when memory is exhausted, and where that ends it at once.
#pragma once

#include <exception>
#include <new>

namespace amesp_inp {

// Why something failed, in words.
inline const char* reason_of(const std::exception& error) noexcept {
    return dynamic_cast<const std::bad_alloc*>(&error) != nullptr ? "out of memory" : error.what();
}

// As long as it lives, exhausted memory ends the program with a line on standard error and the status of trouble: for
// work through a library that would then abort, or go on with a part of a text. No file may be half written meanwhile.
class EndWithoutMemory {
public:
    EndWithoutMemory() noexcept;
    EndWithoutMemory(const EndWithoutMemory&) = delete;
    EndWithoutMemory& operator=(const EndWithoutMemory&) = delete;
    ~EndWithoutMemory() { std::set_new_handler(before_); }

private:
    std::new_handler before_;
};

}  // namespace amesp_inp
