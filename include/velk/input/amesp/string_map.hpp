// A string-keyed hash map that iterates in the order in which its keys were first inserted.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <list>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace velk::input::amesp {

// Look-ups take a view and do not allocate. References and iterators stay valid until the map is destroyed or
// cleared, also while keys are added, and follow the elements when the map is moved.
template <class T>
class StringMap {
public:
    using key_type = std::string;
    using mapped_type = T;
    using value_type = std::pair<const std::string, T>;
    using size_type = std::size_t;
    using iterator = typename std::list<value_type>::iterator;
    using const_iterator = typename std::list<value_type>::const_iterator;

    StringMap() = default;
    StringMap(std::initializer_list<value_type> items) {
        make_room(items.size());
        for (const value_type& item : items) {
            emplace(item.first, item.second);
        }
    }
    StringMap(const StringMap& other) {
        make_room(other.size());
        for (const value_type& item : other) {
            emplace(item.first, item.second);
        }
    }
    StringMap(StringMap&& other) noexcept { swap(other); }
    StringMap& operator=(StringMap other) noexcept {
        swap(other);
        return *this;
    }
    ~StringMap() = default;

    void swap(StringMap& other) noexcept {
        items_.swap(other.items_);
        slots_.swap(other.slots_);
    }

    iterator begin() noexcept { return items_.begin(); }
    iterator end() noexcept { return items_.end(); }
    const_iterator begin() const noexcept { return items_.begin(); }
    const_iterator end() const noexcept { return items_.end(); }
    const_iterator cbegin() const noexcept { return items_.begin(); }
    const_iterator cend() const noexcept { return items_.end(); }

    bool empty() const noexcept { return items_.empty(); }
    size_type size() const noexcept { return items_.size(); }

    iterator find(std::string_view key) {
        const Slot* const slot = find_slot(key);
        return slot == nullptr ? end() : slot->item;
    }
    const_iterator find(std::string_view key) const {
        const Slot* const slot = find_slot(key);
        return slot == nullptr ? end() : const_iterator(slot->item);
    }
    bool contains(std::string_view key) const { return find_slot(key) != nullptr; }
    size_type count(std::string_view key) const { return contains(key) ? 1 : 0; }

    // Throws std::out_of_range when the key is not there.
    T& at(std::string_view key) { return at_in(*this, key); }
    const T& at(std::string_view key) const { return at_in(*this, key); }

    // The value under `key`, made by T's default constructor when the key is new.
    T& operator[](std::string_view key) { return emplace(key).first->second; }

    // Adds a value made from `arguments` unless the key is there already; says where the key is, and whether it is new.
    template <class... Arguments>
    std::pair<iterator, bool> emplace(std::string_view key, Arguments&&... arguments) {
        if (const auto found = find(key); found != end()) {
            return {found, false};
        }
        make_room(size() + 1);
        std::list<value_type> added;
        added.emplace_back(std::piecewise_construct, std::forward_as_tuple(key),
                           std::forward_as_tuple(std::forward<Arguments>(arguments)...));
        fill_slot(hash(added.front().first), added.begin());
        items_.splice(items_.end(), added);
        return {std::prev(items_.end()), true};
    }

    // The same, replacing the value of a key that is there already; the key keeps its place.
    template <class Value>
    std::pair<iterator, bool> insert_or_assign(std::string_view key, Value&& value) {
        if (const auto found = find(key); found != end()) {
            found->second = std::forward<Value>(value);
            return {found, false};
        }
        return emplace(key, std::forward<Value>(value));
    }

    std::pair<iterator, bool> insert(const value_type& item) { return emplace(item.first, item.second); }

    void clear() noexcept {
        slots_.clear();
        items_.clear();
    }

    // The same keys with equal values, in whatever order.
    bool operator==(const StringMap& other) const {
        return size() == other.size() && std::all_of(begin(), end(), [&](const value_type& item) {
                   const auto match = other.find(item.first);
                   return match != other.end() && match->second == item.second;
               });
    }

private:
    // Where a key is. A hash of zero marks a free slot.
    struct Slot {
        std::uint64_t hash = 0;
        iterator item;
    };

    // The first and the last bytes of a key, up to eight each, which may overlap: with its size, all of a short key.
    struct Ends {
        std::uint64_t first = 0;
        std::uint64_t last = 0;

        bool operator==(const Ends&) const = default;
    };
    static constexpr std::size_t short_key = 2 * sizeof(std::uint64_t);

    template <class Integer>
    static Ends read_ends(std::string_view key) noexcept {
        Integer first = 0;
        Integer last = 0;
        std::memcpy(&first, key.data(), sizeof first);
        std::memcpy(&last, key.data() + key.size() - sizeof last, sizeof last);
        return {first, last};
    }

    static Ends ends_of(std::string_view key) noexcept {
        if (key.size() >= sizeof(std::uint64_t)) {
            return read_ends<std::uint64_t>(key);
        }
        if (key.size() >= sizeof(std::uint32_t)) {
            return read_ends<std::uint32_t>(key);
        }
        if (key.size() >= sizeof(std::uint16_t)) {
            return read_ends<std::uint16_t>(key);
        }
        return key.empty() ? Ends() : read_ends<std::uint8_t>(key);
    }

    // The upper half of a product with it depends on every bit of the other factor, the lower half does not.
    static constexpr std::uint64_t spread = 0x9e3779b97f4a7c15U;

    // Not shifted by whole bytes: two bytes of a key that change in the same bit would undo each other.
    static std::uint64_t mix(std::uint64_t mixed, std::uint64_t bytes) noexcept {
        mixed = (mixed ^ bytes) * spread;
        return mixed ^ mixed >> 29U;
    }

    // Names are short: this and the comparison are most of what a look-up costs. The library looks up what its callers
    // filled in: another hash is another binary interface.
    static std::uint64_t hash(std::string_view key, const Ends& ends) noexcept {
        std::uint64_t mixed = mix(mix(key.size(), ends.first), ends.last);
        for (std::size_t place = sizeof(std::uint64_t); place + sizeof(std::uint64_t) < key.size();
             place += sizeof(std::uint64_t)) {
            std::uint64_t bytes = 0;
            std::memcpy(&bytes, key.data() + place, sizeof bytes);
            mixed = mix(mixed, bytes);
        }
        return mixed * spread | 1U;
    }
    static std::uint64_t hash(std::string_view key) noexcept { return hash(key, ends_of(key)); }

    static bool is_same(std::string_view known, std::string_view key, const Ends& ends) noexcept {
        return key.size() <= short_key ? known.size() == key.size() && ends_of(known) == ends : known == key;
    }

    const Slot* find_slot(std::string_view key) const {
        if (slots_.empty()) {
            return nullptr;
        }
        const Ends ends = ends_of(key);
        const std::uint64_t wanted = hash(key, ends);
        for (std::size_t place = first_place(wanted);; place = next_place(place)) {
            const Slot& slot = slots_[place];
            if (slot.hash == 0) {
                return nullptr;
            }
            if (slot.hash == wanted && is_same(slot.item->first, key, ends)) {
                return &slot;
            }
        }
    }

    std::size_t first_place(std::uint64_t hash) const noexcept { return hash >> 32U & (slots_.size() - 1); }
    std::size_t next_place(std::size_t place) const noexcept { return (place + 1) & (slots_.size() - 1); }

    // So many slots, a power of two, that half of them stay free.
    void make_room(size_type count) {
        if (2 * count <= slots_.size()) {
            return;
        }
        std::size_t wanted = std::max<std::size_t>(2 * slots_.size(), 8);
        while (wanted < 2 * count) {
            wanted *= 2;
        }
        std::vector<Slot> old(wanted);
        old.swap(slots_);
        for (const Slot& slot : old) {
            if (slot.hash != 0) {
                fill_slot(slot.hash, slot.item);
            }
        }
    }

    void fill_slot(std::uint64_t hash, iterator item) noexcept {
        std::size_t place = first_place(hash);
        while (slots_[place].hash != 0) {
            place = next_place(place);
        }
        slots_[place] = {hash, item};
    }

    template <class Map>
    static auto& at_in(Map& map, std::string_view key) {
        const auto found = map.find(key);
        if (found == map.end()) {
            throw std::out_of_range("StringMap: no key '" + std::string(key) + "'");
        }
        return found->second;
    }

    std::list<value_type> items_;
    std::vector<Slot> slots_;  // open addressing; nothing is ever taken out but all at once
};

}  // namespace velk::input::amesp
