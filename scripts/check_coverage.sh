#!/usr/bin/env bash
# Builds the preset "coverage" and runs the library's tests in it: they reach every line of src/, core/ and include/, and
# every branch of the source both ways, but for what tests/coverage_exclusions.txt lists with a reason.
# usage: check_coverage.sh [BUILD_DIRECTORY]
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(realpath -m "${1:-build/coverage}")
profiles=$build/profiles
# Random texts reach by chance what a test has to name; the comparison with the model therefore does not count.
programs=()
for room in core codes model schema parser validation editor in_place diagnostics formatting report exchange cli edit faults; do
  programs+=("amesp_test_$room")
done

cmake --preset coverage -B "$build" >/dev/null
cmake --build "$build" --target "${programs[@]}" >"$build/build.log" || { cat "$build/build.log"; exit 1; }
rm -rf "$profiles"
mkdir "$profiles"
export VELK_AMESP_INP_RANDOM_EDITS=5000
# Nor do the programs whose every allocation fails in turn: thousands of processes, which reach what others have reached.
export GTEST_FILTER='-Program/Memory.*:Program/AddressSpace.*'
run() {  # run PROGRAM; counters live in a mapped file (%c), so that processes that are killed count as well
  LLVM_PROFILE_FILE=$profiles/$1-%m%c.profraw "$build/bin/$1" --gtest_brief=1 >"$profiles/$1.log" 2>&1 ||
    { cat "$profiles/$1.log"; return 255; }
}
export -f run
export build profiles
printf '%s\n' "${programs[@]}" | xargs -P 2 -I PROGRAM bash -c 'run PROGRAM'

llvm-profdata-14 merge -o "$profiles/all.profdata" "$profiles"/*.profraw
# The public map is a template: what its own tests make of it counts.
objects=(-object "$build/bin/amesp_test_schema")
for library in "$build"/lib*/libvelk_core_*.so; do
  objects+=(-object "$library")
done
llvm-cov-14 export -instr-profile "$profiles/all.profdata" "$build"/lib*/libvelk_amesp_inp.so "${objects[@]}" \
  >"$profiles/export.json"
scripts/coverage_gaps.py "$profiles/export.json" tests/coverage_exclusions.txt
