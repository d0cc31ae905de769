#!/usr/bin/env bash
# Every C++ file is laid out as .clang-format says.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files -z '*.cpp' '*.hpp' | xargs -0 clang-format-14 --dry-run --Werror
echo "format: ok"
