#!/usr/bin/env bash
# The built libraries and the program carry the hardening that an optimised build promises.
# usage: check_hardening.sh BUILD_DIRECTORY (an optimised one)
set -euo pipefail
status=0

# require FILE PROPERTY READELF_OPTIONS PATTERN
require() {
  if ! LC_ALL=C readelf -W "$3" "$1" | grep -E "$4" >/dev/null; then
    echo "$1: $2" >&2
    status=1
  fi
}

for file in "$1"/lib*/libvelk_*.so "$1/bin/amesp-inp"; do
  require "$file" "symbols are bound late" --dynamic 'FLAGS_1.*NOW'
  require "$file" "the relocations stay writable" --program-headers 'GNU_RELRO'
  require "$file" "the stack can be executed" --program-headers 'GNU_STACK.* RW +0x'
  require "$file" "the stack is not guarded" --dyn-syms '__stack_chk_fail'
  # vsnprintf is what std::to_string of a real takes the address of.
  if LC_ALL=C readelf -W --dyn-syms "$file" | grep -E ' UND (v?s?printf|snprintf|v?fprintf)@'; then
    echo "$file: a formatted print without the fortified form" >&2
    status=1
  fi
done
require "$1/bin/amesp-inp" "no fortified call" --dyn-syms '__[a-z]+_chk@'
require "$1/bin/amesp-inp" "the program has a fixed address" --file-header 'Type: +DYN'
require "$1/bin/amesp-inp" "the program has a fixed address" --dynamic 'FLAGS_1.*PIE'
[ "$status" -eq 0 ] && echo "hardening: ok"
exit "$status"
