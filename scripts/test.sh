#!/usr/bin/env bash
# Sets up what is missing, then builds and runs every check of the project.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh scripts/packages.txt scripts/check_packages.txt

step() { printf '\n== %s (%s s)\n' "$1" "$SECONDS"; }

step "layout: formatting, floors, file sizes"
scripts/check_format.sh
scripts/check_floors.sh

step "g++: build with warnings as errors"
cmake --preset gcc
cmake --build --preset gcc

step "g++: tests"
ctest --preset gcc -j2

step "the installed package, the build inside another project, the exported symbols"
tests/install/installed_package.sh build/gcc "$PWD"
tests/install/subdirectory.sh "$PWD"
tests/install/exported_symbols.sh build/gcc/lib "$PWD"

step "growth: instructions at two sizes"
scripts/check_growth.sh build/gcc

step "without what only Linux has"
scripts/check_portable.sh

step "the hardening of the built files"
scripts/check_hardening.sh build/gcc

step "clang++: build with warnings as errors, address and undefined-behaviour sanitizers"
cmake --preset sanitize
cmake --build --preset sanitize

step "clang++: tests under the sanitizers"
ctest --preset sanitize -j2

step "clang++: threads under the thread sanitizer"
scripts/check_threads.sh

step "the fuzzers, for a short time each, and the same way each time"
VELK_FUZZ_SEED=1 scripts/fuzz.sh 20

step "coverage: every line and every branch of the library"
scripts/check_coverage.sh

step "static analysis"
scripts/check_static.sh

step "the benchmarks: built, and each row run once"
scripts/check_benchmarks.sh build/gcc

step "the example of the README"
scripts/try.sh >build/try.log || { cat build/try.log; exit 1; }

step "mutation: a sample of changed sources that the tests have to notice"
scripts/mutate.py build/gcc

step "all checks passed"
