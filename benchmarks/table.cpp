#include "table.hpp"

#include <cstdio>

namespace velk::bench {
namespace {

constexpr int name_width = 62;

std::string target_text(Target target) {
    if (target.kind == Target::Kind::none) {
        return "";
    }
    char text[32];
    std::snprintf(text, sizeof text, "%s %.2f", target.kind == Target::Kind::at_most ? "<=" : ">=", target.ratio);
    return text;
}

}  // namespace

void print_table_head() {
    std::printf("| %-*s | ratio   | target  | met | of                        |\n", name_width, "what");
    std::printf("| %s | ------: | ------- | --- | ------------------------- |\n",
                std::string(static_cast<std::size_t>(name_width), '-').c_str());
}

void print_row(const std::string& name, double ratio, Target target, const std::string& detail) {
    const char* const met = target.kind == Target::Kind::none ? "" : target.is_met(ratio) ? "yes" : "no";
    std::printf("| %-*s | %7.3f | %-7s | %-3s | %-25s |\n", name_width, name.c_str(), ratio,
                target_text(target).c_str(), met, detail.c_str());
    std::fflush(stdout);
}

}  // namespace velk::bench
