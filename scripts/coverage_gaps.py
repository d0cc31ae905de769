#!/usr/bin/env python3
"""Compares what the tests reach with what they have to: every line and both ways of every branch of the library.

usage: coverage_gaps.py EXPORT EXCLUSIONS

EXPORT is what llvm-cov exports as JSON; its branches are those of the source, none of the compiler's own. EXCLUSIONS
lists what no test can reach, each with its reason; one that is reached, or is not there, is an error as well.
"""
import collections
import json
import os
import sys

CODE, BRANCH = 0, 4
ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
Place = collections.namedtuple("Place", "path first_line first_column last_line last_column")


class Source:
    def __init__(self):
        self.files = {}

    def lines(self, path):
        if path not in self.files:
            with open(os.path.join(ROOT, path), encoding="utf-8") as file:
                self.files[path] = file.read().split("\n")
        return self.files[path]

    def text(self, place):
        lines = self.lines(place.path)[place.first_line - 1:place.last_line]
        lines[-1] = lines[-1][:place.last_column - 1]
        lines[0] = lines[0][place.first_column - 1:]
        return " ".join(" ".join(lines).split())


def counts_of(export):
    """How often each region ran, and each branch went either way, added up over the instances of a template."""
    regions, branches = collections.Counter(), collections.defaultdict(lambda: [0, 0])
    for function in export["data"][0]["functions"]:
        for *place, count, file, _, kind in function["regions"]:
            path = os.path.relpath(os.path.realpath(function["filenames"][file]), ROOT)
            if kind == CODE and path.startswith(("src/", "core/", "include/")):
                regions[Place(path, *place)] += count
        for *place, true, false, file, _, kind in function["branches"]:
            path = os.path.relpath(os.path.realpath(function["filenames"][file]), ROOT)
            if kind == BRANCH and path.startswith(("src/", "core/", "include/")):
                counts = branches[Place(path, *place)]
                counts[0] += true
                counts[1] += false
    return regions, branches


def line_counts(regions):
    """A line ran as often as the innermost region that begins before it or on it; the outer ones only surround it."""
    inside = {}
    for place, count in sorted(regions.items(), key=lambda item: (item[0].first_line, item[0].first_column)):
        for line in range(place.first_line, place.last_line + 1):
            inside.setdefault((place.path, line), []).append((place, count))
    lines = {}
    for (path, line), found in inside.items():
        around = [item for item in found if item[0].first_line < line]
        begun = [item for item in found if item[0].first_line == line]
        innermost = max(around, key=lambda item: item[0][1:3], default=None)
        lines[path, line] = max(count for _, count in begun + ([innermost] if innermost else []))
    return lines


def read_exclusions(path):
    """{(source, what, text): reason} of blocks of three lines: the source, what, the text; the reason follows."""
    with open(path, encoding="utf-8") as file:
        text = "\n".join(line.rstrip() for line in file if not line.startswith("#"))
    known = {}
    for block in filter(str.strip, text.split("\n\n")):
        source, gap, *reason = block.strip().split("\n")
        what, _, code = gap.partition(": ")
        if what not in ("never runs", "never true", "never false") or not reason:
            raise SystemExit(f"{path}: not a source, a gap and a reason:\n{block}")
        known[source, what, code] = " ".join(reason)
    return known


def gaps_of(regions, branches, source):
    for place, count in sorted(regions.items()):
        if count == 0:
            yield place, "never runs", source.text(place)
    for place, (true, false) in sorted(branches.items()):
        for what, count in (("never true", true), ("never false", false)):
            if count == 0:
                yield place, what, source.text(place)


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        regions, branches = counts_of(json.load(file))
    exclusions, source = read_exclusions(sys.argv[2]), Source()
    used, open_gaps = set(), 0
    for place, what, text in gaps_of(regions, branches, source):
        entry = (place.path, what, text)
        if entry in exclusions:
            used.add(entry)
            continue
        open_gaps += 1
        print(f"{place.path}:{place.first_line}:{place.first_column}: {what}: {text}")
    for path, what, text in exclusions.keys() - used:
        print(f"{sys.argv[2]}: not needed: {path}: {what}: {text}")
    lines = line_counts(regions)
    reached = sum(count > 0 for count in lines.values())
    ways = sum((true > 0) + (false > 0) for true, false in branches.values())
    print(f"lines: {reached} of {len(lines)}, branches: {ways} of {2 * len(branches)}, "
          f"regions: {sum(count > 0 for count in regions.values())} of {len(regions)}; "
          f"excluded: {len(used)}, gaps: {open_gaps}")
    return 1 if open_gaps or exclusions.keys() - used or not regions else 0


if __name__ == "__main__":
    sys.exit(main())
