// The advice to use large pages.
#include "large_room.hpp"

#if defined(__linux__) && !defined(VELK_CORE_PORTABLE)
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#endif

namespace velk::core {

#if defined(MADV_HUGEPAGE)
void advise_large_pages(void* begin, std::size_t size) noexcept {
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    const std::size_t after_page_start = reinterpret_cast<std::uintptr_t>(begin) % page;
    const std::size_t skipped = (page - after_page_start) % page;
    static_cast<void>(::madvise(static_cast<char*>(begin) + skipped, size - skipped, MADV_HUGEPAGE));
}
#else
void advise_large_pages(void* /*begin*/, std::size_t /*size*/) noexcept {}
#endif

}  // namespace velk::core
