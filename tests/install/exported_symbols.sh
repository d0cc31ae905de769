#!/usr/bin/env bash
# Only the public interface is visible in the libraries.
# usage: exported_symbols.sh LIBRARY_DIRECTORY SOURCE_DIRECTORY [--update]
set -euo pipefail
directory=$1
expected=$2/tests/golden/exported_symbols.txt
actual=$(for library in velk_amesp_inp velk_core_fs velk_core_resource velk_core_text; do
  printf '# lib%s.so\n' "$library"
  nm -DC --defined-only "$directory/lib$library.so" | sed -E 's/^[0-9a-f]+ //' | grep -v '^A ' | LC_ALL=C sort -u
done)
if [ "${3:-}" = --update ]; then
  printf '%s\n' "$actual" >"$expected"
fi
diff -u "$expected" <(printf '%s\n' "$actual")
echo "exported symbols: ok"
