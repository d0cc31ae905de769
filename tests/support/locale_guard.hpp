// Puts the process into another locale for the length of a test: decimal commas, grouping, other letter cases.
#pragma once

#include <clocale>
#include <locale>
#include <string>

namespace velk::test {

class LocaleGuard {
public:
    explicit LocaleGuard(const char* name) : saved_(std::setlocale(LC_ALL, nullptr)), global_(std::locale(name)) {
        std::locale::global(global_);
        std::setlocale(LC_ALL, name);
    }
    LocaleGuard(const LocaleGuard&) = delete;
    LocaleGuard& operator=(const LocaleGuard&) = delete;
    ~LocaleGuard() {
        std::locale::global(std::locale::classic());
        std::setlocale(LC_ALL, saved_.c_str());
    }

private:
    std::string saved_;
    std::locale global_;
};

inline constexpr const char* other_locales[] = {"de_DE.UTF-8", "tr_TR.UTF-8", "ar_EG.UTF-8"};

}  // namespace velk::test
