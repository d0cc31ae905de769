#!/usr/bin/env bash
# Sets up what is missing, then builds and runs every check of the project. With --quick, for use while working: without
# sanitizers, fuzzers, coverage and mutation, the model on fewer random texts, and the analysers on changed sources alone.
# usage: test.sh [--quick]
set -euo pipefail
cd "$(dirname "$0")/.."
quick=false
case "$*" in
  "") ;;
  --quick) quick=true ;;
  *) echo "usage: $0 [--quick]" >&2; exit 2 ;;
esac
scripts/setup.sh scripts/packages.txt scripts/check_packages.txt

step() { printf '\n== %s (%s s)\n' "$1" "$SECONDS"; }

step "layout: formatting, floors, file sizes"
scripts/check_format.sh
scripts/check_floors.sh

step "g++: build with warnings as errors"
cmake --preset gcc
cmake --build --preset gcc

step "g++: tests"
$quick && export VELK_ORACLE_DOCUMENTS=10000
ctest --preset gcc -j3

step "growth in instructions, a build without what only Linux has, the README's example; beside them the installed package,
the exported symbols, the benchmarks, each row run once, and the hardening"
beside() {
  scripts/check_growth.sh build/gcc
  scripts/check_portable.sh
  scripts/try.sh
}
beside >build/beside.log 2>&1 &
tests/install/installed_package.sh build/gcc "$PWD"
tests/install/exported_symbols.sh build/gcc/lib "$PWD"
scripts/check_benchmarks.sh build/gcc
scripts/check_hardening.sh build/gcc
wait $! || { cat build/beside.log; exit 1; }

if $quick; then
  step "static analysis of what is not committed"
  mapfile -t changed < <(git diff --name-only --diff-filter=d HEAD; git ls-files --others --exclude-standard)
  scripts/check_static.sh "${changed[@]}"
  step "all quick checks passed"
  exit
fi

step "the build inside another project"
tests/install/subdirectory.sh "$PWD"

step "clang++: build with warnings as errors, address and undefined-behaviour sanitizers"
cmake --preset sanitize
cmake --build --preset sanitize

step "clang++: tests under the sanitizers"
ctest --preset sanitize -j3

step "clang++: threads under the thread sanitizer"
scripts/check_threads.sh

step "the fuzzers, for a short time each, and the same way each time"
VELK_FUZZ_SEED=1 scripts/fuzz.sh 20

step "coverage: every line and every branch of the library"
scripts/check_coverage.sh

step "static analysis"
scripts/check_static.sh

step "mutation: a sample of changed sources that the tests have to notice"
scripts/mutate.py build/gcc

step "all checks passed"
