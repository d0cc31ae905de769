// A text right before memory that cannot be read: reading after its end ends the process.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <new>
#include <string_view>

namespace velk::test {

// Of at most one page.
class AtPageEnd {
public:
    explicit AtPageEnd(std::string_view text)
        : page_(static_cast<std::size_t>(::sysconf(_SC_PAGESIZE))),
          pages_(::mmap(nullptr, 2 * page_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) {
        if (pages_ == MAP_FAILED || ::mprotect(static_cast<char*>(pages_) + page_, page_, PROT_NONE) != 0) {
            throw std::bad_alloc();
        }
        char* const begin = static_cast<char*>(pages_) + page_ - text.size();
        std::memcpy(begin, text.data(), text.size());
        view_ = {begin, text.size()};
    }
    AtPageEnd(const AtPageEnd&) = delete;
    AtPageEnd& operator=(const AtPageEnd&) = delete;
    ~AtPageEnd() { ::munmap(pages_, 2 * page_); }

    std::string_view view() const noexcept { return view_; }

private:
    std::size_t page_;
    void* pages_;
    std::string_view view_;
};

}  // namespace velk::test
