#!/usr/bin/env bash
# The installed package serves programs outside the tree, from a prefix that was moved, by CMake and by pkg-config.
# usage: installed_package.sh BUILD_DIRECTORY SOURCE_DIRECTORY
set -euo pipefail
build=$1
source=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME=$work/home XDG_DATA_DIRS=$work/none
unset XDG_DATA_HOME VELK_AMESP_INP_SCHEMA_YAML LD_LIBRARY_PATH || true

step() { printf '== %s\n' "$1"; }
fail() { printf 'FAILED: %s\n' "$1" >&2; exit 1; }

step "install, then move the prefix"
cmake --install "$build" --prefix "$work/first" >"$work/install.log"
mv "$work/first" "$work/moved"
prefix=$work/moved
pc=$(find "$prefix" -name velk_amesp_inp.pc)
test -f "$prefix/share/velk/schemas/input/amesp.yaml" || fail "the schema is not installed"

step "every public header compiles on its own"
for header in $(cd "$prefix/include" && find velk -name '*.hpp'); do
  printf '#include <%s>\n' "$header" |
    c++ -std=c++20 -Wall -Wextra -Werror -fsyntax-only -x c++ -I"$prefix/include" - || fail "$header"
  if grep -q yaml-cpp "$prefix/include/$header"; then fail "$header names a private dependency"; fi
done

step "a consumer built with CMake"
cmake -S "$source/tests/install/consumer" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$prefix" >"$work/cmake.log" 2>&1 ||
  { cat "$work/cmake.log"; fail "configure"; }
cmake --build "$work/cmake" >"$work/cmake-build.log" 2>&1 || { cat "$work/cmake-build.log"; fail "build"; }
"$work/cmake/consumer" | grep -qx '% maxcore 1000' || fail "the consumer built with CMake"

step "a consumer built with pkg-config"
export PKG_CONFIG_PATH=${pc%/*}
read -ra flags <<<"$(pkg-config --cflags --libs velk_amesp_inp)"
c++ -std=c++20 "$source/tests/install/consumer/main.cpp" -o "$work/consumer" "${flags[@]}"
LD_LIBRARY_PATH=$(pkg-config --variable=libdir velk_amesp_inp) "$work/consumer" | grep -qx '% maxcore 1000' ||
  fail "the consumer built with pkg-config"

if [ -x "$prefix/bin/amesp-inp" ]; then
  step "the installed program finds its libraries and its schema"
  (cd / && "$prefix/bin/amesp-inp" check "$source/examples/water.inp") || fail "amesp-inp check"

  step "without any schema the program says where it looked"
  mv "$prefix/share/velk" "$work/hidden"
  status=0
  "$prefix/bin/amesp-inp" check "$source/examples/water.inp" 2>"$work/stderr" || status=$?
  [ "$status" -eq 2 ] || fail "exit status $status without a schema"
  for place in 'no schema found' 'VELK_AMESP_INP_SCHEMA_YAML (not set)' "$HOME/.local/share" "$work/none"; do
    grep -qF "$place" "$work/stderr" || fail "the message does not name: $place"
  done
  [ "$(wc -l <"$work/stderr")" -eq 6 ] || fail "not one place a line"
  VELK_AMESP_INP_SCHEMA_YAML=$'a\n\e[31mb' "$prefix/bin/amesp-inp" check x 2>"$work/stderr" || true
  grep -qF "'a??[31mb'" "$work/stderr" || fail "a variable acts on the terminal"
  [ "$(wc -l <"$work/stderr")" -eq 6 ] || fail "a variable makes a line of its own"
fi
echo "installed package: ok"
