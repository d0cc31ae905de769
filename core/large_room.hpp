// Room for very long lists and texts. Not installed: built into each library that uses it, so that one which brings its
// own core libraries needs nothing more of them.
#pragma once

#include <cstddef>

namespace velk::core {

// Lets the kernel use large pages for memory that is to be filled: filling what is fresh from the kernel costs a fault
// for every page, as much time as reading the records. Advice only: where it is not taken, or the system has no such
// call, nothing else changes.
void advise_large_pages(void* begin, std::size_t size) noexcept;

// Reserves as the container does, with large pages for what is so long that the allocator maps it on its own.
template <class Container>
void reserve_room(Container& container, std::size_t count) {
    container.reserve(count);
    constexpr std::size_t always_mapped = std::size_t{32} << 20;
    const std::size_t size = container.capacity() * sizeof(typename Container::value_type);
    if (size > always_mapped) {
        advise_large_pages(container.data(), size);
    }
}

}  // namespace velk::core
