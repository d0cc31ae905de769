#!/usr/bin/env bash
# The tests with threads, under clang's thread sanitizer. yaml-cpp is Debian's own and not instrumented: what happens
# inside it is not seen, all that this library and its tests share between threads is.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset thread >/dev/null
cmake --build --preset thread --target amesp_test_threads
TSAN_OPTIONS=halt_on_error=1 build/thread/bin/amesp_test_threads
echo "threads: ok"
