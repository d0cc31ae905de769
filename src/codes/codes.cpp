// The one table of codes, in the order of their bytes.
#include <velk/input/amesp/codes.hpp>

#include <array>

namespace velk::input::amesp {
namespace {

constexpr std::string_view required_schema =
    "directives: {maxcore: {value_type: integer}}\n"
    "method_tokens: {hf: {category: method}, sto-3g: {category: basis}}\n"
    "sections:\n"
    "  xyz: {parse_mode: cartesian_coordinates}\n"
    "  scf: {parse_mode: key_value, required: true, entries: {maxcyc: {value_type: integer, required: true}}}\n";

constexpr auto code_table = std::to_array<CodeInfo>({
    {codes::inp::added_end, Severity::error,
     "Formatting would add the missing 'end' of a section, where the section may have been meant to end earlier. The "
     "file is refused.",
     "! hf sto-3g\n\n>xyz 0 1\n  He 0 0 0\n", "! hf sto-3g\n\n>xyz 0 1\n  He 0 0 0\nend\n",
     "See whether the section was meant to end earlier, and write its 'end' there.", ""},
    {codes::inp::bad_header, Severity::error,
     "The >xyz header does not give charge and spin multiplicity as two integers, but it can be seen what was meant: "
     "'1+ 2', '0 singlet', '0,1', 'charge=0 mult=1', or both on the line below.",
     "! hf sto-3g\n>xyz 0 singlet\n  He 0 0 0\nend\n", "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Write '>xyz CHARGE MULTIPLICITY'; --fix=all does.", ""},
    {codes::inp::dropped_marker, Severity::error,
     "Formatting would drop a line that holds '%', '!' or '>' alone. The file is refused.",
     "! hf sto-3g\n%\n\n>xyz 0 1\n  He 0 0 0\nend\n", "! hf sto-3g\n\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Remove the line, or complete it.", ""},
    {codes::inp::dropped_words, Severity::error,
     "Canonical text has no place for words after the coordinates of an atom, after charge and multiplicity in the "
     ">xyz "
     "header, or between a name and its value where other white space than blanks and tabs parts them. They would be "
     "lost, and the file is refused.",
     "! hf sto-3g\n\n>xyz 0 1\n  He 0 0 0 frozen\nend\n", "! hf sto-3g\n\n>xyz 0 1\n  He 0 0 0\n  # He: frozen\nend\n",
     "Move the words into a comment of their own, or format with --force.", ""},
    {codes::inp::equals_in_directive, Severity::warning,
     "A directive is written with '=', which is read as part of its name or of its value. (An error where the value of "
     "a known directive is wrong by it.)",
     "%maxcore=2000\n! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "%maxcore 2000\n! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n", "Write a blank in place of the '='; --fix does.", ""},
    {codes::inp::extra_words, Severity::warning,
     "Words that nothing reads: after charge and multiplicity, after the name in the header of a section of entries, "
     "or "
     "after the coordinates of an atom. (A note after coordinates, but a warning where the next word is a number, "
     "since "
     "then a number may stand before them; an error where the header names another unit than angstrom, or where a "
     "title "
     "is read as an atom.)",
     "! hf sto-3g\n\n>xyz 0 1 singlet\n  He 0 0 0\nend\n", "! hf sto-3g\n\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Remove the words, or make a comment of them with '#' on a line of its own; convert coordinates to angstrom.", ""},
    {codes::inp::invisible_character, Severity::error,
     "A character is not what it seems: a byte-order mark, a no-break, zero-width or ideographic space, a full-width "
     "form of a mark or a digit, or one that changes the direction of writing. To the format it is part of a word. (A "
     "warning in values and in names that the schema does not know; of comments only changes of direction are found.) "
     "--fix writes the plain character, --fix=all also in values.",
     "! hf\u00a0sto-3g\n\n>xyz 0 1\n  He 0 0 0\nend\n", "! hf sto-3g\n\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Type the character anew, in an editor for plain text.", ""},
    {codes::inp::lost_atom, Severity::error,
     "A line of a Cartesian section looks like an atom but is none, so that the molecule lacks it: a coordinate is no "
     "number, or a column is missing. A typographic minus, a decimal comma, the letters l and O for digits, columns "
     "without a blank between them and the asterisks of Fortran are told apart; the first two are fixed by --fix, the "
     "next two by --fix=all where exactly three numbers come out.",
     "! hf sto-3g\n\n>xyz 0 1\n  H 0,0 0,0 0,0\n  H 0.0 0.0 0.74\nend\n",
     "! hf sto-3g\n\n>xyz 0 1\n  H 0.0 0.0 0.0\n  H 0.0 0.0 0.74\nend\n",
     "Write symbol, x, y and z, with blanks between them and points in the numbers.", ""},
    {codes::inp::lost_line, Severity::error,
     "A line is not read as part of the input: it stands outside every section without a mark, or in a Cartesian "
     "section "
     "without being an atom. Formatting would move it away from where it was meant to count, and the file is refused.",
     "! hf sto-3g\n\n>xyz 0 1\n  H 0 0\n  H 0 0 0.74\nend\n", "! hf sto-3g\n\n>xyz 0 1\n  H 0 0 0\n  H 0 0 0.74\nend\n",
     "Correct the line, or make it a comment with '#'; or format with --force.", ""},
    {codes::inp::missing_end, Severity::error,
     "A section has no 'end': what follows is read as part of it, and is lost to the calculation. (A warning where the "
     "line before which the 'end' may have been meant, or the section, is unknown to the schema.)",
     "! hf sto-3g\n>scf\n  maxcyc 50\n>xyz 0 1\n  He 0 0 0\nend\n",
     "! hf sto-3g\n>scf\n  maxcyc 50\nend\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Write 'end' on a line of its own after the last line of the section; --fix does.", ""},
    {codes::inp::misspelt_end, Severity::error,
     "A line was meant to end a section but is misspelt, or holds more than the word 'end'. It ends nothing, and what "
     "follows is read as part of the section.",
     "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nedn\n>scf\n  maxcyc 50\nend\n",
     "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n>scf\n  maxcyc 50\nend\n",
     "Let the line hold 'end' and nothing else; --fix does.", ""},
    {codes::inp::moved_blank_lines, Severity::warning, "Formatting would lay out blank lines anew.",
     "# helium\n\n! hf sto-3g\n\n>xyz 0 1\n  He 0 0 0\nend\n", "# helium\n! hf sto-3g\n\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Nothing is lost but the layout.", ""},
    {codes::inp::moved_line, Severity::warning,
     "Formatting would move a line: directives and the method line come first, comments after what they stand "
     "between.",
     "! hf sto-3g\n# the geometry\n\n>xyz 0 1\n  He 0 0 0\nend\n",
     "# the geometry\n! hf sto-3g\n\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Put comments at the head of the file, where they stay.", ""},
    {codes::inp::one_line_section, Severity::error,
     "Entries stand in the header of their section, where they are lost; an 'end' there ends nothing.",
     "! hf sto-3g\n>scf maxcyc 100 end\n>xyz 0 1\n  He 0 0 0\nend\n",
     "! hf sto-3g\n>scf\n  maxcyc 100\nend\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Write every entry, and 'end', on a line of its own; --fix=all does.", ""},
    {codes::inp::other_format, Severity::error,
     "No line of a text that shall be formatted begins with '%', '!' or '>': it is no AMESP input, and is refused.",
     "Dear all,\n\n\nthe job has ended.\n", "! hf sto-3g\n\n>xyz 0 1\n  He 0 0 0\nend\n",
     "See whether this is the right file; --force formats it.", ""},
    {codes::inp::pasted_xyz, Severity::error,
     "A Cartesian section begins with the number of atoms, as an XYZ file does, and mostly with its title, which may "
     "even "
     "be read as an atom. --fix makes comments of them.",
     "! hf sto-3g\n\n>xyz 0 1\n1\nhelium, from a file\nHe 0.0 0.0 0.0\nend\n",
     "! hf sto-3g\n\n>xyz 0 1\n# helium, from a file\nHe 0.0 0.0 0.0\nend\n",
     "Remove both lines, or make them comments with '#'.", ""},
    {codes::inp::reads_differently, Severity::error,
     "The canonical text would be read back as something else: a value that holds '=', a key that holds a blank, an "
     "entry named 'end'. The file is refused.",
     "! hf sto-3g\n\n>scf\n  my note = x\nend\n\n>xyz 0 1\n  He 0 0 0\nend\n",
     "! hf sto-3g\n\n>scf\n  note = x\nend\n\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Change the name or the value, or leave the file unformatted.", ""},
    {codes::inp::remark_in_value, Severity::error,
     "A remark after a value is read as part of the value, which is wrong by it. (A warning where it is not, and in "
     "method lines, where every word of a remark is read as a token.)",
     "% maxcore 2000  # MB\n! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "# MB\n% maxcore 2000\n! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Write the remark on a line of its own; --fix does where the value is wrong by it.", ""},
    {codes::inp::repeated_name, Severity::warning,
     "A directive, a token or an entry of a section is given twice, perhaps by another name for the same: only one of "
     "them can count.",
     "! hf sto-3g\n>scf\n  maxcyc 50\n  maxiter 100\nend\n>xyz 0 1\n  He 0 0 0\nend\n",
     "! hf sto-3g\n>scf\n  maxcyc 100\nend\n>xyz 0 1\n  He 0 0 0\nend\n", "Remove the one that is not meant.", ""},
    {codes::inp::rounded, Severity::warning, "Formatting would round coordinates to ten decimals.",
     "! hf sto-3g\n\n>xyz 0 1\n  He 0 0 0.12345678901\nend\n", "! hf sto-3g\n\n>xyz 0 1\n  He 0 0 0.1234567890\nend\n",
     "Leave the file unformatted where more digits matter.", ""},
    {codes::dropped_words, Severity::warning,
     "An edit takes words with it that it does not name: words after the coordinates of an atom that is removed or "
     "gets "
     "another symbol, words of the >xyz header that is replaced, or a remark after a value. To this format a remark "
     "that begins with '#', ';' or '//' after a value is part of the value.",
     "", "", "Put what shall stay into a comment line of its own.", ""},
    {codes::duplicate_section, Severity::error,
     "A section that the schema allows only once stands in the input several times.",
     "! hf sto-3g\n>scf\n  maxcyc 50\nend\n>scf\n  conv 1e-6\nend\n>xyz 0 1\n  He 0 0 0\nend\n",
     "! hf sto-3g\n>scf\n  maxcyc 50\n  conv 1e-6\nend\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Merge the sections into one, or remove those that are not wanted.", ""},
    {codes::empty_directive, Severity::warning, "A line begins with '%' but names no directive. It is not kept.",
     "%\n! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n", "% maxcore 2000\n! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Name the directive after the '%', or remove the line.", ""},
    {codes::empty_geometry, Severity::error, "The >xyz section holds no atom that could be read.",
     "! hf sto-3g\n>xyz 0 1\nend\n", "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Give one line for each atom: symbol, x, y, z.", ""},
    {codes::empty_method_line, Severity::warning, "A line begins with '!' but holds no token.",
     "! hf sto-3g\n!\n>xyz 0 1\n  He 0 0 0\nend\n", "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Write method, basis set and task after the '!', or remove the line.", ""},
    {codes::empty_section_header, Severity::warning, "A line begins with '>' but names no section. It is not kept.",
     "! hf sto-3g\n>\n>xyz 0 1\n  He 0 0 0\nend\n", "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Name the section after the '>', or remove the line.", ""},
    {codes::invalid_multiplicity, Severity::error, "The spin multiplicity in the >xyz header is below 1.",
     "! hf sto-3g\n>xyz 0 0\n  He 0 0 0\nend\n", "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Give 2S+1: 1 for a singlet, 2 for a doublet, 3 for a triplet.", ""},
    {codes::invalid_section_entry, Severity::warning,
     "A line in a section of entries has nothing before its '='. It is kept as it is, but sets nothing.",
     "! hf sto-3g\n>scf\n  = 50\nend\n>xyz 0 1\n  He 0 0 0\nend\n",
     "! hf sto-3g\n>scf\n  maxcyc = 50\nend\n>xyz 0 1\n  He 0 0 0\nend\n", "Write 'key value' or 'key = value'.", ""},
    {codes::invalid_value, Severity::error, "A value is not of the type that the schema gives for it.",
     "% maxcore lots\n! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "% maxcore 2000\n! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Write an integer (50), a real number (1.0d-8), a boolean (on, off, true, false, yes, no, 1, 0) or one of the "
     "allowed words, as the message says.",
     ""},
    {codes::invalid_xyz_header, Severity::error,
     "The >xyz header does not hold charge and spin multiplicity as two integers.",
     "! hf sto-3g\n>xyz 0\n  He 0 0 0\nend\n", "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Write both after the name: '>xyz CHARGE MULTIPLICITY'.", ""},
    {codes::invalid_xyz_record, Severity::warning,
     "A line in a Cartesian section is no atom: it has fewer than four words, or a coordinate is no number. It is kept "
     "as it is, but is not part of the geometry.",
     "! hf sto-3g\n>xyz 0 1\n  H 0 0 0\n  H 0 0\nend\n", "! hf sto-3g\n>xyz 0 1\n  H 0 0 0\n  H 0 0 0.74\nend\n",
     "Give symbol, x, y and z. Exponents may be written with e or d.", ""},
    {codes::kept_unit, Severity::warning,
     "A geometry was replaced, and a word of its header that stays names another unit than angstrom: the new "
     "coordinates "
     "are read in that unit. An error where the new coordinates are known to be in angstrom.",
     "", "", "Convert the coordinates, or remove the word from the header.", ""},
    {codes::loose_line, Severity::warning,
     "A line stands outside every section and begins with none of '%', '!', '>' and the comment marks '#', '//', ';'.",
     "! hf sto-3g\nmy first calculation\n>xyz 0 1\n  He 0 0 0\nend\n",
     "! hf sto-3g\n# my first calculation\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Make it a comment with '#', or move it into the section it belongs to.", ""},
    {codes::missing_geometry, Severity::error, "The input has neither an >xyz nor a >zmat section.", "! hf sto-3g\n",
     "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Add the geometry. Its header may have been swallowed by a section without 'end'.", ""},
    {codes::missing_method_line, Severity::error, "The input has no method line with at least one token.",
     ">xyz 0 1\n  He 0 0 0\nend\n", "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Add a line that begins with '!' and names method and basis set.", ""},
    {codes::missing_required_entry, Severity::error, "A section lacks an entry that the schema requires.",
     "! hf sto-3g\n>scf\nend\n>xyz 0 1\n  He 0 0 0\nend\n",
     "! hf sto-3g\n>scf\n  maxcyc 50\nend\n>xyz 0 1\n  He 0 0 0\nend\n", "Add the entry to the section.",
     required_schema},
    {codes::missing_required_section, Severity::error, "The input lacks a section that the schema requires.",
     "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n", "! hf sto-3g\n>scf\n  maxcyc 50\nend\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Add the section.", required_schema},
    {codes::multiple_geometry_sections, Severity::error, "The input has more than one >xyz or >zmat section.",
     "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n>zmat\n  He\nend\n", "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Keep one geometry.", ""},
    {codes::multiple_method_lines, Severity::warning,
     "The input has several method lines. Their tokens are read as one line, in order.",
     "! hf\n! sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n", "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Put all tokens on one line.", ""},
    {codes::not_expressible, Severity::error,
     "An edit asks for something that no line of the text would be read back as: a value with a line feed, a name with "
     "a blank, an entry in a section that is kept as raw lines. Nothing is written.",
     "amesp-inp set he.inp --add-token 'two words'\n", "amesp-inp set he.inp --add-token two --add-token words\n",
     "Change the value or the name; raw sections are edited by hand.", ""},
    {codes::not_of_this_text, Severity::error,
     "Only programs that call the library meet it: a document is written into a text that it was not read from, or a "
     "list "
     "was changed that the editor's operations leave alone. The text stays as it was there.",
     "", "", "Give `render_over` the text that the document was parsed from, and edit with the editor's operations.",
     ""},
    {codes::remark_in_method_line, Severity::error,
     "An edit adds a token to a method line that holds a word beginning with '#'. The remark's words are method-line "
     "tokens to the format, and the new one would stand among them. Nothing is written.",
     "! hf sto-3g  # a first try\n\n>xyz 0 1\n  He 0 0 0\nend\n",
     "# a first try\n! hf sto-3g\n\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Move the remark to a line of its own above, then add the token.", ""},
    {codes::unknown_directive, Severity::warning, "The schema does not know a directive. It is kept as it is.",
     "% maxcor 2000\n! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "% maxcore 2000\n! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Correct the spelling; or, when the name is right, add it to your schema.", ""},
    {codes::unknown_entry, Severity::warning, "The schema does not know an entry of this section. It is kept as it is.",
     "! hf sto-3g\n>scf\n  maxcycle 50\nend\n>xyz 0 1\n  He 0 0 0\nend\n",
     "! hf sto-3g\n>scf\n  maxcyc 50\nend\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Correct the spelling; or, when the name is right, add it to your schema.", ""},
    {codes::unknown_method_token, Severity::warning,
     "The schema does not know a token of the method line. It is kept as it is.",
     "! b3lpy sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n", "! b3lyp sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Correct the spelling; or, when the name is right, add it to your schema.", ""},
    {codes::unknown_section, Severity::warning,
     "The schema does not know a section. It is kept as it is, and nothing in it is checked.",
     "! hf sto-3g\n>scff\n  maxcyc 50\nend\n>xyz 0 1\n  He 0 0 0\nend\n",
     "! hf sto-3g\n>scf\n  maxcyc 50\nend\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Correct the spelling; or, when the name is right, add it to your schema.", ""},
    {codes::unterminated_section, Severity::error,
     "A section runs to the end of the file because its 'end' is missing: everything after its header is read as part "
     "of it. (A warning where the schema does not know the section.)",
     "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\n", "! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "Write 'end' on a line of its own after the last line of the section.", ""},
    {codes::value_above_maximum, Severity::error, "A number is above the greatest that the schema allows.",
     "! hf sto-3g\n>scf\n  conv 10\nend\n>xyz 0 1\n  He 0 0 0\nend\n",
     "! hf sto-3g\n>scf\n  conv 1e-6\nend\n>xyz 0 1\n  He 0 0 0\nend\n", "Give a smaller number.", ""},
    {codes::value_below_minimum, Severity::error, "A number is below the smallest that the schema allows.",
     "% maxcore 0\n! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n",
     "% maxcore 2000\n! hf sto-3g\n>xyz 0 1\n  He 0 0 0\nend\n", "Give a greater number.", ""},
});

}  // namespace

std::span<const CodeInfo> all_codes() {
    return code_table;
}

}  // namespace velk::input::amesp
