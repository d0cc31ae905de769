"""The list of mutants that no test can tell from the code, each with its reason."""


def read_equivalents(path):
    """{(source, line before, line after): reason} of blocks of lines: the source, - before, + after, the reason."""
    known = {}
    with open(path, encoding="utf-8") as file:
        text = "\n".join(line.rstrip() for line in file if not line.startswith("#"))
    for block in filter(str.strip, text.split("\n\n")):
        source, before, after, *reason = block.strip().split("\n")
        if not before.startswith("- ") or not after.startswith("+") or not reason:
            raise SystemExit(f"{path}: not a source, a '- ' line, a '+ ' line and a reason:\n{block}")
        known[source, before[2:], after[1:].strip()] = " ".join(reason)
    return known
