#!/usr/bin/env bash
# Counts the instructions that each operation takes on what is large in one way, at two sizes, the second eight times
# the first: none may grow by more than 8.8 times. Instructions, not time: the answer is the same on a busy machine.
# usage: check_growth.sh BUILD_DIRECTORY [SIZE]
set -euo pipefail
cd "$(dirname "$0")/.."
size=${2:-200}
directory=$(mktemp -d)
trap 'rm -r "$directory"' EXIT
valgrind --tool=callgrind --collect-atstart=no --dump-line=no --log-file="$directory/log" \
  --callgrind-out-file="$directory/out" "$1/bin/amesp_growth" "$size"
cat "$directory"/out.* | awk -v n="$size" '
  /^desc: Trigger: Client Request: / { sub(/^desc: Trigger: Client Request: /, ""); name = $0 }
  /^(totals|summary): / && name != "" {
    size = name; sub(/.*: /, "", size); sub(/: [0-9]+$/, "", name)
    if (size == n) { small[name] = $2; order[++count] = name } else { large[name] = $2 }
    name = ""
  }
  END {
    for (i = 1; i <= count; ++i) {
      name = order[i]; operation = name; sub(/: .*/, "", operation)
      if (small[name] == 0 || large[name] == 0) { print "not measured: " name; failed = 1; continue }
      growth = large[name] / small[name]
      if (growth > 8.8) { printf "%6.2f  %s: TOO MUCH\n", growth, name; failed = 1 }
      if (growth > most[operation]) { most[operation] = growth; where[operation] = name }
    }
    for (operation in most) { printf "%6.2f  %s\n", most[operation], where[operation] | "sort -k2" }
    close("sort -k2")
    if (count < 100) { print "only " count " measurements"; failed = 1 }
    printf "growth: %d operations at two sizes, %s\n", count, failed ? "FAILED" : "ok"
    exit failed
  }'
