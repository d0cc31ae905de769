#!/usr/bin/env bash
# clang-tidy with the checks of .clang-tidy, and cppcheck, over the library, the core libraries and the program.
# usage: check_static.sh [FILE...]    (of these what is a source of them; all of them without arguments)
set -euo pipefail
cd "$(dirname "$0")/.."
# A build of its own, which is only configured: the others are compiled in large pieces, of which clang-tidy knows nothing.
cmake --preset clang -B build/static -DVELK_BUILD_TESTS=OFF >/dev/null
if [ $# -eq 0 ]; then
  mapfile -t files < <(git ls-files 'src/*.cpp' 'core/*.cpp' 'tools/*.cpp')
else
  mapfile -t files < <(printf '%s\n' "$@" | grep -E '^(src|core|tools)/.*\.cpp$' || true)
fi
[ ${#files[@]} -gt 0 ] || { echo "static analysis: nothing to do"; exit; }
printf '%s\n' "${files[@]}" | xargs -P 2 -n 4 clang-tidy-14 -p build/static --quiet --warnings-as-errors='*' 2>/dev/null
cppcheck --quiet --std=c++20 --language=c++ --enable=warning,performance,portability --inline-suppr \
  --error-exitcode=1 --suppress=missingIncludeSystem -I include -I core/include -I src src core
echo "static analysis: ok"
