#!/usr/bin/env python3
"""Changes the library in one place at a time and sees whether the tests notice.

usage: mutate.py TESTS [--sample N | --all] [--seed S] [--only PATTERN] [--known REPORT] [--report REPORT]
                 [--least PERCENT]

TESTS is a build directory with built tests (the preset "gcc"). --sample tries N of the mutants, drawn by the seed, and
--all every one. --only keeps the sources that a regular expression finds. What the report of an earlier run, --known,
says is caught or does not compile is not tried again, but counts: after a change of code or tests only what is new or
survived is tried. The exit status is 1 when less than --least percent (95) of the mutants are caught, the listed
equivalents left out.
"""
import argparse
import collections
import json
import os
import queue
import random
import re
import sys
import threading

from mutation.equivalents import ANY, read_equivalents
from mutation.mutants import line_of, mutants_of
from mutation.workshop import Library, Workshop, output, times_of

# Each uses only those before it.
LAYERS = ["core", "codes", "model", "schema", "validation", "parser", "editor", "in_place", "diagnostics", "formatting", "report", "exchange"]
ROOMS = [*LAYERS, "oracle", "faults", "cli", "edit"]
TESTED_ALONE = "include/velk/input/amesp/string_map.hpp"  # by the test that is named after it
TEXTS = "src/codes/codes.cpp"  # a table of texts, of which docs/codes.md is made
# Moved from the program, whose sources took no part: not drawn until they have tests of their own. --only finds them.
MOVED = ("src/diagnostics/", "src/formatting/", "src/report/")
QUICK = 0.1  # seconds that a test of the first round may take
SLOWEST = 3  # and that any test may take: growth is not what a changed operator is judged by
LIST = "tests/mutation_equivalents.txt"


def arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("tests")
    parser.add_argument("--sample", type=int, default=40)
    parser.add_argument("--all", action="store_true")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--only", default="")
    parser.add_argument("--known", action="append", default=[])
    parser.add_argument("--report")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--build", default="build/mutation")
    parser.add_argument("--least", type=float, default=95)
    return parser.parse_args()


class Sources:
    def __init__(self, root):
        paths = output(["git", "ls-files", "src", "core", TESTED_ALONE], cwd=root).split()
        self.text = {path: open(os.path.join(root, path), encoding="utf-8").read()
                     for path in paths if path.endswith((".cpp", ".hpp")) and path != TEXTS}
        self.mutants = [mutant for path, text in self.text.items() for mutant in mutants_of(path, text)]

    def key(self, mutant, text):
        return (mutant.path, *line_of(self.text[mutant.path], mutant, text))

    def check(self, equivalents):
        """A listed mutant that does not exist any more has to leave the list."""
        made = {self.key(mutant, text) for mutant in self.mutants for text in mutant.texts}
        made |= {(path, before, ANY) for path, before, after in made}
        stale = [entry for entry in equivalents if entry not in made]
        for path, before, after in stale:
            print(f"{LIST}: no such mutant any more: {path}\n- {before}\n+ {after}", file=sys.stderr)
        return not stale

    def is_listed(self, mutant, equivalents):
        keys = [self.key(mutant, text) for text in mutant.texts]
        return any(key in equivalents or (*key[:2], ANY) in equivalents for key in keys)


def chosen(sources, equivalents, options):
    drawn = [mutant for mutant in sources.mutants if options.only or not mutant.path.startswith(MOVED)]
    mutants = [mutant for mutant in drawn
               if re.search(options.only, mutant.path) and not sources.is_listed(mutant, equivalents)]
    if options.all:
        return mutants
    return random.Random(options.seed).sample(mutants, min(options.sample, len(mutants)))


def read_known(reports):
    """What earlier runs found, but for the survivors: (source, line before, line after) to the record. Of equal lines,
    one that survived has all of them tried again."""
    known = {}
    for report in reports:  # a later one has the last word
        with open(report, encoding="utf-8") as file:
            known |= {(record["path"], record["before"], record["after"]): record
                      for record in sorted(map(json.loads, file), key=lambda record: record["result"] == "survived")}
    return {key: record for key, record in known.items() if record["result"] != "survived"}


def measured(workshop):
    """The tests of each room and what each takes of the unchanged library, which has to pass them."""
    times = {}
    for room in ROOMS:
        if not os.path.exists(f"{workshop.test_build}/bin/amesp_test_{room}"):
            continue
        report = f"{workshop.directory}/{room}.json"
        if workshop.test(f"amesp_test_{room}", ["*"], 300, report) != "passed":
            raise SystemExit(f"the tests of {room} do not pass on the unchanged library")
        times[room] = times_of(report)
    return times


def rounds(path, times):
    """What to run, in turn, as (room, tests, seconds allowed): the quick tests of the own layer first, the slow ones last.
    The tests of lower layers do not reach the mutant."""
    own = path.split("/")[1] if path.startswith("src/") else "core"
    rooms = ["schema"] if path == TESTED_ALONE else ROOMS[ROOMS.index(own):]
    for quick in (True, False):
        for room in rooms:
            tests = [test for test, seconds in times.get(room, {}).items()
                     if seconds < SLOWEST and (seconds < QUICK) == quick]
            if tests:
                yield room, tests, 2 + int(4 * sum(times[room][test] for test in tests))


def judged(workshop, sources, times, mutant):
    """(result, the text that was put in, who caught it)"""
    original = sources.text[mutant.path]
    try:
        for text in mutant.texts:
            if not workshop.build_mutant(mutant.path, original[:mutant.begin] + text + original[mutant.end:]):
                continue
            for room, tests, seconds in rounds(mutant.path, times):
                result = workshop.test(f"amesp_test_{room}", tests, seconds)
                if result != "passed":
                    return "caught" if result == "failed" else result, text, room
            return "survived", text, ""
        return "invalid", mutant.texts[0], ""
    finally:
        workshop.restore(mutant.path)
        workshop.clean()


class Run:
    def __init__(self, sources, times, options):
        self.sources, self.times = sources, times
        self.report = open(options.report or os.devnull, "w", encoding="utf-8")
        self.results = collections.Counter()
        self.lock = threading.Lock()

    def record(self, mutant, result, text, room):
        path, before, after = self.sources.key(mutant, text)
        line = self.sources.text[path].count("\n", 0, mutant.begin) + 1
        self.count({"path": path, "line": line, "before": before, "after": after, "result": result, "by": room})

    def count(self, record):
        with self.lock:
            self.results[record["result"]] += 1
            print(json.dumps(record), file=self.report, flush=True)
            if record["result"] == "survived":
                print("survived: {path}:{line}\n- {before}\n+ {after}\n".format(**record), flush=True)

    def work(self, workshop, mutants):
        while True:
            try:
                mutant = mutants.get_nowait()
            except queue.Empty:
                return
            self.record(mutant, *judged(workshop, self.sources, self.times, mutant))

    def finish(self, equivalents, least):
        caught = self.results["caught"] + self.results["timeout"]
        valid = caught + self.results["survived"]
        share = 100 * caught / valid if valid else 100
        print(f"mutants: {valid}, caught: {caught} ({self.results['timeout']} by the time limit), "
              f"survived: {self.results['survived']}, caught share: {share:.1f} %; "
              f"not compiled: {self.results['invalid']}, listed as equivalent: {equivalents}")
        if self.results["invalid"] > valid:
            print("most mutants do not compile: something else is wrong", file=sys.stderr)
            return False
        return share >= least


def main():
    options = arguments()
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    sources = Sources(root)
    equivalents = read_equivalents(os.path.join(root, LIST))
    if not sources.check(equivalents):
        return 1
    library = Library(root, os.path.abspath(os.path.join(root, options.build)))
    workshops = [Workshop(library, os.path.abspath(options.tests), f"{library.build}-{number}")
                 for number in range(options.jobs)]
    known = read_known(options.known)  # before the report is opened, which may be the same file
    run = Run(sources, measured(workshops[0]), options)
    mutants = queue.Queue()
    for mutant in chosen(sources, equivalents, options):
        records = [known[key] for text in mutant.texts if (key := sources.key(mutant, text)) in known]
        if records:
            run.count(records[0])
        else:
            mutants.put(mutant)
    threads = [threading.Thread(target=run.work, args=(workshop, mutants)) for workshop in workshops]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    listed = [mutant for mutant in sources.mutants if sources.is_listed(mutant, equivalents)]
    return 0 if run.finish(len(listed), options.least) else 1


if __name__ == "__main__":
    sys.exit(main())
