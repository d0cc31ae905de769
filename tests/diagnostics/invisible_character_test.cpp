// Characters that are not what they seem: where they hurt, how grave that is, and what is written instead.
#include <gtest/gtest.h>

#include "diagnostics/described.hpp"

namespace velk::input::amesp {
namespace {

constexpr const char* geometry = ">xyz 0 1\nHe 0 0 0\nend\n";

struct Named {
    const char* name;
    std::string character;
    std::string said;
    std::string plain;
};

void PrintTo(const Named& c, std::ostream* out) {
    *out << c.name;
}

class InvisibleCharacter : public testing::TestWithParam<Named> {};

TEST_P(InvisibleCharacter, IsNamedAndShown) {
    const Named& c = GetParam();
    const std::string line = "! hf" + c.character + " sto-3g";
    const std::string text = line + "\n" + geometry;
    const std::string shown = "<" + c.said.substr(0, 6) + ">";
    const std::string length = std::to_string(c.character.size());
    const std::string what = c.plain == " "  ? " is no blank to the format: write a blank"
                             : c.plain == "" ? " cannot be seen, but is read: remove it"
                                             : " is not '" + c.plain + "' to the format: write '" + c.plain + "'";
    const std::string found = described(text);
    const bool is_known = c.plain.empty() || c.plain == " ";
    const std::size_t begin = found.find("amesp-inp.invisible");
    EXPECT_EQ(found.substr(begin, found.find('\n', found.find("write plain")) - begin),
              "amesp-inp.invisible_character 1:5+" + length + " '" + c.character + "' " + c.said + " in 'hf" + shown +
                  "'" + what + "\n  " + (is_known ? "certain" : "likely") + " write plain characters: " + line +
                  "| -> ! hf" + c.plain + " sto-3g|");
}

INSTANTIATE_TEST_SUITE_P(Kinds, InvisibleCharacter,
                         testing::Values(Named{"NoBreak", "\u00a0", "U+00A0 (no-break space)", " "},
                                         Named{"SoftHyphen", "\u00ad", "U+00AD (soft hyphen)", ""},
                                         Named{"ArabicMark", "\u061c", "U+061C (mark of writing direction)", ""},
                                         Named{"Ogham", "\u1680", "U+1680 (space of another script)", " "},
                                         Named{"EnQuad", "\u2000", "U+2000 (space of typesetters)", " "},
                                         Named{"HairSpace", "\u200a", "U+200A (space of typesetters)", " "},
                                         Named{"ZeroWidth", "\u200b", "U+200B (zero-width space)", ""},
                                         Named{"NonJoiner", "\u200c", "U+200C (zero-width joiner)", ""},
                                         Named{"Joiner", "\u200d", "U+200D (zero-width joiner)", ""},
                                         Named{"LeftToRight", "\u200e", "U+200E (mark of writing direction)", ""},
                                         Named{"RightToLeft", "\u200f", "U+200F (mark of writing direction)", ""},
                                         Named{"Embedding", "\u202a", "U+202A (change of writing direction)", ""},
                                         Named{"Override", "\u202e", "U+202E (change of writing direction)", ""},
                                         Named{"NarrowNoBreak", "\u202f", "U+202F (narrow no-break space)", " "},
                                         Named{"Mathematical", "\u205f", "U+205F (space of typesetters)", " "},
                                         Named{"WordJoiner", "\u2060", "U+2060 (word joiner)", ""},
                                         Named{"Isolate", "\u2066", "U+2066 (change of writing direction)", ""},
                                         Named{"PopIsolate", "\u2069", "U+2069 (change of writing direction)", ""},
                                         Named{"Ideographic", "\u3000", "U+3000 (ideographic space)", " "},
                                         Named{"ByteOrderMark", "\ufeff", "U+FEFF (byte-order mark)", ""},
                                         Named{"FullWidthMark", "\uff01", "U+FF01 (full-width form)", "!"},
                                         Named{"FullWidthPercent", "\uff05", "U+FF05 (full-width form)", "%"},
                                         Named{"FullWidthGreater", "\uff1e", "U+FF1E (full-width form)", ">"},
                                         Named{"FullWidthZero", "\uff10", "U+FF10 (full-width form)", "0"},
                                         Named{"FullWidthNine", "\uff19", "U+FF19 (full-width form)", "9"},
                                         Named{"FullWidthMinus", "\uff0d", "U+FF0D (full-width form)", "-"}),
                         [](const auto& each) { return each.param.name; });

TEST(InvisibleCharacters, AreNoOtherCharacters) {
    for (const char* const other : {"\u00a1", "\u2010", "\u202f\u0301\u0301", "\u3001", "\uff00", "\uff21", "\uff5e",
                                    "\uff5f", "\u2065", "\u1fff", "\u00e9", "\xa0", "\xc2", "\xe2\x80", "\U0001f600"}) {
        const std::string found = described("! hf b3lyp\n% guess x" + std::string(other) + "y\n" + geometry);
        EXPECT_EQ(found.find("invisible") != std::string::npos, std::string(other).starts_with("\u202f")) << other;
    }
}

struct Case {
    const char* name;
    std::string text;
    std::string found;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

class InvisibleCharacterPlace : public testing::TestWithParam<Case> {};

TEST_P(InvisibleCharacterPlace, DecidesWhatFollows) {
    EXPECT_EQ(described(GetParam().text), GetParam().found);
}

const std::string missing_method = "  cause error amesp.missing_method_line 1\n";

INSTANTIATE_TEST_SUITE_P(
    Lines, InvisibleCharacterPlace,
    testing::Values(
        Case{"BeforeAMark", "\ufeff! hf\n" + std::string(geometry),
             "error amesp-inp.invisible_character 1:1+3 '\ufeff' U+FEFF (byte-order mark) in '<U+FEFF>!' cannot be "
             "seen, but is read: remove it\n"
             "  certain write plain characters: \ufeff! hf| -> ! hf|\n"
             "  cause warning amesp.loose_line 1\n" +
                 missing_method},
        Case{"BeforeAHeader", "! hf\n\uff1exyz 0 1\n",
             "error amesp-inp.invisible_character 2:1+3 '\uff1e' U+FF1E (full-width form) in '<U+FF1E>xyz' is not '>' "
             "to the format: write '>'\n"
             "  certain write plain characters: \uff1exyz 0 1| -> >xyz 0 1|\n"
             "  cause warning amesp.loose_line 2\n"
             "  cause error amesp.missing_geometry 2\n"},
        Case{"BeforeADirective", "\uff05 maxcore 5\n",
             "error amesp-inp.invisible_character 1:1+3 '\uff05' U+FF05 (full-width form) in '<U+FF05>' is not '%' to "
             "the format: write '%'\n"
             "  certain write plain characters: \uff05 maxcore 5| -> % maxcore 5|\n"
             "  cause warning amesp.loose_line 1\n"
             "error amesp.missing_method_line 1:1+13 '\uff05 maxcore 5' AMESP input requires a non-empty method line "
             "beginning with '!'.\n"
             "error amesp.missing_geometry 1:1+13 '\uff05 maxcore 5' AMESP input requires one >xyz or >zmat coordinate "
             "section.\n"},
        Case{"BeforeAComment", "\ufeff# c\n! hf\n" + std::string(geometry),
             "error amesp-inp.invisible_character 1:1+3 '\ufeff' U+FEFF (byte-order mark) in '<U+FEFF>#' cannot be "
             "seen, but is read: remove it\n"
             "  certain write plain characters: \ufeff# c| -> # c|\n"
             "  cause warning amesp.loose_line 1\n"},
        Case{"AloneInALine", "! hf\n \u00a0\n" + std::string(geometry),
             "warning amesp-inp.invisible_character 2:2+2 '\u00a0' U+00A0 (no-break space) in '<U+00A0>' is no blank "
             "to the format: write a blank\n"
             "  certain write plain characters:  \u00a0| ->   |\n"
             "  cause warning amesp.loose_line 2\n"},
        Case{
            "AloneInTheLastLine", "! hf\n\u00a0",
            "warning amesp-inp.invisible_character 2:1+2 '\u00a0' U+00A0 (no-break space) in '<U+00A0>' is no blank "
            "to the format: write a blank\n"
            "  certain write plain characters: \u00a0 ->  \n"
            "  cause warning amesp.loose_line 2\n"
            "error amesp.missing_geometry 2:1+2 '\u00a0' AMESP input requires one >xyz or >zmat coordinate section.\n"},
        Case{
            "InALooseLine", "! hf\na\u00a0b\n" + std::string(geometry),
            "warning amesp.loose_line 2:1+0 '' Preserved a line outside any AMESP directive, method line, or section.\n"
            "warning amesp-inp.invisible_character 2:2+2 '\u00a0' U+00A0 (no-break space) in 'a<U+00A0>b' is no blank "
            "to the format: write a blank\n"
            "  likely write plain characters: a\u00a0b| -> a b|\n"},
        Case{"AfterADirectivesName", "! hf\n%\tmaxcore\u00a05\n" + std::string(geometry),
             "error amesp-inp.invisible_character 2:10+2 '\u00a0' U+00A0 (no-break space) in 'maxcore<U+00A0>5' is no "
             "blank to the format: write a blank\n"
             "  certain write plain characters: %\tmaxcore\u00a05| -> %\tmaxcore 5|\n"
             "  cause warning amesp.unknown_directive 2\n"},
        Case{"InAnUnknownDirective", "! hf\n%odd\u00a05\n" + std::string(geometry),
             "warning amesp.unknown_directive 2:1+7 '%odd\u00a05' Unknown AMESP directive '% odd\u00a05' was "
             "preserved.\n"
             "warning amesp-inp.invisible_character 2:5+2 '\u00a0' U+00A0 (no-break space) in '%odd<U+00A0>5' is no "
             "blank to the format: write a blank\n"
             "  likely write plain characters: %odd\u00a05| -> %odd 5|\n"},
        Case{"InAValueThatFailsByIt", "! hf\n% maxcore \uff15\uff10\u3000\n" + std::string(geometry),
             "error amesp-inp.invisible_character 2:11+3 '\uff15' U+FF15 (full-width form) in "
             "'<U+FF15><U+FF10><U+3000>' is not '5' to the format: write '5' (and 2 more in this line)\n"
             "  likely write plain characters: % maxcore \uff15\uff10\u3000| -> % maxcore 50 |\n"
             "  cause error amesp.invalid_value 2\n"},
        Case{"InAValue", "! hf\n% none \u00a0\n" + std::string(geometry),
             "warning amesp-inp.invisible_character 2:8+2 '\u00a0' U+00A0 (no-break space) in '<U+00A0>' is no blank "
             "to the format: write a blank\n"
             "  likely write plain characters: % none \u00a0| -> % none  |\n"
             "error amesp.invalid_value 2:8+2 '\u00a0' directive '% none' expects enum, got '\u00a0'.\n"
             "  help the schema allows no value at all\n"},
        Case{"InTwoWordsOfAMethodLine", "! hf\u00a0odd b3lyp x\u00a0y\u00a0z\n" + std::string(geometry),
             "error amesp-inp.invisible_character 1:5+2 '\u00a0' U+00A0 (no-break space) in 'hf<U+00A0>odd' is no "
             "blank to the format: write a blank\n"
             "  certain write plain characters: ! hf\u00a0odd b3lyp x\u00a0y\u00a0z| -> ! hf odd b3lyp "
             "x\u00a0y\u00a0z|\n"
             "  cause warning amesp.unknown_method_token 1\n"
             "warning amesp.unknown_method_token 1:17+7 'x\u00a0y\u00a0z' Unknown AMESP method-line token "
             "'x\u00a0y\u00a0z' was preserved.\n"
             "warning amesp-inp.invisible_character 1:18+2 '\u00a0' U+00A0 (no-break space) in 'x<U+00A0>y<U+00A0>z' "
             "is no blank to the format: write a blank (and 1 more in this line)\n"
             "  likely write plain characters: ! hf\u00a0odd b3lyp x\u00a0y\u00a0z| -> ! hf\u00a0odd b3lyp x y z|\n"},
        Case{"InASectionsName", "! hf\n>xyz\u00a00 1\nHe 0 0 0\nend\n",
             "error amesp-inp.invisible_character 2:5+2 '\u00a0' U+00A0 (no-break space) in '>xyz<U+00A0>0' is no "
             "blank to the format: write a blank\n"
             "  certain write plain characters: >xyz\u00a00 1| -> >xyz 0 1|\n"
             "  cause warning amesp.unknown_section 2\n"
             "  cause error amesp.missing_geometry 4\n"},
        Case{"InAGeometrysHeader", "! hf\n>xyz 0\u00a01\nHe 0 0 0\nend\n",
             "error amesp-inp.invisible_character 2:7+2 '\u00a0' U+00A0 (no-break space) in '0<U+00A0>1' is no blank "
             "to the format: write a blank\n"
             "  certain write plain characters: >xyz 0\u00a01| -> >xyz 0 1|\n"
             "  cause error amesp.invalid_xyz_header 2\n"},
        Case{"InAnotherHeader", "! hf\n" + std::string(geometry) + ">scf a\u00a0b\nend\n",
             "warning amesp-inp.extra_words 5:6+4 'a\u00a0b' 'a\u00a0b' after the name of the section is not read\n"
             "warning amesp-inp.invisible_character 5:7+2 '\u00a0' U+00A0 (no-break space) in 'a<U+00A0>b' is no blank "
             "to the format: write a blank\n"
             "  likely write plain characters: >scf a\u00a0b| -> >scf a b|\n"},
        Case{"InAnUnknownHeader", "! hf\n" + std::string(geometry) + ">odd\u00a0b\nend\n",
             "warning amesp.unknown_section 5:1+7 '>odd\u00a0b' Unknown AMESP section '>odd\u00a0b' was preserved.\n"
             "warning amesp-inp.invisible_character 5:5+2 '\u00a0' U+00A0 (no-break space) in '>odd<U+00A0>b' is no "
             "blank to the format: write a blank\n"
             "  likely write plain characters: >odd\u00a0b| -> >odd b|\n"},
        Case{"InAnAtom", "! hf\n>xyz 0 1\nHe\u00a00 0\u20030\nend\n",
             "error amesp-inp.invisible_character 3:3+2 '\u00a0' U+00A0 (no-break space) in 'He<U+00A0>0' is no blank "
             "to the format: write a blank (and 1 more in this line)\n"
             "  certain write plain characters: He\u00a00 0\u20030| -> He 0 0 0|\n"
             "  cause error amesp.empty_geometry 2\n"
             "  cause warning amesp.invalid_xyz_record 3\n"
             "  cause error amesp-inp.lost_atom 3\n"},
        Case{"AfterAnAtom", "! hf\n>xyz 0 1\nHe 0 0 0 a\u00a0b\nend\n",
             "note amesp-inp.extra_words 3:10+4 'a\u00a0b' 'a\u00a0b' after the coordinates is not read\n"
             "warning amesp-inp.invisible_character 3:11+2 '\u00a0' U+00A0 (no-break space) in 'a<U+00A0>b' is no "
             "blank to the format: write a blank\n"
             "  likely write plain characters: He 0 0 0 a\u00a0b| -> He 0 0 0 a b|\n"},
        Case{"InTheSymbolOfAnAtom", "! hf\n>xyz 0 1\nHe\u200b 0 0 0\nend\n",
             "error amesp-inp.invisible_character 3:3+3 '\u200b' U+200B (zero-width space) in 'He<U+200B>' cannot be "
             "seen, but is read: remove it\n"
             "  certain write plain characters: He\u200b 0 0 0| -> He 0 0 0|\n"},
        Case{"InAnEntrysName",
             "! hf\n" + std::string(geometry) + ">scf\n maxiter\u00a05\n conv\u200b = 1\n conv\uff1d1\nend\n",
             "error amesp-inp.invisible_character 6:9+2 '\u00a0' U+00A0 (no-break space) in 'maxiter<U+00A0>5' is no "
             "blank to the format: write a blank\n"
             "  certain write plain characters:  maxiter\u00a05| ->  maxiter 5|\n"
             "  cause warning amesp.unknown_entry 6\n"
             "error amesp-inp.invisible_character 7:6+3 '\u200b' U+200B (zero-width space) in 'conv<U+200B>' cannot be "
             "seen, but is read: remove it\n"
             "  certain write plain characters:  conv\u200b = 1| ->  conv = 1|\n"
             "  cause warning amesp.unknown_entry 7\n"
             "error amesp-inp.invisible_character 8:6+3 '\uff1d' U+FF1D (full-width form) in 'conv<U+FF1D>1' is not "
             "'=' to the format: write '='\n"
             "  certain write plain characters:  conv\uff1d1| ->  conv=1|\n"
             "  cause warning amesp.unknown_entry 8\n"},
        Case{"InAnUnknownEntry", "! hf\n" + std::string(geometry) + ">scf\n odd\u00a05\nend\n",
             "warning amesp.unknown_entry 6:2+6 'odd\u00a05' Unknown entry 'odd\u00a05' in >scf was preserved.\n"
             "warning amesp-inp.invisible_character 6:5+2 '\u00a0' U+00A0 (no-break space) in 'odd<U+00A0>5' is no "
             "blank to the format: write a blank\n"
             "  likely write plain characters:  odd\u00a05| ->  odd 5|\n"},
        Case{"InAnEntrysValue", "! hf\n" + std::string(geometry) + ">scf\n conv=1\u00a0\n maxcyc \uff15\nend\n",
             "error amesp-inp.invisible_character 6:8+2 '\u00a0' U+00A0 (no-break space) in 'conv=1<U+00A0>' is no "
             "blank to the format: write a blank\n"
             "  likely write plain characters:  conv=1\u00a0| ->  conv=1 |\n"
             "  cause error amesp.invalid_value 6\n"
             "error amesp-inp.invisible_character 7:9+3 '\uff15' U+FF15 (full-width form) in '<U+FF15>' is not '5' to "
             "the format: write '5'\n"
             "  likely write plain characters:  maxcyc \uff15| ->  maxcyc 5|\n"
             "  cause error amesp.invalid_value 7\n"},
        Case{"InAZMatrix", "! hf\n>zmat\nH\u00a01\nend\n",
             "error amesp-inp.invisible_character 3:2+2 '\u00a0' U+00A0 (no-break space) in 'H<U+00A0>1' is no blank "
             "to the format: write a blank\n"
             "  certain write plain characters: H\u00a01| -> H 1|\n"},
        Case{"InARawSection", "! hf\n" + std::string(geometry) + ">once\na\u00a0b\nend\n",
             "warning amesp-inp.invisible_character 6:2+2 '\u00a0' U+00A0 (no-break space) in 'a<U+00A0>b' is no blank "
             "to the format: write a blank\n"
             "  likely write plain characters: a\u00a0b| -> a b|\n"},
        Case{"InAnEnd", "! hf\n>scf\nconv 1\nend\u00a0\n>xyz 0 1\nHe 0 0 0\nend\n% odd 1\n",
             "error amesp-inp.invisible_character 4:4+2 '\u00a0' U+00A0 (no-break space) in 'end<U+00A0>' is no blank "
             "to the format: write a blank\n"
             "  certain write plain characters: end\u00a0| -> end |\n"
             "  cause warning amesp.unknown_entry 4\n"
             "  cause error amesp-inp.missing_end 5\n"
             "  cause warning amesp.unknown_entry 5\n"
             "  cause warning amesp.unknown_entry 6\n"
             "  cause error amesp.missing_geometry 8\n"
             "warning amesp.unknown_directive 8:1+7 '% odd 1' Unknown AMESP directive '% odd' was preserved.\n"},
        Case{"InTheLastEnd", "! hf\n>xyz 0 1\nHe 0 0 0\n\ufeffend\n",
             "error amesp-inp.invisible_character 4:1+3 '\ufeff' U+FEFF (byte-order mark) in '<U+FEFF>end' cannot be "
             "seen, but is read: remove it\n"
             "  certain write plain characters: \ufeffend| -> end|\n"
             "  cause error amesp-inp.missing_end 2\n"
             "  cause error amesp.unterminated_section 2\n"
             "  cause warning amesp.invalid_xyz_record 4\n"},
        Case{"InComments", "# a\u00a0\ufeffb\u200e\n! hf\n>xyz 0 1\n// \u202eb \u2069\nHe 0 0 0\nend\n",
             "error amesp-inp.invisible_character 4:4+3 '\u202e' U+202E (change of writing direction) in '<U+202E>b' "
             "cannot be seen, but is read: remove it (and 1 more in this line)\n"
             "  certain write plain characters: // \u202eb \u2069| -> // b |\n"},
        Case{"InALongWord", "! hf\n% none " + std::string(40, 'x') + "\u00a0" + std::string(40, 'y') + "\n" + geometry,
             "error amesp.invalid_value 2:8+82 '"
             "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\u00a0yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy' directive '% "
             "none' expects enum, got "
             "'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\u00a0yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy'.\n"
             "  help the schema allows no value at all\n"
             "warning amesp-inp.invisible_character 2:48+2 '\u00a0' U+00A0 (no-break space) is no blank to the format: "
             "write a blank\n"
             "  likely write plain characters: % none "
             "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\u00a0yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy| -> % none "
             "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy|\n"}),
    [](const auto& each) { return each.param.name; });

TEST(InvisibleCharacters, LongestWordShownHasEightyBytes) {
    for (const std::size_t size : {78U, 79U}) {
        const std::string found = described("! hf\n% none \u00a0" + std::string(size, 'x') + "\n" + geometry);
        EXPECT_EQ(found.find("(no-break space) in '") != std::string::npos, size == 78) << size;
    }
}

}  // namespace
}  // namespace velk::input::amesp
