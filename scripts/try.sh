#!/usr/bin/env bash
# Sets up what is missing, builds the program and checks the example inputs with it.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
echo "Building the library and the program, which takes about a minute"
cmake --preset release
cmake --build --preset release
program=build/release/bin/amesp-inp

printf '\n$ amesp-inp check examples/water.inp\n'
"$program" check examples/water.inp

printf '\n$ amesp-inp check examples/mistakes.inp\n'
status=0
"$program" check examples/mistakes.inp || status=$?
if [ "$status" -ne 1 ]; then
  echo "expected findings (exit status 1), got exit status $status" >&2
  exit 1
fi
printf '\nThe program is %s; try it on your own inputs.\n' "$program"
