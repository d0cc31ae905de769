#!/usr/bin/env bash
# Sets up what is missing, builds the benchmarks and prints their table. Arguments are Google Benchmark's, such as
# --benchmark_filter='1e3 atoms'.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh scripts/packages.txt scripts/benchmark_packages.txt
mkdir -p build
cmake --preset bench >build/bench.log
cmake --build --preset bench >>build/bench.log || { cat build/bench.log; exit 1; }
build/bench/bin/amesp_bench "$@"
build/bench/bin/amesp_bench_memory
