// The one normalisation of names: trimmed, and lower-cased in the ASCII range. All comparisons of names rest on it.
#pragma once

#include <string>
#include <string_view>

namespace velk::input::amesp {

// ASCII only, whatever the process locale: every other byte stays as it is.
constexpr char to_lower(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string normalize_key(std::string_view text);

// Whether both normalise to the same bytes. Does not allocate.
bool same_key(std::string_view a, std::string_view b) noexcept;

// A name normalised for look-ups. Copies only what has capitals; otherwise a view of the text it was made from, which
// must outlive it.
class Key {
public:
    explicit Key(std::string_view text);
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() = default;

    std::string_view view() const noexcept { return view_; }

private:
    std::string lowered_;
    std::string_view view_;
};

}  // namespace velk::input::amesp
