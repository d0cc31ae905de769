#!/usr/bin/env bash
# Builds the libraries and the program without what only Linux has, and runs the tests of the core libraries on that.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/portable
cmake -G Ninja -S . -B "$build" -DVELK_CORE_PORTABLE=ON -DVELK_WARNINGS_AS_ERRORS=OFF \
  -DCMAKE_BUILD_TYPE= -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=16 >/dev/null
cmake --build "$build" --target amesp-inp amesp_test_core -- --quiet
# Left out: the tests of calls that are not made here.
"$build/bin/amesp_test_core" --gtest_brief=1 --gtest_filter='-OddAnswers.*:ReserveRoom.AsksForLargePagesForLongListsAlone'
"$build/bin/amesp-inp" check --quiet --schema schemas/input/amesp.yaml examples/water.inp
for library in "$build"/lib*/libvelk_*.so; do
  if nm -D --undefined-only "$library" | grep -E ' (getrandom|madvise|strerrordesc_np)(@|$)'; then
    echo "$library: a call that only Linux has" >&2
    exit 1
  fi
done
echo "portable: ok"
