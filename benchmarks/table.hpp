// The one table that the benchmarks print: a row for each ratio, with its target.
#pragma once

#include <string>

namespace velk::bench {

struct Target {
    enum class Kind { none, at_most, at_least };
    Kind kind = Kind::none;
    double ratio = 0.0;

    bool is_met(double measured) const noexcept {
        return kind == Kind::none || (kind == Kind::at_most ? measured <= ratio : measured >= ratio);
    }
};

constexpr Target at_most(double ratio) noexcept {
    return {Target::Kind::at_most, ratio};
}
constexpr Target at_least(double ratio) noexcept {
    return {Target::Kind::at_least, ratio};
}
// A row that informs.
constexpr Target no_target() noexcept {
    return {};
}

void print_table_head();

// `detail` is what was divided by what.
void print_row(const std::string& name, double ratio, Target target, const std::string& detail);

}  // namespace velk::bench
