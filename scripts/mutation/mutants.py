"""Makes the mutants of a C++ source: every small change of its text that a test should notice."""
import dataclasses
import re

# Comments and text pieces first, so that nothing inside them is taken for code. The layout of the sources tells an
# operator from a template's bracket: operators have blanks on both sides.
TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      |(?P<directive>^[ \t]*\#[^\n]*(?:\\\n[^\n]*)*)
      |(?P<string>"(?:\\.|[^"\\\n])*")
      |(?P<char>'(?:\\.|[^'\\\n])+')
      |(?P<number>(?<![\w.'])(?:0[xX][0-9a-fA-F']+|\d[\d']*)(?![\w.])[uUlL]*)
      |(?P<word>[A-Za-z_]\w*)
      |(?P<spaced>(?<=\s)(?:==|!=|<=|>=|<<|>>|<|>|&&|\|\||\+=|-=|\+|-|\||&)(?=\s))
      |(?P<step>\+\+|--)
      |(?P<negation>!(?!=))
      |(?P<other>.)""",
    re.VERBOSE | re.DOTALL | re.MULTILINE)

SWAPS = {
    "==": ["!="], "!=": ["=="], "<": ["<="], "<=": ["<"], ">": [">="], ">=": [">"], "&&": ["||"], "||": ["&&"],
    "+": ["-"], "-": ["+"], "+=": ["-="], "-=": ["+="], "++": ["--"], "--": ["++"], "|": ["&"], "&": ["|"],
    "<<": [">>"], ">>": ["<<"], "true": ["false"], "false": ["true"],
}


@dataclasses.dataclass(frozen=True)
class Mutant:
    path: str
    begin: int
    end: int
    texts: tuple  # to be tried in turn: the first that compiles is the mutant
    kind: str


def tokens_of(source):
    return [match for match in TOKEN.finditer(source) if match.lastgroup not in ("comment", "directive")]


def replacements(match):
    """What a token may be replaced by, as (kind, text)."""
    text = match.group()
    if match.lastgroup in ("spaced", "step") or text in ("true", "false"):
        return [("operator", other) for other in SWAPS.get(text, [])]
    if match.lastgroup == "negation":
        return [("negation", "")]
    if match.lastgroup == "number":
        plain = text.replace("'", "").rstrip("uUlL")
        value = int(plain, 0) if plain.lower().startswith("0x") or not plain.startswith("0") else int(plain, 8)
        return [("number", str(value + 1))] + ([("number", str(value - 1))] if value > 0 else [])
    if match.lastgroup == "string":
        return [("string", '"velk"' if text == '""' else '""')]
    if match.lastgroup == "char":
        return [("char", "'~'")]
    return []


def closing(tokens, index):
    """Of the bracket at `index`: the index of the one that closes it."""
    depth = 0
    for at in range(index, len(tokens)):
        depth += {"(": 1, ")": -1}.get(tokens[at].group(), 0)
        if depth == 0:
            return at
    return None


def conditions(path, source, tokens):
    words = [token for token in tokens if not token.group().isspace()]
    for index, token in enumerate(words[:-1]):
        if token.group() not in ("if", "while") or words[index + 1].group() != "(":
            continue
        stop = closing(words, index + 1)
        if stop is None:
            continue
        begin, end = words[index + 1].end(), words[stop].start()
        condition = source[begin:end]
        if ";" in condition:  # with an initialiser
            begin += condition.rindex(";") + 1
            condition = source[begin:end]
        if re.fullmatch(r"\s*![^&|?]*", condition):  # the negation left out is the same
            continue
        yield Mutant(path, begin, end, (f"!({condition.strip()})",), "condition")


# A statement that can be left out: a call, an assignment, a jump. Declarations cannot.
REMOVABLE = re.compile(
    r"(?:(?:static_cast<void>)?\(?[*]?[A-Za-z_][\w:]*(?:(?:\.|->)[\w]+|\[[^\]]*\])*\s*(?:\(|=[^=]|\+=|-=|\|=|\+\+|--)"
    r"|[*(]|\+\+|--|break$|continue$|return$)", re.DOTALL)
RETURN = re.compile(r"return\s+(?P<value>.+)$", re.DOTALL)


def statements(path, source, tokens):
    """Statements left out, and returns of nothing in particular."""
    begin, depth = None, 0
    for token in tokens:
        text = token.group()
        depth += {"(": 1, ")": -1, "[": 1, "]": -1}.get(text, 0)
        if begin is None and not text.isspace():
            begin = token.start()
        if depth > 0 or text not in (";", "{", "}", ":"):
            continue
        if text == ":" and ("::" in source[token.start() - 1:token.end() + 1] or "?" in source[begin:token.end()]):
            continue
        if text == ";" and begin is not None and begin < token.start():
            yield from changed_statement(path, begin, token.start(), source[begin:token.start()].strip())
        begin = None


def changed_statement(path, begin, end, statement):
    returned = RETURN.match(statement)
    if returned and returned["value"] not in ("true", "false", "{}", "0", "nullptr", "std::nullopt"):
        yield Mutant(path, begin, end, ("return {}", "return"), "return")
    elif not returned and REMOVABLE.match(statement) and not statement.endswith(("= delete", "= default")):
        yield Mutant(path, begin, end, ("",), "statement")


def mutants_of(path, source):
    tokens = tokens_of(source)
    found = [Mutant(path, token.start(), token.end(), (text,), kind)
             for token in tokens for kind, text in replacements(token)]
    found += conditions(path, source, tokens)
    found += statements(path, source, tokens)
    return sorted(found, key=lambda mutant: (mutant.begin, mutant.end, mutant.texts))


def line_of(source, mutant, text):
    """The whole lines that a mutant changes, before and after, without the white space around them."""
    first = source.rfind("\n", 0, mutant.begin) + 1
    stop = source.find("\n", mutant.end)
    old = source[first:stop]
    new = source[first:mutant.begin] + text + source[mutant.end:stop]
    return " ".join(old.split()), " ".join(new.split())
