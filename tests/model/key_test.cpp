// The normalisation of names.
#include "model/key.hpp"

#include <gtest/gtest.h>

#include "support/locale_guard.hpp"

namespace velk::input::amesp {
namespace {

using namespace std::string_literals;

struct Case {
    std::string text;
    std::string key;
};

const Case cases[] = {
    {"  Maxcore\t", "maxcore"},
    {"", ""},
    {" \r\n ", ""},
    {"A B\tC", "a b\tc"},
    {"\xc4\xd6\xdcI", "\xc4\xd6\xdci"},
    {"@[`{", "@[`{"},
    {"AZaz09-+*", "azaz09-+*"},
    {"A\0B"s, "a\0b"s},
};

TEST(NormalizeKey, TrimsAndLowersAsciiOnly) {
    for (const Case& c : cases) {
        EXPECT_EQ(normalize_key(c.text), c.key);
        EXPECT_EQ(Key(c.text).view(), c.key);
    }
}

TEST(NormalizeKey, IsTheSameInEveryLocale) {
    for (const char* const name : test::other_locales) {
        const test::LocaleGuard locale(name);
        EXPECT_EQ(normalize_key(" TITLE\xc4 "), "title\xc4") << name;
        EXPECT_TRUE(same_key("TITLE", "title")) << name;
    }
}

TEST(SameKey, HoldsExactlyWhenTheNormalisedTextsAreEqual) {
    for (const Case& a : cases) {
        for (const Case& b : cases) {
            EXPECT_EQ(same_key(a.text, b.text), normalize_key(a.text) == normalize_key(b.text)) << a.text << b.text;
        }
    }
}

}  // namespace
}  // namespace velk::input::amesp
