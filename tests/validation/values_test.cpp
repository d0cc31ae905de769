// The check of one value, seen through a directive and an entry.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <velk/input/amesp/schema_tables.hpp>

#include "support/locale_guard.hpp"

namespace velk::input::amesp {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

// The messages about a directive "d" of that specification and value.
std::vector<std::string> messages(ValueSpec spec, const std::string& value) {
    InputSchema::Impl tables;
    spec.name = "d";
    tables.directives["d"] = spec;
    const InputSchema schema(std::make_shared<const InputSchema::Impl>(tables));
    AIPData data;
    data.method_tokens = {{"x", "x", "other", false, {}}};
    data.sections.resize(1);
    data.sections[0].name = "zmat";
    data.directives = {{"D", value, true, SourceLocation{3, 4, 5}}};
    std::vector<std::string> list;
    for (const ValidationIssue& issue : schema.validate(data)) {
        if (issue.severity == IssueSeverity::Error) {
            EXPECT_EQ(issue.location, (SourceLocation{3, 4, 5}));
            list.push_back(issue.code + ": " + issue.message);
        }
    }
    return list;
}

ValueSpec typed(const std::string& type) {
    ValueSpec spec;
    spec.value_type = type;
    return spec;
}

void expect_valid(const ValueSpec& spec, const std::vector<std::string>& values) {
    for (const std::string& value : values) {
        EXPECT_THAT(messages(spec, value), IsEmpty()) << spec.value_type << " '" << value << "'";
    }
}

void expect_invalid(const ValueSpec& spec, const std::vector<std::string>& values) {
    for (const std::string& value : values) {
        EXPECT_THAT(messages(spec, value), ElementsAre("amesp.invalid_value: directive '% d' expects " +
                                                       spec.value_type + ", got '" + value + "'."))
            << spec.value_type << " '" << value << "'";
    }
}

TEST(Values, OfIntegers) {
    for (const char* const type : {"integer", "int"}) {
        expect_valid(typed(type), {"+5", "-5", "  7  ", "0", "9223372036854775807", "-9223372036854775808", "007"});
        expect_invalid(typed(type), {"5.0", "0x10", "1e3", "12abc", "99999999999999999999", "", "  ", "+", "1 2",
                                     "9223372036854775808", "1\0"s, "five"});
    }
}

TEST(Values, OfReals) {
    for (const char* const type : {"real", "double", "float"}) {
        expect_valid(typed(type), {"1.5D-3", "1.5d-3", "2e10", "-0.25", " 1 ", ".5", "5.", "0", "1e308", "0x1p3"});
        expect_invalid(typed(type), {"1e999", "1e-400", "inf", "nan", "-infinity", "1.0,2.0", "", " ", "abc", "1e",
                                     "5e-324", "1.5 x", "1\0"s});
    }
}

TEST(Values, OfBooleans) {
    for (const char* const type : {"boolean", "bool"}) {
        expect_valid(typed(type), {"Yes", "TRUE", " on ", "0", "1", "off", "false", "NO"});
        expect_invalid(typed(type), {"y", "t", "2", "", "truee", "01"});
    }
    ValueSpec bounded = typed("boolean");
    bounded.min = 5.0;
    expect_valid(bounded, {"0"});
}

TEST(Values, OfEnums) {
    ValueSpec spec = typed("enum");
    spec.allowed = {"b3lyp", "hf", "\xe4"};
    expect_valid(spec, {"B3LYP", " hf ", "\xe4"});
    expect_invalid(spec, {"", "b3", "\xc4", "b3lyp hf"});
    spec.allowed = {};
    expect_invalid(spec, {"", "hf"});
    spec.allowed = {"Upper"};  // stored words are expected in lower case
    expect_invalid(spec, {"Upper", "upper"});
}

TEST(Values, OfAnyOtherTypeAreNotChecked) {
    for (const char* const type : {"string", "", "Integer", "number", " enum"}) {
        ValueSpec spec = typed(type);
        spec.allowed = {"a"};
        spec.min = 1.0;
        spec.max = 0.0;
        expect_valid(spec, {"b", "", "5", "\0"s});
    }
}

TEST(Values, AtABoundPass) {
    ValueSpec spec = typed("integer");
    spec.min = 1.0;
    spec.max = 3.0;
    expect_valid(spec, {"1", "2", "3"});
    EXPECT_THAT(messages(spec, "0"), ElementsAre("amesp.value_below_minimum: directive '% d' must be >= 1.000000."));
    EXPECT_THAT(messages(spec, "4"), ElementsAre("amesp.value_above_maximum: directive '% d' must be <= 3.000000."));
}

TEST(Values, CanBreakBothBoundsTheLowerFirst) {
    ValueSpec spec = typed("real");
    spec.min = 5.0;
    spec.max = 1.0;
    EXPECT_THAT(messages(spec, "3.0d0"),
                ElementsAre("amesp.value_below_minimum: directive '% d' must be >= 5.000000.",
                            "amesp.value_above_maximum: directive '% d' must be <= 1.000000."));
}

struct BoundCase {
    double bound;
    const char* text;
};

TEST(Values, ArePrintedWithSixDecimalsInEveryLocale) {
    const BoundCase cases[] = {{0.5, "0.500000"},
                               {-3.0, "-3.000000"},
                               {1e20, "100000000000000000000.000000"},
                               {1e-9, "0.000000"},
                               {std::numeric_limits<double>::infinity(), "inf"}};
    const auto check = [&] {
        for (const BoundCase& c : cases) {
            ValueSpec spec = typed("real");
            spec.min = c.bound;
            EXPECT_THAT(messages(spec, "-1e300"),
                        ElementsAre("amesp.value_below_minimum: directive '% d' must be >= "s + c.text + "."));
        }
    };
    check();
    for (const char* const name : test::other_locales) {
        const test::LocaleGuard locale(name);
        check();
        expect_invalid(typed("real"), {"1,5"});
        expect_valid(typed("boolean"), {"FALSE", "TRUE"});
    }
}

TEST(Values, NeverBreakABoundThatIsNoNumber) {
    ValueSpec spec = typed("real");
    spec.min = std::numeric_limits<double>::quiet_NaN();
    spec.max = spec.min;
    expect_valid(spec, {"0", "-1e300"});
}

}  // namespace
}  // namespace velk::input::amesp
