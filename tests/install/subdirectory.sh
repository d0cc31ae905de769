#!/usr/bin/env bash
# The library builds as a part of another project, with its own core libraries and with that project's.
# usage: subdirectory.sh SOURCE_DIRECTORY
set -euo pipefail
source=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for suite_core in OFF ON; do
  printf '== core libraries of the enclosing project: %s\n' "$suite_core"
  build=$work/$suite_core
  cmake -G Ninja -S "$source/tests/install/subdirectory" -B "$build" -DAMESP_INP_SOURCE="$source" \
    -DSUITE_CORE="$suite_core" -DVELK_INSTALL=ON -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=16 >"$work/log" 2>&1 && cmake --build "$build" >>"$work/log" 2>&1 &&
    cmake --install "$build" --prefix "$work/installed-$suite_core" >>"$work/log" 2>&1 ||
    { cat "$work/log"; exit 1; }
  VELK_AMESP_INP_SCHEMA_YAML=$source/schemas/input/amesp.yaml "$build/consumer" | grep -qx '% maxcore 1000'
  # What such a project installs is a package, too.
  mkdir -p "$work/user"
  printf '%s\n' 'cmake_minimum_required(VERSION 3.25)' 'project(user LANGUAGES CXX)' \
    'find_package(velk_amesp_inp 0.9 CONFIG REQUIRED)' >"$work/user/CMakeLists.txt"
  cmake -G Ninja -S "$work/user" -B "$work/user-$suite_core" -DCMAKE_PREFIX_PATH="$work/installed-$suite_core" \
    >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
done
echo "subdirectory: ok"
