// Random numbers near every edge of the integer and real readers.
#include <vector>

#include "oracle/random_words.hpp"

namespace velk::oracle {

using namespace std::string_literals;

namespace {

const std::vector<std::string> edges = {"0",
                                        "1",
                                        "2",
                                        "-1",
                                        "+1",
                                        "+-1",
                                        "-+1",
                                        "--1",
                                        "+",
                                        "-",
                                        "1.",
                                        ".",
                                        ".5",
                                        "-.5",
                                        "+.5",
                                        "1e",
                                        "1e+",
                                        "1e+5",
                                        "1D+5",
                                        "1.5D-3",
                                        "1.5d-3",
                                        "1d3",
                                        "1d",
                                        "d1",
                                        "D",
                                        "1dd3",
                                        "1eD3",
                                        "1,5",
                                        "1_000",
                                        "0x10",
                                        "0X1P3",
                                        "0x1D",
                                        "0xd.dp3",
                                        "0x",
                                        "0xp1",
                                        "0x.8p1",
                                        "0x1.8p-1",
                                        "0x1p-1074",
                                        "0x1p-1075",
                                        "0x1.8p-1074",
                                        "0x1p-1022",
                                        "0x1p1023",
                                        "0x1p1024",
                                        "0x1.fffffffffffffp1023",
                                        "0x1.fffffffffffff8p1023",
                                        "0x1.00000000000008p0",
                                        "0x1.00000000000018p0",
                                        "1e999",
                                        "-1e999",
                                        "1e-400",
                                        "-1e-400",
                                        "0e999",
                                        "0e-999",
                                        "4.9e-324",
                                        "5e-324",
                                        "2.5e-324",
                                        "2.4e-324",
                                        "2.2250738585072014e-308",
                                        "2.2250738585072011e-308",
                                        "2.2250738585072009e-308",
                                        "1.7976931348623157e308",
                                        "1.7976931348623158e308",
                                        "1.7976931348623159e308",
                                        "inf",
                                        "-inf",
                                        "+INF",
                                        "infinity",
                                        "INFINITY",
                                        "infinit",
                                        "infinityx",
                                        "nan",
                                        "NaN",
                                        "-nan",
                                        "+nan",
                                        "nan()",
                                        "nan(12)",
                                        "nan(0x12)",
                                        "nan(d)",
                                        "nan(_a9)",
                                        "nan(",
                                        "nan(-)",
                                        "nan(1)x",
                                        "nand",
                                        "2147483647",
                                        "2147483648",
                                        "-2147483648",
                                        "-2147483649",
                                        "+2147483647",
                                        "02147483647",
                                        "9223372036854775807",
                                        "9223372036854775808",
                                        "-9223372036854775808",
                                        "-9223372036854775809",
                                        "9007199254740993",
                                        "99999999999999999999",
                                        "00000000000000000000001",
                                        "1\0"s,
                                        "1\0002"s,
                                        "\0"s,
                                        "1\xa0",
                                        "0.1",
                                        "0.30000000000000004",
                                        "123456789.12345678901",
                                        "0.00000000005",
                                        "0.00000000015",
                                        "0.5e-10",
                                        "-0",
                                        "-0.0",
                                        "-1e-11",
                                        "1e22",
                                        "1e23",
                                        "8.5e307",
                                        "9007199254740993.0",
                                        "0.5",
                                        "1e20",
                                        "100000000000000000000",
                                        "1e308",
                                        "12abc",
                                        "5.0",
                                        "7 8",
                                        "0b1",
                                        "1e5000000000000000000000",
                                        "0e99999999999999999999",
                                        "1e-5000000000000000000000",
                                        "1" + std::string(400, '0'),
                                        "0." + std::string(400, '0') + "1",
                                        "1" + std::string(400, '0') + "e-400",
                                        "0." + std::string(400, '0') + "1e401",
                                        "1.00000000000000011102230246251565404236316680908203125",
                                        "1.000000000000000111022302462515654042363166809082031249"};

std::string digits(Chance& chance, std::size_t at_most) {
    std::string text;
    for (std::size_t left = chance.below(at_most + 1); left > 0; --left) {
        text += static_cast<char>('0' + chance.below(10));
    }
    return text;
}

std::string made_up_number(Chance& chance) {
    static const std::vector<std::string> signs = {"", "", "", "-", "+", "--", "+-"};
    static const std::vector<std::string> points = {"", ".", ".", ","};
    static const std::vector<std::string> exponents = {"", "", "e", "E", "d", "D", "p", "dD"};
    std::string text = chance.of(signs);
    text += chance.one_in(12) ? "0x" : "";
    text += digits(chance, chance.one_in(20) ? 40 : 4) + chance.of(points) + digits(chance, 12);
    if (const std::string& exponent = chance.of(exponents); !exponent.empty()) {
        text += exponent + chance.of(signs) + digits(chance, 3);
    }
    return text;
}

}  // namespace

std::string random_number(Chance& chance) {
    return chance.one_in(3) ? made_up_number(chance) : chance.of(edges);
}

}  // namespace velk::oracle
