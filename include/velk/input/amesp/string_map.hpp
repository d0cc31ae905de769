// A string-keyed hash map that iterates in the order in which its keys were first inserted.
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <list>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

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
        for (const value_type& item : items) {
            emplace(item.first, item.second);
        }
    }
    StringMap(const StringMap& other) {
        index_.reserve(other.size());
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
        index_.swap(other.index_);
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
        const auto found = index_.find(key);
        return found == index_.end() ? end() : found->second;
    }
    const_iterator find(std::string_view key) const {
        const auto found = index_.find(key);
        return found == index_.end() ? end() : const_iterator(found->second);
    }
    bool contains(std::string_view key) const { return index_.contains(key); }
    size_type count(std::string_view key) const { return index_.count(key); }

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
        std::list<value_type> added;
        added.emplace_back(std::piecewise_construct, std::forward_as_tuple(key),
                           std::forward_as_tuple(std::forward<Arguments>(arguments)...));
        index_.emplace(added.front().first, added.begin());
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
        index_.clear();
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
    template <class Map>
    static auto& at_in(Map& map, std::string_view key) {
        const auto found = map.find(key);
        if (found == map.end()) {
            throw std::out_of_range("StringMap: no key '" + std::string(key) + "'");
        }
        return found->second;
    }

    std::list<value_type> items_;
    std::unordered_map<std::string_view, iterator> index_;  // views of the keys in items_
};

}  // namespace velk::input::amesp
