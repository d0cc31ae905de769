#!/usr/bin/env bash
# clang-tidy with the checks of .clang-tidy, and cppcheck, over the library, the core libraries and the program.
# usage: check_static.sh BUILD_DIRECTORY (one configured with clang++)
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files 'src/*.cpp' 'core/*.cpp' 'tools/*.cpp' | xargs -P 2 -n 4 clang-tidy-14 -p "$1" --quiet \
  --warnings-as-errors='*' 2>/dev/null
cppcheck --quiet --std=c++20 --language=c++ --enable=warning,performance,portability --inline-suppr \
  --error-exitcode=1 --suppress=missingIncludeSystem -I include -I core/include -I src src core
echo "static analysis: ok"
