"""The list of mutants that no test can tell from the code, each with its reason."""

ANY = "*"  # as the line after: whatever is changed in the line before


def read_equivalents(path):
    """{(source, line before, line after or ANY): reason} of blocks: the source, - before, + after, the reason."""
    known = {}
    with open(path, encoding="utf-8") as file:
        text = "\n".join(line.rstrip() for line in file if not line.startswith("#"))
    for block in filter(str.strip, text.split("\n\n")):
        source, before, after, *reason = block.strip().split("\n")
        if not before.startswith("- ") or not after.startswith("+") or not reason:
            raise SystemExit(f"{path}: not a source, a '- ' line, a '+ ' line and a reason:\n{block}")
        known[source, before[2:], after[1:].strip()] = " ".join(reason)
    return known
