#!/usr/bin/env bash
# The tests with threads, and the worker threads of `amesp-inp check`, under clang's thread sanitizer. yaml-cpp is
# Debian's own and not instrumented: what happens inside it is not seen, all that this project's threads share is.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/thread
export TSAN_OPTIONS=halt_on_error=1
cmake --preset thread >/dev/null
cmake --build --preset thread --target amesp_test_threads amesp-inp
"$build/bin/amesp_test_threads"

directory=$(mktemp -d)
trap 'rm -r "$directory"' EXIT
mkdir "$directory/inputs"
for number in $(seq 100); do
  cp examples/mistakes.inp "$directory/inputs/$number.inp"
done
for threads in 1 8; do
  status=0
  "$build/bin/amesp-inp" check -j "$threads" --schema schemas/input/amesp.yaml --format json "$directory/inputs" \
    >"$directory/$threads.json" || status=$?
  [ "$status" -eq 1 ] || { echo "check -j $threads ended with status $status" >&2; exit 1; }
done
cmp "$directory/1.json" "$directory/8.json"
echo "threads: ok"
