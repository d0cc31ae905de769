#!/usr/bin/env bash
# The benchmarks build, and the kernels that they measure against give the library's results. Nothing is measured.
# usage: check_benchmarks.sh BUILD_DIRECTORY
set -euo pipefail
cd "$(dirname "$0")/.."
cmake -B "$1" -DVELK_BUILD_BENCHMARKS=ON >/dev/null
cmake --build "$1" --target amesp_bench amesp_bench_memory
AMESP_BENCH_PATIENCE=0 "$1/bin/amesp_bench" --benchmark_filter='-1e6' >"$1/benchmarks.log"
"$1/bin/amesp_bench_memory" >>"$1/benchmarks.log"
echo "benchmarks: ok"
