// Room for very long lists and texts.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>

namespace velk::core {

// Reserves as the container does, and lets the kernel use large pages for what is so long that the allocator maps it on
// its own: filling memory fresh from the kernel costs a fault for every page, as much time as reading the records.
template <class Container>
void reserve_room(Container& container, std::size_t count) {
    container.reserve(count);
    constexpr std::size_t always_mapped = std::size_t{32} << 20;
    const std::size_t size = container.capacity() * sizeof(typename Container::value_type);
    if (size <= always_mapped) {
        return;
    }
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    const std::size_t behind_page_start = reinterpret_cast<std::uintptr_t>(container.data()) % page;
    const std::size_t skipped = (page - behind_page_start) % page;
    // Advice only: where it is not taken, nothing else changes.
    static_cast<void>(::madvise(reinterpret_cast<char*>(container.data()) + skipped, size - skipped, MADV_HUGEPAGE));
}

}  // namespace velk::core
