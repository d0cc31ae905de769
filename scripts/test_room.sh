#!/usr/bin/env bash
# After an edit: builds the tests of one room with what they need, and runs them.
# usage: test_room.sh ROOM [GTEST_FILTER], such as test_room.sh parser 'Lines.*'
set -euo pipefail
cd "$(dirname "$0")/.."
room=${1:?usage: test_room.sh ROOM [GTEST_FILTER]; the rooms are the directories of tests/}
[ -f build/gcc/CMakeCache.txt ] || cmake --preset gcc >/dev/null
cmake --build --preset gcc --target "amesp_test_$room"
exec "build/gcc/bin/amesp_test_$room" --gtest_brief=1 --gtest_filter="${2:-*}"
