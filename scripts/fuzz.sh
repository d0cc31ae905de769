#!/usr/bin/env bash
# Builds the fuzzers and runs each for some seconds, two at a time, from its corpus on. What they find anew stays in
# build/fuzz/corpus, an input that breaks something in build/fuzz/broken.
# usage: fuzz.sh [SECONDS_PER_TARGET [TARGET...]]     (20 seconds and all targets without arguments)
# VELK_FUZZ_SEED makes a run that can be repeated; without it every run looks elsewhere.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-20}
shift || true
[ $# -gt 0 ] || set -- edits model numbers parse schema xyz

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz >build/fuzz/build.log || { cat build/fuzz/build.log; exit 1; }

run() {  # run SECONDS TARGET
  local dictionary=fuzz/dictionaries/$2.dict log=build/fuzz/$2.log
  [ -f "$dictionary" ] || dictionary=fuzz/dictionaries/input.dict
  export ASAN_OPTIONS=malloc_context_size=4
  mkdir -p "build/fuzz/corpus/$2" build/fuzz/broken
  if "build/fuzz/bin/amesp_fuzz_$2" "build/fuzz/corpus/$2" "fuzz/corpus/$2" -dict="$dictionary" \
    -max_total_time="$1" -max_len=1024 -timeout=10 -entropic=0 -seed="${VELK_FUZZ_SEED:-0}" -rss_limit_mb=2048 -print_final_stats=1 \
    -artifact_prefix="build/fuzz/broken/$2-" >"$log" 2>&1; then
    echo "$2: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") inputs in $1 s, nothing broken"
  else
    tail -n 60 "$log"
    echo "$2: broken; the input is in build/fuzz/broken, the log in $log"
    return 1
  fi
}
export -f run
# shellcheck disable=SC2016
printf '%s\n' "$@" | xargs -P 2 -I{} bash -euo pipefail -c 'run "$1" "$2"' run "$seconds" {}
